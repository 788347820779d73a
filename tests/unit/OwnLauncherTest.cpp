#include "launcher/Launcher.h"

#include "TestStore.h"
#include "app/CommandLine.h"
#include "app/StringTable.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeFonts.h"
#include "fakes/FakeLauncherPlatform.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeStrings.h"
#include "fakes/FakeWindows.h"
#include "launcher/LauncherBackups.h"
#include "launcher/NameShown.h"
#include "settings/GlobalValue.h"
#include "ui/Outline.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr KeyCode kMail{.key = 0xB4};

class OwnLauncher : public testing::Test {
public:
    OwnLauncher() {
        ResetGlobals(strings);
        fonts.Add(L"Arial");
        test.PutUser(L"", L"CurrSetting", 2);
        test.PutUser(L"", L"NumSetting", 2);
        test.PutUser(L"OnScreen", L"OnScreen", 1);
        test.PutUser(L"OnScreen", L"FontFace", "Arial");
        PutButton(1, 1, "Home", "M", "C:\\home.exe");
        test.PutUser(L"Setting\\Set1", L"SetName", "One & two");
        PutButton(2, 1, "Mail", "M", "C:\\Mail\\mail.exe|/inbox");
        test.PutUser(L"Setting\\Set2", L"SetName", "Office");
    }
    ~OwnLauncher() override { ResetGlobals(strings); }

    void PutButton(int pattern, int button, const char* name, const char* method, const char* program) {
        const std::wstring key =
            L"Setting\\Set" + std::to_wstring(pattern) + L"\\AppKey" + std::to_wstring(button);
        test.PutUser(key, L"DispTitle", name);
        test.PutUser(key, L"Execute", method);
        test.PutUser(key, L"NumAP", 1);
        test.PutUser(key, L"AP1", program);
    }

    TestStore test;
    FakeStrings strings;
    StringTable texts{strings};
    FakeFileSystem files;
    FakeFonts fonts;
    FakeShell shell;
    FakeWindows windows;
    FakeHotKeys hotKeys;
    FakeKeySender sender;
    FakeProgramStarter starter;
    FakeNameOnScreen screen;
    FakeTrayIcon tray;
    Launcher launcher{
        {test.store, texts, files, fonts, shell, windows, hotKeys, sender, starter, screen, tray}};
};

TEST_F(OwnLauncher, AKeyStartsWhatTheCurrentPatternSays_AndShowsTheName) {
    launcher.Start();
    EXPECT_TRUE(launcher.PressKey(hotKeys.IdOf(kMail)));
    EXPECT_THAT(starter.started, ElementsAre(StartRequest{L"C:\\Mail\\mail.exe", L"/inbox", L"C:\\Mail"}));
    ASSERT_THAT(screen.shown, SizeIs(1));
    EXPECT_EQ(screen.shown[0].text, L"Mail");
    EXPECT_EQ(tray.tip, L"Quickfire Buttons: Office");
    EXPECT_THAT(tray.told, IsEmpty());
}

TEST_F(OwnLauncher, TakesTheKeysOfButtonsThatDoSomethingOnly_AndAfterEachReloadAnew) {
    launcher.Start();
    EXPECT_THAT(hotKeys.registered, SizeIs(2));
    PutButton(2, 6, "Key", "K", "579");
    launcher.Reload();
    EXPECT_THAT(hotKeys.registered, SizeIs(3));
    const int registrations = hotKeys.registrations;
    launcher.RenewKeys();
    EXPECT_EQ(hotKeys.registrations, registrations + 3);
}

TEST_F(OwnLauncher, WhileKeysAreChosenNoneIsOurs_WhateverIsReloaded) {
    launcher.Start();
    launcher.LetKeysGo();
    launcher.Reload();
    launcher.RenewKeys();
    EXPECT_THAT(hotKeys.registered, IsEmpty());
    AllKeys keys = launcher.StoredKeys();
    keys(1).launchKey = {};
    launcher.TakeKeysAgain(keys);
    EXPECT_THAT(hotKeys.registered, SizeIs(1));
    EXPECT_EQ(launcher.StoredKeys(), keys);
}

TEST_F(OwnLauncher, TellsAtItsStartWhichKeysAreTaken) {
    hotKeys.ofOthers = {kMail};
    launcher.Start();
    EXPECT_THAT(tray.told, ElementsAre(std::pair(std::wstring(L"Quickfire Buttons"),
                                                 std::wstring(L"Another program has: Mail"))));
    launcher.Reload();
    EXPECT_THAT(tray.told, SizeIs(1));
}

