#include "BrokenStore.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>

namespace {

/// The program as the user has left it when the operation begins. A copy of it needs no call to the store.
struct Running {
    std::optional<MainSettings> dialog; ///< with edits that are not saved yet
    std::optional<PatternList> list;    ///< while the pattern manager is open
};

enum class Edits { Everything, TheScreen, Nothing };

/// One of the program's operations that write.
struct WritingOperation {
    const char* name;
    bool ofManager; ///< of the pattern manager, else of the dialog
    int current;    ///< number of the current Pattern
    Edits edits;
    void (*run)(Running&, const BrokenStore&);
    std::set<int> patterns; ///< those that it may change
};

void Apply(MainSettings& dialog) {
    dialog.WritePatternNumbers();
    dialog.Save();
}

const std::vector<WritingOperation>& Operations() {
    static const auto apply = [](Running& program, const BrokenStore& /*store*/) { Apply(*program.dialog); };
    static const std::vector<WritingOperation> operations{
        {"Apply", false, 2, Edits::Everything, apply, {2}},
        {"ApplyTheScreen", false, 2, Edits::TheScreen, apply, {}},
        {"SwitchAndSave",
         false,
         2,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.dialog->SwitchPattern(3, true); },
         {2}},
        {"SwitchAlone",
         false,
         2,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.dialog->SwitchPattern(3, false); },
         {}},
        {"WizardFromTheDialog",
         false,
         2,
         Edits::Everything,
         [](Running& program, const BrokenStore& store) {
             program.dialog->SaveButton(4, store.EditedSlot());
         },
         {2}},
        {"WizardAlone",
         false,
         3,
         Edits::Nothing,
         [](Running& program, const BrokenStore& store) {
             program.dialog->SaveButton(program.dialog->StorageSlot(2), store.EditedSlot());
         },
         {3}},
        {"Add",
         true,
         2,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Add(L"New"); },
         {4}},
        {"Copy",
         true,
         2,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Copy(2, L"New"); },
         {4}},
        {"Rename",
         true,
         2,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Rename(2, L"New"); },
         {3}},
        {"DeleteBeforeTheCurrent",
         true,
         2,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(0); },
         {1, 2, 3}},
        {"DeleteAfterTheCurrent",
         true,
         1,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(1); },
         {2, 3}},
        {"DeleteTheLast",
         true,
         1,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(2); },
         {3}},
        {"DeleteWithTheLastAsCurrent",
         true,
         3,
         Edits::Everything,
         [](Running& program, const BrokenStore& /*store*/) { program.list->Delete(1); },
         {2, 3}}};
    return operations;
}

/// The manager closes, the dialog goes on and stores what was edited before.
void UseOn(Running& program) {
    if (program.list) {
        program.dialog->ReloadPatternList(*program.list);
        program.list.reset();
    }
    Apply(*program.dialog);
}

