#include "settings/PatternStore.h"

#include "TestStore.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::EndsWith;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::Test;

constexpr int kButtons = 7;

Pattern Defaults() {
    Pattern defaults;
    defaults.UserName = L"Standard";
    for (int button = 1; button <= kMaxButtons; ++button) {
        ButtonSlot& slot = defaults.Btn(button);
        slot.Name = L"Default " + std::to_wstring(button);
        slot.Exec = L"S";
        slot.NumAP = 2;
        for (int k = 1; k <= kMaxPrograms; ++k) {
            slot.Program(k).AP = L"default" + std::to_wstring(k);
            slot.Program(k).Param = L"/default" + std::to_wstring(k);
        }
    }
    return defaults;
}

class LoadingFromTheRegistry : public Test, public TestStore {
public:
    PatternStore patterns{store, kButtons};
    Pattern defaults = Defaults();
};

class LoadingFromTheFile : public LoadingFromTheRegistry {
public:
    LoadingFromTheFile() { store.IniFileExist = true; }
};

class SavingToTheRegistry : public LoadingFromTheRegistry {
public:
    Pattern pattern;
};

class SavingToTheFile : public LoadingFromTheFile {
public:
    Pattern pattern;
};

TEST_F(LoadingFromTheRegistry, ReadsEveryFieldOfThePattern) {
    PutUser(L"Setting\\Set3", L"SetName", "Home");
    PutUser(L"Setting\\Set3\\AppKey2", L"DispTitle", "Mail");
    PutUser(L"Setting\\Set3\\AppKey2", L"Execute", "P");
    PutUser(L"Setting\\Set3\\AppKey2", L"NumAP", 5);
    PutUser(L"Setting\\Set3\\AppKey2", L"AP1", "a.exe|/x|/y");
    PutUser(L"Setting\\Set3\\AppKey2", L"AP5", "e.exe");
    PutUser(L"Setting\\Set3\\AppKey2", L"ProgName1", "Program A");
    PutUser(L"Setting\\Set3\\AppKey2", L"ProgName5", "Program E");

    const Pattern pattern = patterns.LoadPattern(3, defaults);

    EXPECT_EQ(pattern.UserName, L"Home");
    const ButtonSlot& slot = pattern.Btn(2);
    EXPECT_EQ(slot.Name, L"Mail");
    EXPECT_EQ(slot.Exec, L"P");
    EXPECT_EQ(slot.NumAP, 5);
    EXPECT_EQ(slot.Program(1).AP, L"a.exe");
    EXPECT_EQ(slot.Program(1).Param, L"/x|/y");
    EXPECT_EQ(slot.Program(5).AP, L"e.exe");
    EXPECT_EQ(slot.Program(5).Param, L"");
    EXPECT_EQ(slot.Program(1).Title, L"Program A");
    EXPECT_EQ(slot.Program(5).Title, L"Program E");
}

TEST_F(LoadingFromTheFile, ReadsEveryFieldOfThePattern) {
    PutLine(L"USER3", L"UserName", "Home");
    PutLine(L"USER3", L"Btn2_Name", "Mail");
    PutLine(L"USER3", L"Btn2_Exec", "P");
    PutLine(L"USER3", L"Btn2_NumAP", "5");
    PutLine(L"USER3", L"Btn2_AP1", "a.exe|/x");
    PutLine(L"USER3", L"Btn2_Title1", "Program A");

    const Pattern pattern = patterns.LoadPattern(3, defaults);

    EXPECT_EQ(pattern.UserName, L"Home");
    EXPECT_EQ(pattern.Btn(2).Name, L"Mail");
    EXPECT_EQ(pattern.Btn(2).Exec, L"P");
    EXPECT_EQ(pattern.Btn(2).NumAP, 5);
    EXPECT_EQ(pattern.Btn(2).Program(1).AP, L"a.exe");
    EXPECT_EQ(pattern.Btn(2).Program(1).Param, L"/x");
    EXPECT_EQ(pattern.Btn(2).Program(1).Title, L"Program A");
    EXPECT_THAT(Asked(), Not(Contains(StartsWith("HKCU"))));
}

TEST_F(LoadingFromTheRegistry, TakesWhatIsMissingFromTheDefaultPattern) {
    Pattern expected = defaults;
    expected.Btn(8) = ButtonSlot{};
    EXPECT_EQ(patterns.LoadPattern(1, defaults), expected);
}

