#include "BrokenStore.h"
#include "app/CommandLine.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>

namespace {

enum class Edits { Everything, TheScreen, Nothing };

/// One of the program's operations that write: of the dialog, or of the pattern manager that is open over it.
struct WritingOperation {
    const char* name;
    int current; ///< number of the current Pattern
    Edits edits; ///< that are not saved yet when it begins
    void (*ofDialog)(MainSettings&, const BrokenStore&);
    void (*ofManager)(PatternList&);
    std::set<int> patterns; ///< those that it may change
};

SaveAnswer Yes() {
    return SaveAnswer::Yes;
}
SaveAnswer No() {
    return SaveAnswer::No;
}

const std::vector<WritingOperation>& Operations() {
    static const auto apply = [](MainSettings& dialog, const BrokenStore& /*store*/) { dialog.Apply(); };
    static const std::vector<WritingOperation> operations{
        {"Apply", 2, Edits::Everything, apply, nullptr, {2}},
        {"ApplyTheScreen", 2, Edits::TheScreen, apply, nullptr, {}},
        {"SwitchAndSave",
         2,
         Edits::Everything,
         [](MainSettings& dialog, const BrokenStore& /*store*/) { dialog.SwitchPattern(3, Yes); },
         nullptr,
         {2}},
        {"SwitchAlone",
         2,
         Edits::Everything,
         [](MainSettings& dialog, const BrokenStore& /*store*/) { dialog.SwitchPattern(3, No); },
         nullptr,
         {}},
        {"WizardFromTheDialog",
         2,
         Edits::Everything,
         [](MainSettings& dialog, const BrokenStore& store) { dialog.SaveButton(4, store.EditedSlot()); },
         nullptr,
         {2}},
        {"WizardAlone",
         3,
         Edits::Nothing,
         [](MainSettings& dialog, const BrokenStore& store) {
             StartUp startUp;
             startUp.WizardButton = 1;
             dialog.SaveLoneButton(startUp, store.EditedSlot());
         },
         nullptr,
         {3}},
        {"Add", 2, Edits::Everything, nullptr, [](PatternList& list) { list.Add(L"New"); }, {4}},
        {"Copy", 2, Edits::Everything, nullptr, [](PatternList& list) { list.Copy(2, L"New"); }, {4}},
        {"Rename", 2, Edits::Everything, nullptr, [](PatternList& list) { list.Rename(2, L"New"); }, {3}},
        {"RenameTheCurrent",
         2,
         Edits::Everything,
         nullptr,
         [](PatternList& list) { list.Rename(1, L"New"); },
         {2}},
        {"DeleteBeforeTheCurrent",
         2,
         Edits::Everything,
         nullptr,
         [](PatternList& list) { list.Delete(0); },
         {1, 2, 3}},
        {"DeleteAfterTheCurrent",
         1,
         Edits::Everything,
         nullptr,
         [](PatternList& list) { list.Delete(1); },
         {2, 3}},
        {"DeleteTheLast", 1, Edits::Everything, nullptr, [](PatternList& list) { list.Delete(2); }, {3}},
        {"DeleteWithTheLastAsCurrent",
         3,
         Edits::Everything,
         nullptr,
         [](PatternList& list) { list.Delete(1); },
         {2, 3}}};
    return operations;
}

/// All the rest that one can do.
void UseLong(MainSettings& dialog, const BrokenStore& store) {
    dialog.SetButtonName(5, L"later");
    dialog.Apply();
    dialog.SetButtonName(6, L"later still");
    dialog.SwitchPattern(1, Yes);
    dialog.SetButtonName(6, L"later than that");
    dialog.ManagePatterns([](PatternList& list) {
        list.Load();
        list.Add(L"Added");
        list.Copy(0, L"Copied");
        list.Rename(1, L"Renamed");
        list.Delete(list.Count() - 2);
    });
    dialog.SaveButton(3, store.EditedSlot());
}

class BrokenOperation : public testing::TestWithParam<std::tuple<bool, std::size_t>> {
public:
    static constexpr int kButtons = BrokenStore::kDialogButtons;
    static constexpr int kMostPatterns = BrokenStore::kPatterns + 1;

    [[nodiscard]] static bool IsIniFile() { return std::get<0>(GetParam()); }
    [[nodiscard]] static const WritingOperation& Operation() {
        return Operations().at(std::get<1>(GetParam()));
    }