TEST_F(OwnLauncher, AShortcutKeyGoesToTheWindowInFront) {
    PutButton(2, 2, "Copy", "K", "579");
    launcher.Start();
    launcher.Press(2);
    EXPECT_THAT(sender.sent, SizeIs(4));
    EXPECT_THAT(screen.shown, SizeIs(1));
    sender.works = false;
    launcher.Press(2);
    ASSERT_THAT(tray.told, SizeIs(1));
    EXPECT_EQ(tray.told[0].first, L"Button 2");
}

TEST_F(OwnLauncher, WhatCantStartIsToldWithButtonProgramAndReason) {
    starter.refused[L"C:\\Mail\\mail.exe"] = L"File not found.";
    launcher.Start();
    launcher.Press(1);
    EXPECT_THAT(tray.told, ElementsAre(std::pair(
                               std::wstring(L"Mail"),
                               std::wstring(L"C:\\Mail\\mail.exe could not be started: File not found."))));
}

TEST_F(OwnLauncher, ThePressThatEndsASequenceShowsNoName) {
    PutButton(2, 3, "Row", "S", "a");
    test.PutUser(L"Setting\\Set2\\AppKey3", L"NumAP", 2);
    test.PutUser(L"Setting\\Set2\\AppKey3", L"AP2", "b");
    launcher.Start();
    launcher.Press(3);
    launcher.Press(3);
    EXPECT_THAT(screen.shown, SizeIs(1));
    EXPECT_THAT(starter.Files(), ElementsAre(L"a"));
}

TEST_F(OwnLauncher, EveryButtonHasALabelOfItsOwn) {
    EXPECT_EQ(launcher.LabelOf(1), L"Button 1");
    EXPECT_EQ(launcher.LabelOf(6), L"Button 6");
    test.PutMachine(L"UTLSetting\\ButtonName", L"AppKey6", "Player");
    EXPECT_EQ(launcher.LabelOf(6), L"Player");
    test.PutMachine(L"", L"QSTART", 1);
    EXPECT_EQ(launcher.LabelOf(7), L"Fn + 2");
}

TEST_F(OwnLauncher, AButtonWithoutAnythingStartsNothing) {
    launcher.Start();
    for (int button = 2; button <= 8; ++button) {
        launcher.Press(button);
    }
    EXPECT_THAT(starter.started, IsEmpty());
    EXPECT_THAT(tray.told, IsEmpty());
}

TEST_F(OwnLauncher, ReadsTheIniFileWhereTheMakerChoseThat) {
    test.PutMachine(L"", L"QLBINI", 1);
    test.PutLine(L"USER1", L"Btn1_Exec", "M");
    test.PutLine(L"USER1", L"Btn1_NumAP", "1");
    test.PutLine(L"USER1", L"Btn1_AP1", "C:\\ini.exe");
    launcher.Start();
    launcher.Press(1);
    EXPECT_THAT(starter.Files(), ElementsAre(L"C:\\ini.exe"));
}

TEST_F(OwnLauncher, StartsTheMakersDefaultsAndMovedButtons) {
    test.PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey4", 1);
    test.PutMachine(L"Default\\Setting\\Set1\\AppKey5", L"Execute", "M");
    test.PutMachine(L"Default\\Setting\\Set1\\AppKey5", L"NumAP", 1);
    test.PutMachine(L"Default\\Setting\\Set1\\AppKey5", L"AP1", "C:\\default.exe");
    launcher.Start();
    launcher.Press(4);
    launcher.Press(5);
    EXPECT_THAT(starter.Files(), ElementsAre(L"C:\\Mail\\mail.exe", L"C:\\default.exe"));
}

TEST_F(OwnLauncher, ChoosingAPatternMakesItCurrent_AndTellsWhoeverListens) {
    const WindowId self = windows.Add(L"KORVOQLBCLASS");
    windows.whileSending = [this] { launcher.Reload(); };
    const WindowId vistacast = windows.Add(L"Korvo Vistacast MainWnd Class");
    launcher.Start();
    launcher.ChoosePattern(1);
    EXPECT_EQ(test.UserDword(L"", L"CurrSetting"), 1);
    EXPECT_THAT(windows.Events(),
                ElementsAre(FakeWindows::Event{FakeWindows::Deed::Posted, vistacast, 1336, 1, 0},
                            FakeWindows::Event{FakeWindows::Deed::Sent, self, 1336, 1, 0}));
    EXPECT_EQ(tray.tip, L"Quickfire Buttons: One & two");
    launcher.ChoosePattern(3);
    EXPECT_EQ(test.UserDword(L"", L"CurrSetting"), 1);
}