TEST_F(LoadingFromTheFile, TakesWhatIsMissingFromTheDefaultPattern) {
    Pattern expected = defaults;
    expected.Btn(8) = ButtonSlot{};
    EXPECT_EQ(patterns.LoadPattern(1, defaults), expected);
}

TEST_F(LoadingFromTheRegistry, TakesMissingTitlesFromTheDefaultPattern) {
    defaults.Btn(1).Program(2).Title = L"Default title";
    EXPECT_EQ(patterns.LoadPattern(1, defaults).Btn(1).Program(2).Title, L"Default title");
}

TEST_F(LoadingFromTheRegistry, RemovesBlanksAroundTheLaunchMethodAlone) {
    PutUser(L"Setting\\Set1\\AppKey1", L"Execute", "  P ");
    PutUser(L"Setting\\Set1\\AppKey1", L"DispTitle", " Mail ");
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", " a.exe | /x ");
    const ButtonSlot slot = patterns.LoadPattern(1, defaults).Btn(1);
    EXPECT_EQ(slot.Exec, L"P");
    EXPECT_EQ(slot.Name, L" Mail ");
    EXPECT_EQ(slot.Program(1).AP, L" a.exe ");
    EXPECT_EQ(slot.Program(1).Param, L" /x ");
}

TEST_F(LoadingFromTheRegistry, RemovesBlanksAroundTheDefaultLaunchMethod) {
    defaults.Btn(1).Exec = L" K ";
    EXPECT_EQ(patterns.LoadPattern(1, defaults).Btn(1).Exec, L"K");
}

TEST_F(LoadingFromTheRegistry, KeepsAnUnknownLaunchMethod) {
    PutUser(L"Setting\\Set1\\AppKey1", L"Execute", "X");
    PutUser(L"Setting\\Set1\\AppKey2", L"Execute", "");
    const Pattern pattern = patterns.LoadPattern(1, defaults);
    EXPECT_EQ(pattern.Btn(1).Exec, L"X");
    EXPECT_EQ(pattern.Btn(2).Exec, L"");
}

TEST_F(LoadingFromTheFile, Counts1To5ProgramsAndElseNone) {
    const std::pair<const char*, int> texts[] = {{"1", 1},  {"5", 5}, {"0", 0}, {"6", 0},      {"7", 0},
                                                 {"-1", 0}, {"x", 0}, {"", 0},  {"3 apps", 0}, {"65537", 0}};
    for (const auto& [text, count] : texts) {
        PutLine(L"USER1", L"Btn1_NumAP", text);
        EXPECT_EQ(patterns.LoadPattern(1, defaults).Btn(1).NumAP, count) << text;
    }
}

TEST_F(LoadingFromTheRegistry, CountsNoPrograms_WhenTheStoredCountIsOutOfRange) {
    PutUser(L"Setting\\Set1\\AppKey1", L"NumAP", 7);
    PutUser(L"Setting\\Set1\\AppKey2", L"NumAP", -1);
    PutUser(L"Setting\\Set1\\AppKey3", L"NumAP", 0x10001);
    const Pattern pattern = patterns.LoadPattern(1, defaults);
    EXPECT_EQ(pattern.Btn(1).NumAP, 0);
    EXPECT_EQ(pattern.Btn(2).NumAP, 0);
    EXPECT_EQ(pattern.Btn(3).NumAP, 0);
}

TEST_F(LoadingFromTheRegistry, GivesAnEmptyCommand_WhenItIsPresentButEmpty) {
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", "");
    const ButtonSlot slot = patterns.LoadPattern(1, defaults).Btn(1);
    EXPECT_EQ(slot.Program(1).AP, L"");
    EXPECT_EQ(slot.Program(1).Param, L"");
    EXPECT_EQ(slot.Program(2).AP, L"default2");
}

TEST_F(LoadingFromTheFile, GivesAnEmptyCommand_WhenItIsASingleBlank) {
    PutLine(L"USER1", L"Btn1_AP1", " ");
    const ButtonSlot slot = patterns.LoadPattern(1, defaults).Btn(1);
    EXPECT_EQ(slot.Program(1).AP, L"");
    EXPECT_EQ(slot.Program(1).Param, L"");
}

TEST_F(LoadingFromTheRegistry, TakesCommandAndParametersTogetherFromTheDefault) {
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", "own.exe");
    const ButtonSlot slot = patterns.LoadPattern(1, defaults).Btn(1);
    EXPECT_EQ(slot.Program(1).AP, L"own.exe");
    EXPECT_EQ(slot.Program(1).Param, L"");
    EXPECT_EQ(slot.Program(2).AP, L"default2");
    EXPECT_EQ(slot.Program(2).Param, L"/default2");
}