/// All the rest that one can do.
void UseLong(Running& program, const BrokenStore& store) {
    MainSettings& dialog = *program.dialog;
    dialog.SetButtonName(5, L"later");
    Apply(dialog);
    dialog.SwitchPattern(1, true);
    dialog.SetButtonName(6, L"later still");
    PatternList list = dialog.PatternsToManage();
    list.Load();
    list.Add(L"Added");
    list.Copy(0, L"Copied");
    list.Rename(1, L"Renamed");
    list.Delete(list.Count() - 2);
    dialog.ReloadPatternList(list);
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
        Begin(begun, store);
        Begin(whole, wholeStore);
        wholeStore.ForgetOperations();
        Operation().run(whole, wholeStore);
        calls.emplace(wholeStore);
        EXPECT_EQ(wholeStore.CallsOfTheOther(), 0);
        wholeStore.RememberNoCalls();
        store.RememberNoCalls();
        after.TakeContentsOf(wholeStore);
        for (int number = 1; number <= kMostPatterns; ++number) {
            patternsBefore.push_back(store.patterns->LoadPattern(number, store.defaults));
            patternsAfter.push_back(wholeStore.patterns->LoadPattern(number, store.defaults));
        }
        UseOn(whole);
        afterUse.TakeContentsOf(wholeStore);
        wholeUsed.emplace(*whole.dialog);
        UseLong(whole, wholeStore);
        afterLongUse.TakeContentsOf(wholeStore);
    }

    /// In place: the list refers to the dialog.
    static void Begin(Running& program, BrokenStore& fresh) {
        MainSettings& dialog = program.dialog.emplace(fresh.store, fresh.notification, fresh.fonts);
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
        if (Operation().ofManager) {
            program.list.emplace(dialog.PatternsToManage()).Load();
        }
    }

    /// Whether the process still lived at the end of it.
    bool Run(Running& program, Fault fault, int number) {
        store.TakeContentsOf(before);
        store.Arm(fault, number);
        bool lived = true;
        try {
            Operation().run(program, store);
        } catch (const KilledInCall&) {
            lived = false;
        }
        store.Disarm();
        EXPECT_EQ(lived, fault != Fault::Death || number > calls->Count());
        EXPECT_EQ(store.windows.Events().size(), Operation().ofManager || !lived ? 0U : 1U);
        return lived;
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

    static bool AnyOfPattern(const std::set<std::wstring>& places, int number) {
        const std::wstring key = L"\\set" + std::to_wstring(number);
        const std::wstring section = L"user" + std::to_wstring(number);
        return std::any_of(places.begin(), places.end(), [&](const std::wstring& place) {
            return place.find(key) != std::wstring::npos || place.starts_with(section);
        });
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
                all = all && fits(is.AP(k), a.AP(k), b.AP(k)) && fits(is.Param(k), a.Param(k), b.Param(k)) &&
                      fits(is.Title(k), a.Title(k), b.Title(k));
            }
        }
        return all;
    }

    /// Where the store differs for good, after the fault, from that of a program that never met one.
    ///
    /// The dialog's own Pattern, the screen and the numbers are written again by the next save; what the pattern manager
    /// could not write it writes again itself. What stays is what a switch leaves behind or could not read: an edit that
    /// was refused when the dialog turned to another Pattern keeps its former value, and a value of the new Pattern
    /// that could not be read is the maker's default, which the next save stores.
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

    /// The objects that met the fault go on with a store that works again.
    void ExpectToGoOn(Running& program, Fault fault, int number) {
        const std::set<std::wstring> lasting = LastingDifferences(fault, number);
        UseOn(program);
        EXPECT_EQ(store.Differences(afterUse), lasting);
        EXPECT_EQ(program.dialog->CurrentPattern(), wholeUsed->CurrentPattern());
        EXPECT_EQ(program.dialog->OnScreen(), wholeUsed->OnScreen());
        EXPECT_FALSE(program.dialog->AnythingChanged());
        if (lasting.empty()) {
            EXPECT_TRUE(program.dialog->Working() == wholeUsed->Working());
            EXPECT_EQ(program.dialog->PatternNames(), wholeUsed->PatternNames());
        }
        // The program and its store now are those that met no fault, so that a longer use is tried of some only.
        constexpr int kSome = 32;
        if (number % kSome == 1 || number == 2 || number == 3 || number == calls->Count()) {
            UseLong(program, store);
            if (lasting.empty()) {
                EXPECT_EQ(store.Differences(afterLongUse), lasting);
            }
        }
    }

    BrokenStore before{IsIniFile()};
    BrokenStore after{IsIniFile()}; ///< where all went well
    BrokenStore afterUse{IsIniFile()};
    BrokenStore afterLongUse{IsIniFile()};
    BrokenStore expected{IsIniFile()};
    BrokenStore startedOn{IsIniFile()};
    BrokenStore store{IsIniFile(), Operation().current, kButtons};
    BrokenStore wholeStore{IsIniFile(), Operation().current, kButtons};
    Running begun;
    Running whole; ///< meets no fault
    std::optional<MainSettings> wholeUsed;
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
        Running program = begun;
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
        Running killed = begun;
        Run(killed, Fault::Death, number);
        EXPECT_TRUE(store.SameContents(expected));
        ExpectUsableNumbers();
        ExpectUsableByTheNextStart();

        // What the program is after that hardly depends on the call; each of them goes on above.
        constexpr int kSome = 3;
        if (number % kSome == 1 || number <= kSome || number == calls->Count()) {
            Running program = begun;
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

/// A dialog with unsaved edits, and the manager open over it.
struct EditedDialog {
    EditedDialog(bool iniFile, int current)
        : store(iniFile, current, BrokenStore::kDialogButtons),
          dialog(store.store, store.notification, store.fonts), list(Begin()) {
        list.Load();
    }

    BrokenStore store;
    MainSettings dialog;
    PatternList list;

private:
    PatternList Begin() {
        dialog.Load();
        store.EditEverything(dialog);
        return dialog.PatternsToManage();
    }
};

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

// The number in the store then means another Pattern, over which the edits were saved once. The list is as long as before
// if that number is refused: its end is a Pattern of the maker's defaults.
TEST_P(BrokenDeletion, CostsNoOtherPattern_WhenANumberIsNeverStored) {
    for (const wchar_t* const refused : {L"CurrUser", L"NumUser"}) {
        ForEachDeletion([&](int current, int deleted) {
            EditedDialog edited(GetParam(), current);
            auto& [store, dialog, list] = edited;
            store.RefuseEach(refused);
            list.Delete(deleted - 1);
            dialog.ReloadPatternList(list);
            Apply(dialog);
            store.Disarm();
            for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
                EXPECT_TRUE(IsWhole(store, pattern) || pattern == deleted || pattern == current) << pattern;
            }
            EXPECT_TRUE(HasEditsOf(store, current));
            Apply(dialog);
            EXPECT_TRUE(HasEditsOf(store, current));
            const bool countIsOld = std::wstring_view(refused) == L"NumUser";
            EXPECT_EQ(store.Number(L"CurrUser"), current - (deleted < current ? 1 : 0));
            EXPECT_EQ(store.Number(L"NumUser"), BrokenStore::kPatterns - (countIsOld ? 0 : 1));
            EXPECT_EQ(store.HasSection(BrokenStore::kPatterns), false);
        });
    }
}

