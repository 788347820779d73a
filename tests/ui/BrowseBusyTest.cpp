#include "BrowseUse.h"

#include <commctrl.h>

namespace {

namespace Keyboard = UiDriver::Keyboard;

constexpr UiDriver::Milliseconds kReading{30000};
constexpr int kManyFiles = 1500;

/// Things that happen while a full folder is being read.
class BrowseBusy : public BrowseUse {
protected:
    /// Selects a tab at once: the real mouse is slower than the reading.
    void SwitchTo(int tab) const {
        PostMessageW(Tabs().Hwnd(), TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
    }
};

TEST_F(BrowseBusy, ClosingEndsTheProgram) {
    MakeFiles(UserMenu() + L"\\Big", 5000);
    Start();
    StartMenu().Expand(InMenu({L"Big"}));
    ExpectGoodEnd();
}

TEST_F(BrowseBusy, ClosingBeforeTheFirstTreeIsThereEndsTheProgram) {
    MakeFiles(UserMenu(), 500);
    StartWindow();
    ExpectGoodEnd();
}

TEST_F(BrowseBusy, AnotherTabFillsAndTheFolderIsThereAfterwards) {
    MakeFiles(UserMenu() + L"\\Big", kManyFiles);
    Start();
    StartMenu().Expand(InMenu({L"Big"}));
    SwitchTo(1);
    const Path computer{Text(kMyComputerText)};
    AllFiles().WaitForNode(computer);
    AllFiles().WaitUntilExpanded(computer);
    EXPECT_TRUE(AllFiles().Visible());
    Open(AllFiles(), {Text(kMyComputerText), L"c:"});
    OpenTab(kStartMenuTabText, IDC_tvTreeView0);
    AwaitFilled(StartMenu(), InMenu({L"Big"}), kReading);
    EXPECT_EQ(StartMenu().Count(), 2 + kManyFiles);
}

TEST_F(BrowseBusy, AFolderThatIsOpenedMeanwhileOpensAfterwards) {
    MakeFiles(UserMenu() + L"\\Big", kManyFiles);
    MakeFiles(UserMenu() + L"\\Bigger", kManyFiles);
    Start();
    StartMenu().Focus();
    StartMenu().Select(InMenu({L"Bigger"}));
    StartMenu().Expand(InMenu({L"Big"}));
    Keyboard::Press(VK_RIGHT);
    AwaitFilled(StartMenu(), InMenu({L"Big"}), kReading);
    AwaitFilled(StartMenu(), InMenu({L"Bigger"}), kReading);
    EXPECT_EQ(StartMenu().Count(), 3 + 2 * kManyFiles);
}

TEST_F(BrowseBusy, AFolderThatIsOpenedTwiceMeanwhileIsFilledOnce) {
    MakeFiles(UserMenu() + L"\\Big", kManyFiles);
    Start();
    StartMenu().Focus();
    StartMenu().Select(InMenu({L"Big"}));
    StartMenu().Expand(InMenu({L"Big"}));
    Keyboard::Press(VK_RIGHT);
    AwaitFilled(StartMenu(), InMenu({L"Big"}), kReading);
    Form().WaitUntilAnswers();
    EXPECT_EQ(StartMenu().Count(), 2 + kManyFiles);
}

} // namespace
