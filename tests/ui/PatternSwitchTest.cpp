#include "UiTest.h"
#include "driver/Message.h"

namespace {

using UiDriver::ComboBox;
using UiDriver::HoldsFor;
using UiDriver::LauncherEntry;
using UiDriver::Milliseconds;
using UiDriver::ModalBox;
namespace Keyboard = UiDriver::Keyboard;

class PatternSwitch : public UiTest {
protected:
    static std::wstring NewName() { return Local(L"Œuvre", L"作品"); }

    ComboBox DesktopBox() const { return Combo(IDC_cmbUserName0); }
    ComboBox NotebookBox() const { return Combo(IDC_cmbUserName1); }

    /// The switch happens after the box has done its own work.
    void AwaitSwitchTo(int number) const {
        const auto switched = [&] {
            return StoredCurrent() == static_cast<DWORD>(number) && DesktopBox().Selected() == number - 1 &&
                   ShownNames(1, 5) == NamesOf(Seeded(number), 1, 5);
        };
        UiDriver::WaitUntil(switched, L"pattern " + std::to_wstring(number) + L" to be current and shown");
        AwaitEndOfInput();
    }

    /// What is posted waits until the dialog is done with what it is at. While it tells the launcher it answers
    /// sent messages, but a user's next choice would have to wait too.
    void AwaitEndOfInput() const {
        const HWND box = NameBox(1).Hwnd();
        UiDriver::Send(box, EM_SETMODIFY, FALSE);
        PostMessageW(box, EM_SETMODIFY, TRUE, 0);
        UiDriver::WaitUntil([&] { return UiDriver::Send(box, EM_GETMODIFY) != 0; },
                            L"the dialog to take input again");
    }

    void ExpectShown(int number) const {
        EXPECT_EQ(DesktopBox().Selected(), number - 1);
        EXPECT_EQ(ShownNames(1, 5), NamesOf(Seeded(number), 1, 5));
    }

    /// Whether pattern 1 stays the current one, in the store and for the launcher.
    void ExpectNoSwitch() {
        EXPECT_TRUE(HoldsFor([&] { return StoredCurrent() == 1U; }, Milliseconds(250)));
        EXPECT_TRUE(TheLauncher().Entries().empty());
    }

    ModalBox ChooseWithChanges() {
        StartLauncher();
        Start();
        NameBox(2).SetText(NewName());
        DesktopBox().Choose(1);
        return ModalBox::Wait(Program());
    }

