#include "UiTest.h"

namespace {

using UiDriver::FindWindows;
using UiDriver::Process;

struct AcceptedLine : NamedCase {
    const wchar_t* arguments;
    int page;
};

class AcceptedCommandLine : public UiTest, public testing::WithParamInterface<AcceptedLine> {};

TEST_P(AcceptedCommandLine, OpensTheDialogOnItsPage) {
    Start(GetParam().arguments);
    EXPECT_EQ(Tabs().Selected(), GetParam().page);
    // A page's own control shows that the page is there, and not only its tab marked.
    constexpr int kOnPage[] = {IDC_txtButtonName0, IDC_txtButtonName5, IDC_chkOnScreen};
    for (int page = 0; page < 3; ++page) {
        const bool visible = Dialog().HasControl(kOnPage[page]) && Item(kOnPage[page]).Visible();
        EXPECT_EQ(visible, page == GetParam().page) << "page " << page;
    }
}

INSTANTIATE_TEST_SUITE_P(
    , AcceptedCommandLine,
    testing::Values(AcceptedLine{{"SlashK"}, L"/k", 0}, AcceptedLine{{"SlashCapitalK"}, L"/K", 0},
                    AcceptedLine{{"SlashKBetweenBlanks"}, L"  /k  ", 0},
                    AcceptedLine{{"FirstPage"}, L"/t:0", 0}, AcceptedLine{{"SecondPage"}, L"/t:1", 1},
                    AcceptedLine{{"ThirdPage"}, L"/t:2", 2}, AcceptedLine{{"CapitalT"}, L"/T:1", 1}),
    NameOfCase{});

class CommandLine : public UiTest {
protected:
    /// Expects the program to end with exit code 0 without ever showing a window.
    static void ExpectSilentEnd(const std::wstring& arguments) {
        const Process process = Process::Start(ProgramPath(), arguments);
        bool windowSeen = false;
        UiDriver::WaitUntil(
            [&] {
                windowSeen = windowSeen || !FindWindows({process.Id(), std::nullopt, std::nullopt}).empty();
                return windowSeen || !process.Running();
            },
            L"the refused program to end");
        EXPECT_FALSE(windowSeen);
        EXPECT_EQ(process.ExitCode(), 0U);
    }
};

struct RefusedLine : NamedCase {
    const wchar_t* arguments;
};

class RefusedCommandLine : public CommandLine, public testing::WithParamInterface<RefusedLine> {};

TEST_P(RefusedCommandLine, EndsSilently) {
    ExpectSilentEnd(GetParam().arguments);
}

INSTANTIATE_TEST_SUITE_P(
    , RefusedCommandLine,
    testing::Values(RefusedLine{{"Empty"}, L""}, RefusedLine{{"UnknownOption"}, L"/x"},
                    RefusedLine{{"NoOption"}, L"k"}, RefusedLine{{"PageTooHigh"}, L"/t:3"},
                    RefusedLine{{"PageNoNumber"}, L"/t:a"}, RefusedLine{{"PageOfTwoDigits"}, L"/t:12"},
                    RefusedLine{{"PageMissing"}, L"/t:"}, RefusedLine{{"WizardButtonTooHigh"}, L"/w:8"},
                    RefusedLine{{"UnknownRequestAfterWizard"}, L"/w:2 /x"},
                    RefusedLine{{"RequestBeforeWizard"}, L"/ap /w:2"},
                    RefusedLine{{"TwoOptions"}, L"/k /t:1"}),
    NameOfCase{});

TEST_F(CommandLine, WithoutAKeyboardTheProgramEndsSilently) {
    Machine().SetDword(L"QLBB", 0);
    ExpectSilentEnd(L"/k");
}

TEST_F(CommandLine, WithoutAnySettingsTheProgramEndsSilently) {
    Machine().EraseTree();
    User().EraseTree();
    ExpectSilentEnd(L"/k");
}

TEST_F(CommandLine, TheUsersKeyboardValueStandsInForTheMachines) {
    Machine().SetDword(L"QLBB", 0);
    User().SetDword(L"QLBB", 1);
    Start();
    ExpectAlive();
}

TEST_F(CommandLine, TheSecondPageOpensTheFirstWhenTheNotebookPageIsHidden) {
    Machine().Sub(L"UTLSetting").SetDword(L"ShowNTTab", 0);
    Start(L"/t:1");
    EXPECT_EQ(Tabs().Selected(), 0);
    EXPECT_TRUE(NameBox(1).Visible());
}

TEST_F(CommandLine, TheThirdPageIsTheOnScreenPageWhenTheNotebookPageIsHidden) {
    Machine().Sub(L"UTLSetting").SetDword(L"ShowNTTab", 0);
    Start(L"/t:2");
    EXPECT_EQ(Tabs().Selected(), 1);
    EXPECT_TRUE(Item(IDC_chkOnScreen).Visible());
}

} // namespace
