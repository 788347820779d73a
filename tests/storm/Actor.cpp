#include "Actor.h"

#include "Texts.h"
#include "driver/Message.h"
#include "driver/Scaling.h"
#include "resources/resource.h"

#include <commctrl.h>
#include <dlgs.h>

#include <algorithm>
#include <array>

using UiDriver::Control;
using UiDriver::MouseButton;
using UiDriver::Window;

namespace {

constexpr UiDriver::Milliseconds kUntilTip{800};

struct Key {
    const char* name;
    WORD modifier;
    WORD code;
};

constexpr auto kKeys = std::to_array<Key>({
    {"Tab", 0, VK_TAB},
    {"Tab", 0, VK_TAB},
    {"Shift+Tab", VK_SHIFT, VK_TAB},
    {"Enter", 0, VK_RETURN},
    {"Escape", 0, VK_ESCAPE},
    {"Space", 0, VK_SPACE},
    {"Space", 0, VK_SPACE},
    {"Left", 0, VK_LEFT},
    {"Right", 0, VK_RIGHT},
    {"Up", 0, VK_UP},
    {"Down", 0, VK_DOWN},
    {"Down", 0, VK_DOWN},
    {"Shift+Left", VK_SHIFT, VK_LEFT},
    {"Home", 0, VK_HOME},
    {"End", 0, VK_END},
    {"Page up", 0, VK_PRIOR},
    {"Page down", 0, VK_NEXT},
    {"Delete", 0, VK_DELETE},
    {"Backspace", 0, VK_BACK},
    {"F1", 0, VK_F1},
    {"F2", 0, VK_F2},
    {"F4", 0, VK_F4},
    {"F5", 0, VK_F5},
    {"Shift+F10", VK_SHIFT, VK_F10},
    {"Menu key", 0, VK_APPS},
    {"Ctrl+Tab", VK_CONTROL, VK_TAB},
    {"Ctrl+Page up", VK_CONTROL, VK_PRIOR},
    {"Ctrl+Page down", VK_CONTROL, VK_NEXT},
    {"Ctrl+A", VK_CONTROL, 'A'},
    {"Ctrl+C", VK_CONTROL, 'C'},
    {"Ctrl+V", VK_CONTROL, 'V'},
    {"Ctrl+X", VK_CONTROL, 'X'},
    {"Ctrl+Z", VK_CONTROL, 'Z'},
    {"Star", 0, VK_MULTIPLY},
    {"Plus", 0, VK_ADD},
    {"Minus", 0, VK_SUBTRACT},
    {"Alt+Space", VK_MENU, VK_SPACE},
});

constexpr auto kItemKeys = std::to_array<Key>({
    {"Right", 0, VK_RIGHT},
    {"Right", 0, VK_RIGHT},
    {"Down", 0, VK_DOWN},
    {"Left", 0, VK_LEFT},
    {"Up", 0, VK_UP},
    {"End", 0, VK_END},
    {"Star", 0, VK_MULTIPLY},
    {"Star", 0, VK_MULTIPLY},
    {"Enter", 0, VK_RETURN},
    {"Space", 0, VK_SPACE},
});

void Press(const Key& key) {
    if (key.modifier == 0) {
        UiDriver::Keyboard::Press(key.code);
    } else {
        UiDriver::Keyboard::Press({key.modifier}, key.code);
    }
}

/// All in one moment: with a pause in it, the second click would meet what the first one opens, or not yet.
void DoubleClick(POINT point) {
    UiDriver::Pause(UiDriver::Milliseconds(GetDoubleClickTime() + 50)); // not with the click before
    UiDriver::Mouse::MoveTo(point);
    std::array<INPUT, 4> clicks{};
    for (std::size_t i = 0; i < clicks.size(); ++i) {
        clicks.at(i).type = INPUT_MOUSE;
        clicks.at(i).mi.dwFlags = i % 2 == 0 ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
    }
    if (SendInput(static_cast<UINT>(clicks.size()), clicks.data(), sizeof(INPUT)) != clicks.size()) {
        UiDriver::FailLastError(L"injecting a double click");
    }
}

/// A dialog button, not one of the options or check boxes.
bool IsPushButton(const Control& control) {
    const LONG type = control.Style() & BS_TYPEMASK;
    return UiDriver::SameClass(control.ClassName(), WC_BUTTONW) &&
           (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON);
}

bool IsPrintDialog(const Window& form) {
    return form.HasControl(rad3) && form.HasControl(edt3);
}

} // namespace

