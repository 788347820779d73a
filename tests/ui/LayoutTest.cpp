#include "LayoutUse.h"
#include "RegisterUse.h"
#include "WizardUse.h"
#include "driver/Message.h"
#include "driver/Scaling.h"

#include <commctrl.h>

namespace {

constexpr UINT kScalings[] = {96, 120, 144, 192, 288};

std::string ScalingText(UINT dpi) {
    return std::to_string(dpi) + " dpi";
}

class MainLayout : public UiTest {};

TEST_F(MainLayout, IsGoodOnEveryPageAtEveryScaling) {
    Start();
    for (const UINT dpi : kScalings) {
        SCOPED_TRACE(ScalingText(dpi));
        UiDriver::ScaleTo(Dialog().Hwnd(), dpi);
        for (const int page : {1, 2, 0}) {
            SCOPED_TRACE("page " + std::to_string(page));
            UiDriver::Send(Tabs().Hwnd(), TCM_SETCURFOCUS, static_cast<WPARAM>(page), 0);
            Dialog().WaitUntilAnswers();
            ExpectGoodLayout(Dialog(), dpi);
        }
        ExpectOneRow(Dialog(), {IDC_lblUserName0, IDC_cmbUserName0, IDC_cmdUserManager0});
    }
}

TEST_F(MainLayout, HasRoomForMoreKeysThanDesktopButtons) {
    Machine().SetDword(L"NR1t2", 1);
    Machine().SetDword(L"NTNumAPBtn", 3);
    for (const DWORD desktopButtons : {2U, 1U}) {
        SCOPED_TRACE(desktopButtons);
        Machine().SetDword(L"DTNumAPBtn", desktopButtons);
        Start();
        for (const int page : {1, 2, 0}) {
            OpenPage(page);
            ExpectGoodLayout(Dialog(), 96);
        }
        OpenPage(2);
        const RECT preview = Item(IDC_picPreview).Rect();
        EXPECT_GT(preview.bottom - preview.top, 30);
        EndProgram();
    }
}

class RegisterLayout : public RegisterUse {};

TEST_F(RegisterLayout, IsGoodWithItsTabsInOneRowAtEveryScaling) {
    Open(Sequence(2));
    for (const UINT dpi : kScalings) {
        SCOPED_TRACE(ScalingText(dpi));
        UiDriver::ScaleTo(Form().Hwnd(), dpi);
        EXPECT_EQ(UiDriver::Send(SourceTabs().Hwnd(), TCM_GETROWCOUNT, 0, 0), 1);
        for (int tab = 0; tab < SourceTabs().Count(); ++tab) {
            UiDriver::Send(SourceTabs().Hwnd(), TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
            Form().WaitUntilAnswers();
            ExpectGoodLayout(Form(), dpi);
        }
        ExpectOneRow(Form(), {IDC_lblApplication0, IDC_txtApplication0});
    }
}

class ManagerLayout : public PatternManagerUse {};

TEST_F(ManagerLayout, IsGoodAtEveryScaling) {
    StartManager();
    for (const UINT dpi : kScalings) {
        SCOPED_TRACE(ScalingText(dpi));
        UiDriver::ScaleTo(Manager().Hwnd(), dpi);
        ExpectGoodLayout(Manager(), dpi);
    }
}

TEST_F(ManagerLayout, OfTheQuestionForANameIsGoodAtEveryScaling) {
    StartManager();
    const NameQuestion question = AskName(IDC_cmdAdd);
    for (const UINT dpi : kScalings) {
        SCOPED_TRACE(ScalingText(dpi));
        UiDriver::ScaleTo(question.Form().Hwnd(), dpi);
        ExpectGoodLayout(question.Form(), dpi);
    }
}

class WizardLayout : public WizardUse {
protected:
    void ExpectGoodPage() const {
        for (const UINT dpi : kScalings) {
            SCOPED_TRACE(ScalingText(dpi));
            UiDriver::ScaleTo(Wizard().Hwnd(), dpi);
            ExpectGoodLayout(Wizard(), dpi);
        }
        UiDriver::ScaleTo(Wizard().Hwnd(), 96);
    }
};

TEST_F(WizardLayout, IsGoodOnEveryPageForOneProgram) {
    Open();
    ExpectGoodPage();
    Next(IDC_fraSelectLaunchMethod);
    ExpectGoodPage();
    GoToPick(Source::StartMenu);
    ExpectGoodPage();
    PickFile(1);
    Next(IDC_fraFinish);
    ExpectGoodPage();
}

TEST_F(WizardLayout, IsGoodOnEveryPageForSeveralPrograms) {
    Open();
    Next(IDC_fraSelectLaunchMethod);
    Check(IDC_optSelectLaunchMethod1);
    Next(IDC_fraButtonName);
    ExpectGoodPage();
    Part(IDC_txtButtonName).SetText(L"Name");
    Next(IDC_fraSomePrograms);
    AddFile(1, 1);
    ExpectGoodPage();
}

} // namespace