    BrokenOperation() {
        before.TakeContentsOf(store);
        begun.emplace(Begun(store));
        opened.emplace(store.store, *store.patterns, store.defaults).Load();
        MainSettings whole = Begun(wholeStore);
        Operate(whole, [&](const auto& operation) {
            wholeStore.ForgetOperations();
            operation(wholeStore);
            calls.emplace(wholeStore);
            EXPECT_EQ(wholeStore.CallsOfTheOther(), 0);
        });
        wholeStore.RememberNoCalls();
        store.RememberNoCalls();
        after.TakeContentsOf(wholeStore);
        for (int number = 1; number <= kMostPatterns; ++number) {
            patternsBefore.push_back(store.patterns->LoadPattern(number, store.defaults));
            patternsAfter.push_back(wholeStore.patterns->LoadPattern(number, store.defaults));
        }
        whole.Apply();
        afterUse.TakeContentsOf(wholeStore);
        wholeUsed.emplace(whole);
        UseLong(whole, wholeStore);
        afterLongUse.TakeContentsOf(wholeStore);
    }

    static MainSettings Begun(BrokenStore& fresh) {
        MainSettings dialog(fresh.store, fresh.notification, fresh.fonts);
        dialog.Load();
        switch (Operation().edits) {
        case Edits::Everything:
            fresh.EditEverything(dialog);
            break;
        case Edits::TheScreen:
            fresh.EditTheScreen(dialog);
            break;
        case Edits::Nothing:
            break;
        }
        return dialog;
    }

    [[nodiscard]] static bool IsOfManager() { return Operation().ofManager != nullptr; }

    /// Has `run` run the operation; the manager is open meanwhile and closes behind it.
    static void Operate(MainSettings& dialog,
                        const std::function<void(const std::function<void(const BrokenStore&)>&)>& run) {
        if (!IsOfManager()) {
            run([&](const BrokenStore& on) { Operation().ofDialog(dialog, on); });
            return;
        }
        dialog.ManagePatterns([&](PatternList& list) {
            list.Load();
            run([&](const BrokenStore& /*on*/) { Operation().ofManager(list); });
        });
    }

    void Run(MainSettings& dialog, Fault fault, int number) {
        store.TakeContentsOf(before);
        Operate(dialog, [&](const auto& operation) {
            store.Arm(fault, number);
            operation(store);
            store.Disarm();
        });
        EXPECT_EQ(store.windows.Events().size(), IsOfManager() ? 0U : 1U);
    }

    /// The process ends in that call.
    void Kill(int number) {
        store.TakeContentsOf(before);
        MainSettings dialog = *begun;
        PatternList list = *opened;
        store.Arm(Fault::Death, number);
        bool lived = true;
        try {
            IsOfManager() ? Operation().ofManager(list) : Operation().ofDialog(dialog, store);
        } catch (const KilledInCall&) {
            lived = false;
        }
        store.Disarm();
        EXPECT_EQ(lived, number > calls->Count());
        EXPECT_EQ(store.windows.Events().size(), IsOfManager() || !lived ? 0U : 1U);
    }

    /// Each number is the old or the new one, and only a Pattern that comes or goes can lack its section.
    void ExpectUsableNumbers() const {
        const int count = store.Number(L"NumUser");
        EXPECT_TRUE(count == before.Number(L"NumUser") || count == after.Number(L"NumUser"));
        const int current = store.Number(L"CurrUser");
        EXPECT_TRUE(current == before.Number(L"CurrUser") || current == after.Number(L"CurrUser"));
        const bool sameCount = before.Number(L"NumUser") == after.Number(L"NumUser");
        const int last = std::max(before.Number(L"NumUser"), after.Number(L"NumUser"));
        for (int pattern = 1; pattern <= count; ++pattern) {
            EXPECT_TRUE(store.HasSection(pattern) || (!sameCount && pattern == last)) << pattern;
        }
    }

