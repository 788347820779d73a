#include "WizardUse.h"

namespace {

using UiDriver::BoxIcon;
using UiDriver::ModalBox;
using UiDriver::WaitUntil;
namespace Keyboard = UiDriver::Keyboard;

class WizardPages : public WizardUse {
protected:
    void GoToClosingPage() {
        Open();
        Next(IDC_fraSelectLaunchMethod);
        GoToPick(Source::StartMenu);
        PickFile(1);
        Next(IDC_fraFinish);
    }

    Names OfferedButtons() const {
        Names captions;
        for (int option = 0; option < 5; ++option) {
            const UiDriver::Control each = Part(IDC_optMFButton0 + option);
            if (each.Visible()) {
                captions.push_back(each.Text());
            }
        }
        return captions;
    }

    /// Expects the program to be where it was before the wizard, and the store too.
    void ExpectNothingDone() {
        Wizard().WaitUntilGone();
        ExpectAlive();
        TheLauncher().RequireNoEntries();
        ExpectStoreUntouched();
    }
};

TEST_F(WizardPages, CancelOnAMiddlePageAsksAndNoStaysThere) {
    StartLauncher();
    Open();
    Next(IDC_fraSelectLaunchMethod);
    GoToSeveral(1, L"Name");
    AddFile(1, 1);
    Part(IDC_cmdCancel).Press();
    const ModalBox box = AwaitQuestion();
    EXPECT_EQ(box.Icon(), BoxIcon::Question);
    EXPECT_TRUE(box.Has(IDYES));
    EXPECT_TRUE(box.Has(IDNO));
    EXPECT_FALSE(box.Has(IDCANCEL));
    box.Press(IDNO);
    AwaitPage(IDC_fraSomePrograms);
    AwaitPrograms({MenuFile(1)});
    EXPECT_TRUE(Part(IDC_cmdBack).Enabled());
    EXPECT_TRUE(Part(IDC_cmdNext).Enabled());
    EXPECT_EQ(Part(IDC_cmdNext).Text(), Text(kNextText));
    EXPECT_TRUE(Part(IDC_cmdFinish).Visible());
    EXPECT_TRUE(Part(IDC_cmdFinish).Enabled());
    Part(IDC_cmdCancel).Press();
    AwaitQuestion().Press(IDYES);
    ExpectNothingDone();
}

TEST_F(WizardPages, CancelOnTheClosingPageAsksToo) {
    StartLauncher();
    GoToClosingPage();
    Part(IDC_cmdCancel).Press();
    AwaitQuestion().Press(IDNO);
    AwaitPage(IDC_fraFinish);
    EXPECT_EQ(Part(IDC_cmdNext).Text(), Text(kFinishText));
    Part(IDC_cmdCancel).Press();
    AwaitQuestion().Press(IDYES);
    ExpectNothingDone();
}

TEST_F(WizardPages, EscapeIsCancel) {
    StartLauncher();
    Open();
    Wizard().BringToFrontForGood();
    Keyboard::Press(VK_ESCAPE);
    AwaitQuestion().Press(IDNO);
    AwaitPage(IDC_fraSelectButton);
    Wizard().BringToFrontForGood();
    Keyboard::Press(VK_ESCAPE);
    AwaitQuestion().Press(IDYES);
    ExpectNothingDone();
}

TEST_F(WizardPages, TheCloseBoxEndsItWithoutAQuestion) {
    StartLauncher();
    GoToClosingPage();
    Wizard().Close();
    ExpectNothingDone();
}

TEST_F(WizardPages, EnterIsNextOnEveryPage) {
    Open();
    Wizard().BringToFrontForGood();
    Part(IDC_optMFButton0).Focus();
    Keyboard::Press(VK_DOWN);
    WaitUntil([&] { return Part(IDC_optMFButton1).Checked(); }, L"the second button to be chosen");
    Keyboard::Press(VK_RETURN);
    AwaitPage(IDC_fraSelectLaunchMethod);
    Keyboard::Press(VK_RETURN);
    AwaitPage(IDC_fraSelectMenu);
    Keyboard::Press(VK_RETURN);
    AwaitPage(IDC_fraSelectProgramForSingle);
    Reveal(Menu(), MenuNode(MenuFile(2)));
    WaitUntil([&] { return Menu().Focused(); }, L"the tree to have the focus");
    Keyboard::Type(L"Tool2");
    WaitUntil([&] { return Menu().Selected() == MenuNode(MenuFile(2)); }, L"the typed node to be selected");
    AwaitNext(true);
    Keyboard::Press(VK_RETURN);
    AwaitPage(IDC_fraFinish);
    Keyboard::Press(VK_RETURN);
    Wizard().WaitUntilGone();
    Dialog().WaitUntilAnswers();
    ExpectStore(With(2, {L"Tool2", L"M", 1, {MenuPath(MenuFile(2))}, {}}));
}

TEST_F(WizardPages, EachPageGivesTheFocusToWhatIsFirstToDo) {
    Open();
    Wizard().BringToFrontForGood();
    const auto awaitFocus = [&](int id) {
        WaitUntil([&] { return Part(id).Focused(); },
                  L"control " + std::to_wstring(id) + L" to have the focus");
    };
    awaitFocus(IDC_optMFButton0);
    Next(IDC_fraSelectLaunchMethod);
    awaitFocus(IDC_optSelectLaunchMethod0);
    Check(IDC_optSelectLaunchMethod2);
    Next(IDC_fraButtonName);
    awaitFocus(IDC_txtButtonName);
    Keyboard::Type(L"abc");
    AwaitNext(true);
    Next(IDC_fraSomePrograms);
    awaitFocus(IDC_tvTreeView0);
    AddFile(1, 1);
    Press(IDC_cmdFinish, IDC_fraFinish);
    awaitFocus(IDC_cmdNext);
}

TEST_F(WizardPages, FinishKeepsWhatElseWasEdited) {
    StartHere();
    NameBox(5).SetText(L"Edited");
    OpenFrom(IDC_cmdWizard0);
    Next(IDC_fraSelectLaunchMethod);
    GoToPick(Source::ShortcutKey);
    Pick(OfferOf(Source::ShortcutKey));
    Next(IDC_fraFinish);
    Finish();
    Dialog().WaitUntilAnswers();
    StoredPattern expected = With(1, OfferOf(Source::ShortcutKey).stored);
    expected.Button(5).name = L"Edited";
    ExpectStore(expected);
    Item(IDC_cmdOK).Press();
    ExpectEnd();
}

TEST_F(WizardPages, TheDesktopPageOffersTheDesktopButtons) {
    Open();
    EXPECT_THAT(OfferedButtons(),
                testing::ElementsAre(Text(3212), Text(3213), Text(3214), Text(3215), Text(3216)));
    EXPECT_TRUE(Part(IDC_optMFButton0).Checked());
    EXPECT_FALSE(Part(IDC_cmdBack).Enabled());
    EXPECT_TRUE(Part(IDC_cmdNext).Enabled());
}

TEST_F(WizardPages, TheNotebookPageOffersTheNotebookKeysAndStoresInTheirs) {
    Machine().SetDword(L"NTNumAPBtn", 2);
    StartHere(L"/t:1");
    OpenFrom(IDC_cmdWizard1);
    EXPECT_THAT(OfferedButtons(), testing::ElementsAre(Text(3212), Text(3213)));
    Check(IDC_optMFButton1);
    Next(IDC_fraSelectLaunchMethod);
    GoToPick(Source::MediaCenter);
    Pick(OfferOf(Source::MediaCenter));
    Next(IDC_fraFinish);
    Finish();
    Dialog().WaitUntilAnswers();
    EXPECT_EQ(NameBox(7).Text(), OfferOf(Source::MediaCenter).stored.name);
    ExpectStore(With(7, OfferOf(Source::MediaCenter).stored));
}

} // namespace
