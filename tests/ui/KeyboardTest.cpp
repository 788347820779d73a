#include "RegisterUse.h"

#include <algorithm>

namespace {

using testing::ElementsAreArray;
using testing::UnorderedElementsAreArray;
using UiDriver::Control;
using UiDriver::Milliseconds;
namespace Keyboard = UiDriver::Keyboard;

class KeyboardUse : public UiTest {
protected:
    void StartInFront(const std::wstring& arguments = L"/k") {
        Start(arguments);
        Dialog().BringToFrontForGood();
    }

    int FocusedId() const { return GetDlgCtrlID(Dialog().FocusedHwnd()); }

    void AwaitFocus(int id) const {
        UiDriver::WaitUntil([&] { return FocusedId() == id; },
                            L"control " + std::to_wstring(id) + L" to have the focus");
    }

    /// The ids that the Tab key visits from the one that has the focus until it comes round to it.
    std::vector<int> TabRound(bool backwards = false) const {
        std::vector<int> visited{FocusedId()};
        while (visited.size() < 50) {
            const HWND from = Dialog().FocusedHwnd();
            if (backwards) {
                Keyboard::Press({VK_SHIFT}, VK_TAB);
            } else {
                Keyboard::Press(VK_TAB);
            }
            UiDriver::WaitUntil([&] { return Dialog().FocusedHwnd() != from; }, L"Tab to move the focus");
            const int id = FocusedId();
            if (id == visited.front()) {
                break;
            }
            visited.push_back(id);
        }
        return visited;
    }

    std::vector<int> Enabled(const std::vector<int>& ids) const {
        std::vector<int> enabled;
        for (const int id : ids) {
            if (Item(id).Enabled()) {
                enabled.push_back(id);
            }
        }
        return enabled;
    }

    /// Everything that takes input on a page, in the order of reading, and what stands below all pages.
    static std::vector<int> ButtonPage(int page, int first, int last) {
        std::vector<int> ids{IDC_cmbUserName0 + page, IDC_cmdUserManager0 + page};
        for (int button = first; button <= last; ++button) {
            ids.push_back(IDC_picButton0 + button - 1);
            ids.push_back(IDC_txtButtonName0 + button - 1);
        }
        ids.push_back(IDC_cmdWizard0 + page);
        ids.push_back(IDC_cmdDefault0 + page);
        return ids;
    }

    static std::vector<int> WithCommonControls(std::vector<int> ids) {
        for (const int id :
             {IDC_cmdOK, IDC_cmdCancel, IDC_cmdApply, IDC_cmdPrint, IDC_cmdHelp, IDC_tabContainer}) {
            ids.push_back(id);
        }
        return ids;
    }

    /// The part of `visited` that lies on the page.
    static std::vector<int> OnPage(const std::vector<int>& visited, const std::vector<int>& page) {
        std::vector<int> part;
        for (const int id : visited) {
            if (std::find(page.begin(), page.end(), id) != page.end()) {
                part.push_back(id);
            }
        }
        return part;
    }