// Of the Patterns that were whole when the manager closed, none is written over by the dialog that goes on.
TEST_P(BrokenDeletion, CostsNoFurtherPattern_WhenTheStoreWorksAgainOnlyLater) {
    ForEachDeletion([&](int current, int deleted) {
        const BrokenStore before(GetParam(), current, BrokenStore::kDialogButtons);
        BrokenStore store(GetParam(), current, BrokenStore::kDialogButtons);
        MainSettings begun(store.store, store.notification, store.fonts);
        begun.Load();
        store.EditEverything(begun);
        PatternList begunList = begun.PatternsToManage();
        begunList.Load();
        store.ForgetOperations();
        PatternList(begunList).Delete(deleted - 1);
        const int writes = store.Calls();
        store.RememberNoCalls();
        constexpr int kStep = 13;
        for (int number = 1; number <= writes; number += number < kStep ? 1 : kStep) {
            SCOPED_TRACE("from write " + std::to_string(number) + " on");
            store.TakeContentsOf(before);
            MainSettings dialog = begun;
            PatternList list = begunList;
            store.Arm(Fault::FromThen, number);
            list.Delete(deleted - 1);
            store.Disarm();
            store.RefuseWrites();
            dialog.ReloadPatternList(list);
            std::vector<bool> wasWhole;
            for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
                wasWhole.push_back(IsWhole(store, pattern));
            }
            store.Disarm();
            Apply(dialog);
            for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
                const bool own = pattern == current && HasEditsOf(store, pattern);
                EXPECT_TRUE(!wasWhole.at(static_cast<std::size_t>(pattern) - 1) || pattern == deleted ||
                            own || IsWhole(store, pattern))
                    << pattern;
            }
        }
    });
}