TEST_F(OwnLauncher, WhileTheSettingsAreOpen_TheyComeForwardInstead) {
    const WindowId dialog = windows.Add(L"QLBUtlForm", L"Quickfire Button Settings");
    launcher.Start();
    launcher.ChoosePattern(1);
    launcher.OpenSettings();
    EXPECT_EQ(test.UserDword(L"", L"CurrSetting"), 2);
    EXPECT_THAT(starter.started, IsEmpty());
    const FakeWindows::Event forward{FakeWindows::Deed::BroughtForward, dialog, 0, 0, std::nullopt};
    EXPECT_THAT(windows.Events(), ElementsAre(forward, forward));
}

TEST_F(OwnLauncher, OpensTheSettingsBesideIt_OrSaysWhyNot) {
    launcher.OpenSettings();
    EXPECT_THAT(starter.started, ElementsAre(StartRequest{L"C:\\Program Files\\QLBUtl\\QLBUtl.exe", L"/k",
                                                          L"C:\\Program Files\\QLBUtl"}));
    starter.refused[starter.started[0].file] = L"It is gone.";
    launcher.OpenSettings();
    EXPECT_THAT(tray.told, SizeIs(1));
}

TEST_F(OwnLauncher, TheMenuHasThePatternsWithADotAtTheCurrentOne) {
    TrayState state = launcher.State();
    EXPECT_THAT(state.patterns, ElementsAre(L"One & two", L"Office"));
    state.startsWithWindows = true;
    const auto menu = TrayMenu(state, texts);
    ASSERT_THAT(menu, SizeIs(10));
    EXPECT_EQ(menu[0], (TrayEntry{kTrayPattern1, L"One && two", TrayEntry::Mark::None}));
    EXPECT_EQ(menu[1], (TrayEntry{kTrayPattern1 + 1, L"Office", TrayEntry::Mark::Dot}));
    EXPECT_EQ(menu[2], TrayEntry{});
    EXPECT_EQ(menu[3].command, kTraySettings);
    EXPECT_EQ(menu[7].mark, TrayEntry::Mark::Check);
    EXPECT_EQ(menu[9].command, kTrayExit);
    EXPECT_THAT(menu[5].items, SizeIs(2));
    state.backups = {L"2026-11-22 03:15:02", L"2026-11-21 01:00:00"};
    const auto backups = TrayMenu(state, texts)[5].items;
    ASSERT_THAT(backups, SizeIs(5));
    EXPECT_EQ(backups[1], (TrayEntry{kTrayBackup1 + 1, L"2026-11-21 01:00:00"}));
}

TEST(BackupTime, IsThatOfItsName) {
    EXPECT_EQ(LauncherBackups::TimeOf(L"C:\\Backups\\2026-11-22 031502.qlb"), L"2026-11-22 03:15:02");
    EXPECT_EQ(LauncherBackups::TimeOf(L"C:\\Backups\\2026-11-22 031502-02.qlb"), L"2026-11-22 03:15:02-02");
    EXPECT_EQ(LauncherBackups::TimeOf(L"C:\\odd.qlb"), L"odd");
}

TEST(ButtonRequest, HasANumberForEachButton_AndNoOther) {
    for (int button = 1; button <= 7; ++button) {
        EXPECT_EQ(RequestedButton(static_cast<std::uintptr_t>(103 + button)), button);
    }
    EXPECT_EQ(RequestedButton(84), 8);
    for (const std::uintptr_t other : {0U, 1U, 83U, 85U, 103U, 111U}) {
        EXPECT_EQ(RequestedButton(other), std::nullopt);
    }
}

TEST(FirstStart, WithoutAKeyboardTheUsersSettingsSayThatThereIsOne) {
    TestStore test;
    ClaimKeyboard(test.store);
    EXPECT_EQ(test.UserDword(L"", L"QLBB"), 5);
    EXPECT_EQ(test.UserDword(L"Launcher", L"StoredKeyboard"), 1);
    EXPECT_TRUE(HasKeyboard(test.store));
    test.ForgetOperations();
    ClaimKeyboard(test.store);
    EXPECT_THAT(test.Written(), IsEmpty());
}