POINT Actor::PointIn(const RECT& rect) {
    const auto within = [&](LONG begin, LONG end, int limit) {
        const LONG wanted = begin + random_->Below(std::max(1, static_cast<int>(end - begin)));
        return std::clamp<LONG>(wanted, 0, limit - 1);
    };
    const LONG x = within(rect.left, rect.right, GetSystemMetrics(SM_CXSCREEN));
    return {x, within(rect.top, rect.bottom, GetSystemMetrics(SM_CYSCREEN))};
}

bool Actor::Spares(const Window& form) {
    // Else most of the actions would end the program.
    return form.Hwnd() == dialog_.Hwnd() && !random_->OneIn(20);
}

void Actor::Act(const Scene& scene) {
    if (scene.menu) {
        InMenu(*scene.menu);
        return;
    }
    const Window& form = scene.Active();
    if (form.Minimised()) {
        Do("restore", NameOf(form));
        form.Restore();
        return;
    }
    if (scene.ShowsFiles()) {
        Do("cancel", NameOf(form));
        form.Close();
        return;
    }
    if (GetForegroundWindow() != form.Hwnd()) {
        SetForegroundWindow(form.Hwnd());
        UiDriver::Send(form.Hwnd(), WM_NULL);
    }
    const int kind = random_->Below(100);
    if (kind < 57) {
        OnControl(form);
    } else if (kind < 75) {
        PressKey(form);
    } else if (kind < 79) {
        Type();
    } else if (kind < 81) {
        Hover(form);
    } else if (kind < 84) {
        Move(form);
    } else if (kind < 88) {
        SendSystemMessage(form);
    } else if (kind < 92) {
        SendStrayCommand(scene);
    } else if (kind < 95) {
        StartAgain();
    } else {
        Close(scene);
    }
}

void Actor::InMenu(const Window& menu) {
    const RECT rect = menu.Rect();
    switch (random_->Below(8)) {
    case 0:
        Do("Escape in the menu");
        UiDriver::Keyboard::Press(VK_ESCAPE);
        break;
    case 1:
        Do("Right in the menu");
        UiDriver::Keyboard::Press(VK_RIGHT);
        break;
    case 2:
        Do("Enter in the menu");
        UiDriver::Keyboard::Press(VK_RETURN);
        break;
    case 3:
    case 4:
        Do("Down in the menu");
        UiDriver::Keyboard::Press(VK_DOWN);
        break;
    case 5:
        Do("click beside the menu");
        UiDriver::Mouse::Click({2, 2});
        break;
    default:
        Do("click in the menu");
        UiDriver::Mouse::Click(PointIn(rect));
        break;
    }
}

void Actor::OnControl(const Window& form) {
    const std::vector<Control> controls = Reachable(form);
    if (controls.empty()) {
        PressKey(form);
        return;
    }
    const auto dull = [](const Control& control) {
        return UiDriver::SameClass(control.ClassName(), WC_STATICW) || !control.Enabled();
    };
    const Control& first = random_->Of(controls);
    OnControl(form, dull(first) ? random_->Of(controls) : first);
}

void Actor::OnControl(const Window& form, const Control& control) {
    const std::wstring className = control.ClassName();
    const auto is = [&](const wchar_t* name) { return UiDriver::SameClass(className, name); };
    const bool ends = IsPushButton(control) && (control.Id() == IDOK || control.Id() == IDCANCEL);
    // Into a file: the system would ask for its name next.
    const bool asksForFile = control.Id() == chx1 && IsPrintDialog(form);
    if ((ends && Spares(form)) || asksForFile) {
        PressKey(form);
    } else if (is(WC_TREEVIEWW) || is(WC_LISTBOXW)) {
        OnItems(form, control);
    } else if (is(WC_EDITW)) {
        OnEdit(control);
    } else if (is(WC_COMBOBOXW)) {
        OnCombo(control);
    } else if (is(WC_TABCONTROLW)) {
        OnTabs(control);
    } else if (random_->OneIn(10)) {
        Do("right click on", NameOf(control));
        UiDriver::Mouse::Click(control.Centre(), MouseButton::Right);
    } else if (random_->OneIn(10)) {
        Do("double click on", NameOf(control));
        DoubleClick(control.Centre());
    } else {
        Do("click on", NameOf(control));
        UiDriver::Mouse::Click(control.Centre());
    }
}

void Actor::OnEdit(const Control& control) {
    const bool menu = random_->OneIn(4);
    Do(menu ? "right click on" : "click on", NameOf(control));
    UiDriver::Mouse::Click(control.Centre(), menu ? MouseButton::Right : MouseButton::Left);
    if (!menu) {
        Type();
    }
}