    /// What the next start makes of the store, value by value.
    void ExpectUsableByTheNextStart() {
        const std::set<std::wstring> changed = store.Differences(startedOn);
        if (changed.empty()) {
            return; // the same start as the last one
        }
        startedOn.TakeContentsOf(store);
        for (int number = 1; number <= kMostPatterns; ++number) {
            std::optional<Pattern>& read = started.at(static_cast<std::size_t>(number) - 1);
            if (!read || AnyOfPattern(changed, number)) {
                read = store.patterns->LoadPattern(number, store.defaults);
            }
        }
        MainSettings next(store.store, store.notification, store.fonts);
        next.Load();
        EXPECT_EQ(next.CurrentPattern(), store.Number(L"CurrUser"));
        ASSERT_EQ(next.PatternNames().size(), static_cast<std::size_t>(store.Number(L"NumUser")));
        EXPECT_FALSE(next.AnythingChanged());
        for (std::size_t i = 0; i < next.PatternNames().size(); ++i) {
            const int number = static_cast<int>(i) + 1;
            const bool isCurrent = number == next.CurrentPattern();
            const Pattern& now = isCurrent ? next.Working() : *started[i];
            EXPECT_EQ(next.PatternNames()[i], now.UserName);
            EXPECT_TRUE(IsOldOrNew(now, patternsBefore[i], patternsAfter[i])) << testing::PrintToString(now);
        }
        const OnScreenSettings& screen = next.OnScreen();
        const OnScreenSettings was = BrokenStore::StoredScreen();
        const OnScreenSettings would = BrokenStore::EditedScreen();
        EXPECT_TRUE(screen.OnScreen == was.OnScreen || screen.OnScreen == would.OnScreen);
        EXPECT_TRUE(screen.FontName == was.FontName || screen.FontName == would.FontName);
        EXPECT_TRUE(screen.FontSize == was.FontSize || screen.FontSize == would.FontSize);
        EXPECT_TRUE(screen.Color == was.Color || screen.Color == would.Color);
    }

    static bool IsOfPattern(const std::wstring& place, int number) {
        return place.find(L"\\set" + std::to_wstring(number)) != std::wstring::npos ||
               place.starts_with(L"user" + std::to_wstring(number));
    }
    static bool AnyOfPattern(const std::set<std::wstring>& places, int number) {
        return std::any_of(places.begin(), places.end(),
                           [&](const std::wstring& place) { return IsOfPattern(place, number); });
    }

    static bool IsOldOrNew(const Pattern& now, const Pattern& was, const Pattern& would) {
        const auto fits = [](const auto& is, const auto& a, const auto& b) { return is == a || is == b; };
        bool all = fits(now.UserName, was.UserName, would.UserName);
        for (int button = 1; button <= kButtons; ++button) {
            const ButtonSlot& is = now.Btn(button);
            const ButtonSlot& a = was.Btn(button);
            const ButtonSlot& b = would.Btn(button);
            // Of a Pattern that comes or goes, an unknown method is shown as "M".
            all = all && fits(is.Name, a.Name, b.Name) && fits(is.NumAP, a.NumAP, b.NumAP) &&
                  (fits(is.Exec, a.Exec, b.Exec) || (is.Exec == L"M" && fits(L"", a.Exec, b.Exec)));
            for (int k = 1; k <= kMaxPrograms; ++k) {
                all = all && fits(is.Program(k).AP, a.Program(k).AP, b.Program(k).AP) &&
                      fits(is.Program(k).Param, a.Program(k).Param, b.Program(k).Param) &&
                      fits(is.Program(k).Title, a.Program(k).Title, b.Program(k).Title);
            }
        }
        return all;
    }

    /// Where the store differs for good, after the fault, from that of a program that never met one.
    ///
    /// The dialog's own Pattern, the screen and the numbers are written again by the next save. What stays is what a
    /// switch leaves behind or could not read: an edit that was refused when the dialog turned to another Pattern
    /// keeps its former value, and a value of the new Pattern that could not be read is the maker's default, which
    /// the next save stores.
    [[nodiscard]] std::set<std::wstring> LastingDifferences(Fault fault, int number) const {
        std::set<std::wstring> places;
        const std::string operation = Operation().name;
        if (operation != "SwitchAndSave" && operation != "SwitchAlone") {
            return places;
        }
        const std::set<std::wstring> changed = before.Differences(after);
        const int last = fault == Fault::Once ? std::min(number, calls->Count()) : calls->Count();
        for (int call = number; call <= last; ++call) {
            const std::wstring place = calls->PlaceOf(call);
            const bool isStoredAgain = place.find(L"curr") != std::wstring::npos;
            if (!isStoredAgain && (calls->IsRead(call) || changed.contains(place))) {
                places.insert(place);
            }
        }
        return places;
    }

