#include "dialogs/patterns/PatternList.h"

#include "TestStore.h"

#include <algorithm>
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
        Fill({L"One", L"Two", L"Three", L"Four"}, 2);
    }

    void Fill(const std::vector<std::wstring>& names, int current) {
        int number = 0;
        for (const std::wstring& name : names) {
            Pattern pattern;
            pattern.UserName = name;
            for (int button = 1; button <= kButtons; ++button) {
                pattern.Btn(button).Name = name + std::to_wstring(button);
                pattern.Btn(button).Exec = L"S";
                pattern.Btn(button).NumAP = 1;
                pattern.Btn(button).AP(1) = name + L".exe";
                pattern.Btn(button).Title(1) = name + L" title";
            }
            PatternStore(store, kButtons).SavePattern(++number, pattern);
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
    /// Entries of a Pattern's section, its name apart.
    [[nodiscard]] bool HasSection(int number) const {
        return !Stored(number).UserName.empty() || !Stored(number).Btn(1).Name.empty();
    }

    PatternList list{store, kButtons};
};

TEST_P(Manager, ReadsNamesAndTheCurrentNumber) {
    EXPECT_THAT(list.Names(), ElementsAre(L"One", L"Two", L"Three", L"Four"));
    EXPECT_EQ(list.CurrentPattern(), 2);
    EXPECT_EQ(list.DefaultName(), L"Standard");
}

TEST_P(Manager, TakesTheFirstPatternAsCurrent_WhenTheNumberIsBeyondTheCount) {
    PutNumber(L"CurrUser", 9);
    list.Load();
    EXPECT_EQ(list.CurrentPattern(), 1);
}

TEST_P(Manager, HasOnePattern_WhenTheCountIsNoCount) {
    for (const int count : {0, 11, -1}) {
        PutNumber(L"NumUser", count);
        list.Load();
        EXPECT_THAT(list.Names(), ElementsAre(L"One")) << count;
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
    EXPECT_EQ(expected.Btn(kButtons).Title(1), L"Three title");
    EXPECT_EQ(Number(L"NumUser"), L"5");
}

TEST_P(Manager, RenamesOnlyTheOnePattern) {
    list.Rename(2, L"Drei");
    EXPECT_THAT(StoredNames(), ElementsAre(L"One: One1", L"Two: Two1", L"Drei: Three1", L"Four: Four1"));
}

TEST_P(Manager, CannotAdd_WithTenPatterns) {
    while (list.Count() < kMaxPatterns) {
        EXPECT_TRUE(list.CanAdd());
        list.Add(std::to_wstring(list.Count()));
    }
    EXPECT_FALSE(list.CanAdd());
    list.Delete(5);
    EXPECT_TRUE(list.CanAdd());
}

TEST_P(Manager, CannotDelete_TheCurrentPattern) {
    EXPECT_TRUE(list.CanDelete(0));
    EXPECT_FALSE(list.CanDelete(1));
    EXPECT_TRUE(list.CanDelete(2));
}

TEST_P(Manager, CannotDelete_WithoutASelection) {
    EXPECT_FALSE(list.CanDelete(-1));
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
    list.Delete(3);
    list.Add(L"New");
    EXPECT_EQ(Stored(4).Btn(1).Title(1), L"");
    EXPECT_EQ(Stored(4).Btn(1).AP(1), L"");
}

TEST_P(Manager, DeletingKeepsTheStorageSlots_OfMovedButtons) {
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey1", 2);
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", 1);
    list.Load();
    list.Delete(0);
    PatternList again(store, kButtons);
    again.Load();
    EXPECT_EQ(Stored(1).Btn(1).Name, L"Two2");
    EXPECT_EQ(Stored(1).Btn(2).Name, L"Two1");
}

TEST_P(Manager, LoadsAfterEveryWriteOfEachOperation) {
    const std::vector<void (*)(PatternList&)> operations{
        [](PatternList& edited) { edited.Add(L"New"); }, [](PatternList& edited) { edited.Copy(0, L"New"); },
        [](PatternList& edited) { edited.Rename(1, L"New"); }, [](PatternList& edited) { edited.Delete(0); },
        [](PatternList& edited) { edited.Delete(3); }};
    for (const auto operation : operations) {
        Fill({L"One", L"Two", L"Three", L"Four"}, 2);
        operation(list);
        const std::size_t writes = registry.Writes().size() + files.Writes().size();
        for (std::size_t dying = 1; dying <= writes; ++dying) {
            Fill({L"One", L"Two", L"Three", L"Four"}, 2);
            registry.failingWrite = files.failingWrite = static_cast<int>(dying);
            operation(list);
            registry.failingWrite = files.failingWrite = 0;
            PatternList loaded(store, kButtons);
            loaded.Load();
            EXPECT_GE(loaded.Count(), 3);
            EXPECT_LE(loaded.CurrentPattern(), loaded.Count());
        }
    }
}

struct ModelPattern {
    std::wstring name;
    std::wstring content;
    bool operator==(const ModelPattern&) const = default;
};

TEST_P(Manager, FollowsAModel_OverThousandsOfRandomOperations) {
    constexpr unsigned kSeed = 20'241;
    constexpr int kOperations = 2000;
    constexpr int kFewButtons = 1; // what is read again after every step
    std::mt19937 random(kSeed);
    const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    PatternList edited(store, kFewButtons);
    edited.Load();
    std::vector<ModelPattern> model;
    for (const std::wstring& name : edited.Names()) {
        model.push_back({name, name + L"1"});
    }
    int current = 2;
    for (int step = 0; step < kOperations; ++step) {
        const std::wstring name = L"Name " + std::to_wstring(step);
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
                current -= index + 1 < current ? 1 : 0;
            }
            break;
        }
        std::vector<ModelPattern> found;
        for (int number = 1; number <= store.ReadPatternCount(); ++number) {
            const Pattern stored = PatternStore(store, kFewButtons).LoadPattern(number, Pattern{});
            found.push_back({stored.UserName, stored.Btn(1).Name});
        }
        ASSERT_EQ(found, model) << "after step " << step;
        ASSERT_EQ(store.ReadCurrentPatternNumber(), current) << "after step " << step;
        ForgetOperations();
    }
}

INSTANTIATE_TEST_SUITE_P(BackEnds, Manager, testing::Bool(), BackEndName);

} // namespace