void Actor::OnCombo(const Control& control) {
    switch (random_->Below(3)) {
    case 0:
        Do("click on", NameOf(control));
        UiDriver::Mouse::Click(control.Centre());
        break;
    case 1: {
        // The list drops down below the box.
        const RECT rect = control.Rect();
        const int row = random_->Below(8);
        const int height = static_cast<int>(rect.bottom - rect.top);
        Do("pick in a list", std::to_string(row) + " of " + NameOf(control));
        UiDriver::Mouse::Click(control.Centre());
        UiDriver::Mouse::Click(PointIn({rect.left + height, rect.bottom + row * height * 2 / 3,
                                        rect.right - 2 * height, rect.bottom + (row + 1) * height * 2 / 3}));
        break;
    }
    default:
        Do("open, Down and Enter in", NameOf(control));
        UiDriver::Mouse::Click(control.Centre());
        UiDriver::Keyboard::Press(VK_DOWN);
        UiDriver::Keyboard::Press(VK_RETURN);
        break;
    }
}

void Actor::OnTabs(const Control& control) {
    const UiDriver::TabControl tabs(control.Hwnd());
    const int tab = random_->Below(std::max(1, tabs.Count()));
    const RECT label = tabs.LabelRect(tab);
    Do("click on a tab", std::to_string(tab));
    UiDriver::Mouse::Click({(label.left + label.right) / 2, (label.top + label.bottom) / 2});
}

void Actor::OnItems(const Window& form, const Control& control) {
    RECT rect = control.Rect();
    const bool top = random_->OneIn(2); // where the items are when there are only few
    if (top) {
        rect.bottom = std::min(rect.bottom, rect.top + 120);
    }
    switch (random_->Below(7)) {
    case 0: {
        const POINT at = PointIn(rect);
        Do("double click in", NameOf(control));
        DoubleClick(at);
        break;
    }
    case 1: {
        const POINT at = PointIn(rect);
        Do("right click in", NameOf(control));
        UiDriver::Mouse::Click(at, MouseButton::Right);
        break;
    }
    case 2:
    case 3:
        DragFrom(form, control);
        break;
    case 4: {
        const Key& key = random_->Of(kItemKeys);
        const POINT at = PointIn(rect);
        Do("click in", NameOf(control) + ", then " + key.name);
        UiDriver::Mouse::Click(at);
        Press(key);
        break;
    }
    default: {
        const POINT at = PointIn(rect);
        Do("click in", NameOf(control));
        UiDriver::Mouse::Click(at);
        break;
    }
    }
}

void Actor::DragFrom(const Window& form, const Control& control) {
    RECT rect = control.Rect();
    rect.right = std::min(rect.right, rect.left + 150);
    rect.bottom = std::min(rect.bottom, rect.top + 150);
    const POINT from = PointIn(rect);
    POINT to = PointIn(form.Rect());
    std::string target = "somewhere";
    const std::vector<Control> targets = Reachable(form);
    if (!random_->OneIn(3)) {
        const Control& chosen = random_->Of(targets);
        to = chosen.Centre();
        target = NameOf(chosen);
    }
    const int end = random_->Below(6);
    Do("drag", "from " + NameOf(control) + " to " + target + (end == 0 ? ", then Escape" : ""));
    UiDriver::Mouse::MoveTo(from);
    UiDriver::Mouse::Down();
    UiDriver::Mouse::Glide(from, to, 6);
    if (end == 0) {
        UiDriver::Keyboard::Press(VK_ESCAPE);
    }
    UiDriver::Mouse::Up();
}

void Actor::PressKey(const Window& form) {
    if (random_->OneIn(6)) {
        const auto letter = static_cast<WORD>('A' + random_->Below(26));
        Do("key", std::string("Alt+") + static_cast<char>(letter));
        UiDriver::Keyboard::Press({VK_MENU}, letter);
        return;
    }
    const Key& key = random_->Of(kKeys);
    const bool ends = key.code == VK_ESCAPE || key.code == VK_RETURN;
    if (ends && Spares(form)) {
        return;
    }
    Do("key", key.name);
    Press(key);
}

void Actor::Type() {
    static const std::array<std::wstring, 7> texts = {
        L"a", L"2", L" ", L"Büro", L"日本語", L"& <\"|", std::wstring(30, L'x')};
    const std::wstring& text = random_->Of(texts);
    Do("type", '"' + UiDriver::ToUtf8(text) + '"');
    UiDriver::Keyboard::Type(text);
}