    /// The dialog that met the fault goes on with a store that works again.
    void ExpectToGoOn(MainSettings& dialog, Fault fault, int number) {
        std::set<std::wstring> lasting;
        if (IsOfManager()) {
            ExpectNoOtherPatternWrittenOver(dialog, fault, number);
        } else {
            lasting = LastingDifferences(fault, number);
            dialog.Apply();
            EXPECT_EQ(store.Differences(afterUse), lasting);
            EXPECT_EQ(dialog.CurrentPattern(), wholeUsed->CurrentPattern());
            EXPECT_EQ(dialog.OnScreen(), wholeUsed->OnScreen());
            if (lasting.empty()) {
                EXPECT_TRUE(dialog.Working() == wholeUsed->Working());
                EXPECT_EQ(dialog.PatternNames(), wholeUsed->PatternNames());
            }
        }
        EXPECT_FALSE(dialog.AnythingChanged());
        // The program and its store now are those that met no fault, so that a longer use is tried of some only.
        constexpr int kSome = 32;
        if (number % kSome == 1 || number == 2 || number == 3 || number == calls->Count()) {
            UseLong(dialog, store);
            if (!IsOfManager() && lasting.empty()) {
                EXPECT_EQ(store.Differences(afterLongUse), lasting);
            }
        }
    }

    /// What the manager could not write is lost; what the dialog then saves goes over nothing else. Its edits are
    /// stored where the Pattern is that they were made in, or nowhere.
    void ExpectNoOtherPatternWrittenOver(MainSettings& dialog, Fault fault, int number) {
        closed.TakeContentsOf(store);
        const int current = store.Number(L"CurrUser");
        EXPECT_EQ(dialog.CurrentPattern(), current);
        const Pattern stored = store.patterns->LoadPattern(current, store.defaults);
        const std::wstring& ownName = patternsAfter.at(Index(after.Number(L"CurrUser"))).UserName;
        const std::wstring& formerName = patternsBefore.at(Index(Operation().current)).UserName;
        const bool isOwn = current == after.Number(L"CurrUser") &&
                           (stored.UserName == ownName || stored.UserName == formerName);
        const bool hasEdits = dialog.PatternChanged();
        EXPECT_TRUE(isOwn || !hasEdits);
        // A name that could not be read counts as missing.
        EXPECT_TRUE(hasEdits || !isOwn || FailedToRead(fault, number));
        if (!hasEdits) {
            EXPECT_TRUE(IsOldOrNew(dialog.Working(), stored, stored));
        }
        dialog.Apply();
        for (const std::wstring& place : store.Differences(closed)) {
            EXPECT_TRUE(IsOfPattern(place, current) || place.find(L"onscreen") != std::wstring::npos)
                << testing::PrintToString(place);
        }
        EXPECT_EQ(store.Stored(current), dialog.Working());
        EXPECT_EQ(dialog.Working().UserName, stored.UserName);
        if (hasEdits) {
            EXPECT_EQ(dialog.Slot(1), store.FullPattern(BrokenStore::kEdited).Btn(1));
        }
    }

    [[nodiscard]] bool FailedToRead(Fault fault, int number) const {
        const int last = fault == Fault::Once ? std::min(number, calls->Count()) : calls->Count();
        bool failed = false;
        for (int call = number; call <= last; ++call) {
            failed = failed || calls->IsRead(call);
        }
        return failed;
    }

    static std::size_t Index(int number) { return static_cast<std::size_t>(number) - 1; }

