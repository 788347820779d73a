#include "UiTest.h"

namespace {

using testing::SizeIs;
using UiDriver::BoxIcon;
using UiDriver::FindWindows;
using UiDriver::LauncherEntry;
using UiDriver::ModalBox;
using UiDriver::RawValue;
namespace Keyboard = UiDriver::Keyboard;

class Saving : public UiTest {
protected:
    static std::wstring NewName() { return Local(L"Encyclopædia", L"百科事典"); }

    /// The first seeded pattern with its second button renamed.
    static StoredPattern Renamed() {
        StoredPattern pattern = Seeded(1);
        pattern.Button(2).name = NewName();
        return pattern;
    }

    void Rename() const { NameBox(2).SetText(NewName()); }

    void StartAndRename() {
        Start();
        Rename();
    }

    /// Expects what a save leaves in the store: the renamed button and nothing else new.
    void ExpectRenamedStore() const {
        EXPECT_EQ(ReadPattern(Set(1)), Renamed());
        EXPECT_EQ(ReadPattern(Set(2)), Seeded(2));
        EXPECT_EQ(ReadPattern(Set(3)), Seeded(3));
        EXPECT_EQ(ReadOnScreen(OnScreenKey()), SeededOnScreen());
    }
};

TEST_F(Saving, ANameTypedOnTheKeyboardIsStoredByApply) {
    Start();
    NameBox(2).TypeOver(NewName());
    Apply();
    ExpectRenamedStore();
}

TEST_F(Saving, NothingIsStoredBeforeApply) {
    const std::wstring before = StoreDump();
    StartAndRename();
    Dialog().WaitUntilAnswers();
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(Saving, ANameIsStoredAsTextOfTheAnsiCodePageWithItsNul) {
    StartAndRename();
    Apply();
    const std::optional<RawValue> raw = AppKey(1, 2).Raw(L"DispTitle");
    ASSERT_TRUE(raw.has_value());
    EXPECT_EQ(raw->type, REG_SZ);
    std::vector<std::uint8_t> expected;
    for (const wchar_t c : NewName() + L'\0') {
        expected.push_back(static_cast<std::uint8_t>(c & 0xFF));
        expected.push_back(static_cast<std::uint8_t>(c >> 8));
    }
    EXPECT_EQ(raw->bytes, expected);
}

TEST_F(Saving, AnEmptyProgramIsStoredAsTwoNuls) {
    AppKey(1, 1).SetString(L"AP5", L"");
    Start();
    Apply();
    EXPECT_EQ(AppKey(1, 1).Raw(L"AP5"), (RawValue{REG_SZ, {0, 0, 0, 0}}));
}

TEST_F(Saving, ApplyTellsTheLauncherOnce) {
    const auto& launcher = StartLauncher();
    StartAndRename();
    Apply();
    const auto entries = launcher.WaitForEntries(1);
    launcher.RequireEntries(1);
    EXPECT_EQ(entries[0].Message(), 1336U);
    EXPECT_EQ(entries[0].WParam(), 1U);
    EXPECT_TRUE(entries[0].Sent());
}

TEST_F(Saving, TheLauncherThenReadsWhatTheDialogShows) {
    const auto& launcher = StartLauncher();
    StartAndRename();
    Apply();
    const LauncherEntry entry = launcher.WaitForEntries(1)[0];
    EXPECT_EQ(SeenPattern(entry), Renamed());
    EXPECT_EQ(SeenOnScreen(entry), SeededOnScreen());
    EXPECT_EQ(NamesOf(SeenPattern(entry), 1, 5), ShownNames(1, 5));
    EXPECT_EQ(entry.Value(L"current"), L"1");
    EXPECT_EQ(entry.Value(L"count"), std::to_wstring(kPatterns));
    EXPECT_EQ(entry.Value(L"pattern.name"), Combo(IDC_cmbUserName0).SelectedText());
}

TEST_F(Saving, ApplyStoresNamesOfAPageThatWasLeft) {
    Start(L"/t:1");
    NameBox(7).SetText(NewName());
    OpenPage(0);
    Apply();
    StoredPattern expected = Seeded(1);
    expected.Button(7).name = NewName();
    EXPECT_EQ(ReadPattern(Set(1)), expected);
}

TEST_F(Saving, ApplyKeepsTheDialogOpenAndOkThenAsksNothing) {
    StartAndRename();
    Apply();
    ExpectAlive();
    Item(IDC_cmdOK).Press();
    ExpectEnd();
}

TEST_F(Saving, AnEmptyNameIsStoredAsOneBlankAndItsBoxStaysEmpty) {
    Start();
    NameBox(3).SetText(L"");
    Apply();
    EXPECT_EQ(AppKey(1, 3).String(L"DispTitle"), L" ");
    EXPECT_EQ(NameBox(3).Text(), L"");
}

TEST_F(Saving, ButtonsStoredInOnePlaceAreSetAlike) {
    Machine().Sub(L"UTLSetting\\ConvAppKey").SetDword(L"AppKey6", 2);
    Start();
    OpenPage(1);
    EXPECT_EQ(NameBox(6).Text(), Seeded(1).Button(2).name);
    OpenPage(0);
    NameBox(2).SetText(NewName());
    Apply();
    EXPECT_EQ(AppKey(1, 2).String(L"DispTitle"), NewName());
    OpenPage(1);
    EXPECT_EQ(NameBox(6).Text(), NewName());
    NameBox(6).SetText(L"Other");
    OpenPage(0);
    EXPECT_EQ(NameBox(2).Text(), L"Other");
    Apply();
    EXPECT_EQ(AppKey(1, 2).String(L"DispTitle"), L"Other");
}

TEST_F(Saving, TenThousandCharactersInANameHarmNothing) {
    const std::wstring endless(10000, L'x');
    Start();
    NameBox(2).SetText(endless);
    Apply();
    ExpectAlive();
    StoredPattern expected = Seeded(1);
    expected.Button(2).name = endless;
    EXPECT_EQ(ReadPattern(Set(1)), expected);
    EXPECT_EQ(ReadPattern(Set(2)), Seeded(2));
}

TEST_F(Saving, ApplyWithoutChangesLeavesTheStoreAsItWas) {
    const std::wstring before = StoreDump();
    Start();
    OpenPage(1);
    OpenPage(2);
    Apply();
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(Saving, OkWithoutChangesClosesWithoutAQuestion) {
    const auto& launcher = StartLauncher();
    const std::wstring before = StoreDump();
    Start();
    Item(IDC_cmdOK).Press();
    ExpectEnd();
    EXPECT_EQ(StoreDump(), before);
    launcher.RequireNoEntries();
}

TEST_F(Saving, ANameChangedBackIsNoChange) {
    Start();
    NameBox(2).SetText(NewName());
    NameBox(2).SetText(Seeded(1).Button(2).name);
    Item(IDC_cmdOK).Press();
    ExpectEnd();
}

TEST_F(Saving, OkWithChangesAsksWhetherToSave) {
    StartAndRename();
    const ModalBox box = PressAndAwaitQuestion(IDC_cmdOK);
    EXPECT_EQ(box.Title(), Text(kUpdateUserDataText));
    EXPECT_EQ(box.Text(), Text(kSettingsChangedText));
    EXPECT_EQ(box.Icon(), BoxIcon::Question);
    EXPECT_TRUE(box.Has(IDYES));
    EXPECT_TRUE(box.Has(IDNO));
    EXPECT_TRUE(box.Has(IDCANCEL));
    EXPECT_FALSE(box.Has(IDOK));
    EXPECT_EQ(box.Form().Owner(), Dialog().Hwnd());
    EXPECT_FALSE(Dialog().Enabled());
}

TEST_F(Saving, OkAndYesSavesTellsTheLauncherAndCloses) {
    const auto& launcher = StartLauncher();
    StartAndRename();
    PressAndAwaitQuestion(IDC_cmdOK).Press(IDYES);
    ExpectEnd();
    ExpectRenamedStore();
    const auto entries = launcher.WaitForEntries(1);
    ASSERT_THAT(entries, SizeIs(1));
    EXPECT_EQ(SeenPattern(entries[0]), Renamed());
}

TEST_F(Saving, OkAndNoClosesAndWritesTheNumbersOnly) {
    const auto& launcher = StartLauncher();
    User().Erase(L"CurrSetting");
    User().Erase(L"NumSetting");
    StartAndRename();
    PressAndAwaitQuestion(IDC_cmdOK).Press(IDNO);
    ExpectEnd();
    EXPECT_EQ(ReadPattern(Set(1)), Seeded(1));
    EXPECT_EQ(StoredCurrent(), 1U);
    EXPECT_EQ(User().Dword(L"NumSetting"), 1U);
    launcher.RequireNoEntries();
}

TEST_F(Saving, OkAndCancelStaysWithTheEdits) {
    const auto& launcher = StartLauncher();
    const std::wstring before = StoreDump();
    StartAndRename();
    PressAndAwaitQuestion(IDC_cmdOK).Press(IDCANCEL);
    ExpectAlive();
    EXPECT_EQ(NameBox(2).Text(), NewName());
    EXPECT_EQ(StoreDump(), before);
    launcher.RequireNoEntries();
    Apply();
    ExpectRenamedStore();
}

TEST_F(Saving, TheQuestionsCloseBoxMeansCancel) {
    StartAndRename();
    PressAndAwaitQuestion(IDC_cmdOK).Dismiss();
    ExpectAlive();
    EXPECT_EQ(NameBox(2).Text(), NewName());
}

TEST_F(Saving, OkAsksAlsoWhenOnlyTheOnScreenSettingsChanged) {
    Start(L"/t:2");
    Item(IDC_chkOnScreen).Press();
    PressAndAwaitQuestion(IDC_cmdOK).Press(IDYES);
    ExpectEnd();
    StoredOnScreen expected = SeededOnScreen();
    expected.on = 0;
    EXPECT_EQ(ReadOnScreen(OnScreenKey()), expected);
    EXPECT_EQ(ReadPattern(Set(1)), Seeded(1));
}

TEST_F(Saving, EnterIsOk) {
    StartAndRename();
    NameBox(2).Focus();
    Keyboard::Press(VK_RETURN);
    ModalBox::Wait(Program()).Press(IDCANCEL);
    ExpectAlive();
}

TEST_F(Saving, EnterOnAnotherButtonPressesThatOne) {
    StartAndRename();
    NameBox(5).Focus();
    for (int tabs = 0; tabs < 20 && !Item(IDC_cmdApply).Focused(); ++tabs) {
        Keyboard::Press(VK_TAB);
    }
    Keyboard::Press(VK_RETURN);
    UiDriver::WaitUntil([&] { return AppKey(1, 2).String(L"DispTitle") == NewName(); }, L"Apply to save");
    ExpectAlive();
}

class Leaving : public Saving {
protected:
    /// Leaves the dialog with changes by `leave`, and expects it to go without a question or a trace.
    void ExpectNothingSavedBy(const std::function<void()>& leave) {
        const auto& launcher = StartLauncher();
        const std::wstring before = StoreDump();
        StartAndRename();
        leave();
        ExpectEnd();
        EXPECT_EQ(StoreDump(), before);
        launcher.RequireNoEntries();
    }
};

TEST_F(Leaving, CancelClosesWithoutSaving) {
    ExpectNothingSavedBy([&] { Item(IDC_cmdCancel).Press(); });
}

TEST_F(Leaving, TheCloseBoxClosesWithoutSaving) {
    ExpectNothingSavedBy([&] { Dialog().Close(); });
}

TEST_F(Leaving, EscapeClosesWithoutSaving) {
    ExpectNothingSavedBy([&] {
        NameBox(2).Focus();
        Keyboard::Press(VK_ESCAPE);
    });
}

TEST_F(Leaving, AltF4ClosesWithoutSaving) {
    ExpectNothingSavedBy([&] {
        Dialog().BringToFrontForGood();
        NameBox(2).Focus();
        Keyboard::Press({VK_MENU}, VK_F4);
    });
}

} // namespace