    void ExpectTabOrder(const std::vector<int>& page) const {
        Item(Enabled(page).front()).Focus();
        const std::vector<int> visited = TabRound();
        EXPECT_THAT(visited, UnorderedElementsAreArray(Enabled(WithCommonControls(page))));
        EXPECT_THAT(OnPage(visited, page), ElementsAreArray(Enabled(page)));
    }
};

TEST_F(KeyboardUse, TabVisitsTheDesktopPageInItsOrder) {
    StartInFront(L"/t:0");
    ExpectTabOrder(ButtonPage(0, 1, 5));
}

TEST_F(KeyboardUse, TabVisitsTheNotebookPageInItsOrder) {
    StartInFront(L"/t:1");
    ExpectTabOrder(ButtonPage(1, 6, 7));
}

TEST_F(KeyboardUse, TabVisitsTheOnScreenPageInItsOrder) {
    StartInFront(L"/t:2");
    ExpectTabOrder({IDC_chkOnScreen, IDC_cmbFontName, IDC_cmbFontSize, IDC_CmdFontColor, IDC_cmdDefault2});
}

TEST_F(KeyboardUse, ShiftTabGoesTheSameWayBack) {
    StartInFront(L"/t:1");
    NameBox(6).Focus();
    std::vector<int> there = TabRound();
    const std::vector<int> back = TabRound(true);
    std::reverse(there.begin() + 1, there.end());
    EXPECT_EQ(back, there);
}

TEST_F(KeyboardUse, TheFocusStartsInTheDialog) {
    StartInFront();
    AwaitFocus(IDC_cmbUserName0);
}

TEST_F(KeyboardUse, AltNGoesToThePatternBox) {
    StartInFront();
    NameBox(5).Focus();
    Keyboard::Press({VK_MENU}, L'N');
    AwaitFocus(IDC_cmbUserName0);
}

TEST_F(KeyboardUse, AltDRestoresTheDefaults) {
    StartInFront();
    NameBox(5).Focus();
    Keyboard::Press({VK_MENU}, L'D');
    UiDriver::WaitUntil([&] { return ShownNames(1, 5) == NamesOf(SeededDefault(), 1, 5); },
                        L"the defaults to be shown");
}

TEST_F(KeyboardUse, AltDMeansTheDefaultsOfThePageThatIsShown) {
    StartInFront(L"/t:0");
    OpenPage(1);
    NameBox(6).Focus();
    Keyboard::Press({VK_MENU}, L'D');
    UiDriver::WaitUntil([&] { return ShownNames(6, 7) == NamesOf(SeededDefault(), 6, 7); },
                        L"the defaults to be shown");
    EXPECT_EQ(ShownNames(1, 5), NamesOf(Seeded(1), 1, 5));
}

TEST_F(KeyboardUse, AltOTurnsTheOnScreenDisplayOff) {
    StartInFront(L"/t:2");
    Item(IDC_cmdDefault2).Focus();
    Keyboard::Press({VK_MENU}, L'O');
    UiDriver::WaitUntil([&] { return !Item(IDC_chkOnScreen).Checked(); }, L"the check box to be cleared");
    UiDriver::WaitUntil([&] { return !Item(IDC_cmbFontName).Enabled(); }, L"the choices to be disabled");
}

TEST_F(KeyboardUse, TheSpaceBarTurnsTheOnScreenDisplayOff) {
    StartInFront(L"/t:2");
    Item(IDC_chkOnScreen).Focus();
    Keyboard::Press(VK_SPACE);
    UiDriver::WaitUntil([&] { return !Item(IDC_chkOnScreen).Checked(); }, L"the check box to be cleared");
}

TEST_F(KeyboardUse, TheMnemonicsOfTheOnScreenPageGoToItsBoxes) {
    StartInFront(L"/t:2");
    Item(IDC_cmdDefault2).Focus();
    Keyboard::Press({VK_MENU}, L'F');
    AwaitFocus(IDC_cmbFontName);
    Keyboard::Press({VK_MENU}, L'S');
    AwaitFocus(IDC_cmbFontSize);
}

TEST_F(KeyboardUse, EnterOnAPictureOpensItsDialogHoweverTheFocusCameThere) {
    StartInFront();
    const auto closeDialog = [&] {
        const auto form = UiDriver::WaitForForm(Program(), Text(kRegisterTitleText));
        form.Control(IDC_cmdCancel).Press();
        form.WaitUntilGone();
        Dialog().BringToFrontForGood();
    };
    const auto enter = [&](int button) {
        AwaitFocus(IDC_picButton0 + button - 1);
        Keyboard::Press(VK_RETURN);
        closeDialog();
    };
    PictureOf(2).Click();
    closeDialog();
    enter(2);
    Keyboard::Press(VK_TAB);
    Keyboard::Press(VK_TAB);
    enter(3);
    NameBox(1).Click();
    Keyboard::Press({VK_SHIFT}, VK_TAB);
    enter(1);
    PictureOf(4).Focus(); // as a screen reader does it
    enter(4);
}

TEST_F(KeyboardUse, EnterElsewhereIsOk) {
    StartInFront();
    PictureOf(2).Focus();
    NameBox(2).Click();
    Keyboard::Press(VK_RETURN);
    ExpectEnd();
}

class PageKeys : public KeyboardUse {
protected:
    /// Presses a key with Ctrl and waits for page 0...2 to be shown with the focus on it.
    void Turn(std::initializer_list<WORD> modifiers, WORD key, int page) const {
        Keyboard::Press(modifiers, key);
        const int onPage = IDC_cmdDefault0 + page;
        UiDriver::WaitUntil(
            [&] {
                return Tabs().Selected() == page && Dialog().HasControl(onPage) && Item(onPage).Visible() &&
                       IsWindowVisible(Dialog().FocusedHwnd());
            },
            L"page " + std::to_wstring(page));
    }
};

TEST_F(PageKeys, CtrlTabTurnsForwardAndRound) {
    StartInFront();
    Turn({VK_CONTROL}, VK_TAB, 1);
    Turn({VK_CONTROL}, VK_TAB, 2);
    Turn({VK_CONTROL}, VK_TAB, 0);
}

TEST_F(PageKeys, CtrlShiftTabTurnsBackAndRound) {
    StartInFront();
    Turn({VK_CONTROL, VK_SHIFT}, VK_TAB, 2);
    Turn({VK_CONTROL, VK_SHIFT}, VK_TAB, 1);
}

TEST_F(PageKeys, CtrlPageDownAndUpTurnThePages) {
    StartInFront();
    Turn({VK_CONTROL}, VK_NEXT, 1);
    Turn({VK_CONTROL}, VK_NEXT, 2);
    Turn({VK_CONTROL}, VK_PRIOR, 1);
    Turn({VK_CONTROL}, VK_PRIOR, 0);
}

TEST_F(PageKeys, TheyWorkFromANameBox) {
    StartInFront();
    NameBox(3).Focus();
    Turn({VK_CONTROL}, VK_NEXT, 1);
    EXPECT_EQ(NameBox(3).Text(), Seeded(1).Button(3).name);
}

TEST_F(PageKeys, TheArrowKeysOnTheTabsTurnThePages) {
    StartInFront();
    Tabs().Focus();
    Turn({}, VK_RIGHT, 1);
    Turn({}, VK_LEFT, 0);
}

} // namespace