    BrokenStore before{IsIniFile()};
    BrokenStore after{IsIniFile()}; ///< where all went well
    BrokenStore afterUse{IsIniFile()};
    BrokenStore afterLongUse{IsIniFile()};
    BrokenStore expected{IsIniFile()};
    BrokenStore startedOn{IsIniFile()};
    BrokenStore store{IsIniFile(), Operation().current, kButtons};
    BrokenStore wholeStore{IsIniFile(), Operation().current, kButtons};
    BrokenStore closed{IsIniFile()}; ///< when the manager closed
    std::optional<MainSettings> begun;
    std::optional<PatternList> opened;
    std::optional<MainSettings> wholeUsed; ///< has met no fault
    std::optional<RecordedCalls> calls;
    std::vector<Pattern> patternsBefore; ///< by number, as the program reads them
    std::vector<Pattern> patternsAfter;
    std::vector<std::optional<Pattern>> started{kMostPatterns}; ///< by number, as the last start read them
};

TEST_P(BrokenOperation, ChangesNoOtherPattern_WhenNothingGoesWrong) {
    EXPECT_FALSE(before.SameContents(after));
    for (int pattern = 1; pattern <= kMostPatterns; ++pattern) {
        if (!Operation().patterns.contains(pattern)) {
            EXPECT_EQ(after.Stored(pattern), before.Stored(pattern)) << pattern;
        }
    }
    EXPECT_EQ(after.UserDword(L"OnScreen", L"Time"), 5);
    EXPECT_EQ(after.Line(L"Other", L"Unknown"), "theirs");
}

// The values are those of the whole operation without the calls that went wrong: each is the old or the new one.

TEST_P(BrokenOperation, LeavesOneValueOld_WhicheverCallFails_AndGoesOn) {
    for (int number = 1; number <= calls->Count() + 1 && !HasFailure(); ++number) {
        SCOPED_TRACE("call " + std::to_string(number));
        MainSettings program = *begun;
        Run(program, Fault::Once, number);
        expected.TakeContentsOf(after);
        if (number <= calls->Count()) {
            calls->Undo(number, expected, before);
        }
        EXPECT_TRUE(store.SameContents(expected));
        ExpectUsableNumbers();
        ExpectUsableByTheNextStart();
        ExpectToGoOn(program, Fault::Once, number);
    }
}

TEST_P(BrokenOperation, LeavesTheLaterValuesOld_WhereverTheStoreOrTheProcessEnds_AndGoesOn) {
    expected.TakeContentsOf(before);
    for (int number = 1; number <= calls->Count() + 1 && !HasFailure(); ++number) {
        SCOPED_TRACE("call " + std::to_string(number));
        if (number > 1) {
            calls->Replay(number - 1, expected);
        }
        Kill(number);
        EXPECT_TRUE(store.SameContents(expected));
        ExpectUsableNumbers();
        ExpectUsableByTheNextStart();

        // What the program is after that hardly depends on the call; each of them goes on above.
        constexpr int kSome = 3;
        if (number % kSome == 1 || number <= kSome || number == calls->Count()) {
            MainSettings program = *begun;
            Run(program, Fault::FromThen, number);
            EXPECT_TRUE(store.SameContents(expected));
            ExpectToGoOn(program, Fault::FromThen, number);
        }
    }
}

std::string CaseName(const testing::TestParamInfo<std::tuple<bool, std::size_t>>& each) {
    return std::string(Operations().at(std::get<1>(each.param)).name) +
           (std::get<0>(each.param) ? "InTheFile" : "InTheRegistry");
}

INSTANTIATE_TEST_SUITE_P(Every, BrokenOperation,
                         testing::Combine(testing::Bool(),
                                          testing::Range<std::size_t>(0, Operations().size())),
                         CaseName);

std::string BackEndName(const testing::TestParamInfo<bool>& backEnd) {
    return backEnd.param ? "IniFile" : "Registry";
}

/// Whether a Pattern can be read in full under one of the numbers that count.
bool IsWhole(const BrokenStore& store, int pattern) {
    const Pattern wanted = store.FullPattern(BrokenStore::Word(pattern));
    for (int number = 1; number <= store.Number(L"NumUser"); ++number) {
        if (store.Stored(number) == wanted) {
            return true;
        }
    }
    return false;
}

/// The edits are stored under the name of the Pattern that they were made in.
bool HasEditsOf(const BrokenStore& store, int pattern) {
    Pattern edited = store.FullPattern(BrokenStore::kEdited);
    edited.UserName = BrokenStore::Word(pattern);
    for (int number = 1; number <= store.Number(L"NumUser"); ++number) {
        if (store.Stored(number) == edited) {
            return true;
        }
    }
    return false;
}

/// A dialog with unsaved edits.
struct EditedDialog {
    EditedDialog(bool iniFile, int current)
        : store(iniFile, current, BrokenStore::kDialogButtons),
          dialog(store.store, store.notification, store.fonts) {
        dialog.Load();
        store.EditEverything(dialog);
    }

