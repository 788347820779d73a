#include "RegisterUse.h"

namespace {

using UiDriver::MouseButton;
namespace Keyboard = UiDriver::Keyboard;
namespace Mouse = UiDriver::Mouse;

struct DraggedFrom : NamedCase {
    Source source;
};

class RegisterDragFrom : public RegisterUse, public testing::WithParamInterface<DraggedFrom> {
protected:
    static Offer Dragged() { return OfferOf(GetParam().source); }
    static bool Locks() { return !IsTree(Dragged().pane); }
};

TEST_P(RegisterDragFrom, OntoTheFirstSlotFillsAFreeButton) {
    Open(Empty());
    DragOffer(Dragged(), 1);
    AwaitSlots({Dragged().shown});
    ExpectMethod(0, Locks());
    ExpectRegistered(Dragged().stored);
}

INSTANTIATE_TEST_SUITE_P(, RegisterDragFrom,
                         testing::Values(DraggedFrom{{"TheStartMenu"}, Source::StartMenu},
                                         DraggedFrom{{"MediaCenter"}, Source::MediaCenter},
                                         DraggedFrom{{"IeFavorites"}, Source::IeFavorites},
                                         DraggedFrom{{"AllFiles"}, Source::AllFiles},
                                         DraggedFrom{{"ShortcutKeys"}, Source::ShortcutKey}),
                         NameOfCase{});

class RegisterDragBehindTheLast : public RegisterDragFrom {};

TEST_P(RegisterDragBehindTheLast, FillsTheNextFreeSlotOrReplacesAll) {
    Open(Sequence(2));
    DragOffer(Dragged(), 5);
    if (Locks()) {
        AwaitSlots({Dragged().shown});
        ExpectMethod(0, true);
        ExpectEnabledSlots(1);
        ExpectRegistered(Dragged().stored);
        return;
    }
    AwaitSlots({ShownFile(1), ShownFile(2), Dragged().shown});
    ExpectMethod(1);
    StoredButton expected = Sequence(3);
    expected.programs[2] = Dragged().stored.programs[0];
    expected.titles[2] = Dragged().stored.titles[0];
    ExpectRegistered(expected);
}

INSTANTIATE_TEST_SUITE_P(, RegisterDragBehindTheLast,
                         testing::Values(DraggedFrom{{"FromIeFavorites"}, Source::IeFavorites},
                                         DraggedFrom{{"FromShortcutKeys"}, Source::ShortcutKey}),
                         NameOfCase{});

class RegisterDrag : public RegisterUse {
protected:
    /// Expects the drag to be over, and what the mouse does now to change nothing.
    void ExpectNothingDropped() const {
        Mouse::Up();
        ExpectSlotsStay({ShownFile(1), ShownFile(2)});
        EXPECT_TRUE(Form().Visible());
        ExpectNothingChanged();
    }
};

TEST_F(RegisterDrag, OntoAFilledSlotReplacesItsProgram) {
    Open(Sequence(3));
    Drag(PointOfFile(5), Slot(1).Centre());
    AwaitSlots({ShownFile(5), ShownFile(2), ShownFile(3)});
    StoredButton expected = Sequence(3);
    expected.name = ShownFile(5);
    expected.programs[0] = MenuPath(MenuFile(5));
    ExpectRegistered(expected);
}

TEST_F(RegisterDrag, OntoADisabledSlotDoesNothing) {
    Open(Empty());
    Drag(PointOfFile(1), Slot(2).Centre());
    ExpectSlotsStay({});
    ExpectNothingChanged();
}

TEST_F(RegisterDrag, BesideTheSlotsDoesNothing) {
    Open(Sequence(2));
    Drag(PointOfFile(3), Form().Control(IDC_cmdOK).Centre());
    ExpectSlotsStay({ShownFile(1), ShownFile(2)});
    ExpectNothingChanged();
}

TEST_F(RegisterDrag, FiveTimesFillsAllSlotsAndTheSixthReplacesTheLast) {
    Open(Empty());
    Form().Control(IDC_optExecMethod2).Click();
    for (int number = 1; number <= kMenuFiles; ++number) {
        Drag(PointOfFile(number), Slot(number).Centre());
    }
    Drag(PointOfFile(1), Slot(5).Centre());
    AwaitSlots({ShownFile(1), ShownFile(2), ShownFile(3), ShownFile(4), ShownFile(1)});
    StoredButton expected = Sequence(5);
    expected.name = ShownFile(1);
    expected.method = L"P";
    expected.programs[0] = MenuPath(MenuFile(1));
    expected.programs[4] = expected.programs[0];
    ExpectRegistered(expected);
}

TEST_F(RegisterDrag, EscapeEndsItAndNotTheDialog) {
    Open(Sequence(2));
    CarryFile(3);
    Keyboard::Press(VK_ESCAPE);
    ExpectNothingDropped();
}

TEST_F(RegisterDrag, LeavingTheWindowEndsIt) {
    Open(Sequence(2));
    CarryFile(3);
    const POINT slot = Slot(1).Centre();
    const RECT form = Form().Rect();
    const POINT outside{slot.x, form.bottom + 20};
    Mouse::Glide(slot, outside);
    Mouse::Glide(outside, slot);
    ExpectNothingDropped();
}

TEST_F(RegisterDrag, TheRightButtonEndsIt) {
    Open(Sequence(2));
    CarryFile(3);
    // On a label, because the slot would then open its menu.
    const POINT slot = Slot(1).Centre();
    const POINT label = Form().Control(IDC_lblApplication0).Centre();
    Mouse::Glide(slot, label);
    Mouse::Down(MouseButton::Right);
    Mouse::Up(MouseButton::Right);
    Mouse::Glide(label, slot);
    ExpectNothingDropped();
}

TEST_F(RegisterDrag, ATreeItemUnlocksTheMethodOfAShortcutKey) {
    Open(OfferOf(Source::ShortcutKey).stored);
    ExpectMethod(0, true);
    Drag(PointOfFile(2), Slot(1).Centre());
    AwaitSlots({ShownFile(2)});
    ExpectMethod(0);
    ExpectRegistered({ShownFile(2), L"M", 1, {MenuPath(MenuFile(2))}, {}});
}

TEST_F(RegisterDrag, ATreeItemUnlocksTheMethodOfAMediaCenterItem) {
    Open(OfferOf(Source::MediaCenter).stored);
    ExpectMethod(0, true);
    Drag(PointOfFile(2), Slot(1).Centre());
    AwaitSlots({ShownFile(2)});
    ExpectMethod(0);
    ExpectRegistered({ShownFile(2), L"M", 1, {MenuPath(MenuFile(2))}, {}});
}

} // namespace
