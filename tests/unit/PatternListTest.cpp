#include "dialogs/patterns/PatternList.h"

#include "TestStore.h"
#include "settings/PatternStore.h"

#include <algorithm>
#include <limits>
#include <random>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kButtons = 7;

std::string BackEndName(const testing::TestParamInfo<bool>& info) {
    return info.param ? "IniFile" : "Registry";
}

/// A store of the Patterns "One", "Two", ... whose first button is named after them; "Two" is current.
class Manager : public testing::TestWithParam<bool>, public TestStore {
public:
    Manager() {
        PutMachine(L"Default\\Setting\\Set1", L"SetName", "Standard");
        PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"DispTitle", "Default mail");
        PutMachine(L"Default\\USER1", L"UserName", "Standard");
        PutMachine(L"Default\\USER1", L"Btn1_Name", "Default mail");
        store.IniFileExist = GetParam();
        defaults = patterns.LoadDefaultPattern();
        Fill({L"One", L"Two", L"Three", L"Four"}, 2);
    }

    void Fill(const std::vector<std::wstring>& names, int current, int buttons = kButtons) {
        for (int leftover = 1; leftover <= kMaxPatterns + 2; ++leftover) {
            store.IniDeleteSection(PatternSection(leftover), kOwnFile);
        }
        int number = 0;
        for (const std::wstring& name : names) {
            Pattern pattern;
            pattern.UserName = name;
            for (int button = 1; button <= buttons; ++button) {
                pattern.Btn(button).Name = name + std::to_wstring(button);
                pattern.Btn(button).Exec = L"S";
                pattern.Btn(button).NumAP = 1;
                pattern.Btn(button).Program(1).AP = name + L".exe";
                pattern.Btn(button).Program(1).Title = name + L" title";
            }
            PatternStore(store, buttons).SavePattern(++number, pattern);
        }
        PutNumber(L"NumUser", number);
        PutNumber(L"CurrUser", current);
        ForgetOperations();
        list.Load();
    }

    void PutNumber(const wchar_t* key, int number) {
        store.IniSetString(L"KORVOQLB", key, std::to_wstring(number), kOwnFile);
    }
    [[nodiscard]] std::wstring Number(const wchar_t* key) const {
        return store.IniGetString(L"KORVOQLB", key, L"0", kOwnFile);
    }
    [[nodiscard]] Pattern Stored(int number) const {
        return PatternStore(const_cast<RegIniFunc&>(store), kButtons).LoadPattern(number, Pattern{});
    }
    /// Names as another program would find them, with the first button's beside each.
    [[nodiscard]] std::vector<std::wstring> StoredNames() const {
        std::vector<std::wstring> names;
        for (int number = 1; number <= std::stoi(Number(L"NumUser")); ++number) {
            const Pattern pattern = Stored(number);
            names.push_back(pattern.UserName + L": " + pattern.Btn(1).Name);
        }
        return names;
    }
    /// An entry of a Pattern's section as it stands in the store; "" when there is none.
    [[nodiscard]] std::wstring Entry(int number, const std::wstring& key) const {
        return store.IniGetString(PatternSection(number), key, L"", kOwnFile);
    }
    void DieAfterWrites(int writes) { registry.writesUntilDeath = files.writesUntilDeath = writes; }

    /// Entries of a Pattern's section, its name apart.
    [[nodiscard]] bool HasSection(int number) const {
        return !Stored(number).UserName.empty() || !Stored(number).Btn(1).Name.empty();
    }

    static constexpr int kFewButtons = 1; ///< where all is read again after each step

    Pattern defaults;
    PatternStore patterns{store, kButtons};
    PatternStore fewButtons{store, kFewButtons};
    PatternList list{store, patterns, defaults};
};

TEST_P(Manager, ReadsNamesAndTheCurrentNumber) {
    EXPECT_THAT(list.Names(), ElementsAre(L"One", L"Two", L"Three", L"Four"));
    EXPECT_EQ(list.CurrentPattern(), 2);
    EXPECT_EQ(list.DefaultName(), L"Standard");
}