    BrokenStore store;
    MainSettings dialog;
};

/// The manager opens over the dialog, deletes a Pattern, and closes.
void DeleteBehind(MainSettings& dialog, int deleted, const std::function<void()>& opened) {
    dialog.ManagePatterns([&](PatternList& list) {
        list.Load();
        opened();
        list.Delete(deleted - 1);
    });
}

/// A program whose user deletes a Pattern while others are edited.
class BrokenDeletion : public testing::TestWithParam<bool> {
public:
    /// Calls `check` for each choice of the current and the deleted Pattern.
    static void ForEachDeletion(const std::function<void(int current, int deleted)>& check) {
        for (int current = 1; current <= BrokenStore::kPatterns; ++current) {
            for (int deleted = 1; deleted <= BrokenStore::kPatterns; ++deleted) {
                if (deleted != current && !HasFailure()) {
                    SCOPED_TRACE("Pattern " + std::to_string(deleted) + " goes, " + std::to_string(current) +
                                 " is current");
                    check(current, deleted);
                }
            }
        }
    }
};

// The number in the store then means another Pattern, or none: that one is shown, and the edits are gone. The list is as
// long as before if that number is refused: its end is a Pattern of the maker's defaults.
TEST_P(BrokenDeletion, CostsNoOtherPattern_WhenANumberIsNeverStored) {
    for (const wchar_t* const refused : {L"CurrUser", L"NumUser"}) {
        ForEachDeletion([&](int current, int deleted) {
            EditedDialog edited(GetParam(), current);
            BrokenStore& store = edited.store;
            MainSettings& dialog = edited.dialog;
            DeleteBehind(dialog, deleted, [&] { store.RefuseEach(refused); });
            dialog.Apply();
            store.Disarm();
            dialog.Apply();
            const bool currentIsOld = std::wstring_view(refused) == L"CurrUser";
            const bool lostEdits = currentIsOld && deleted < current;
            for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
                const bool hasEdits = pattern == current && !lostEdits;
                EXPECT_TRUE(IsWhole(store, pattern) || pattern == deleted || hasEdits) << pattern;
            }
            EXPECT_EQ(HasEditsOf(store, current), !lostEdits);
            EXPECT_EQ(store.Number(L"CurrUser"), current - (deleted < current && !currentIsOld ? 1 : 0));
            EXPECT_EQ(store.Number(L"NumUser"), BrokenStore::kPatterns - (currentIsOld ? 1 : 0));
            const bool isShownBeyond = lostEdits && current == BrokenStore::kPatterns;
            EXPECT_EQ(store.HasSection(BrokenStore::kPatterns), isShownBeyond);
        });
    }
}

// Of the Patterns that were whole when the manager closed, none is written over by the dialog that goes on.
TEST_P(BrokenDeletion, CostsNoFurtherPattern_WhenTheStoreWorksAgainOnlyLater) {
    ForEachDeletion([&](int current, int deleted) {
        const BrokenStore before(GetParam(), current, BrokenStore::kDialogButtons);
        EditedDialog edited(GetParam(), current);
        BrokenStore& store = edited.store;
        MainSettings& begun = edited.dialog;
        MainSettings whole = begun;
        DeleteBehind(whole, deleted, [&] { store.ForgetOperations(); });
        const int writes = store.Calls();
        store.RememberNoCalls();
        constexpr int kStep = 13; // the values of a button
        for (int number = 1; number <= writes; number += number < 4 ? 1 : kStep) {
            SCOPED_TRACE("from write " + std::to_string(number) + " on");
            store.TakeContentsOf(before);
            MainSettings dialog = begun;
            DeleteBehind(dialog, deleted, [&] { store.RefuseWritesFrom(number); });
            std::vector<bool> wasWhole;
            for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
                wasWhole.push_back(IsWhole(store, pattern));
            }
            store.Disarm();
            dialog.Apply();
            for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
                const bool own = pattern == current && HasEditsOf(store, pattern);
                EXPECT_TRUE(!wasWhole.at(static_cast<std::size_t>(pattern) - 1) || pattern == deleted ||
                            own || IsWhole(store, pattern))
                    << pattern;
            }
        }
    });
}

TEST_P(BrokenDeletion, CostsTheEditsAtMost_WhenNothingOfItWasStored) {
    ForEachDeletion([&](int current, int deleted) {
        EditedDialog edited(GetParam(), current);
        BrokenStore& store = edited.store;
        MainSettings& dialog = edited.dialog;
        DeleteBehind(dialog, deleted, [&] { store.RefuseWrites(); });
        store.Disarm();
        EXPECT_EQ(dialog.CurrentPattern(), current);
        dialog.Apply();
        EXPECT_EQ(store.Number(L"NumUser"), BrokenStore::kPatterns);
        const bool hasEdits = deleted > current;
        EXPECT_EQ(HasEditsOf(store, current), hasEdits);
        for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
            EXPECT_EQ(IsWhole(store, pattern), pattern != current || !hasEdits) << pattern;
        }
    });
}

