#include "settings/PatternStore.h"

#include "TestStore.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;
using testing::Test;

constexpr int kButtons = 7;

class DefaultPattern : public Test, public TestStore {
public:
    PatternStore patterns{store, kButtons};
};

TEST_F(DefaultPattern, ComesFromTheMakersSet_WithTheRegistryBackEnd) {
    PutMachine(L"Default\\Setting\\Set1", L"SetName", "Standard");
    PutMachine(L"Default\\Setting\\Set1\\AppKey3", L"Execute", "P");
    PutMachine(L"Default\\Setting\\Set1\\AppKey3", L"NumAP", 2);
    PutMachine(L"Default\\Setting\\Set1\\AppKey3", L"DispTitle", "Mail");
    PutMachine(L"Default\\Setting\\Set1\\AppKey3", L"AP1", "a.exe|/x|/y");
    PutMachine(L"Default\\Setting\\Set1\\AppKey3", L"AP5", "e.exe");

    const Pattern pattern = patterns.LoadDefaultPattern();

    EXPECT_EQ(pattern.UserName, L"Standard");
    const ButtonSlot& slot = pattern.Btn(3);
    EXPECT_EQ(slot.Exec, L"P");
    EXPECT_EQ(slot.NumAP, 2);
    EXPECT_EQ(slot.Name, L"Mail");
    EXPECT_EQ(slot.Program(1).AP, L"a.exe");
    EXPECT_EQ(slot.Program(1).Param, L"/x|/y");
    EXPECT_EQ(slot.Program(5).AP, L"e.exe");
    EXPECT_EQ(slot.Program(5).Param, L"");
}

TEST_F(DefaultPattern, ComesFromTheIniStyleNames_WithTheIniBackEnd) {
    store.IniFileExist = true;
    PutMachine(L"Default\\USER1", L"UserName", "Standard");
    PutMachine(L"Default\\USER1", L"Btn3_Exec", "P");
    PutMachine(L"Default\\USER1", L"Btn3_NumAP", "2");
    PutMachine(L"Default\\USER1", L"Btn3_Name", "Mail");
    PutMachine(L"Default\\USER1", L"Btn3_AP1", "a.exe|/x|/y");
    PutMachine(L"Default\\USER1", L"Btn3_AP5", "e.exe");

    const Pattern pattern = patterns.LoadDefaultPattern();

    EXPECT_EQ(pattern.UserName, L"Standard");
    const ButtonSlot& slot = pattern.Btn(3);
    EXPECT_EQ(slot.Exec, L"P");
    EXPECT_EQ(slot.NumAP, 2);
    EXPECT_EQ(slot.Name, L"Mail");
    EXPECT_EQ(slot.Program(1).AP, L"a.exe");
    EXPECT_EQ(slot.Program(1).Param, L"/x|/y");
    EXPECT_EQ(slot.Program(5).AP, L"e.exe");
    EXPECT_THAT(files.Operations(), IsEmpty());
}

TEST_F(DefaultPattern, IgnoresTheOtherBackEndsValues) {
    PutMachine(L"Default\\Setting\\Set1", L"SetName", "Of the registry");
    PutMachine(L"Default\\USER1", L"UserName", "Of the file");
    EXPECT_EQ(patterns.LoadDefaultPattern().UserName, L"Of the registry");
    store.IniFileExist = true;
    EXPECT_EQ(patterns.LoadDefaultPattern().UserName, L"Of the file");
}

TEST_F(DefaultPattern, IsEmpty_WithoutTheMakersValues) {
    EXPECT_EQ(patterns.LoadDefaultPattern(), Pattern{});
    store.IniFileExist = true;
    EXPECT_EQ(patterns.LoadDefaultPattern(), Pattern{});
}

TEST_F(DefaultPattern, HasNoTitles) {
    PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"ProgName1", "Title");
    PutMachine(L"Default\\USER1", L"Btn1_Title1", "Title");
    EXPECT_EQ(patterns.LoadDefaultPattern().Btn(1).Program(1).Title, L"");
    store.IniFileExist = true;
    EXPECT_EQ(patterns.LoadDefaultPattern().Btn(1).Program(1).Title, L"");
}

TEST_F(DefaultPattern, CountsNoPrograms_WhenTheCountIsOutOfRange) {
    for (const int count : {0, 6, -1, 0x10001}) {
        PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"NumAP", count);
        EXPECT_EQ(patterns.LoadDefaultPattern().Btn(1).NumAP, 0) << count;
    }
    for (const int count : {1, 5}) {
        PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"NumAP", count);
        EXPECT_EQ(patterns.LoadDefaultPattern().Btn(1).NumAP, count);
    }
    store.IniFileExist = true;
    for (const char* count : {"0", "6", "x", "", "1x"}) {
        PutMachine(L"Default\\USER1", L"Btn1_NumAP", count);
        EXPECT_EQ(patterns.LoadDefaultPattern().Btn(1).NumAP, 0) << count;
    }
    PutMachine(L"Default\\USER1", L"Btn1_NumAP", "5");
    EXPECT_EQ(patterns.LoadDefaultPattern().Btn(1).NumAP, 5);
}

TEST_F(DefaultPattern, TakesAMovedButtonFromTheOtherButtonsEntries) {
    PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", 4);
    PutMachine(L"Default\\Setting\\Set1\\AppKey2", L"DispTitle", "Second");
    PutMachine(L"Default\\Setting\\Set1\\AppKey4", L"DispTitle", "Fourth");
    PutMachine(L"Default\\USER1", L"Btn4_Name", "Fourth of the file");
    const PatternStore moved(store, kButtons);
    EXPECT_EQ(moved.LoadDefaultPattern().Btn(2).Name, L"Fourth");
    store.IniFileExist = true;
    EXPECT_EQ(moved.LoadDefaultPattern().Btn(2).Name, L"Fourth of the file");
}

TEST_F(DefaultPattern, LeavesButtonsBeyondTheCountEmpty) {
    PutMachine(L"Default\\Setting\\Set1\\AppKey7", L"DispTitle", "Seventh");
    EXPECT_EQ(PatternStore(store, 6).LoadDefaultPattern().Btn(7), ButtonSlot{});
    EXPECT_EQ(PatternStore(store, 7).LoadDefaultPattern().Btn(7).Name, L"Seventh");
}

TEST_F(DefaultPattern, IsReadFromTheMachineAlone) {
    EXPECT_EQ(patterns.LoadDefaultPattern(), Pattern{});
    EXPECT_THAT(Asked(), Each(StartsWith("HKLM ")));
    EXPECT_THAT(Asked(), Contains("HKLM Default\\Setting\\Set1 SetName"));
    EXPECT_THAT(Asked(), Not(Contains(testing::HasSubstr("Default\\USER1"))));
    EXPECT_THAT(Written(), IsEmpty());
}

} // namespace
