#include "AccessWalk.h"
#include "RegisterUse.h"
#include "WizardUse.h"

#include <oleacc.h>

#include <algorithm>

namespace {

using testing::ElementsAre;
using UiDriver::Accessible;
using UiDriver::WaitUntil;
namespace Keyboard = UiDriver::Keyboard;

constexpr int kSingleText = 4000;
constexpr int kSequentialText = 4001;
constexpr int kSimultaneousText = 4002;
constexpr int kListSeparatorText = 4003;
constexpr int kOneProgramText = 4004;
constexpr int kSomeProgramsText = 4005;
constexpr int kNoProgramText = 4006;

std::wstring Described(int methodText, int count) {
    std::wstring programs = Text(count == 1 ? kOneProgramText : kSomeProgramsText);
    if (const auto place = programs.find(L"%d"); place != std::wstring::npos) {
        programs.replace(place, 2, std::to_wstring(count));
    }
    return Text(methodText) + Text(kListSeparatorText) + programs;
}

/// The table's walk through one page or form in front.
std::vector<TabStop> Walk(const UiDriver::Window& form, const std::string& name) {
    form.BringToFrontForGood();
    std::vector<TabStop> walk = WalkByTab(form, name);
    SCOPED_TRACE(name);
    ExpectNamed(walk);
    return walk;
}

class MainAccess : public UiTest {
protected:
    Accessible Told(int button) const { return Accessible::Of(PictureOf(button).Hwnd()); }
};

struct MainPageCase : NamedCase {
    const wchar_t* arguments;
};

class MainPageAccess : public MainAccess, public testing::WithParamInterface<MainPageCase> {};

TEST_P(MainPageAccess, HasANameForEachStopOfTheTabKey) {
    Start(GetParam().arguments);
    Walk(Dialog(), std::string("main-") + GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(, MainPageAccess,
                         testing::Values(MainPageCase{{"Desktop"}, L"/t:0"},
                                         MainPageCase{{"Notebook"}, L"/t:1"},
                                         MainPageCase{{"OnScreen"}, L"/t:2"}),
                         NameOfCase{});

TEST_F(MainAccess, APictureIsAPushButtonThatTellsWhatItStarts) {
    Start();
    EXPECT_EQ(Told(1).name, Text(kButtonNumberText) + L"1");
    EXPECT_EQ(Told(1).role, ROLE_SYSTEM_PUSHBUTTON);
    EXPECT_EQ(Told(1).description, Described(kSingleText, 1));
    EXPECT_EQ(Told(2).description, Text(kShortcutKeyTabText));
    EXPECT_EQ(Told(3).description, Described(kSequentialText, 3));
    EXPECT_EQ(Told(4).description, Described(kSimultaneousText, 2));
    EXPECT_EQ(Told(5).description, Text(kNoProgramText));

    Item(IDC_cmdDefault0).Press();
    WaitUntil([&] { return Told(2).description == Described(kSequentialText, 2); },
              L"the new description of button 2");
    EXPECT_EQ(Told(3).description, Described(kSingleText, 1));
}

TEST_F(MainAccess, APictureTellsItsState) {
    Machine().Sub(L"UTLSetting\\ButtonName").SetString(L"AppKey1", L"This & that");
    Start();
    Dialog().BringToFrontForGood();
    PictureOf(1).Focus();
    EXPECT_EQ(Told(1).name, L"This & that");
    constexpr LONG kFocused = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED;
    EXPECT_EQ(Told(1).state & kFocused, kFocused);
    EXPECT_EQ(Told(1).state & (STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_PRESSED), 0);
    EXPECT_EQ(Told(2).state & kFocused, STATE_SYSTEM_FOCUSABLE);
    UiDriver::Mouse::MoveTo(PictureOf(2).Centre());
    UiDriver::Mouse::Down();
    WaitUntil([&] { return (Told(2).state & STATE_SYSTEM_PRESSED) != 0; }, L"the picture to be pressed");
    UiDriver::Mouse::MoveTo({2, 2}); // it was no click
    UiDriver::Mouse::Up();
    WaitUntil([&] { return (Told(2).state & STATE_SYSTEM_PRESSED) == 0; }, L"the picture to be let go");
}

TEST_F(MainAccess, AScreenReaderPressesAPicture) {
    Start();
    UiDriver::DoDefaultAction(PictureOf(3).Hwnd());
    const UiDriver::Window form = UiDriver::WaitForForm(Program(), Text(kRegisterTitleText));
    form.Control(IDC_cmdCancel).Press();
    form.WaitUntilGone();
    ExpectAlive();
}

class RegisterAccess : public RegisterUse {};

TEST_F(RegisterAccess, TabVisitsAllThatHasANameInItsOrder) {
    Open(Sequence(2));
    Form().Control(IDC_tvTreeView0).Focus();
    EXPECT_THAT(IdsOf(Walk(Form(), "register")),
                ElementsAre(IDC_tvTreeView0, IDC_optExecMethod1, IDC_txtApplication0, IDC_txtApplication1,
                            IDC_txtApplication2, IDC_txtApplication3, IDC_txtApplication4, IDC_cmdOK,
                            IDC_cmdCancel, IDC_tabMenu));
    for (const Source source : {Source::StartMenu, Source::MediaCenter, Source::IeFavorites, Source::AllFiles,
                                Source::ShortcutKey}) {
        const Offer offer = OfferOf(source);
        EXPECT_EQ(Accessible::Of(Form().Control(offer.pane).Hwnd()).name, Text(offer.tabText));
    }
}

TEST_F(RegisterAccess, TheArrowKeysChooseTheMethod) {
    Open(Sequence(2));
    Form().BringToFrontForGood();
    Form().Control(IDC_optExecMethod1).Focus();
    Keyboard::Press(VK_DOWN);
    WaitUntil([&] { return Form().Control(IDC_optExecMethod2).Checked(); }, L"the next method");
    Keyboard::Press(VK_DOWN);
    WaitUntil([&] { return Form().Control(IDC_optExecMethod0).Checked(); }, L"the first method again");
    EXPECT_EQ(Form().FocusedHwnd(), Form().Control(IDC_optExecMethod0).Hwnd());
}

class ManagerAccess : public PatternManagerUse {};

TEST_F(ManagerAccess, TabVisitsAllThatHasANameInItsOrder) {
    StartManager();
    List().Choose(1); // the current pattern can't be deleted
    AwaitDelete(true);
    EXPECT_THAT(IdsOf(Walk(Manager(), "manager")), ElementsAre(IDC_lstUserList, IDC_cmdAdd, IDC_cmdDelete,
                                                               IDC_cmdCopy, IDC_cmdRename, IDC_cmdClose));
    const NameQuestion question = AskName(IDC_cmdAdd);
    question.AwaitSelectedText();
    EXPECT_THAT(IdsOf(Walk(question.Form(), "input")),
                ElementsAre(IDC_txtInputBox, IDC_cmdOK, IDC_cmdCancel));
}

class WizardAccess : public WizardUse {};

TEST_F(WizardAccess, TabVisitsAllThatHasANameOnEachPageForOneProgram) {
    Open();
    EXPECT_THAT(IdsOf(Walk(Wizard(), "wizard-1-button")),
                ElementsAre(IDC_optMFButton0, IDC_cmdNext, IDC_cmdCancel));
    Next(IDC_fraSelectLaunchMethod);
    EXPECT_THAT(IdsOf(Walk(Wizard(), "wizard-2-method")),
                ElementsAre(IDC_optSelectLaunchMethod0, IDC_cmdBack, IDC_cmdNext, IDC_cmdCancel));
    Next(IDC_fraSelectMenu);
    EXPECT_THAT(IdsOf(Walk(Wizard(), "wizard-3-source")),
                ElementsAre(IDC_optSelectMenuForSingle0, IDC_cmdBack, IDC_cmdNext, IDC_cmdCancel));
    Next(IDC_fraSelectProgramForSingle);
    PickFile(1);
    EXPECT_THAT(IdsOf(Walk(Wizard(), "wizard-4-program")),
                ElementsAre(IDC_tvTreeView0, IDC_cmdBack, IDC_cmdNext, IDC_cmdCancel));
    Next(IDC_fraFinish);
    EXPECT_THAT(IdsOf(Walk(Wizard(), "wizard-5-finish")),
                ElementsAre(IDC_cmdNext, IDC_cmdCancel, IDC_cmdBack));
}

TEST_F(WizardAccess, TabVisitsAllThatHasANameOnEachPageForSeveralPrograms) {
    Open();
    Next(IDC_fraSelectLaunchMethod);
    Check(IDC_optSelectLaunchMethod1);
    Next(IDC_fraButtonName);
    Part(IDC_txtButtonName).TypeOver(L"Name");
    AwaitNext(true);
    EXPECT_THAT(IdsOf(Walk(Wizard(), "wizard-6-name")),
                ElementsAre(IDC_txtButtonName, IDC_cmdBack, IDC_cmdNext, IDC_cmdCancel));
    Next(IDC_fraSomePrograms);
    AddFile(1, 1);
    PickFile(2);
    EXPECT_THAT(IdsOf(Walk(Wizard(), "wizard-7-programs")),
                ElementsAre(IDC_tvTreeView0, IDC_cmdBack, IDC_cmdNext, IDC_cmdFinish, IDC_cmdCancel,
                            IDC_optSelectMenu0));
    for (int slot = 0; slot < 5; ++slot) {
        EXPECT_EQ(Accessible::Of(Part(IDC_txtProgram0 + slot).Hwnd()).name,
                  Part(IDC_lblProgram0 + slot).Text());
    }
}

TEST_F(WizardAccess, TheArrowKeysChooseTheButton) {
    Open();
    Wizard().BringToFrontForGood();
    Part(IDC_optMFButton0).Focus();
    Keyboard::Press(VK_DOWN);
    WaitUntil([&] { return Part(IDC_optMFButton1).Checked(); }, L"the next button");
    EXPECT_EQ(Wizard().FocusedHwnd(), Part(IDC_optMFButton1).Hwnd());
}

} // namespace
