#include "Fonts.h"
#include "UiTest.h"

namespace {

class Defaults : public UiTest {
protected:
    /// The first seeded pattern with buttons first...last as the maker sets them.
    static StoredPattern WithDefaults(int first, int last) {
        StoredPattern pattern = Seeded(1);
        for (int button = first; button <= last; ++button) {
            pattern.Button(button) = SeededDefault().Button(button);
        }
        return pattern;
    }

    void PressDefault(int page) const {
        Item(IDC_cmdDefault0 + page).Press();
        Dialog().WaitUntilAnswers();
    }
};

TEST_F(Defaults, OfTheDesktopPageAreShownButNotStored) {
    const std::wstring before = StoreDump();
    Start(L"/t:0");
    PressDefault(0);
    EXPECT_EQ(ShownNames(1, 5), NamesOf(SeededDefault(), 1, 5));
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(Defaults, OfTheDesktopPageAreStoredByApply) {
    Start(L"/t:0");
    PressDefault(0);
    Apply();
    EXPECT_EQ(ReadPattern(Set(1)), WithDefaults(1, 5));
}

TEST_F(Defaults, OfTheNotebookPageAreShownButNotStored) {
    const std::wstring before = StoreDump();
    Start(L"/t:1");
    PressDefault(1);
    EXPECT_EQ(ShownNames(6, 7), NamesOf(SeededDefault(), 6, 7));
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(Defaults, OfTheNotebookPageAreStoredByApply) {
    Start(L"/t:1");
    PressDefault(1);
    Apply();
    EXPECT_EQ(ReadPattern(Set(1)), WithDefaults(6, 7));
}

TEST_F(Defaults, OfTheOnScreenPageAreShownButNotStored) {
    const std::wstring before = StoreDump();
    Start(L"/t:2");
    PressDefault(2);
    EXPECT_EQ(Combo(IDC_cmbFontName).SelectedText(), SeededDefaultOnScreen().face);
    EXPECT_EQ(Combo(IDC_cmbFontSize).Selected(), static_cast<int>(SeededDefaultOnScreen().size) - 1);
    EXPECT_EQ(StoreDump(), before);
}

TEST_F(Defaults, OfTheOnScreenPageAreStoredByApply) {
    Start(L"/t:2");
    PressDefault(2);
    Apply();
    EXPECT_EQ(ReadOnScreen(OnScreenKey()), SeededDefaultOnScreen());
    EXPECT_EQ(ReadPattern(Set(1)), Seeded(1));
}

TEST_F(Defaults, OfTheOnScreenPageSwitchTheDisplayOnAgain) {
    OnScreenKey().SetDword(L"OnScreen", 0);
    Start(L"/t:2");
    PressDefault(2);
    EXPECT_TRUE(Item(IDC_chkOnScreen).Checked());
    EXPECT_TRUE(Item(IDC_cmbFontName).Enabled());
}

TEST_F(Defaults, CountAsAChange) {
    Start(L"/t:0");
    PressDefault(0);
    PressAndAwaitQuestion(IDC_cmdOK).Press(IDNO);
    ExpectEnd();
    EXPECT_EQ(ReadPattern(Set(1)), Seeded(1));
}

TEST_F(Defaults, StandInForSettingsThatTheStoreLacks) {
    Set(1).Sub(L"AppKey1").EraseTree();
    Start();
    EXPECT_EQ(NameBox(1).Text(), SeededDefault().Button(1).name);
    Apply();
    EXPECT_EQ(ReadPattern(Set(1)), WithDefaults(1, 1));
}

TEST_F(Defaults, FillAWholeStoreThatIsEmpty) {
    User().EraseTree();
    Start();
    EXPECT_EQ(ShownNames(1, 5), NamesOf(SeededDefault(), 1, 5));
    EXPECT_EQ(Combo(IDC_cmbUserName0).Items(), std::vector{SeededDefault().name});
    Apply();
    const StoredOnScreen onScreen = ReadOnScreen(OnScreenKey());
    EXPECT_EQ(onScreen, SeededDefaultOnScreen());
    EXPECT_EQ(StoredCurrent(), 1U);
    EXPECT_EQ(User().Dword(L"NumSetting"), 1U);
    EXPECT_EQ(AppKey(1, 2).String(L"AP2"), SeededDefault().Button(2).programs[1]);
}

} // namespace