TEST_P(Manager, AsksTheMakerForNothing) {
    list.Load();
    list.Add(L"New");
    list.Delete(0);
    EXPECT_THAT(Asked(), testing::Not(testing::Contains(testing::StartsWith("HKLM"))));
}

TEST_P(Manager, TakesTheFirstPatternAsCurrent_WhenTheNumberIsBeyondTheCount) {
    PutNumber(L"CurrUser", 9);
    list.Load();
    EXPECT_EQ(list.CurrentPattern(), 1);
}

TEST_P(Manager, HasOnePattern_WhenTheCountIsNoCount) {
    for (const int count : {0, -1, std::numeric_limits<int>::min()}) {
        PutNumber(L"NumUser", count);
        list.Load();
        EXPECT_THAT(list.Names(), ElementsAre(L"One")) << count;
    }
}

TEST_P(Manager, HasOnePattern_WhenTheCountIsText) {
    for (const char* text : {"three", "3 of 4", ""}) {
        PutUser(L"", L"NumSetting", text);
        PutLine(L"KORVOQLB", L"NumUser", text);
        list.Load();
        EXPECT_THAT(list.Names(), ElementsAre(L"One")) << text;
    }
}

std::vector<std::wstring> Numbered(int count) {
    std::vector<std::wstring> names;
    for (int number = 1; number <= count; ++number) {
        names.push_back(L"Number " + std::to_wstring(number));
    }
    return names;
}

TEST_P(Manager, ListsMoreThanTen_AndTakesNoFurtherOne) {
    Fill(Numbered(12), 2);
    EXPECT_EQ(list.Names(), Numbered(12));
    EXPECT_FALSE(list.CanAdd());
    list.Add(L"New");
    list.Copy(0, L"New");
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_P(Manager, DeletesWhatIsBeyondTen_UntilThereIsRoomAgain) {
    Fill(Numbered(12), 5);
    std::vector<std::wstring> expected = Numbered(12);
    for (const int index : {11, 0, 6}) {
        EXPECT_FALSE(list.CanAdd());
        list.Delete(index);
        expected.erase(expected.begin() + index);
        EXPECT_EQ(list.Names(), expected);
        EXPECT_EQ(Number(L"NumUser"), std::to_wstring(expected.size()));
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(Stored(static_cast<int>(i) + 1).Btn(1).Name, expected[i] + L"1");
        }
        EXPECT_FALSE(HasSection(static_cast<int>(expected.size()) + 1));
    }
    EXPECT_EQ(Number(L"CurrUser"), L"4");
    EXPECT_TRUE(list.CanAdd());
}

TEST_P(Manager, RenamesAPatternBeyondTen) {
    Fill(Numbered(12), 2);
    list.Rename(11, L"Zwölf");
    EXPECT_EQ(Stored(12).UserName, L"Zwölf");
    EXPECT_EQ(Stored(11).UserName, L"Number 11");
}