TEST_F(LoadingFromTheRegistry, TakesTheTextForMissingExactlyAsWritten) {
    PutUser(L"Setting\\Set1\\AppKey1", L"AP1", "FALSE");
    PutUser(L"Setting\\Set1\\AppKey1", L"AP2", "false");
    const ButtonSlot slot = patterns.LoadPattern(1, defaults).Btn(1);
    EXPECT_EQ(slot.Program(1).AP, L"default1");
    EXPECT_EQ(slot.Program(2).AP, L"false");
}

TEST_F(LoadingFromTheRegistry, LeavesButtonsBeyondTheCountEmpty) {
    PutUser(L"Setting\\Set1\\AppKey6", L"DispTitle", "Mail");
    EXPECT_EQ(PatternStore(store, 6).LoadPattern(1, defaults).Btn(6).Name, L"Mail");
    EXPECT_EQ(PatternStore(store, 6).LoadPattern(1, defaults).Btn(7), ButtonSlot{});
}

TEST_F(LoadingFromTheRegistry, GivesTheNameOfAnyPatternOrTheDefaultOnes) {
    PutUser(L"Setting\\Set10", L"SetName", "Tenth");
    EXPECT_EQ(patterns.LoadPatternName(10, defaults), L"Tenth");
    EXPECT_EQ(patterns.LoadPatternName(2, defaults), L"Standard");
}

TEST_F(SavingToTheRegistry, WritesTheButtonsInTheirOrderUpToTheCount) {
    for (const int count : {6, 7, 8}) {
        ForgetOperations();
        PatternStore(store, count).SavePattern(1, pattern);
        std::vector<std::string> methods;
        for (const std::string& line : Written()) {
            if (line.find(" Execute = ") != std::string::npos) {
                methods.push_back(line.substr(0, line.find(' ')));
            }
        }
        ASSERT_EQ(methods.size(), static_cast<std::size_t>(count));
        for (int button = 1; button <= count; ++button) {
            EXPECT_THAT(methods[static_cast<std::size_t>(button - 1)],
                        EndsWith("AppKey" + std::to_string(button)));
        }
    }
}

TEST_F(SavingToTheRegistry, LeavesPatternNumbersToTheCaller) {
    patterns.SavePattern(1, pattern);
    EXPECT_THAT(Written(), Each(StartsWith("Setting\\Set1")));
}

TEST_F(SavingToTheRegistry, TurnsAnEmptyButtonNameIntoABlank_InTheRecordToo) {
    patterns.SavePattern(1, pattern);
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey1", L"DispTitle"), " ");
    EXPECT_EQ(pattern.Btn(1).Name, L" ");
    EXPECT_EQ(pattern.Btn(kButtons).Name, L" ");
    EXPECT_EQ(pattern.Btn(8).Name, L"");
}

TEST_F(SavingToTheFile, TurnsAnEmptyButtonNameIntoABlank_InTheRecordToo) {
    patterns.SavePattern(1, pattern);
    EXPECT_EQ(Line(L"USER1", L"Btn1_Name"), " ");
    EXPECT_EQ(pattern.Btn(1).Name, L" ");
}

TEST_F(SavingToTheRegistry, WritesAnEmptyCommandAsAnEmptyString) {
    patterns.SavePattern(1, pattern);
    EXPECT_EQ(registry.Stored(RegistryHive::CurrentUser, Path(L"Setting\\Set1\\AppKey1"), L"AP1")->bytes,
              std::string(2, '\0'));
}

TEST_F(SavingToTheRegistry, DoesNotAppendParametersAgain_WhenTheCommandHasABar) {
    pattern.Btn(1).Program(1).AP = L"iexplore.exe|http://example/";
    pattern.Btn(1).Program(1).Param = L"/x";
    patterns.SavePattern(1, pattern);
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey1", L"AP1"), "iexplore.exe|http://example/");
}

TEST_F(SavingToTheRegistry, DropsParametersThatAreOnlyBlanks) {
    pattern.Btn(1).Program(1).AP = L"a.exe";
    pattern.Btn(1).Program(1).Param = L"   ";
    patterns.SavePattern(1, pattern);
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey1", L"AP1"), "a.exe");
}

TEST_F(SavingToTheRegistry, KeepsBlanksAroundOtherParameters) {
    pattern.Btn(1).Program(1).AP = L"a.exe";
    pattern.Btn(1).Program(1).Param = L" /x ";
    patterns.SavePattern(1, pattern);
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey1", L"AP1"), "a.exe| /x ");
}