void Actor::Move(const Window& form) {
    if (form.Hwnd() == dialog_.Hwnd() && random_->OneIn(4)) {
        Do("minimise", NameOf(form));
        form.Minimise();
        return;
    }
    const int x = random_->Below(GetSystemMetrics(SM_CXSCREEN) - 300);
    const int y = random_->Below(GetSystemMetrics(SM_CYSCREEN) - 300);
    Do("move", NameOf(form) + " to " + std::to_string(x) + ", " + std::to_string(y));
    SetWindowPos(form.Hwnd(), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Actor::SendSystemMessage(const Window& form) {
    static constexpr auto kMessages =
        std::to_array<UINT>({WM_SYSCOLORCHANGE, WM_SETTINGCHANGE, WM_FONTCHANGE, WM_THEMECHANGED,
                             WM_DISPLAYCHANGE, WM_TIMER, WM_CANCELMODE, WM_CAPTURECHANGED, WM_ENDSESSION});
    const bool ours = UiDriver::SameClass(form.ClassName(), UiDriver::kFormClass);
    if (ours && random_->OneIn(3)) {
        Scale(form);
        return;
    }
    const UINT message = random_->Of(kMessages);
    Do("message", std::to_string(message) + " to " + NameOf(form));
    UiDriver::Send(form.Hwnd(), message);
}

void Actor::Scale(const Window& form) {
    static constexpr std::array<UINT, 4> kScalings = {96, 120, 144, 192};
    const UINT dpi = random_->Of(kScalings);
    Do("scale", NameOf(form) + " to " + std::to_string(dpi));
    UiDriver::ScaleTo(form.Hwnd(), dpi);
}

void Actor::SendStrayCommand(const Scene& scene) {
    const Window& form = random_->Of(scene.dialogs);
    if (!UiDriver::SameClass(form.ClassName(), UiDriver::kFormClass)) {
        return;
    }
    const Control control = random_->Of(form.Controls());
    const int id = GetDlgCtrlID(control.Hwnd());
    const auto code = static_cast<WORD>(random_->Below(3));
    if ((id == IDOK || id == IDCANCEL) && Spares(form)) {
        return;
    }
    Do("stray command", std::to_string(id) + ", " + std::to_string(code) + " to " + NameOf(form));
    UiDriver::SendWithoutWaiting(form.Hwnd(), WM_COMMAND, MAKEWPARAM(id, code),
                                 reinterpret_cast<LPARAM>(control.Hwnd()));
}

void Actor::Hover(const Window& form) {
    const std::vector<Control> controls = Reachable(form);
    if (controls.empty()) {
        return;
    }
    const Control& control = random_->Of(controls);
    Do("hover over", NameOf(control));
    UiDriver::Mouse::MoveTo(control.Centre());
    UiDriver::Pause(kUntilTip);
}

void Actor::StartAgain() {
    static const std::array<std::wstring, 4> arguments = {L"/k", L"/t:1", L"/w:1", L""};
    const std::wstring& chosen = random_->Of(arguments);
    Do("second start", UiDriver::ToUtf8(chosen));
    const UiDriver::Process second = UiDriver::Process::Start(programPath_, chosen);
    if (second.WaitForExit() != 0) {
        UiDriver::Fail(L"the second start did not end well");
    }
}

void Actor::Close(const Scene& scene) {
    const Window& front = scene.Active();
    const int way = random_->Below(5);
    // The task bar and other programs don't mind that a dialog waits for another one.
    const Window& target = way == 3 ? dialog_ : way == 4 ? random_->Of(scene.dialogs) : front;
    const bool alone = scene.dialogs.size() == 1;
    if (alone && Spares(target)) {
        return;
    }
    switch (way) {
    case 0:
        Do("close by Alt+F4", NameOf(front));
        UiDriver::Keyboard::Press({VK_MENU}, VK_F4);
        break;
    case 1:
        Do("close by its box", NameOf(front));
        front.Close();
        break;
    case 2:
        Do("close by WM_CLOSE", NameOf(front));
        PostMessageW(front.Hwnd(), WM_CLOSE, 0, 0);
        break;
    case 3:
        Do("close from the task bar", NameOf(target));
        target.Close();
        break;
    default:
        Do("close by another program", NameOf(target));
        PostMessageW(target.Hwnd(), WM_CLOSE, 0, 0);
        break;
    }
}

void Actor::Leave() {
    switch (random_->Below(4)) {
    case 0:
        Do("leave by Cancel");
        dialog_.Control(IDC_cmdCancel).Press();
        break;
    case 1:
        Do("leave by OK");
        dialog_.Control(IDC_cmdOK).Press();
        break;
    case 2:
        Do("leave by Escape");
        dialog_.BringToFront();
        UiDriver::Keyboard::Press(VK_ESCAPE);
        break;
    default:
        Do("leave by the close box");
        dialog_.Close();
        break;
    }
}
