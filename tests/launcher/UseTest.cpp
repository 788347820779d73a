#include "LauncherUse.h"
#include "resources/resource.h"

namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using UiDriver::FindWindows;
using UiDriver::ModalBox;
using UiDriver::Process;
using UiDriver::WindowQuery;
using UiDriver::Keyboard::Down;
using UiDriver::Keyboard::Press;
using UiDriver::Keyboard::Up;

class OwnLauncher : public LauncherUse {
protected:
    static Process StartSettings(const std::wstring& arguments = L"/k") {
        return Process::Start(UiDriver::OnDriveZ(QLB_PROGRAM_PATH), arguments);
    }
    static WindowQuery NameQuery() {
        WindowQuery query;
        query.className = L"QLBOnScreen";
        return query;
    }
    void ShowNames(DWORD seconds) {
        User().Sub(L"OnScreen").SetDword(L"OnScreen", 1);
        User().Sub(L"OnScreen").SetDword(L"Time", seconds);
    }
    /// An edit box of another program, with the keyboard.
    struct Notepad {
        Process process = Process::Start(UiDriver::WindowsDirectory() + L"\\notepad.exe");
        HWND edit = nullptr;

        Notepad() {
            WindowQuery query;
            query.processId = process.Id();
            query.className = L"Notepad";
            const UiDriver::Window window = UiDriver::WaitForWindow(query);
            edit = FindWindowExW(window.Hwnd(), nullptr, L"Edit", nullptr);
            window.BringToFrontForGood();
        }
        [[nodiscard]] std::wstring Text() const { return UiDriver::Control(edit).Text(); }
        void AwaitText(const std::wstring& text) const {
            UiDriver::WaitUntil([&] { return Text() == text; }, L"the text " + text);
        }
    };
    static bool AnyModifierDown() {
        for (const int key : {VK_SHIFT, VK_CONTROL, VK_MENU, VK_LWIN, VK_RWIN}) {
            if (GetAsyncKeyState(key) < 0) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(OwnLauncher, AShortcutKeyIsTypedIntoTheWindowInFront_WhateverIsHeld) {
    constexpr int kShift = 256;
    constexpr int kCtrl = 512;
    SetButton(1, {L"Letter", L"K", 1, {std::to_wstring('Q' + kShift)}, {}});
    SetButton(2, {L"All", L"K", 1, {std::to_wstring('A' + kCtrl)}, {}});
    Start();
    const Notepad notepad;
    Press(VK_LAUNCH_MAIL);
    notepad.AwaitText(L"Q");
    Press({VK_CONTROL, VK_MENU}, '1');
    notepad.AwaitText(L"QQ");
    EXPECT_FALSE(AnyModifierDown());

    // The modifiers are the user's again: one press more with the same ones held.
    Down(VK_CONTROL);
    Down(VK_MENU);
    Press('1');
    notepad.AwaitText(L"QQQ");
    Press('1');
    notepad.AwaitText(L"QQQQ");
    EXPECT_TRUE(GetAsyncKeyState(VK_CONTROL) < 0);
    Up(VK_MENU);
    Up(VK_CONTROL);
    EXPECT_FALSE(AnyModifierDown());

    Press(VK_BROWSER_HOME); // selects all that is there, and the next letter takes its place
    Press(VK_LAUNCH_MAIL);
    notepad.AwaitText(L"Q");
    EXPECT_FALSE(AnyModifierDown());
    SendMessageW(notepad.edit, EM_SETMODIFY, FALSE, 0);
}

TEST_F(OwnLauncher, TheNameIsShownForItsTime_WithoutTakingTheKeyboard) {
    ShowNames(1);
    SetButton(1, {Local(L"Prôbe", L"試験"), L"M", 1, {Probe()}, {}});
    SetButton(2, {L"Second", L"M", 1, {Probe()}, {}});
    Start();
    const Notepad notepad;
    const HWND front = GetForegroundWindow();
    Press(VK_LAUNCH_MAIL);
    const UiDriver::Window name = UiDriver::WaitForWindow(NameQuery());
    EXPECT_EQ(name.Title(), Local(L"Prôbe", L"試験"));
    EXPECT_EQ(GetForegroundWindow(), front);
    const RECT place = name.Rect();
    EXPECT_NE(WindowFromPoint({(place.left + place.right) / 2, (place.top + place.bottom) / 2}), name.Hwnd());

    Press(VK_BROWSER_HOME);
    WindowQuery second = NameQuery();
    second.title = L"Second";
    UiDriver::WaitForWindow(second);
    EXPECT_THAT(FindWindows(NameQuery()), SizeIs(1));
    UiDriver::WaitForNoWindow(NameQuery());
}

TEST_F(OwnLauncher, NoNameIsShownWhenThatIsOff) {
    SetButton(1, Single());
    Start();
    Request(1);
    AwaitReports(1);
    EXPECT_THAT(FindWindows(NameQuery()), IsEmpty());
}

TEST_F(OwnLauncher, WhatTheDialogStoresCountsAtOnce_AndTheWizardsRequestComesIn) {
    SetButton(2, Single(L"of Pattern 1"));
    StoredPattern other;
    other.name = Local(L"Ôther", L"別");
    for (StoredButton& button : other.buttons) {
        button = {L" ", L"M", 0, {}, {}};
    }
    other.Button(2) = Single(L"of Pattern 2");
    WritePattern(User().Sub(L"Setting\\Set2"), other);
    User().SetDword(L"NumSetting", 2);
    Start();
    const Process settings = StartSettings();
    const UiDriver::Window dialog = UiDriver::WaitForForm(settings, Text(kTitleText));
    dialog.WaitUntilAnswers();
    dialog.Combo(IDC_cmbUserName0).Choose(1);
    UiDriver::WaitUntil([] { return User().Dword(L"CurrSetting") == 2U; }, L"the Pattern to be current");
    dialog.WaitUntilAnswers();
    Press(VK_BROWSER_HOME);
    EXPECT_THAT(AwaitReports(1).back().commandLine, testing::EndsWith(L"of Pattern 2"));
    dialog.Close();
    EXPECT_EQ(settings.WaitForExit(), 0U);
}

TEST_F(OwnLauncher, TheMenuSwitchesThePattern_AndWhoeverListensIsTold) {
    SetButton(1, Single(L"of Pattern 1"));
    StoredPattern other;
    other.name = L"Other";
    for (StoredButton& button : other.buttons) {
        button = Single(L"of Pattern 2");
    }
    WritePattern(User().Sub(L"Setting\\Set2"), other);
    User().SetDword(L"NumSetting", 2);
    Start();
    const UiDriver::Launcher vistacast(UiDriver::OnDriveZ(QLB_LAUNCHER_PATH), L"/vistacast");
    OpenMenu().ChooseByKeys(1);
    EXPECT_EQ(vistacast.WaitForEntries(1).front().Message(), 1336U);
    EXPECT_EQ(User().Dword(L"CurrSetting"), 2U);
    Request(1);
    EXPECT_THAT(AwaitReports(1).back().commandLine, testing::EndsWith(L"of Pattern 2"));
}

TEST_F(OwnLauncher, WhileTheDialogIsOpenTheMenuBringsItForward) {
    User().SetDword(L"NumSetting", 2);
    Start();
    const Process settings = StartSettings();
    const UiDriver::Window dialog = UiDriver::WaitForForm(settings, Text(kTitleText));
    dialog.WaitUntilAnswers();
    const Notepad notepad;
    OpenMenu().ChooseByKeys(1);
    UiDriver::WaitUntil([&] { return dialog.Foreground(); }, L"the dialog to come to the front");
    EXPECT_EQ(User().Dword(L"CurrSetting"), 1U);
}

TEST_F(OwnLauncher, AClickOnTheIconOpensTheSettings) {
    Start();
    PostMessageW(Window().Hwnd(), WM_APP + 1, 0, MAKELPARAM(WM_USER, 1));
    WindowQuery query;
    query.className = UiDriver::kFormClass;
    query.title = Text(kTitleText);
    const UiDriver::Window dialog = UiDriver::WaitForWindow(query);
    dialog.WaitUntilAnswers();
    dialog.Close();
    UiDriver::WaitForNoWindow(query);
}

TEST_F(OwnLauncher, ASecondOneSaysThatOneRuns_AndOneThatStartsWithWindowsSaysNothing) {
    Start();
    const Process quiet = Process::Start(UiDriver::OnDriveZ(QLB_OWN_LAUNCHER_PATH), L"/s");
    EXPECT_EQ(quiet.WaitForExit(), 0U);
    const Process second = Process::Start(UiDriver::OnDriveZ(QLB_OWN_LAUNCHER_PATH));
    const ModalBox box = ModalBox::Wait(second);
    EXPECT_EQ(box.Text(), Text(5020));
    box.Press(IDOK);
    EXPECT_EQ(second.WaitForExit(), 0U);
}

TEST_F(OwnLauncher, AnotherLauncherComesFirst) {
    const UiDriver::Launcher makers(UiDriver::OnDriveZ(QLB_LAUNCHER_PATH));
    const Process ours = Process::Start(UiDriver::OnDriveZ(QLB_OWN_LAUNCHER_PATH));
    const ModalBox box = ModalBox::Wait(ours);
    EXPECT_EQ(box.Text(), Text(5021));
    box.Press(IDOK);
    EXPECT_EQ(ours.WaitForExit(), 0U);
}

TEST_F(OwnLauncher, WhereNothingSaysThatThereIsAKeyboard_ItsFirstStartLetsTheDialogOpen) {
    Machine().EraseTree();
    User().EraseTree();
    EXPECT_EQ(StartSettings().WaitForExit(), 0U);
    Start();
    EXPECT_EQ(User().Dword(L"QLBB"), 5U);
    const Process settings = StartSettings();
    const UiDriver::Window dialog = UiDriver::WaitForForm(settings, Text(kTitleText));
    dialog.WaitUntilAnswers();
    for (int button = 0; button < 5; ++button) {
        EXPECT_TRUE(dialog.Control(IDC_picButton0 + button).Visible());
    }
}

TEST_F(OwnLauncher, StartsWithWindowsWhenItsMenuSaysSo) {
    const UiDriver::RegistryKey run(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Run");
    Start();
    constexpr int kStartWithWindows = 4; // behind one Pattern, settings, keys and backups
    OpenMenu().ChooseByKeys(kStartWithWindows);
    UiDriver::WaitUntil([&] { return run.String(L"QLBLauncher").has_value(); }, L"the entry to come");
    EXPECT_EQ(run.String(L"QLBLauncher"), L'"' + UiDriver::OnDriveZ(QLB_OWN_LAUNCHER_PATH) + L"\" /s");
    OpenMenu().ChooseByKeys(kStartWithWindows);
    UiDriver::WaitUntil([&] { return !run.String(L"QLBLauncher"); }, L"the entry to go");
}

TEST_F(OwnLauncher, ExitEndsIt_AndItsKeysAreFreeAgain) {
    SetButton(1, Single());
    Start();
    constexpr int kExit = 6;
    OpenMenu().ChooseByKeys(kExit);
    EXPECT_EQ(Program().WaitForExit(), 0U);
    EXPECT_TRUE(RegisterHotKey(nullptr, 1, 0, VK_LAUNCH_MAIL));
    UnregisterHotKey(nullptr, 1);
}

TEST_F(OwnLauncher, TheDialogForKeysStoresWhatIsPressed_AndTellsATakenKeyOnTheSpot) {
    SetButton(1, Single(L"one"));
    Start();
    constexpr int kKeys = 2;
    OpenMenu().ChooseByKeys(kKeys);
    const UiDriver::Window form = UiDriver::WaitForForm(Program(), Text(5030));
    form.WaitUntilAnswers();
    form.BringToFrontForGood();
    const auto problem = [&] { return form.Control(IDC_lblKeyProblem).Text(); };
    const auto type = [&](std::initializer_list<WORD> modifiers, WORD key) {
        SendMessageW(form.Hwnd(), WM_NEXTDLGCTL,
                     reinterpret_cast<WPARAM>(form.Control(IDC_hotCombination0).Hwnd()), TRUE);
        Press(modifiers, key);
        form.WaitUntilAnswers();
    };
    EXPECT_EQ(problem(), Text(5037));

    type({VK_CONTROL, VK_MENU}, '2');
    EXPECT_THAT(problem(), HasSubstr(Text(5034)));
    EXPECT_FALSE(form.Control(IDC_cmdOK).Enabled());
    type({}, 'A');
    EXPECT_THAT(problem(), HasSubstr(Text(5036)));
    EXPECT_TRUE(RegisterHotKey(nullptr, 1, MOD_CONTROL | MOD_ALT, 'K'));
    form.Combo(IDC_cmbLaunchKey0).Choose(0);
    // A key that another program has does not reach the control: chosen, it is there already.
    SendMessageW(form.Control(IDC_hotCombination0).Hwnd(), WM_USER + 1, 'K' | 0x600, 0);
    SendMessageW(form.Hwnd(), WM_COMMAND, MAKEWPARAM(IDC_hotCombination0, EN_CHANGE),
                 reinterpret_cast<LPARAM>(form.Control(IDC_hotCombination0).Hwnd()));
    EXPECT_THAT(problem(), HasSubstr(Text(5035)));
    EXPECT_TRUE(form.Control(IDC_cmdOK).Enabled());
    UnregisterHotKey(nullptr, 1);

    type({VK_CONTROL, VK_SHIFT}, 'L');
    EXPECT_EQ(problem(), Text(5037));
    form.Control(IDC_cmdOK).Press();
    form.WaitUntilGone();
    EXPECT_EQ(LauncherKey().Dword(L"Key1"), 'L' | 0x300U);
    EXPECT_EQ(LauncherKey().Dword(L"LaunchKey1"), 0U);
    Window().WaitUntilAnswers();
    Press({VK_CONTROL, VK_SHIFT}, 'L');
    AwaitReports(1);
}

TEST_F(OwnLauncher, CancelLeavesTheKeysAsTheyWere) {
    SetButton(1, Single());
    Start();
    OpenMenu().ChooseByKeys(2);
    const UiDriver::Window form = UiDriver::WaitForForm(Program(), Text(5030));
    form.WaitUntilAnswers();
    form.Combo(IDC_cmbLaunchKey0).Choose(0);
    form.Control(IDC_cmdCancel).Press();
    form.WaitUntilGone();
    EXPECT_FALSE(LauncherKey().Exists());
    Window().WaitUntilAnswers();
    Press(VK_LAUNCH_MAIL);
    AwaitReports(1);
}

TEST_F(OwnLauncher, ChangesAreBackedUpByThemselves_AndBroughtBackByTheMenu) {
    constexpr int kBackups = 3;
    SetButton(1, Single(L"before"));
    Start();
    UiDriver::WaitUntil([&] { return Backups().size() == 1; }, L"the first backup");
    SetButton(1, Single(L"after"));
    UiDriver::WaitUntil([&] { return Backups().size() == 2; }, L"the second backup");
    Reload();
    Window().WaitUntilAnswers();
    EXPECT_THAT(Backups(), SizeIs(2));

    OpenMenu().OpenByKeys(kBackups).ChooseByKeys(0);
    ModalBox::Wait(Program()).Press(IDNO);
    OpenMenu().OpenByKeys(kBackups).ChooseByKeys(0);
    ModalBox::Wait(Program()).Press(IDYES);
    UiDriver::WaitUntil(
        [&] { return User().Sub(L"Setting\\Set1\\AppKey1").String(L"AP1") == Probe() + L"|before"; },
        L"the settings to be back");
    Window().WaitUntilAnswers();
    Request(1);
    EXPECT_THAT(AwaitReports(1).back().commandLine, testing::EndsWith(L"before"));
}

TEST_F(OwnLauncher, NothingIsBroughtBackWhileTheDialogIsOpen) {
    constexpr int kBackups = 3;
    SetButton(1, Single(L"before"));
    Start();
    UiDriver::WaitUntil([&] { return Backups().size() == 1; }, L"the first backup");
    SetButton(1, Single(L"after"));
    UiDriver::WaitUntil([&] { return Backups().size() == 2; }, L"the second backup");
    const Process settings = StartSettings();
    const UiDriver::Window dialog = UiDriver::WaitForForm(settings, Text(kTitleText));
    dialog.WaitUntilAnswers();
    dialog.BringToFrontForGood(); // or the menu's keys go where the window manager puts the focus
    OpenMenu().OpenByKeys(kBackups).ChooseByKeys(0);
    ModalBox::Wait(Program()).Press(IDYES);
    Window().WaitUntilAnswers();
    dialog.WaitUntilAnswers();
    EXPECT_EQ(User().Sub(L"Setting\\Set1\\AppKey1").String(L"AP1"), Probe() + L"|after");
}

TEST_F(OwnLauncher, SurvivesADamagedStore) {
    SetButton(1, Single());
    Start();
    User().SetString(L"CurrSetting", L"damaged");
    User().Sub(L"Setting").Sub(L"Set1").Sub(L"AppKey1").SetRaw(L"AP1", {REG_BINARY, {0xFF, 0xFE, 0x00}});
    User().Sub(L"OnScreen").SetString(L"OnScreen", std::wstring(3000, L'x'));
    LauncherKey().SetString(L"Key1", L"none");
    Reload();
    Request(1);
    User().EraseTree();
    Reload();
    for (int button = 1; button <= 8; ++button) {
        Request(button);
    }
    EXPECT_TRUE(Program().Running());
    SetButton(1, Single(L"mended"));
    User().SetDword(L"CurrSetting", 1);
    Reload();
    Request(1);
    EXPECT_THAT(AwaitReports(1).back().commandLine, testing::EndsWith(L"mended"));
}

} // namespace