TEST_F(SavingToTheRegistry, KeepsParametersOfAnEmptyCommand) {
    pattern.Btn(1).Program(1).Param = L"/x";
    patterns.SavePattern(1, pattern);
    EXPECT_EQ(UserString(L"Setting\\Set1\\AppKey1", L"AP1"), "|/x");
}

class MovedStorage : public LoadingFromTheRegistry {
public:
    static constexpr const wchar_t* kConversion = L"UTLSetting\\ConvAppKey";

    /// With the maker's values as they are now.
    [[nodiscard]] PatternStore Now() { return {store, kButtons}; }
};

TEST_F(MovedStorage, LoadsAButtonFromTheOtherButtonsEntries) {
    PutMachine(kConversion, L"AppKey2", 4);
    PutUser(L"Setting\\Set1\\AppKey2", L"DispTitle", "Second");
    PutUser(L"Setting\\Set1\\AppKey4", L"DispTitle", "Fourth");
    PutUser(L"Setting\\Set1\\AppKey4", L"AP1", "fourth.exe");
    const Pattern pattern = Now().LoadPattern(1, defaults);
    EXPECT_EQ(pattern.Btn(2).Name, L"Fourth");
    EXPECT_EQ(pattern.Btn(2).Program(1).AP, L"fourth.exe");
    EXPECT_EQ(pattern.Btn(4).Name, L"Fourth");
}

TEST_F(MovedStorage, TakesWhatIsMissingFromTheDefaultsOfTheButtonItself) {
    PutMachine(kConversion, L"AppKey2", 4);
    EXPECT_EQ(Now().LoadPattern(1, defaults).Btn(2), defaults.Btn(2));
}

TEST_F(MovedStorage, SavesAButtonToTheOtherButtonsEntries) {
    PutMachine(kConversion, L"AppKey2", 6);
    Pattern pattern;
    pattern.Btn(2).Name = L"Second";
    PatternStore(store, 6).SavePattern(1, pattern);
    EXPECT_THAT(Written(), Contains("Setting\\Set1\\AppKey6 DispTitle = \"Second\""));
    EXPECT_THAT(Written(), Not(Contains(StartsWith("Setting\\Set1\\AppKey2 "))));
}

TEST_F(MovedStorage, AppliesToTheFileToo) {
    store.IniFileExist = true;
    PutMachine(kConversion, L"AppKey2", 4);
    PutLine(L"USER1", L"Btn4_Name", "Fourth");
    EXPECT_EQ(Now().LoadPattern(1, defaults).Btn(2).Name, L"Fourth");
    Pattern pattern;
    Now().SavePattern(1, pattern);
    EXPECT_THAT(Written(), Not(Contains(StartsWith("[USER1] Btn2_"))));
}

TEST_F(MovedStorage, SwapsTwoButtons) {
    PutMachine(kConversion, L"AppKey1", 2);
    PutMachine(kConversion, L"AppKey2", 1);
    PutUser(L"Setting\\Set1\\AppKey1", L"DispTitle", "First");
    PutUser(L"Setting\\Set1\\AppKey2", L"DispTitle", "Second");
    const Pattern pattern = Now().LoadPattern(1, defaults);
    EXPECT_EQ(pattern.Btn(1).Name, L"Second");
    EXPECT_EQ(pattern.Btn(2).Name, L"First");
}

TEST_F(MovedStorage, IsThatOfAnotherButtonThatExistsAndElseItsOwn) {
    const std::pair<int, int> slots[] = {{1, 1}, {4, 4}, {7, 7}, {2, 2}, {0, 2}, {8, 2}, {9, 2}, {-1, 2}};
    for (const auto& [value, slot] : slots) {
        PutMachine(kConversion, L"AppKey2", value);
        EXPECT_EQ(Now().StorageSlot(2), slot) << value;
    }
}

TEST_F(MovedStorage, ReachesTheEighthButton_WhenItExists) {
    PutMachine(kConversion, L"AppKey2", 8);
    EXPECT_EQ(PatternStore(store, 7).StorageSlot(2), 2);
    EXPECT_EQ(PatternStore(store, 8).StorageSlot(2), 8);
}

TEST_F(MovedStorage, StaysWhereItIs_WithoutAValue) {
    for (int button = 1; button <= kMaxButtons; ++button) {
        EXPECT_EQ(Now().StorageSlot(button), button);
    }
}

} // namespace
