#include "TestWindow.h"
#include "WizardUse.h"

namespace {

using UiDriver::LauncherEntry;
using UiDriver::Process;

class WizardAlone : public WizardUse {
protected:
    void FinishWithShortcutKey() const {
        GoToPick(Source::ShortcutKey);
        Pick(OfferOf(Source::ShortcutKey));
        Next(IDC_fraFinish);
        Finish();
        EXPECT_EQ(Running().WaitForExit(), 0U);
    }

    void ExpectEndWithoutATrace() {
        EXPECT_EQ(Running().WaitForExit(), 0U);
        TheLauncher().RequireNoEntries();
        ExpectStoreUntouched();
    }

    /// The launcher was told of the settings, then asked for a button, if any.
    void ExpectTold(std::optional<WPARAM> button, const StoredPattern& pattern) {
        const std::size_t count = button ? 2 : 1;
        const std::vector<LauncherEntry> entries = TheLauncher().WaitForEntries(count);
        TheLauncher().RequireEntries(count);
        EXPECT_EQ(entries[0].Message(), UiDriver::Launcher::kSettingsChanged);
        EXPECT_EQ(entries[0].WParam(), 1U);
        EXPECT_TRUE(entries[0].Sent());
        EXPECT_EQ(SeenPattern(entries[0]), pattern);
        if (button) {
            EXPECT_EQ(entries[1].Message(), UiDriver::Launcher::kButtonRequest);
            EXPECT_EQ(entries[1].WParam(), *button);
            EXPECT_FALSE(entries[1].Sent());
        }
    }
};

TEST_F(WizardAlone, HasAPlaceOnTheTaskBarAndNoMainDialog) {
    StartAlone(L"/w:2");
    EXPECT_NE(GetWindowLongPtrW(Wizard().Hwnd(), GWL_EXSTYLE) & WS_EX_APPWINDOW, 0);
    EXPECT_EQ(Wizard().Owner(), nullptr);
    EXPECT_EQ(UiDriver::FindWindows({Running().Id(), std::nullopt, std::nullopt}).size(), 1U);
    EXPECT_FALSE(Part(IDC_cmdBack).Enabled());
    EXPECT_TRUE(Part(IDC_cmdNext).Enabled());
}

TEST_F(WizardAlone, AStartRightAfterItWasFinishedOpensWhileTheLauncherStillReads) {
    StartLauncher(L"/slow:3500");
    StartAlone(L"/w:4");
    GoToPick(Source::ShortcutKey);
    Pick(OfferOf(Source::ShortcutKey));
    Next(IDC_fraFinish);
    Part(IDC_cmdNext).Press();
    UiDriver::WaitUntil([&] { return !Wizard().Visible(); }, L"the wizard to close");
    StartFrom(CopiedProgram());
    EXPECT_EQ(NameBox(5).Text(), OfferOf(Source::ShortcutKey).stored.name);
    EXPECT_EQ(Running().WaitForExit(), 0U);
}

TEST_F(WizardAlone, BackEndsAtTheMethodPage) {
    StartAlone(L"/w:2");
    Next(IDC_fraSelectMenu);
    EXPECT_TRUE(Part(IDC_cmdBack).Enabled());
    Back(IDC_fraSelectLaunchMethod);
    EXPECT_FALSE(Part(IDC_cmdBack).Enabled());
    Check(IDC_optSelectLaunchMethod1);
    Next(IDC_fraButtonName);
    EXPECT_TRUE(Part(IDC_cmdBack).Enabled());
    Back(IDC_fraSelectLaunchMethod);
    EXPECT_FALSE(Part(IDC_cmdBack).Enabled());
}

TEST_F(WizardAlone, StoresItsButtonAndTellsTheLauncherOnce) {
    StartLauncher();
    StartAlone(L"/w:2");
    FinishWithShortcutKey();
    ExpectTold(std::nullopt, With(3, OfferOf(Source::ShortcutKey).stored));
    ExpectStore(With(3, OfferOf(Source::ShortcutKey).stored));
}

TEST_F(WizardAlone, ThenAsksTheLauncherForTheButton) {
    StartLauncher();
    StartAlone(L"/w:2 /ap");
    FinishWithShortcutKey();
    ExpectTold(106, With(3, OfferOf(Source::ShortcutKey).stored));
    ExpectStore(With(3, OfferOf(Source::ShortcutKey).stored));
}

TEST_F(WizardAlone, AsksForTheEighthButtonByItsOwnNumber) {
    Machine().SetDword(L"NTNumAPBtn", 3);
    StartLauncher();
    StartAlone(L"/w:7 /ap");
    FinishWithShortcutKey();
    ExpectTold(84, With(8, OfferOf(Source::ShortcutKey).stored));
}

TEST_F(WizardAlone, CancelledStoresAndTellsNothing) {
    StartLauncher();
    StartAlone(L"/w:2 /ap");
    GoToPick(Source::ShortcutKey);
    Pick(OfferOf(Source::ShortcutKey));
    Next(IDC_fraFinish);
    Part(IDC_cmdCancel).Press();
    AwaitQuestion().Press(IDYES);
    ExpectEndWithoutATrace();
}

TEST_F(WizardAlone, ClosedByItsCloseBoxStoresAndTellsNothing) {
    StartLauncher();
    StartAlone(L"/w:2 /ap");
    Next(IDC_fraSelectMenu);
    Wizard().Close();
    ExpectEndWithoutATrace();
}

TEST_F(WizardAlone, ASecondStartBringsItForward) {
    StartAlone(L"/w:2");
    for (const wchar_t* arguments : {L"/k", L"/w:1"}) {
        const TestWindow other(L"QLBUtlOtherProgram", L"Another program");
        other.Shown().BringToFrontForGood();
        ASSERT_FALSE(Wizard().Foreground());
        const Process second = Process::Start(CopiedProgram(), arguments);
        EXPECT_EQ(second.WaitForExit(), 0U);
        UiDriver::WaitUntil([&] { return Wizard().Foreground(); }, L"the lone wizard to come forward");
    }
    AwaitPage(IDC_fraSelectLaunchMethod);
}

} // namespace
