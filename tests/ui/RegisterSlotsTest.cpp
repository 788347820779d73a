#include "RegisterUse.h"

namespace {

using UiDriver::PopupMenu;
using UiDriver::WaitUntil;
namespace Keyboard = UiDriver::Keyboard;

constexpr int kDeleteRow = 0;
constexpr int kParameterRow = 1;

class RegisterSlots : public RegisterUse {
protected:
    static StoredButton SequenceWithout(int removed, int count) {
        StoredButton button = Sequence(count);
        for (int number = removed; number < count; ++number) {
            button.programs.at(static_cast<std::size_t>(number) - 1) =
                button.programs.at(static_cast<std::size_t>(number));
        }
        button.programs.at(static_cast<std::size_t>(count) - 1).clear();
        --button.count;
        return button;
    }

    NameQuestion AskParameter(int slot) const {
        SlotMenu(slot).ChooseByMouse(kParameterRow, kSlotRows);
        return AwaitParameterQuestion();
    }

    void ExpectParameterDisabled() const {
        const PopupMenu menu = SlotMenu(1);
        menu.RequireDisabled(kParameterRow, kSlotRows);
        menu.Close();
    }

    void Choose(int option) const {
        Form().Control(IDC_optExecMethod0 + option).Click();
        WaitUntil([&] { return Form().Control(IDC_optExecMethod0 + option).Checked(); },
                  L"the method to be chosen");
        Form().WaitUntilAnswers();
    }
};

TEST_F(RegisterSlots, TheMenusDeleteMovesTheLaterProgramsUp) {
    Open(Sequence(4));
    SlotMenu(2).ChooseByMouse(kDeleteRow, kSlotRows);
    AwaitSlots({ShownFile(1), ShownFile(3), ShownFile(4)});
    ExpectRegistered(SequenceWithout(2, 4));
}

TEST_F(RegisterSlots, TheMenuOpensByItsKeyAndDeletesByKeys) {
    Open(Sequence(3));
    Form().BringToFrontForGood();
    Slot(2).Focus();
    Keyboard::PressContextMenuKey();
    PopupMenu::Wait(Program()).ChooseByKeys(kDeleteRow);
    AwaitSlots({ShownFile(1), ShownFile(3)});
    EXPECT_TRUE(Slot(2).Focused());
    ExpectRegistered(SequenceWithout(2, 3));
}

TEST_F(RegisterSlots, TheMenuOpensByShiftF10Too) {
    Open(Sequence(3));
    Form().BringToFrontForGood();
    Slot(3).Focus();
    Keyboard::Press({VK_SHIFT}, VK_F10);
    PopupMenu::Wait(Program()).ChooseByKeys(kDeleteRow);
    AwaitSlots({ShownFile(1), ShownFile(2)});
}

TEST_F(RegisterSlots, TheMenusDeleteOfTheFirstKeepsTheExtensionInTheName) {
    StoredButton button = Sequence(2);
    button.titles[1] = L"Next.one";
    Open(button);
    SlotMenu(1).ChooseByMouse(kDeleteRow, kSlotRows);
    AwaitSlots({L"Next.one"});
    ExpectRegistered({L"Next.one", L"S", 1, {button.programs[1]}, {L"Next.one"}});
}

TEST_F(RegisterSlots, TheDeleteKeyCutsTheExtensionFromTheName) {
    StoredButton button = Sequence(2);
    button.titles[1] = L"Next.one";
    Open(button);
    Slot(1).Focus();
    Keyboard::Press(VK_DELETE);
    AwaitSlots({L"Next.one"});
    ExpectRegistered({L"Next", L"S", 1, {button.programs[1]}, {L"Next.one"}});
}

TEST_F(RegisterSlots, TheDeleteKeyRemovesASingleShortcutKey) {
    Open(OfferOf(Source::ShortcutKey).stored);
    Slot(1).Focus();
    Keyboard::Press(VK_DELETE);
    AwaitSlots({});
    PressOk();
    Apply();
    EXPECT_EQ(AppKey(1, 1).Dword(L"NumAP"), 0U);
    EXPECT_EQ(AppKey(1, 1).String(L"AP1"), L"");
}

TEST_F(RegisterSlots, AParameterIsStoredBehindItsProgram) {
    Open(Sequence(2));
    const NameQuestion question = AskParameter(1);
    EXPECT_EQ(question.Field().Text(), L"/first one");
    question.Field().TypeOver(Local(L"/à côté", L"/日本"));
    question.PressOk();
    question.Form().WaitUntilGone();
    AskParameter(2).Accept(L"-second");
    StoredButton expected = Sequence(2);
    expected.programs[0] = MenuPath(MenuFile(1)) + L'|' + Local(L"/à côté", L"/日本");
    expected.programs[1] += L"|-second";
    ExpectRegistered(expected);
}

TEST_F(RegisterSlots, ACancelledParameterChangesNothing) {
    Open(Sequence(2));
    const NameQuestion question = AskParameter(1);
    question.Field().SetText(L"other");
    question.Cancel();
    ExpectNothingChanged();
}

TEST_F(RegisterSlots, AShortcutKeyHasNoParameter) {
    Open(OfferOf(Source::ShortcutKey).stored);
    ExpectParameterDisabled();
}

TEST_F(RegisterSlots, AMediaCenterItemHasNoParameter) {
    Open(OfferOf(Source::MediaCenter).stored);
    ExpectParameterDisabled();
}

TEST_F(RegisterSlots, AnEmptySlotDropsWhatIsChosen) {
    Open(Sequence(2));
    SlotMenu(3).ChooseByMouse(kDeleteRow, kSlotRows);
    ExpectSlotsStay({ShownFile(1), ShownFile(2)});
    SlotMenu(3).ChooseByMouse(kParameterRow, kSlotRows);
    ExpectSlotsStay({ShownFile(1), ShownFile(2)});
    EXPECT_TRUE(Form().Enabled());
    Slot(3).Focus();
    Keyboard::Press(VK_DELETE);
    ExpectSlotsStay({ShownFile(1), ShownFile(2)});
    ExpectNothingChanged();
}

TEST_F(RegisterSlots, TypingChangesNothing) {
    Open(Sequence(2));
    Form().BringToFrontForGood();
    Slot(1).Focus();
    Keyboard::Type(Local(L"xé", L"日"));
    Keyboard::Press(VK_BACK);
    Keyboard::Press({VK_CONTROL}, 'A');
    Keyboard::Press({VK_CONTROL}, 'X');
    Keyboard::Press({VK_CONTROL}, 'V');
    ExpectSlotsStay({ShownFile(1), ShownFile(2)});
    ExpectNothingChanged();
}

TEST_F(RegisterSlots, TheMethodEnablesSlotsAndCounts) {
    Open(Sequence(3));
    Choose(0);
    ExpectMethod(0);
    ExpectEnabledSlots(1);
    AwaitSlots({ShownFile(1), ShownFile(2), ShownFile(3)});
    PressOk();
    Apply();
    StoredButton expected = Sequence(3);
    expected.method = L"M";
    expected.count = 1;
    EXPECT_EQ(ReadPattern(Set(1)), With(1, expected));
    PictureOf(1).Press();
    AwaitForm();
    Choose(2);
    ExpectMethod(2);
    ExpectEnabledSlots(5);
    expected.method = L"P";
    expected.count = 3;
    ExpectRegistered(expected);
}

TEST_F(RegisterSlots, TheMethodChangesByTheKeyboard) {
    Open(Sequence(2));
    Form().BringToFrontForGood();
    Form().Control(IDC_optExecMethod1).Focus();
    Keyboard::Press(VK_DOWN);
    WaitUntil([&] { return Form().Control(IDC_optExecMethod2).Checked(); }, L"the next method");
    StoredButton expected = Sequence(2);
    expected.method = L"P";
    ExpectRegistered(expected);
}

TEST_F(RegisterSlots, TheLauncherReadsWhatWasRegistered) {
    StartLauncher();
    Open(Sequence(2));
    Drag(PointOfFile(3), Slot(3).Centre());
    AwaitSlots({ShownFile(1), ShownFile(2), ShownFile(3)});
    PressOk();
    TheLauncher().RequireNoEntries();
    Apply();
    ExpectToldOnce(With(1, Sequence(3)));
    ExpectStore(With(1, Sequence(3)));
}

TEST_F(RegisterSlots, AreFilledByTheKeyboardAlone) {
    StartLauncher();
    Hold(Empty());
    StartHere();
    Dialog().BringToFrontForGood();
    PictureOf(1).Focus();
    Keyboard::Press(VK_SPACE);
    AwaitForm();
    Form().BringToFrontForGood();
    const auto tabTo = [&](const UiDriver::Control& control) {
        for (int tabs = 0; tabs < 40 && !control.Focused(); ++tabs) {
            Keyboard::Press(VK_TAB);
        }
        EXPECT_TRUE(control.Focused());
    };
    tabTo(Menu());
    Keyboard::Type(L"Tool2");
    WaitUntil([&] { return Menu().Selected() == MenuNode(MenuFile(2)); }, L"the typed node to be selected");
    Keyboard::PressContextMenuKey();
    SendByKeys(PopupMenu::Wait(Program()), 1);
    AwaitSlots({ShownFile(2)});
    Keyboard::Press({VK_MENU}, 'S');
    WaitUntil([&] { return Slot(2).Enabled(); }, L"the sequence to be chosen");
    tabTo(Menu());
    Keyboard::Press(VK_DOWN);
    WaitUntil([&] { return Menu().Selected() == MenuNode(MenuFile(3)); }, L"the next node to be selected");
    Keyboard::PressContextMenuKey();
    SendByKeys(PopupMenu::Wait(Program()), 2);
    AwaitSlots({ShownFile(2), ShownFile(3)});
    tabTo(Slot(2));
    Keyboard::PressContextMenuKey();
    PopupMenu::Wait(Program()).ChooseByKeys(kParameterRow);
    const NameQuestion question = AwaitParameterQuestion();
    question.AwaitSelectedText();
    Keyboard::Type(L"-typed");
    Keyboard::Press(VK_RETURN);
    question.Form().WaitUntilGone();
    Form().BringToFrontForGood();
    Keyboard::Press(VK_RETURN);
    Form().WaitUntilGone();
    Dialog().BringToFrontForGood();
    tabTo(Item(IDC_cmdApply));
    Keyboard::Press(VK_SPACE);
    const StoredPattern expected =
        With(1, {ShownFile(2), L"S", 2, {MenuPath(MenuFile(2)), MenuPath(MenuFile(3)) + L"|-typed"}, {}});
    ExpectToldOnce(expected);
    ExpectStore(expected);
}

} // namespace