TEST_P(Manager, ListsTenAndWhatIsThereBeyond_WhenTheCountIsAbsurd) {
    for (const int stored : {4, 10, 11}) {
        Fill(Numbered(stored), 2);
        PutNumber(L"NumUser", 2'000'000'000);
        list.Load();
        EXPECT_EQ(list.Count(), std::max(stored, kMaxPatterns));
        EXPECT_FALSE(list.CanAdd());
    }
    if (GetParam()) {
        PutLine(L"KORVOQLB", L"NumUser", "99999999999999999999");
        list.Load();
        EXPECT_EQ(list.Count(), 11);
    }
}

TEST_P(Manager, AddsTheDefaultPatternAtTheEnd) {
    list.Add(L"New");
    EXPECT_THAT(StoredNames(), ElementsAre(L"One: One1", L"Two: Two1", L"Three: Three1", L"Four: Four1",
                                           L"New: Default mail"));
    EXPECT_EQ(Number(L"CurrUser"), L"2");
}

TEST_P(Manager, WritesTheCountBeforeTheNewPattern) {
    list.Add(L"New");
    const std::vector<std::string> written = Written();
    ASSERT_GE(written.size(), 2U);
    EXPECT_EQ(written[0], GetParam() ? "[KORVOQLB] NumUser = \"5\"" : "NumSetting = 5");
    EXPECT_EQ(written[1], GetParam() ? "[USER5] UserName = \"New\"" : "Setting\\Set5 SetName = \"New\"");
}

TEST_P(Manager, CopiesTheWholePatternUnderItsNewName) {
    list.Copy(2, L"Copy Three");
    Pattern expected = Stored(3);
    expected.UserName = L"Copy Three";
    EXPECT_EQ(Stored(5), expected);
    EXPECT_EQ(expected.Btn(kButtons).Program(1).Title, L"Three title");
    EXPECT_EQ(Number(L"NumUser"), L"5");
}

TEST_P(Manager, RenamesOnlyTheOnePattern) {
    list.Rename(2, L"Drei");
    EXPECT_THAT(StoredNames(), ElementsAre(L"One: One1", L"Two: Two1", L"Drei: Three1", L"Four: Four1"));
}

TEST_P(Manager, HasTheNamesThatTheCodePageCanStore) {
    const std::wstring japanese = L"\x65E5\x672C";
    list.Add(japanese);
    list.Copy(0, japanese + L"2");
    list.Rename(1, L"a" + japanese);
    EXPECT_THAT(list.Names(), ElementsAre(L"One", L"a??", L"Three", L"Four", L"??", L"??2"));
    EXPECT_THAT(StoredNames(), ElementsAre(L"One: One1", L"a??: Two1", L"Three: Three1", L"Four: Four1",
                                           L"??: Default mail", L"??2: One1"));
}

TEST_P(Manager, CannotAdd_WithTenPatterns) {
    while (list.Count() < kMaxPatterns) {
        EXPECT_TRUE(list.CanAdd());
        list.Add(std::to_wstring(list.Count()));
    }
    EXPECT_FALSE(list.CanAdd());
    const std::vector<std::wstring> names = list.Names();
    const std::vector<std::wstring> stored = StoredNames();
    ForgetOperations();
    list.Add(L"Eleven");
    list.Copy(0, L"Eleven");
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_EQ(list.Names(), names);
    EXPECT_EQ(StoredNames(), stored);
    list.Delete(5);
    EXPECT_TRUE(list.CanAdd());
}

TEST_P(Manager, CannotDelete_TheCurrentPattern) {
    EXPECT_TRUE(list.CanDelete(0));
    EXPECT_FALSE(list.CanDelete(1));
    EXPECT_TRUE(list.CanDelete(2));
    EXPECT_EQ(list.Delete(1), 1);
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(list.Names(), ElementsAre(L"One", L"Two", L"Three", L"Four"));
    EXPECT_EQ(list.CurrentPattern(), 2);
}

TEST_P(Manager, CannotDelete_WhatIsNotInTheList) {
    for (const int index : {-1, 4, 9, 10}) {
        EXPECT_FALSE(list.CanDelete(index)) << index;
        EXPECT_EQ(list.Delete(index), index);
    }
    EXPECT_THAT(Written(), IsEmpty());
    EXPECT_THAT(list.Names(), ElementsAre(L"One", L"Two", L"Three", L"Four"));
}

TEST_P(Manager, DeletingBeforeTheCurrentPattern_LowersItsNumber) {
    EXPECT_EQ(list.Delete(0), 0);
    EXPECT_EQ(Number(L"CurrUser"), L"1");
    EXPECT_THAT(StoredNames(), ElementsAre(L"Two: Two1", L"Three: Three1", L"Four: Four1"));
}

TEST_P(Manager, DeletingAfterTheCurrentPattern_KeepsItsNumber) {
    EXPECT_EQ(list.Delete(2), 2);
    EXPECT_EQ(Number(L"CurrUser"), L"2");
    EXPECT_THAT(StoredNames(), ElementsAre(L"One: One1", L"Two: Two1", L"Four: Four1"));
}

TEST_P(Manager, DeletingTheLastPattern_SelectsTheNewLast) {
    EXPECT_EQ(list.Delete(3), 2);
}

TEST_P(Manager, DeletingRemovesTheOldLastSection) {
    list.Delete(0);
    EXPECT_FALSE(HasSection(4));
    EXPECT_TRUE(HasSection(3));
}

TEST_P(Manager, DeletingRemovesTheSection_ThenWritesTheNumbers_ThenThePatterns) {
    list.Delete(0);
    const std::vector<std::string> written = Written();
    ASSERT_GE(written.size(), 4U);
    EXPECT_EQ(written[0], GetParam() ? "delete [USER4]" : "delete Setting\\Set4 ");
    EXPECT_EQ(written[1], GetParam() ? "[KORVOQLB] CurrUser = \"1\"" : "CurrSetting = 1");
    EXPECT_EQ(written[2], GetParam() ? "[KORVOQLB] NumUser = \"3\"" : "NumSetting = 3");
    EXPECT_EQ(written[3], GetParam() ? "[USER1] UserName = \"Two\"" : "Setting\\Set1 SetName = \"Two\"");
}

TEST_P(Manager, ADeletedPatternsValuesDoNotComeBack_WhenOneIsAddedLater) {
    // Nothing that saving a Pattern of seven buttons would write over.
    PutUser(L"Setting\\Set4", L"Unknown", "left");
    PutUser(L"Setting\\Set4\\AppKey8", L"DispTitle", "left");
    PutLine(L"USER4", L"Unknown", "left");
    PutLine(L"USER4", L"Btn8_Name", "left");
    ASSERT_EQ(Entry(4, L"Btn8_Name"), L"left");
    list.Delete(0);
    list.Add(L"New");
    EXPECT_EQ(Entry(4, L"Btn8_Name"), L"");
    EXPECT_EQ(GetParam() ? Line(L"USER4", L"Unknown") : UserString(L"Setting\\Set4", L"Unknown"),
              std::nullopt);
    EXPECT_EQ(Stored(4).Btn(1).Program(1).Title, L"");
    EXPECT_EQ(Stored(4).Btn(1).Program(1).AP, L"");
}

TEST_P(Manager, DeletingKeepsTheStorageSlots_OfMovedButtons) {
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey1", 2);
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", 1);
    PatternStore moved(store, kButtons);
    PatternList movedList(store, moved, defaults);
    movedList.Load();
    movedList.Delete(0);
    EXPECT_EQ(Stored(1).Btn(1).Name, L"Two2");
    EXPECT_EQ(Stored(1).Btn(2).Name, L"Two1");
    EXPECT_EQ(Entry(1, L"Btn1_Name"), L"Two1");
    EXPECT_EQ(Entry(1, L"Btn2_Name"), L"Two2");
}

TEST_P(Manager, LeavesAUsableStore_WhereverAnOperationBreaksOff) {
    PatternList few(store, fewButtons, defaults);
    struct Case {
        int current;
        void (*operation)(PatternList&);
    };
    const std::vector<std::wstring> before{L"One", L"Two", L"Three", L"Four"};
    const std::vector<Case> cases{{2, [](PatternList& edited) { edited.Add(L"New"); }},
                                  {2, [](PatternList& edited) { edited.Copy(0, L"New"); }},
                                  {2, [](PatternList& edited) { edited.Rename(1, L"New"); }},
                                  {2, [](PatternList& edited) { edited.Delete(0); }},
                                  {2, [](PatternList& edited) { edited.Delete(3); }},
                                  {4, [](PatternList& edited) { edited.Delete(0); }}};
    for (std::size_t number = 0; number < cases.size(); ++number) {
        const auto& [current, operation] = cases[number];
        Fill(before, current, kFewButtons);
        few.Load();
        ForgetOperations();
        operation(few);
        const std::vector<std::wstring> after = few.Names();
        const int currentAfter = few.CurrentPattern();
        const auto writes = static_cast<int>(registry.Writes().size() + files.Writes().size());
        // Where the count changes, the last section goes first, and comes after the count.
        const std::size_t longest = std::max(before.size(), after.size());
        for (int taken = 0; taken <= writes; ++taken) {
            SCOPED_TRACE("operation " + std::to_string(number) + ", " + std::to_string(taken) + " writes");
            Fill(before, current, kFewButtons);
            few.Load();
            DieAfterWrites(taken);
            operation(few);
            DieAfterWrites(-1);

            const int storedCount = std::stoi(Number(L"NumUser"));
            const int storedCurrent = std::stoi(Number(L"CurrUser"));
            ASSERT_LE(1, storedCurrent);
            ASSERT_LE(storedCurrent, storedCount);
            ASSERT_LE(storedCount, kMaxPatterns);
            std::vector<std::wstring> names;
            for (std::size_t i = 0; i < static_cast<std::size_t>(storedCount); ++i) {
                names.push_back(Entry(static_cast<int>(i) + 1, L"UserName"));
                const bool isOld = i < before.size() && names[i] == before[i];
                const bool isNew = i < after.size() && names[i] == after[i];
                const bool isMissing = names[i].empty() && before.size() != after.size() && i + 1 == longest;
                EXPECT_TRUE(isOld || isNew || isMissing) << i << ' ' << testing::PrintToString(names[i]);
            }
            if (taken == 0) {
                EXPECT_EQ(names, before);
                EXPECT_EQ(storedCurrent, current);
            }
            if (taken == writes) {
                EXPECT_EQ(names, after);
                EXPECT_EQ(storedCurrent, currentAfter);
            }

            PatternList loaded(store, fewButtons, defaults);
            loaded.Load();
            EXPECT_EQ(loaded.Count(), storedCount);
            EXPECT_EQ(loaded.CurrentPattern(), storedCurrent);
        }
    }
}

struct ModelPattern {
    std::wstring name;
    std::wstring content;
    bool operator==(const ModelPattern&) const = default;
};

TEST_P(Manager, FollowsAModel_OverRandomOperations) {
    constexpr unsigned kSeed = 20'241;
    constexpr int kOperations = 500;
    std::mt19937 random(kSeed);
    const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    PatternList edited(store, fewButtons, defaults);
    edited.Load();
    std::vector<ModelPattern> model;
    for (const std::wstring& name : edited.Names()) {
        model.push_back({name, name + L"1"});
    }
    int current = 2;
    int lowered = 0;
    for (int step = 0; step < kOperations; ++step) {
        const std::wstring name = L"Name " + std::to_wstring(step);
        if (below(5) == 0) {
            // As the launcher or the main dialog does: otherwise the current Pattern soon is the first for good.
            current = 1 + below(static_cast<int>(model.size()));
            PutNumber(L"CurrUser", current);
        }
        edited.Load();
        const int index = below(static_cast<int>(model.size()));
        switch (below(4)) {
        case 0:
            if (edited.CanAdd()) {
                edited.Add(name);
                model.push_back({name, L"Default mail"});
            }
            break;
        case 1:
            if (edited.CanAdd()) {
                edited.Copy(index, name);
                model.push_back({name, model[static_cast<std::size_t>(index)].content});
            }
            break;
        case 2:
            edited.Rename(index, name);
            model[static_cast<std::size_t>(index)].name = name;
            break;
        default:
            if (edited.CanDelete(index)) {
                edited.Delete(index);
                model.erase(model.begin() + index);
                lowered += index + 1 < current ? 1 : 0;
                current -= index + 1 < current ? 1 : 0;
            }
            break;
        }
        std::vector<ModelPattern> found;
        for (int number = 1; number <= store.ReadPatternCount(); ++number) {
            const Pattern stored = fewButtons.LoadPattern(number, Pattern{});
            found.push_back({stored.UserName, stored.Btn(1).Name});
        }
        ASSERT_EQ(found, model) << "after step " << step;
        ASSERT_EQ(store.ReadCurrentPatternNumber(), current) << "after step " << step;
        for (int number = static_cast<int>(model.size()) + 1; number <= kMaxPatterns; ++number) {
            for (const wchar_t* key : {L"UserName", L"Btn1_Name", L"Btn7_Name"}) {
                ASSERT_EQ(Entry(number, key), L"") << "after step " << step;
            }
        }
        ForgetOperations();
    }
    EXPECT_GT(lowered, kOperations / 20);
}

INSTANTIATE_TEST_SUITE_P(BackEnds, Manager, testing::Bool(), BackEndName);

} // namespace
