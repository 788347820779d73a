#include "RegisterUse.h"

#include <algorithm>

using UiDriver::Milliseconds;
using UiDriver::MouseButton;
using UiDriver::PopupMenu;
using UiDriver::WaitUntil;
namespace Keyboard = UiDriver::Keyboard;
namespace Mouse = UiDriver::Mouse;

StoredButton RegisterUse::Sequence(int count) {
    StoredButton button{Local(L"Tools é", L"道具"), L"S", static_cast<DWORD>(count), {}, {}};
    for (int number = 1; number <= count; ++number) {
        button.programs.at(static_cast<std::size_t>(number) - 1) = MenuPath(MenuFile(number));
    }
    if (count > 0) {
        button.programs[0] += L"|/first one";
    }
    return button;
}

void RegisterUse::Open(const StoredButton& button) {
    Hold(button);
    StartHere();
    PictureOf(1).Press();
    AwaitForm();
}

void RegisterUse::AwaitForm() {
    form_.emplace(UiDriver::WaitForForm(Program(), Text(kRegisterTitleText)));
    form_->WaitUntilAnswers();
    form_->BringToFront();
    Reveal(Menu(), MenuNode(CommonFile()));
}

void RegisterUse::OpenTab(int captionText) const {
    const Names captions = SourceTabs().Captions();
    const auto found = std::find(captions.begin(), captions.end(), Text(captionText));
    if (found == captions.end()) {
        UiDriver::Fail(L"there is no tab \"" + Text(captionText) + L'"');
    }
    const auto tab = static_cast<int>(found - captions.begin());
    if (SourceTabs().Selected() != tab) {
        SourceTabs().Select(tab);
    }
}

void RegisterUse::AwaitPane(int pane) const {
    const auto shown = [&] {
        const auto right = [&](int id) { return Form().Control(id).Visible() == (id == pane); };
        return right(IDC_tvTreeView0) && right(IDC_tvTreeView1) && right(IDC_tvTreeView2) &&
               right(IDC_lstListBox0) && right(IDC_lstListBox1);
    };
    WaitUntil(shown, L"pane " + std::to_wstring(pane) + L" alone to be shown");
}

RegisterUse::Names RegisterUse::ShownSlots() const {
    Names texts;
    for (int number = 1; number <= kSlots; ++number) {
        texts.push_back(Slot(number).Text());
    }
    return texts;
}

void RegisterUse::AwaitSlots(Names texts) const {
    texts.resize(kSlots);
    std::wstring wanted = L"the slots to show";
    for (const std::wstring& text : texts) {
        wanted += L" [" + text + L']';
    }
    WaitUntil([&] { return ShownSlots() == texts; }, wanted);
}

void RegisterUse::ExpectSlotsStay(Names texts) const {
    texts.resize(kSlots);
    EXPECT_TRUE(UiDriver::HoldsFor([&] { return ShownSlots() == texts; }, Milliseconds(200)));
    EXPECT_THAT(ShownSlots(), testing::ElementsAreArray(texts));
}

void RegisterUse::ExpectEnabledSlots(int count) const {
    for (int number = 1; number <= kSlots; ++number) {
        EXPECT_EQ(Slot(number).Enabled(), number <= count) << "slot " << number;
        EXPECT_EQ(Form().Control(IDC_lblApplication0 + number - 1).Enabled(), number <= count)
            << "label " << number;
    }
}

void RegisterUse::ExpectMethod(int option, bool locked) const {
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Form().Control(IDC_optExecMethod0 + i).Checked(), i == option) << "option " << i;
        EXPECT_EQ(Form().Control(IDC_optExecMethod0 + i).Enabled(), !locked) << "option " << i;
    }
    EXPECT_EQ(Form().Control(IDC_fraExecMethod).Enabled(), !locked);
}

void RegisterUse::Drag(POINT from, POINT to) const {
    Form().BringToFront();
    Mouse::Drag(from, to);
    Form().WaitUntilAnswers();
}

void RegisterUse::DragOffer(const Offer& offer, int slot) const {
    OpenTab(offer.tabText);
    AwaitPane(offer.pane);
    Drag(PointOf(Form(), offer), Slot(slot).Centre());
}

POINT RegisterUse::PointOfFile(int number) const {
    return Menu().NodeCentre(MenuNode(MenuFile(number)));
}

void RegisterUse::CarryFile(int number) const {
    Form().BringToFrontForGood();
    const POINT from = PointOfFile(number);
    Mouse::MoveTo(from);
    Mouse::Down();
    Mouse::Glide(from, Slot(1).Centre());
    // The form takes the mouse when the drag has begun.
    const auto begun = [&] {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(Program().ThreadId(), &info) && info.hwndCapture == Form().Hwnd();
    };
    WaitUntil(begun, L"the drag to begin");
}

PopupMenu RegisterUse::RightClick(POINT point) const {
    Form().BringToFrontForGood();
    Mouse::Click(point, MouseButton::Right);
    return PopupMenu::Wait(Program());
}

PopupMenu RegisterUse::SlotMenu(int slot) const {
    return RightClick(Slot(slot).Centre());
}

void RegisterUse::SendByKeys(const PopupMenu& menu, int slot) const {
    const PopupMenu programs = menu.OpenByKeys(0);
    // The first one is chosen as soon as it opens.
    for (int number = 1; number < slot; ++number) {
        Keyboard::Press(VK_DOWN);
    }
    Keyboard::Press(VK_RETURN);
    WaitUntil([&] { return !programs.Shown().Exists() || !IsWindowVisible(programs.Shown().Hwnd()); },
              L"the Send menu to close");
}

NameQuestion RegisterUse::AwaitParameterQuestion() const {
    const UiDriver::Window form = UiDriver::WaitForForm(Program(), Text(kParameterText));
    form.WaitUntilAnswers();
    form.BringToFront();
    return NameQuestion(form);
}

void RegisterUse::PressOk() const {
    Form().Control(IDC_cmdOK).Press();
    Form().WaitUntilGone();
    Dialog().WaitUntilAnswers();
}

void RegisterUse::ExpectRegistered(const StoredButton& button) const {
    PressOk();
    Apply();
    ExpectStore(With(1, button));
}

void RegisterUse::ExpectNothingChanged() const {
    PressOk();
    Apply();
    ExpectStoreUntouched();
}