// Its section goes first.
TEST_P(BrokenDeletion, LosesTheLastPatternAlone_WhenTheStoreEndsWithItsSectionGone) {
    constexpr int kLast = BrokenStore::kPatterns;
    for (int deleted = 1; deleted < kLast; ++deleted) {
        EditedDialog edited(GetParam(), kLast);
        BrokenStore& store = edited.store;
        MainSettings& dialog = edited.dialog;
        DeleteBehind(dialog, deleted, [&] { store.RefuseWritesFrom(2); });
        store.Disarm();
        EXPECT_FALSE(store.HasSection(kLast));
        dialog.Apply();
        EXPECT_EQ(store.Number(L"CurrUser"), kLast);
        EXPECT_EQ(store.Stored(kLast).UserName, store.defaults.UserName);
        for (int pattern = 1; pattern < kLast; ++pattern) {
            EXPECT_TRUE(IsWhole(store, pattern)) << pattern;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BackEnds, BrokenDeletion, testing::Bool(), BackEndName);

class BrokenOff : public testing::TestWithParam<bool> {
public:
    struct Rest {
        BrokenStore& store;
        int writes; ///< that were taken
        bool done;
    };

    /// Kills the pattern manager's operation in each of its calls in turn, and then lets it finish.
    static void KillInEachCall(int current, const std::function<void(PatternList&)>& run,
                               const std::function<void(const Rest&)>& check) {
        const BrokenStore before(GetParam(), current, BrokenStore::kListButtons);
        BrokenStore store(GetParam(), current, BrokenStore::kListButtons);
        PatternList begun(store.store, *store.patterns, store.defaults);
        begun.Load();
        bool done = false;
        for (int number = 1; !done && !HasFailure(); ++number) {
            SCOPED_TRACE("call " + std::to_string(number));
            store.TakeContentsOf(before);
            PatternList list = begun;
            store.Arm(Fault::Death, number);
            try {
                run(list);
                done = true;
            } catch (const KilledInCall&) {
                // Nothing happens any more.
            }
            store.Disarm();
            check({store, number - 1, done});
            ASSERT_LT(number, 1000);
        }
    }
};

// The last section goes first and the others move up behind it: from then on the last Pattern is nowhere in full,
// until the last write has stored it in its new place. Every other one is always in full in one of two places.
TEST_P(BrokenOff, ADeletionLosesTheLastPatternAtMost_UntilItIsStoredInItsNewPlace) {
    constexpr int kLast = BrokenStore::kPatterns;
    for (int deleted = 1; deleted <= kLast; ++deleted) {
        SCOPED_TRACE("Pattern " + std::to_string(deleted));
        KillInEachCall(
            deleted == 1 ? 2 : 1, [&](PatternList& list) { list.Delete(deleted - 1); },
            [&](const Rest& rest) {
                for (int pattern = 1; pattern < kLast; ++pattern) {
                    EXPECT_TRUE(pattern == deleted || IsWhole(rest.store, pattern)) << pattern;
                }
                if (deleted != kLast) {
                    const bool underWay = rest.writes > 0 && !rest.done;
                    EXPECT_NE(IsWhole(rest.store, kLast), underWay);
                }
            });
    }
}

// The current Pattern's number goes down before the Patterns move up.
TEST_P(BrokenOff, ADeletionShowsTheCurrentPatternOrTheOneBefore) {
    KillInEachCall(
        3, [](PatternList& list) { list.Delete(0); },
        [](const Rest& rest) {
            const int current = rest.store.Number(L"CurrUser");
            EXPECT_TRUE(current == 2 || (current == 3 && rest.writes <= 1)) << current;
            EXPECT_LE(current, rest.store.Number(L"NumUser"));
            const std::wstring name = rest.store.Stored(current).UserName;
            EXPECT_TRUE(name == BrokenStore::Word(3) || (name == BrokenStore::Word(2) && !rest.done) ||
                        (name.empty() && current == 3))
                << testing::PrintToString(name);
        });
}

// The count goes up before the new Pattern is stored.
TEST_P(BrokenOff, AnAdditionTakesWhatIsMissingOfTheNewPatternFromTheDefaults) {
    for (const bool copy : {false, true}) {
        KillInEachCall(
            2, [&](PatternList& list) { copy ? list.Copy(0, L"New") : list.Add(L"New"); },
            [&](const Rest& rest) {
                constexpr int kOld = BrokenStore::kPatterns;
                EXPECT_EQ(rest.store.Number(L"NumUser"), kOld + (rest.writes > 0 ? 1 : 0));
                for (int pattern = 1; pattern <= kOld; ++pattern) {
                    EXPECT_EQ(rest.store.Stored(pattern), rest.store.FullPattern(BrokenStore::Word(pattern)));
                }
                PatternList next(rest.store.store, *rest.store.patterns, rest.store.defaults);
                next.Load();
                ASSERT_EQ(next.Count(), kOld + (rest.writes > 0 ? 1 : 0));
                if (rest.writes > 0) {
                    EXPECT_EQ(next.Name(kOld), rest.writes > 1 ? L"New" : L"Standard");
                }
            });
    }
}

// The manager believes the store, and so does the dialog when it closes.
TEST_P(BrokenOff, ASwitchWhoseNumberIsNeverStoredCostsNoPattern_WhateverTheManagerDeletes) {
    for (const int deleted : {0, 1, 3}) { // 0: none; 3: the one that the dialog shows
        SCOPED_TRACE(deleted);
        BrokenStore store(GetParam(), 2, BrokenStore::kDialogButtons);
        MainSettings dialog(store.store, store.notification, store.fonts);
        dialog.Load();
        store.RefuseEach(L"CurrUser");
        dialog.SwitchPattern(3, No);
        store.EditEverything(dialog);
        DeleteBehind(dialog, deleted, [] {});
        EXPECT_EQ(dialog.CurrentPattern(), 2);
        EXPECT_EQ(dialog.PatternChanged(), deleted == 1); // it has moved up to the stored number
        store.Disarm();
        dialog.Apply();
        EXPECT_EQ(store.Number(L"CurrUser"), 2);
        for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
            const bool hasEdits = pattern == 3 && HasEditsOf(store, pattern);
            EXPECT_TRUE(IsWhole(store, pattern) || pattern == deleted || hasEdits) << pattern;
        }
    }
}

TEST_P(BrokenOff, ASaveIsCompletedByTheNextOne) {
    const BrokenStore before(GetParam(), 2, BrokenStore::kDialogButtons);
    BrokenStore whole(GetParam(), 2, BrokenStore::kDialogButtons);
    BrokenStore store(GetParam(), 2, BrokenStore::kDialogButtons);
    const auto edited = [](BrokenStore& program) {
        MainSettings dialog(program.store, program.notification, program.fonts);
        dialog.Load();
        program.EditEverything(dialog);
        program.ForgetOperations();
        return dialog;
    };
    edited(whole).Apply();
    const MainSettings begun = edited(store);
    for (const Fault fault : {Fault::Once, Fault::FromThen}) {
        int incomplete = 0;
        for (int number = 1; number <= whole.Calls(); ++number) {
            store.TakeContentsOf(before);
            MainSettings dialog = begun;
            store.Arm(fault, number);
            dialog.Apply();
            store.Disarm();
            incomplete += store.SameContents(whole) ? 0 : 1;
            dialog.Apply();
            EXPECT_TRUE(store.SameContents(whole)) << number;
            EXPECT_EQ(store.windows.Events().size(), 2U);
        }
        EXPECT_GT(incomplete, BrokenStore::kDialogButtons);
    }
}

INSTANTIATE_TEST_SUITE_P(BackEnds, BrokenOff, testing::Bool(), BackEndName);

// Where the maker moved a button to is asked for when the settings are read, and not once more by each save.
TEST(MovedButtonsOfABrokenStore, StayWhereTheyWereReadFrom) {
    BrokenStore store(false, 2, BrokenStore::kDialogButtons);
    MainSettings dialog(store.store, store.notification, store.fonts);
    dialog.Load();
    const BrokenStore before(false, 2, BrokenStore::kDialogButtons);
    store.registry.refusesReads = true;
    dialog.Apply();
    store.Disarm();
    EXPECT_EQ(store.Stored(2), before.Stored(2));
}

} // namespace
