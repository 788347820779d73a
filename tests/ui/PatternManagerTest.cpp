#include "PatternManagerUse.h"
#include "driver/Message.h"

namespace {

using testing::ElementsAre;
using UiDriver::HoldsFor;
using UiDriver::Milliseconds;
using UiDriver::ModalBox;
namespace Keyboard = UiDriver::Keyboard;

class PatternManager : public PatternManagerUse {
protected:
    /// The ids that the Tab key visits from the list until it comes round to it.
    std::vector<int> TabRound() const {
        List().Focus();
        std::vector<int> visited{IDC_lstUserList};
        while (visited.size() < 20) {
            const HWND from = Manager().FocusedHwnd();
            Keyboard::Press(VK_TAB);
            UiDriver::WaitUntil([&] { return Manager().FocusedHwnd() != from; }, L"Tab to move the focus");
            if (FocusedId() == visited.front()) {
                break;
            }
            visited.push_back(FocusedId());
        }
        return visited;
    }

    void PressTab(int id) const {
        Keyboard::Press(VK_TAB);
        AwaitFocus(id);
    }
};

TEST_F(PatternManager, OpensFromTheDesktopPage) {
    Start(L"/t:0");
    OpenManager(IDC_cmdUserManager0);
    EXPECT_EQ(Manager().Owner(), Dialog().Hwnd());
}

TEST_F(PatternManager, OpensFromTheNotebookPage) {
    Start(L"/t:1");
    OpenManager(IDC_cmdUserManager1);
    EXPECT_EQ(Manager().Owner(), Dialog().Hwnd());
}

TEST_F(PatternManager, AltMOpensItFromBothPages) {
    for (const wchar_t* page : {L"/t:0", L"/t:1"}) {
        Start(page);
        Dialog().BringToFrontForGood();
        Keyboard::Press({VK_MENU}, L'M');
        AwaitManager();
        EndProgram();
    }
}

TEST_F(PatternManager, ItsControlsHaveTheirTexts) {
    StartManager();
    EXPECT_EQ(Button(IDC_lblUserList).Text(), Text(kNameListText));
    EXPECT_EQ(Button(IDC_cmdAdd).Text(), Text(kAddText));
    EXPECT_EQ(Button(IDC_cmdDelete).Text(), Text(kDeleteText));
    EXPECT_EQ(Button(IDC_cmdCopy).Text(), Text(kCopyText));
    EXPECT_EQ(Button(IDC_cmdRename).Text(), Text(kRenameText));
    EXPECT_EQ(Button(IDC_cmdClose).Text(), Text(kCloseText));
}

TEST_F(PatternManager, ListsThePatternsInOrderWithTheCurrentOneSelected) {
    WriteStore(2, SeededPatterns());
    StartManager();
    ExpectList(NamesIn(SeededPatterns()), 1);
    AwaitFocus(IDC_lstUserList);
    ExpectStore(2, SeededPatterns());
}

TEST_F(PatternManager, CannotDeleteTheCurrentPatternByTheMouse) {
    StartManager();
    EXPECT_FALSE(Button(IDC_cmdDelete).Enabled());
    List().ClickItem(2);
    AwaitDelete(true);
    List().ClickItem(0);
    AwaitDelete(false);
}

TEST_F(PatternManager, CannotDeleteTheCurrentPatternByTheArrowKeys) {
    StartManager();
    List().Focus();
    Keyboard::Press(VK_DOWN);
    AwaitDelete(true);
    Keyboard::Press(VK_UP);
    AwaitDelete(false);
}

TEST_F(PatternManager, TabVisitsEveryEnabledControl) {
    StartManager();
    EXPECT_THAT(TabRound(),
                ElementsAre(IDC_lstUserList, IDC_cmdAdd, IDC_cmdCopy, IDC_cmdRename, IDC_cmdClose));
    List().Choose(1);
    AwaitDelete(true);
    EXPECT_THAT(TabRound(), ElementsAre(IDC_lstUserList, IDC_cmdAdd, IDC_cmdDelete, IDC_cmdCopy,
                                        IDC_cmdRename, IDC_cmdClose));
}

TEST_F(PatternManager, AltUGoesToTheList) {
    StartManager();
    Manager().BringToFrontForGood();
    Button(IDC_cmdClose).Focus();
    Keyboard::Press({VK_MENU}, L'U');
    AwaitFocus(IDC_lstUserList);
}

TEST_F(PatternManager, TheKeyboardAloneDoesEverything) {
    Start(L"/t:0");
    Dialog().BringToFrontForGood();
    Keyboard::Press({VK_MENU}, L'M');
    AwaitManager();
    Manager().BringToFrontForGood();
    AwaitFocus(IDC_lstUserList);

    PressTab(IDC_cmdAdd);
    Keyboard::Press(VK_SPACE);
    AwaitNameQuestion(kAddText).AwaitSelectedText();
    Keyboard::Type(NewName());
    Keyboard::Press(VK_RETURN);
    std::vector<StoredPattern> expected = SeededPatterns();
    expected.push_back(Named(SeededDefault(), NewName()));
    ExpectList(NamesIn(expected), 3);

    AwaitFocus(IDC_cmdAdd);
    PressTab(IDC_cmdDelete);
    PressTab(IDC_cmdCopy);
    Keyboard::Press(VK_SPACE);
    AwaitNameQuestion(kCopyText).AwaitSelectedText();
    Keyboard::Press(VK_RETURN);
    expected.push_back(Named(SeededDefault(), Text(kCopyText) + L" " + NewName()));
    ExpectList(NamesIn(expected), 4);

    AwaitFocus(IDC_cmdCopy);
    PressTab(IDC_cmdRename);
    Keyboard::Press(VK_SPACE);
    AwaitNameQuestion(kRenameText).AwaitSelectedText();
    Keyboard::Type(Local(L"Thé", L"茶"));
    Keyboard::Press(VK_RETURN);
    expected.back().name = Local(L"Thé", L"茶");
    ExpectList(NamesIn(expected), 4);

    Manager().BringToFrontForGood();
    Keyboard::Press({VK_MENU}, L'U');
    AwaitFocus(IDC_lstUserList);
    Keyboard::Press(VK_UP);
    Keyboard::Press(VK_UP);
    Keyboard::Press(VK_DELETE);
    const ModalBox question = ModalBox::Wait(Program());
    Keyboard::Press(VK_RETURN);
    question.Form().WaitUntilGone();
    expected.erase(expected.begin() + 2);
    ExpectList(NamesIn(expected), 2);

    Keyboard::Press(VK_ESCAPE);
    Manager().WaitUntilGone();
    ExpectStore(1, expected);
}

struct WayOut : NamedCase {
    void (*leave)(const UiDriver::Window&);
};

class PatternManagerClose : public PatternManager, public testing::WithParamInterface<WayOut> {};

TEST_P(PatternManagerClose, LeavesTheMainDialogReadyAndTheStoreAsItWas) {
    StartManager();
    GetParam().leave(Manager());
    Manager().WaitUntilGone();
    ExpectAlive();
    UiDriver::WaitUntil([&] { return Dialog().Foreground(); }, L"the dialog to be back in front");
    EXPECT_EQ(GetDlgCtrlID(Dialog().FocusedHwnd()), IDC_cmdUserManager0);
    OpenManager();
    ExpectList(NamesIn(SeededPatterns()), 0);
    ExpectStoreUntouched();
}

INSTANTIATE_TEST_SUITE_P(
    , PatternManagerClose,
    testing::Values(WayOut{{"Button"}, [](const auto& manager) { manager.Control(IDC_cmdClose).Press(); }},
                    WayOut{{"Enter"}, [](const auto&) { Keyboard::Press(VK_RETURN); }},
                    WayOut{{"Escape"}, [](const auto&) { Keyboard::Press(VK_ESCAPE); }},
                    WayOut{{"CloseBox"}, [](const auto& manager) { manager.Close(); }}),
    NameOfCase{});

class PatternManagerModal : public PatternManager {
protected:
    /// Asks a form under an open one to close, as other programs may.
    void ExpectStays(const UiDriver::Window& under, const UiDriver::Window& open) const {
        EXPECT_FALSE(under.Enabled());
        PostMessageW(under.Hwnd(), WM_CLOSE, 0, 0);
        const auto bothThere = [&] {
            under.WaitUntilAnswers();
            return under.Exists() && under.Visible() && open.Exists() && open.Visible();
        };
        EXPECT_TRUE(HoldsFor(bothThere, Milliseconds(300)));
    }
};

TEST_F(PatternManagerModal, TheMainDialogCannotBeClosedUnderIt) {
    StartManager();
    ExpectStays(Dialog(), Manager());
    CloseManager();
    ExpectAlive();
}

TEST_F(PatternManagerModal, TheMainDialogCannotBeUsedUnderIt) {
    Start(L"/t:0");
    NameBox(2).SetText(NewName());
    OpenManager();
    for (const int id : {IDC_cmdApply, IDC_cmdUserManager0, IDC_cmdOK}) {
        UiDriver::SendWithoutWaiting(Dialog().Hwnd(), WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                                     reinterpret_cast<LPARAM>(Item(id).Hwnd()));
        Dialog().WaitUntilAnswers();
    }
    ModalBox::RequireNone(Program());
    EXPECT_EQ(UiDriver::Forms(Program()).size(), 2U);
    ExpectStoreUntouched();
}

TEST_F(PatternManagerModal, ItCannotBeClosedUnderTheNameQuestion) {
    StartManager();
    const NameQuestion question = AskName(IDC_cmdAdd);
    ExpectStays(Manager(), question.Form());
    ExpectStays(Dialog(), question.Form());
    question.Cancel();
    CloseManager();
    ExpectAlive();
}

TEST_F(PatternManagerModal, ItCannotBeClosedUnderTheDeleteQuestion) {
    StartManager();
    const ModalBox box = AskDelete(2);
    ExpectStays(Manager(), box.Form());
    ExpectStays(Dialog(), box.Form());
    box.Press(IDCANCEL);
    CloseManager();
    ExpectAlive();
    ExpectStoreUntouched();
}

class PatternManagerEdits : public PatternManager {};

TEST_F(PatternManagerEdits, SurviveItUnsavedAndAreStillAskedAbout) {
    Start(L"/t:0");
    NameBox(2).SetText(NewName());
    OpenManager();
    AskName(IDC_cmdAdd).Accept(NewName());
    std::vector<StoredPattern> expected = SeededPatterns();
    expected.push_back(Named(SeededDefault(), NewName()));
    ExpectList(NamesIn(expected), 3);
    CloseManager();
    EXPECT_EQ(NameBox(2).Text(), NewName());
    ExpectStore(1, expected);
    const ModalBox box = PressAndAwaitQuestion(IDC_cmdOK);
    EXPECT_EQ(box.Text(), Text(kSettingsChangedText));
    box.Press(IDYES);
    ExpectEnd();
    expected[0].Button(2).name = NewName();
    ExpectStore(1, expected);
}

TEST_F(PatternManagerEdits, AreSavedUnderTheNumberThatTheirPatternHasByThen) {
    WriteStore(3, SeededPatterns());
    Start(L"/t:0");
    NameBox(2).SetText(NewName());
    OpenManager();
    AskDelete(0).Press(IDOK);
    ExpectList(NamesIn({Seeded(2), Seeded(3)}), 0);
    CloseManager();
    EXPECT_EQ(Combo(IDC_cmbUserName0).SelectedText(), Seeded(3).name);
    Apply();
    StoredPattern edited = Seeded(3);
    edited.Button(2).name = NewName();
    ExpectStore(2, {Seeded(2), edited});
}

TEST_F(PatternManagerEdits, NeverGoOverThePatternThatAnotherProgramMadeCurrent) {
    Start(L"/t:0");
    NameBox(2).SetText(NewName());
    OpenManager();
    User().SetDword(L"CurrSetting", 2);
    CloseManager();
    EXPECT_EQ(Combo(IDC_cmbUserName0).SelectedText(), Seeded(2).name);
    EXPECT_EQ(ShownNames(1, 5), NamesOf(Seeded(2), 1, 5));
    Item(IDC_cmdOK).Press();
    ExpectEnd();
    ExpectStore(2, SeededPatterns());
}

class PatternManagerOddStore : public PatternManager {
protected:
    void ExpectOnePatternAndRoomForMore() {
        StartManager();
        ExpectList({Seeded(1).name}, 0);
        EXPECT_FALSE(Button(IDC_cmdDelete).Enabled());
        AskName(IDC_cmdAdd).Accept(NewName());
        ExpectList({Seeded(1).name, NewName()}, 1);
        EXPECT_EQ(User().Dword(L"NumSetting"), 2U);
        EXPECT_EQ(ReadPattern(Set(2)), Named(SeededDefault(), NewName()));
        CloseManager();
        EXPECT_THAT(Combo(IDC_cmbUserName0).Items(), ElementsAre(Seeded(1).name, NewName()));
    }
};

TEST_F(PatternManagerOddStore, ACountOfNoneIsOne) {
    User().SetDword(L"NumSetting", 0);
    ExpectOnePatternAndRoomForMore();
}

TEST_F(PatternManagerOddStore, ACountBeyondTenTakesNoFurtherPatternUntilSomeAreDeleted) {
    std::vector<StoredPattern> expected = ManyPatterns(12);
    WriteStore(1, expected);
    StartManager();
    ExpectList(NamesIn(expected), 0);
    for (const int deleted : {11, 1, 4}) {
        EXPECT_FALSE(Button(IDC_cmdAdd).Enabled());
        EXPECT_FALSE(Button(IDC_cmdCopy).Enabled());
        AskDelete(deleted).Press(IDOK);
        expected.erase(expected.begin() + deleted);
        ExpectList(NamesIn(expected), std::min(deleted, static_cast<int>(expected.size()) - 1));
    }
    EXPECT_TRUE(Button(IDC_cmdAdd).Enabled());
    EXPECT_TRUE(Button(IDC_cmdCopy).Enabled());
    CloseManager();
    EXPECT_EQ(Combo(IDC_cmbUserName0).Items(), NamesIn(expected));
    ExpectStore(1, expected);
}

TEST_F(PatternManagerOddStore, AnAbsurdCountListsTen) {
    User().SetDword(L"NumSetting", 2'000'000'000);
    StartManager();
    std::vector<std::wstring> expected = NamesIn(SeededPatterns());
    expected.resize(10, SeededDefault().name);
    ExpectList(expected, 0);
    EXPECT_FALSE(Button(IDC_cmdAdd).Enabled());
    CloseManager();
    EXPECT_EQ(ReadPattern(Set(2)), Seeded(2));
}

TEST_F(PatternManagerOddStore, ATextAsTheCountIsOne) {
    User().Erase(L"NumSetting");
    User().SetString(L"NumSetting", L"several");
    ExpectOnePatternAndRoomForMore();
}

TEST_F(PatternManagerOddStore, ACurrentPatternBeyondTheCountIsTheFirst) {
    WriteStore(7, SeededPatterns());
    StartManager();
    ExpectList(NamesIn(SeededPatterns()), 0);
    EXPECT_FALSE(Button(IDC_cmdDelete).Enabled());
    AskName(IDC_cmdRename).Accept(NewName());
    ExpectList({NewName(), Seeded(2).name, Seeded(3).name}, 0);
    AskDelete(2).Press(IDOK);
    ExpectList({NewName(), Seeded(2).name}, 1);
    ExpectStore(7, {Named(Seeded(1), NewName()), Seeded(2)});
}

} // namespace
