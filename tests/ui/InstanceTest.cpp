#include "TestWindow.h"
#include "UiTest.h"

namespace {

using UiDriver::FindWindows;
using UiDriver::ModalBox;
using UiDriver::Process;

class Instance : public UiTest {
protected:
    /// Starts the program once more and expects that start to end without a window of its own.
    static void StartAgain(const std::wstring& arguments = L"/k") {
        const Process second = Process::Start(ProgramPath(), arguments);
        EXPECT_EQ(second.WaitForExit(), 0U);
    }
};

TEST_F(Instance, ASecondStartEndsAndBringsTheFirstForward) {
    Start();
    const TestWindow other(L"QLBUtlOtherProgram", L"Another program");
    other.Shown().BringToFrontForGood();
    ASSERT_FALSE(Dialog().Foreground());
    StartAgain();
    UiDriver::WaitUntil([&] { return Dialog().Foreground(); }, L"the first instance to come forward");
    ExpectAlive();
}

TEST_F(Instance, ASecondStartRestoresTheFirstFromTheTaskBar) {
    Start();
    Dialog().Minimise();
    StartAgain();
    UiDriver::WaitUntil([&] { return !Dialog().Minimised(); }, L"the first instance to be restored");
    ExpectAlive();
}

TEST_F(Instance, ASecondStartBringsTheOpenQuestionForward) {
    Start();
    NameBox(1).SetText(L"changed");
    const ModalBox box = PressAndAwaitQuestion(IDC_cmdOK);
    const TestWindow other(L"QLBUtlOtherProgram", L"Another program");
    other.Shown().BringToFrontForGood();
    StartAgain();
    UiDriver::WaitUntil([&] { return box.Form().Foreground(); }, L"the question to come forward");
}

TEST_F(Instance, ASecondStartYieldsEvenWithoutTheKeyboard) {
    Start();
    Machine().SetDword(L"QLBB", 0);
    Dialog().Minimise();
    StartAgain();
    UiDriver::WaitUntil([&] { return !Dialog().Minimised(); }, L"the first instance to be restored");
}

TEST_F(Instance, ASecondStartWithAnotherOptionYieldsToo) {
    Start();
    StartAgain(L"/t:2");
    EXPECT_EQ(Tabs().Selected(), 0);
    ExpectAlive();
}

TEST_F(Instance, AfterTheFirstHasEndedAnotherStartOpens) {
    Start();
    Item(IDC_cmdCancel).Press();
    ExpectEnd();
    Start();
    ExpectAlive();
}

TEST_F(Instance, AStartRightAfterTheDialogWasClosedOpens) {
    std::vector<Process> programs; // ended ones may take their time
    for (int round = 0; round < 10; ++round) {
        programs.push_back(Process::Start(ProgramPath(), L"/k"));
        const UiDriver::Window dialog = UiDriver::WaitForForm(programs.back(), Text(kTitleText));
        dialog.WaitUntilAnswers();
        dialog.Close();
        while (IsWindowVisible(dialog.Hwnd())) {
        }
    }
}

TEST_F(Instance, AfterTheFirstWasKilledAnotherStartOpens) {
    {
        Process first = Process::Start(ProgramPath(), L"/k");
        UiDriver::WaitForForm(first, Text(kTitleText));
        first.Kill();
    }
    Start();
    ExpectAlive();
}

TEST_F(Instance, TwoStartsInTheSameMomentLeaveExactlyOne) {
    for (int round = 0; round < 5; ++round) {
        const Process a = Process::Start(ProgramPath(), L"/k");
        const Process b = Process::Start(ProgramPath(), L"/k");
        UiDriver::WaitUntil([&] { return !a.Running() || !b.Running(); }, L"one of two starts to yield");
        const Process& yielded = a.Running() ? b : a;
        const Process& stayed = a.Running() ? a : b;
        EXPECT_EQ(yielded.ExitCode(), 0U);
        UiDriver::WaitForForm(stayed, Text(kTitleText));
        EXPECT_EQ(FindWindows({std::nullopt, UiDriver::kFormClass, Text(kTitleText)}).size(), 1U);
    }
}

} // namespace