    void OpenListByKeyboard() const {
        DesktopBox().Focus();
        Keyboard::Press(VK_F4);
        UiDriver::WaitUntil([&] { return DesktopBox().ListOpen(); }, L"the list of patterns to open");
    }
};

TEST_F(PatternSwitch, TheBoxesListTheUsersPatterns) {
    Start();
    EXPECT_THAT(DesktopBox().Items(), testing::ElementsAre(Seeded(1).name, Seeded(2).name, Seeded(3).name));
    OpenPage(1);
    EXPECT_EQ(NotebookBox().Items(), DesktopBox().Items());
}

TEST_F(PatternSwitch, TheStoredCurrentPatternIsShownAtFirst) {
    User().SetDword(L"CurrSetting", 3);
    Start();
    ExpectShown(3);
}

TEST_F(PatternSwitch, AChosenPatternBecomesCurrentAndIsShownAtOnce) {
    Start();
    DesktopBox().Choose(1);
    AwaitSwitchTo(2);
    ModalBox::RequireNone(Program());
}

TEST_F(PatternSwitch, ASwitchWritesNothingButTheNumber) {
    const std::wstring before = StoreDump();
    Start();
    DesktopBox().Choose(1);
    AwaitSwitchTo(2);
    EXPECT_NE(StoreDump(), before);
    User().SetDword(L"CurrSetting", 1);
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(PatternSwitch, ASwitchTellsTheLauncherOnce) {
    const auto& launcher = StartLauncher();
    Start();
    DesktopBox().Choose(1);
    const LauncherEntry entry = launcher.WaitForEntries(1)[0];
    EXPECT_EQ(entry.Message(), 1336U);
    EXPECT_TRUE(entry.Sent());
    EXPECT_EQ(SeenPattern(entry), Seeded(2));
    EXPECT_TRUE(HoldsFor([&] { return launcher.Entries().size() == 1; }, Milliseconds(200)));
}

TEST_F(PatternSwitch, ChoosingTheCurrentPatternAgainDoesNothing) {
    StartLauncher();
    Start();
    DesktopBox().Choose(0);
    ExpectNoSwitch();
}

TEST_F(PatternSwitch, ThePageShownLaterIsInStep) {
    Start();
    DesktopBox().Choose(2);
    AwaitSwitchTo(3);
    OpenPage(1);
    EXPECT_EQ(NotebookBox().Selected(), 2);
    EXPECT_EQ(ShownNames(6, 7), NamesOf(Seeded(3), 6, 7));
}

TEST_F(PatternSwitch, ThePageShownBeforeIsInStep) {
    Start(L"/t:1");
    OpenPage(0);
    DesktopBox().Choose(2);
    AwaitSwitchTo(3);
    OpenPage(1);
    EXPECT_EQ(NotebookBox().Selected(), 2);
    EXPECT_EQ(ShownNames(6, 7), NamesOf(Seeded(3), 6, 7));
}

TEST_F(PatternSwitch, TheNotebookPageSwitchesTheDesktopPageToo) {
    Start();
    OpenPage(1);
    NotebookBox().Choose(1);
    AwaitSwitchTo(2);
    OpenPage(0);
    ExpectShown(2);
}

TEST_F(PatternSwitch, ChangesAreAskedAboutFirst) {
    const ModalBox box = ChooseWithChanges();
    EXPECT_EQ(box.Title(), Text(kUpdateUserDataText));
    EXPECT_EQ(box.Text(), Text(kSettingsChangedText));
    EXPECT_TRUE(box.Has(IDYES));
    EXPECT_TRUE(box.Has(IDNO));
    EXPECT_TRUE(box.Has(IDCANCEL));
    EXPECT_EQ(StoredCurrent(), 1U);
}

TEST_F(PatternSwitch, YesSavesTheOldPatternUnderItsNumberAndSwitches) {
    ChooseWithChanges().Press(IDYES);
    AwaitSwitchTo(2);
    StoredPattern renamed = Seeded(1);
    renamed.Button(2).name = NewName();
    EXPECT_EQ(ReadPattern(Set(1)), renamed);
    EXPECT_EQ(ReadPattern(Set(2)), Seeded(2));
    EXPECT_EQ(SeenPattern(TheLauncher().WaitForEntries(1).back()), Seeded(2));
}

TEST_F(PatternSwitch, NoDiscardsTheChangesAndSwitches) {
    ChooseWithChanges().Press(IDNO);
    AwaitSwitchTo(2);
    EXPECT_EQ(ReadPattern(Set(1)), Seeded(1));
    DesktopBox().Choose(0);
    AwaitSwitchTo(1);
}

TEST_F(PatternSwitch, CancelKeepsThePatternTheEditsAndTheStore) {
    const std::wstring before = StoreDump();
    ChooseWithChanges().Press(IDCANCEL);
    UiDriver::WaitUntil([&] { return DesktopBox().Selected() == 0; }, L"the box to show the old pattern");
    EXPECT_EQ(NameBox(2).Text(), NewName());
    ExpectNoSwitch();
    EXPECT_EQ(StoreDump(), before);
    ExpectAlive();
}

TEST_F(PatternSwitch, OnScreenChangesAloneAreNotAskedAbout) {
    Start(L"/t:2");
    Item(IDC_chkOnScreen).Press();
    OpenPage(0);
    DesktopBox().Choose(1);
    AwaitSwitchTo(2);
    ModalBox::RequireNone(Program());
    EXPECT_EQ(ReadOnScreen(OnScreenKey()), SeededOnScreen());
}

TEST_F(PatternSwitch, AnArrowKeyInTheClosedBoxSwitches) {
    Start();
    DesktopBox().Focus();
    Keyboard::Press(VK_DOWN);
    AwaitSwitchTo(2);
}

TEST_F(PatternSwitch, AnArrowKeyWithChangesAsks) {
    Start();
    NameBox(2).SetText(NewName());
    DesktopBox().Focus();
    Keyboard::Press(VK_DOWN);
    ModalBox::Wait(Program()).Press(IDCANCEL);
    UiDriver::WaitUntil([&] { return DesktopBox().Selected() == 0; }, L"the box to show the old pattern");
    EXPECT_EQ(NameBox(2).Text(), NewName());
}

TEST_F(PatternSwitch, ArrowKeysInTheOpenListOnlyLook) {
    StartLauncher();
    Start();
    OpenListByKeyboard();
    Keyboard::Press(VK_DOWN);
    ExpectNoSwitch();
    EXPECT_EQ(ShownNames(1, 5), NamesOf(Seeded(1), 1, 5));
}

TEST_F(PatternSwitch, EscapeInTheOpenListKeepsThePattern) {
    StartLauncher();
    Start();
    OpenListByKeyboard();
    Keyboard::Press(VK_DOWN);
    Keyboard::Press(VK_ESCAPE);
    UiDriver::WaitUntil([&] { return !DesktopBox().ListOpen(); }, L"the list of patterns to close");
    ExpectNoSwitch();
    ExpectShown(1);
    ExpectAlive();
}

TEST_F(PatternSwitch, EnterInTheOpenListChooses) {
    Start();
    OpenListByKeyboard();
    Keyboard::Press(VK_DOWN);
    Keyboard::Press(VK_DOWN);
    Keyboard::Press(VK_RETURN);
    AwaitSwitchTo(3);
    ExpectAlive();
}

TEST_F(PatternSwitch, TheMouseChooses) {
    Start();
    DesktopBox().ChooseByMouse(2);
    AwaitSwitchTo(3);
}

TEST_F(PatternSwitch, TheMouseWithChangesAsksOnce) {
    Start();
    NameBox(2).SetText(NewName());
    DesktopBox().ChooseByMouse(2);
    ModalBox::Wait(Program()).Press(IDNO);
    AwaitSwitchTo(3);
    ModalBox::RequireNone(Program());
}

TEST_F(PatternSwitch, IsNotMadeByTheWheelOverAClosedList) {
    StartLauncher();
    Start();
    Dialog().BringToFrontForGood();
    DesktopBox().Focus();
    UiDriver::Mouse::MoveTo(DesktopBox().Centre());
    UiDriver::Mouse::Turn(-2);
    ExpectNoSwitch();
    ExpectShown(1);
}

} // namespace