TEST(FirstStart, AKeyboardThatIsThereIsLeftAlone) {
    for (const RegistryHive hive : {RegistryHive::LocalMachine, RegistryHive::CurrentUser}) {
        TestStore test;
        test.registry.PutDword(hive, TestStore::Path(L""), L"QLBB", 1);
        test.ForgetOperations();
        ClaimKeyboard(test.store);
        EXPECT_THAT(test.Written(), IsEmpty());
    }
}

TEST(FirstStart, WithTheIniFileItIsStoredThere) {
    TestStore test;
    test.PutMachine(L"", L"QLBINI", 1);
    ClaimKeyboard(test.store);
    EXPECT_EQ(test.Line(L"KORVOQLB", L"QLBKeyboard"), "5");
    EXPECT_EQ(test.UserDword(L"", L"QLBB"), std::nullopt);
    EXPECT_EQ(test.UserDword(L"Launcher", L"StoredKeyboard"), 1);
}

OnScreenSettings Shown(int step, std::int32_t color) {
    return {1, L"Arial", static_cast<std::uint8_t>(step), color};
}

TEST(NameOnTheScreen, IsTheNameInTheStoredFontSizeAndColour) {
    EXPECT_EQ(NameShown(L" Mail ", Shown(3, 0xFF00), 4), (ShownName{L"Mail", L"Arial", 44, 0xFF00, 4}));
    EXPECT_EQ(NameShown(L"Mail", Shown(1, -1), 2)->color, 0xFFFFFFU);
    int last = 0;
    for (int step = 1; step <= 5; ++step) {
        const int points = NameShown(L"x", Shown(step, 0), 2)->points;
        EXPECT_GT(points, last);
        last = points;
    }
    EXPECT_EQ(NameShown(L"a\nb", Shown(3, 0), 2)->text, L"a b");
}

TEST(NameOnTheScreen, IsNothingWhenThatIsOff_OrTheNameIsBlank) {
    OnScreenSettings off = Shown(3, 0);
    off.OnScreen = 0;
    EXPECT_EQ(NameShown(L"Mail", off, 2), std::nullopt);
    EXPECT_EQ(NameShown(L" ", Shown(3, 0), 2), std::nullopt);
    EXPECT_EQ(NameShown(L"", Shown(3, 0), 2), std::nullopt);
}

TEST(NameOnTheScreen, StaysForTheStoredTime) {
    TestStore test;
    EXPECT_EQ(LoadShownSeconds(test.store), 2);
    for (const auto& [stored, seconds] : {std::pair(1, 1), {10, 10}, {0, 2}, {11, 2}, {-3, 2}}) {
        test.PutUser(L"OnScreen", L"Time", stored);
        EXPECT_EQ(LoadShownSeconds(test.store), seconds);
    }
    test.PutMachine(L"", L"QLBINI", 1);
    test.PutLine(L"ONSCREEN", L"DelayTime", "7");
    ClaimKeyboard(test.store);
    EXPECT_EQ(LoadShownSeconds(test.store), 7);
}

TEST(NameOnTheScreen, HasADarkOutlineWhenItIsBright_AndABrightOneWhenItIsDark) {
    EXPECT_EQ(OutlineColor(0x00FFFFFF), 0U);
    EXPECT_EQ(OutlineColor(0x0000FF00), 0U);
    EXPECT_EQ(OutlineColor(0), 0x00FFFFFFU);
    EXPECT_EQ(OutlineColor(0x00FF0000), 0x00FFFFFFU);
}

TEST(NameOnTheScreen, StandsLowInTheMiddleOfItsMonitor) {
    EXPECT_EQ(PlaceOfName({0, 0, 1000, 800}, 200, 100), (NamePlace{400, 600}));
    EXPECT_EQ(PlaceOfName({-1000, 100, 0, 900}, 200, 100), (NamePlace{-600, 700}));
    EXPECT_EQ(PlaceOfName({0, 0, 1000, 80}, 200, 100).y, 0);
}

TEST(SmoothOutline, MixesWhatEachPixelIsMadeOf) {
    // Two pixels of two by two: all text, and half outline, half nothing. Rows are five long.
    const std::uint8_t drawn[] = {2, 2, 1, 0, 9, 2, 2, 1, 0, 9};
    const OutlineColors colors{0x00102030, 0x00FFFFFF};
    EXPECT_THAT(SmoothOutline(drawn, 5, 2, 1, 2, colors), ElementsAre(0xFF302010U, 0x7F7F7F7FU));
}

} // namespace
