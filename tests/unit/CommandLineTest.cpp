#include "app/CommandLine.h"

#include "TestStore.h"
#include "app/SingleInstance.h"
#include "app/StringTable.h"
#include "fakes/FakeInstanceGuard.h"
#include "fakes/FakeStrings.h"
#include "fakes/FakeWindows.h"
#include "settings/GlobalValue.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Test;

struct ProgramStart : TestStore {
    ProgramStart() {
        ResetGlobals(strings);
        PutMachine(L"", L"QLBB", 1);
    }
    ~ProgramStart() { ResetGlobals(strings); }
    ProgramStart(const ProgramStart&) = delete;
    ProgramStart& operator=(const ProgramStart&) = delete;

    [[nodiscard]] bool Accepts(std::wstring_view commandLine) {
        return startUp.ParseCommandLine(commandLine, store, guard, windows, texts);
    }

    FakeStrings strings;
    StringTable texts{strings};
    FakeSession session;
    FakeInstanceGuard guard{session};
    FakeWindows windows;
    StartUp startUp;
};

class CommandLineTest : public Test, public ProgramStart {};

TEST(CommandLineOptionTest, OpensTheSettingsDialog) {
    for (const wchar_t* line : {L"/k", L"/K", L"  /k  "}) {
        SCOPED_TRACE(testing::PrintToString(line));
        ProgramStart start;
        EXPECT_TRUE(start.Accepts(line));
        EXPECT_EQ(start.startUp.InitialPage, -1);
        EXPECT_FALSE(start.startUp.ButtonRequest);
        EXPECT_FALSE(Globals().WizardForButton);
    }
}

TEST(CommandLineOptionTest, OpensAPage) {
    const std::pair<const wchar_t*, int> lines[] = {
        {L"/t:0", 0}, {L"/t:1", 1}, {L"/t:2", 2}, {L"/T:1", 1}, {L" /t:2 ", 2}};
    for (const auto& [line, page] : lines) {
        SCOPED_TRACE(testing::PrintToString(line));
        ProgramStart start;
        EXPECT_TRUE(start.Accepts(line));
        EXPECT_EQ(start.startUp.InitialPage, page);
        EXPECT_FALSE(Globals().WizardForButton);
    }
}

TEST(CommandLineOptionTest, RunsTheWizardForAButton) {
    const std::pair<const wchar_t*, int> lines[] = {
        {L"/w:0", 0}, {L"/w:7", 7}, {L"/W:0", 0}, {L"  /w:3 ", 3}};
    for (const auto& [line, button] : lines) {
        SCOPED_TRACE(testing::PrintToString(line));
        ProgramStart start;
        EXPECT_TRUE(start.Accepts(line));
        EXPECT_EQ(start.startUp.WizardButton, button);
        EXPECT_FALSE(start.startUp.ButtonRequest);
        EXPECT_EQ(start.startUp.InitialPage, -1);
        EXPECT_TRUE(Globals().WizardForButton);
    }
}

TEST(CommandLineOptionTest, RunsTheWizardAndAsksForTheButton) {
    const std::pair<const wchar_t*, int> lines[] = {
        {L"/w:2 /ap", 2}, {L"/w:7 /ap", 7}, {L"/W:3 /AP", 3}, {L"/w:3/ap", 3}, {L" /w:3    /ap ", 3}};
    for (const auto& [line, button] : lines) {
        SCOPED_TRACE(testing::PrintToString(line));
        ProgramStart start;
        EXPECT_TRUE(start.Accepts(line));
        EXPECT_EQ(start.startUp.WizardButton, button);
        EXPECT_TRUE(start.startUp.ButtonRequest);
        EXPECT_TRUE(Globals().WizardForButton);
    }
}

void ExpectRefusal(std::initializer_list<const wchar_t*> lines) {
    for (const wchar_t* line : lines) {
        ProgramStart start;
        EXPECT_FALSE(start.Accepts(line)) << testing::PrintToString(line);
    }
}

TEST(CommandLineOptionTest, EndsTheProgram_WithoutAnOption) {
    ExpectRefusal({L"", L"   ", L"/", L"k", L"-k", L"/k /k", L"/kk", L"/x", L"/ k", L"notepad", L"/k\t",
                   L"/ap", L"\"/k\""});
}

TEST(CommandLineOptionTest, EndsTheProgram_WhenThePageIsNoneOfThree) {
    ExpectRefusal({L"/t:3", L"/t:9", L"/t:a", L"/t:12", L"/t:", L"/t: ", L"/t:-", L"/t:-1", L"/t:+", L"/t:+1",
                   L"/t: 1", L"/t:\xFF11", L"/t1", L"/t=1", L"t:1x", L"/t:1 /ap", L"/t:1 /k"});
}

TEST(CommandLineOptionTest, EndsTheProgram_WhenTheButtonIsNoneOfEight) {
    ExpectRefusal({L"/w:8", L"/w:9", L"/w:a", L"/w:12", L"/w:", L"/w:-", L"/w:-1", L"/w: 1", L"/w:8 /ap",
                   L"/w:a /ap", L"/w: /ap"});
}

TEST(CommandLineOptionTest, EndsTheProgram_WhenOtherTextStandsAroundTheButton) {
    ExpectRefusal({L"/w:2 /x", L"/w:2 x /ap", L"/w:2 /apx", L"/w:2 /ap /ap", L"/w:2 /ap x", L"/ap /w:2",
                   L"/ap/w:2", L"x /w:2 /ap", L"/k /w:2 /ap", L"/k/w:2/ap", L"/w:2 /w:3"});
}