TEST_P(BrokenDeletion, KeepsTheEdits_WhenNothingOfItWasStored) {
    ForEachDeletion([&](int current, int deleted) {
        EditedDialog edited(GetParam(), current);
        auto& [store, dialog, list] = edited;
        store.RefuseWrites();
        list.Delete(deleted - 1);
        dialog.ReloadPatternList(list);
        store.Disarm();
        EXPECT_EQ(dialog.CurrentPattern(), current);
        Apply(dialog);
        EXPECT_TRUE(HasEditsOf(store, current));
        EXPECT_EQ(store.Number(L"NumUser"), BrokenStore::kPatterns);
        for (int pattern = 1; pattern <= BrokenStore::kPatterns; ++pattern) {
            EXPECT_TRUE(IsWhole(store, pattern) || pattern == current) << pattern;
        }
    });
}

// Its section goes first. What the dialog has of it is all that is left.
TEST_P(BrokenDeletion, KeepsTheLastPattern_WhenTheStoreEndsWithItsSectionGone) {
    constexpr int kLast = BrokenStore::kPatterns;
    for (int deleted = 1; deleted < kLast; ++deleted) {
        EditedDialog edited(GetParam(), kLast);
        auto& [store, dialog, list] = edited;
        store.Arm(Fault::FromThen, 2);
        list.Delete(deleted - 1);
        store.Disarm();
        EXPECT_FALSE(store.HasSection(kLast));
        store.RefuseWrites();
        EXPECT_FALSE(dialog.ReloadPatternList(list));
        store.Disarm();
        Apply(dialog);
        EXPECT_EQ(store.Number(L"CurrUser"), kLast);
        EXPECT_EQ(store.Stored(kLast).Btn(1), store.FullPattern(BrokenStore::kEdited).Btn(1));
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

// The manager believes the store, and would count on the Pattern that was left.
TEST_P(BrokenOff, ASwitchWhoseNumberWasRefusedIsStoredBeforeTheManagerOpens) {
    BrokenStore store(GetParam(), 2, BrokenStore::kDialogButtons);
    MainSettings dialog(store.store, store.notification, store.fonts);
    dialog.Load();
    store.RefuseWrites();
    dialog.SwitchPattern(3, false);
    store.Disarm();
    store.EditEverything(dialog);
    PatternList list = dialog.PatternsToManage();
    list.Load();
    EXPECT_EQ(list.CurrentPattern(), 3);
    dialog.ReloadPatternList(list);
    EXPECT_EQ(dialog.CurrentPattern(), 3);
    EXPECT_TRUE(dialog.PatternChanged());
    EXPECT_EQ(store.Number(L"CurrUser"), 3);
}

TEST_P(BrokenOff, ASwitchWhoseNumberIsNeverStoredCostsNoPattern_WhateverTheManagerDeletes) {
    for (const int deleted : {0, 1, 3}) { // 0: none; 3: the one that the dialog shows
        SCOPED_TRACE(deleted);
        BrokenStore store(GetParam(), 2, BrokenStore::kDialogButtons);
        MainSettings dialog(store.store, store.notification, store.fonts);
        dialog.Load();
        store.RefuseEach(L"CurrUser");
        dialog.SwitchPattern(3, false);
        store.EditEverything(dialog);
        PatternList list = dialog.PatternsToManage();
        list.Load();
        list.Delete(deleted - 1);
        EXPECT_EQ(dialog.ReloadPatternList(list), deleted == 3);
        store.Disarm();
        Apply(dialog);
        EXPECT_EQ(store.Number(L"CurrUser"), deleted == 0 ? 3 : 2);
        EXPECT_EQ(HasEditsOf(store, 3), deleted != 3);
        for (int pattern = 1; pattern < BrokenStore::kPatterns; ++pattern) {
            EXPECT_TRUE(IsWhole(store, pattern) || pattern == deleted) << pattern;
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
    edited(whole).Save();
    const MainSettings begun = edited(store);
    for (const Fault fault : {Fault::Once, Fault::FromThen}) {
        int incomplete = 0;
        for (int number = 1; number <= whole.Calls(); ++number) {
            store.TakeContentsOf(before);
            MainSettings dialog = begun;
            store.Arm(fault, number);
            dialog.Save();
            store.Disarm();
            incomplete += store.SameContents(whole) ? 0 : 1;
            dialog.Save();
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
    dialog.WritePatternNumbers();
    dialog.Save();
    store.Disarm();
    EXPECT_EQ(store.Stored(2), before.Stored(2));
}

} // namespace