TEST_F(CommandLineTest, RefusesAnEmbeddedNul) {
    EXPECT_FALSE(Accepts(std::wstring_view(L"/k\0", 3)));
    EXPECT_FALSE(Accepts(std::wstring_view(L"/t:\0", 4)));
}

TEST_F(CommandLineTest, RefusesALineOfAnyLength) {
    EXPECT_FALSE(Accepts(L"/w:1" + std::wstring(100'000, L'x') + L"/ap"));
}

TEST_F(CommandLineTest, SetsNoWizard_WhenItsButtonIsRefused) {
    EXPECT_FALSE(Accepts(L"/w:8"));
    EXPECT_FALSE(Globals().WizardForButton);
}

TEST_F(CommandLineTest, ForgetsAnEarlierLine) {
    EXPECT_TRUE(Accepts(L"/w:5 /ap"));
    EXPECT_TRUE(Accepts(L"/k"));
    EXPECT_EQ(startUp.InitialPage, -1);
    EXPECT_EQ(startUp.WizardButton, 0);
    EXPECT_FALSE(startUp.ButtonRequest);
}

TEST_F(CommandLineTest, SelectsTheIniFile_WhenTheMakersValueIsNotZero) {
    for (const int value : {1, 2, -1}) {
        PutMachine(L"", L"QLBINI", value);
        EXPECT_TRUE(Accepts(L"/k"));
        EXPECT_TRUE(store.IniFileExist) << value;
    }
}

TEST_F(CommandLineTest, SelectsTheRegistry_WhenTheMakersValueIsZeroOrMissing) {
    store.IniFileExist = true;
    EXPECT_TRUE(Accepts(L"/k"));
    EXPECT_FALSE(store.IniFileExist);
    PutMachine(L"", L"QLBINI", 0);
    EXPECT_TRUE(Accepts(L"/k"));
    EXPECT_FALSE(store.IniFileExist);
}

TEST_F(CommandLineTest, EndsTheProgram_WithoutAKeyboard) {
    PutMachine(L"", L"QLBB", 0);
    for (const wchar_t* line : {L"/k", L"/t:1", L"/w:1", L"/w:1 /ap"}) {
        EXPECT_FALSE(Accepts(line));
    }
    registry.Remove(RegistryHive::LocalMachine, Path(L""), L"QLBB");
    EXPECT_FALSE(Accepts(L"/k"));
}

TEST_F(CommandLineTest, Starts_WhenTheUsersValueIsAKeyboardThoughTheMachinesIsNot) {
    PutMachine(L"", L"QLBB", 0);
    PutUser(L"", L"QLBB", 1);
    EXPECT_TRUE(Accepts(L"/k"));
}

TEST_F(CommandLineTest, AsksTheMachine_WhenTheUsersValueIsZero) {
    PutUser(L"", L"QLBB", 0);
    EXPECT_TRUE(Accepts(L"/k"));
    PutMachine(L"", L"QLBB", -1);
    EXPECT_TRUE(Accepts(L"/k"));
}

TEST_F(CommandLineTest, ReadsTheUsersKeyboardFromTheFile_WithTheIniBackEnd) {
    PutMachine(L"", L"QLBINI", 1);
    PutMachine(L"", L"QLBB", 0);
    PutLine(L"KORVOQLB", L"QLBKeyboard", "1");
    EXPECT_TRUE(Accepts(L"/k"));
    PutLine(L"KORVOQLB", L"QLBKeyboard", " 0");
    EXPECT_FALSE(Accepts(L"/k"));
    PutLine(L"KORVOQLB", L"QLBKeyboard", "\" 0\"");
    EXPECT_FALSE(Accepts(L"/k"));
}

TEST_F(CommandLineTest, BringsTheOtherInstanceForward_AndEnds) {
    FakeInstanceGuard earlier(session);
    ASSERT_FALSE(earlier.AnotherInstanceRuns());
    const WindowId dialog = windows.Add(kFormClass, L"Quickfire Button Settings");
    EXPECT_FALSE(Accepts(L"/w:1"));
    EXPECT_THAT(windows.Events(),
                ElementsAre(FakeWindows::Event{FakeWindows::Deed::BroughtForward, dialog, 0, 0, {}}));
    EXPECT_FALSE(Globals().WizardForButton);
}

TEST_F(CommandLineTest, BringsTheOtherInstanceForward_EvenWithoutAKeyboardOrAnOption) {
    FakeInstanceGuard earlier(session);
    ASSERT_FALSE(earlier.AnotherInstanceRuns());
    windows.Add(kFormClass, L"Quickfire Button Settings");
    PutMachine(L"", L"QLBB", 0);
    EXPECT_FALSE(Accepts(L"/x"));
    EXPECT_EQ(windows.Events().size(), 1U);
}

TEST_F(CommandLineTest, LooksForNoWindow_WhenItIsTheOnlyInstance) {
    windows.Add(kFormClass, L"Quickfire Button Settings");
    EXPECT_TRUE(Accepts(L"/k"));
    EXPECT_THAT(windows.Searches(), IsEmpty());
    EXPECT_THAT(windows.Events(), IsEmpty());
}

TEST_F(CommandLineTest, WritesNothing) {
    EXPECT_TRUE(Accepts(L"/w:1 /ap"));
    EXPECT_THAT(Written(), IsEmpty());
}

} // namespace
