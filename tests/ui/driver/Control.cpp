#include "Control.h"

#include "Handle.h"
#include "Keyboard.h"
#include "Message.h"
#include "Wait.h"

namespace UiDriver {
namespace {

/// Joins the input of this thread with that of a window's thread, which SetFocus asks for.
class JoinedInput {
public:
    explicit JoinedInput(HWND hwnd) : theirs_(GetWindowThreadProcessId(hwnd, nullptr)) {
        // A thread has an input queue to join only after its first look for messages.
        MSG message{};
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
        if (!AttachThreadInput(GetCurrentThreadId(), theirs_, TRUE)) {
            FailLastError(L"joining the input of " + Describe(hwnd));
        }
    }
    JoinedInput(const JoinedInput&) = delete;
    JoinedInput& operator=(const JoinedInput&) = delete;
    ~JoinedInput() { AttachThreadInput(GetCurrentThreadId(), theirs_, FALSE); }

private:
    DWORD theirs_;
};

bool IsGroupBox(HWND window) {
    return ClassNameOf(window) == L"Button" &&
           (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

} // namespace

int Control::Id() const {
    RequireAlive(hwnd_);
    return GetDlgCtrlID(hwnd_);
}

std::wstring Control::ClassName() const {
    RequireAlive(hwnd_);
    return ClassNameOf(hwnd_);
}

bool Control::Exists() const {
    return IsWindow(hwnd_) != FALSE;
}

std::wstring Control::Text() const {
    return TextOf(hwnd_);
}

void Control::SetText(const std::wstring& text) const {
    Send(hwnd_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Control::TypeOver(const std::wstring& text) const {
    Focus();
    Send(hwnd_, EM_SETSEL, 0, -1);
    if (text.empty()) {
        Keyboard::Press(VK_DELETE);
    } else {
        Keyboard::Type(text);
    }
}

bool Control::Enabled() const {
    RequireAlive(hwnd_);
    return IsWindowEnabled(hwnd_) != FALSE;
}

bool Control::Visible() const {
    RequireAlive(hwnd_);
    return IsWindowVisible(hwnd_) != FALSE;
}

LONG Control::Style() const {
    RequireAlive(hwnd_);
    return static_cast<LONG>(GetWindowLongPtrW(hwnd_, GWL_STYLE));
}

RECT Control::Rect() const {
    RECT rect{};
    if (!GetWindowRect(hwnd_, &rect)) {
        FailLastError(L"asking for the place of " + Describe(hwnd_));
    }
    return rect;
}

POINT Control::Centre() const {
    const RECT rect = Rect();
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

int Control::CheckState() const {
    return static_cast<int>(Send(hwnd_, BM_GETCHECK));
}

bool Control::Checked() const {
    return CheckState() == BST_CHECKED;
}

void Control::Press() const {
    if (!Enabled()) {
        Fail(Describe(hwnd_) + L" is disabled and cannot be pressed");
    }
    SendWithoutWaiting(hwnd_, BM_CLICK);
}

void Control::Click(MouseButton button) const {
    const POINT point = Centre();
    RequireReachable(point);
    Mouse::Click(point, button);
}

void Control::DoubleClick() const {
    const POINT point = Centre();
    RequireReachable(point);
    Mouse::DoubleClick(point);
}

void Control::Hover() const {
    const POINT point = Centre();
    RequireReachable(point);
    Mouse::MoveTo(point);
}

void Control::DragTo(POINT target) const {
    const POINT point = Centre();
    RequireReachable(point);
    Mouse::Drag(point, target);
}

void Control::DragTo(const Control& target) const {
    DragTo(target.Centre());
}

void Control::Focus() const {
    RequireAlive(hwnd_);
    BringRootToFront();
    const auto take = [this] {
        if (!Focused()) {
            const JoinedInput joined(hwnd_);
            SetFocus(hwnd_);
        }
        return Focused();
    };
    WaitUntil(take, Describe(hwnd_) + L" to get the focus");
}

bool Control::Focused() const {
    RequireAlive(hwnd_);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(hwnd_, nullptr);
    return GetGUIThreadInfo(thread, &info) && info.hwndFocus == hwnd_;
}

int Control::RegionBox(RECT& box) const {
    RequireAlive(hwnd_);
    return GetWindowRgnBox(hwnd_, &box);
}

bool Control::RegionContains(POINT point) const {
    RequireAlive(hwnd_);
    const UniqueGdiObject region(CreateRectRgn(0, 0, 0, 0));
    const auto handle = static_cast<HRGN>(region.Get());
    if (GetWindowRgn(hwnd_, handle) == ERROR) {
        Fail(Describe(hwnd_) + L" has no region");
    }
    return PtInRegion(handle, point.x, point.y) != FALSE;
}

void Control::Notify(WORD code) const {
    const auto id = static_cast<WORD>(Id());
    SendWithoutWaiting(GetParent(hwnd_), WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(hwnd_));
}

void Control::BringRootToFront() const {
    RequireAlive(hwnd_);
    const HWND root = GetAncestor(hwnd_, GA_ROOT);
    if (!IsWindowEnabled(root)) {
        return;
    }
    if (GetForegroundWindow() != root) {
        SetForegroundWindow(root);
        WaitUntil([root] { return GetForegroundWindow() == root; },
                  Describe(root) + L" to come to the foreground");
    }
    // It is in front before it knows; when it does, it gives the focus to the control that had it last.
    Send(root, WM_NULL);
}

void Control::RequireReachable(POINT point) const {
    BringRootToFront();
    const RECT rect = Rect();
    if (!Visible() || !PtInRect(&rect, point)) {
        Fail(Describe(hwnd_) + L" is not visible where it should be clicked");
    }
    const HWND hit = WindowFromPoint(point);
    // The system looks through disabled and transparent windows to what they lie in; a mouse click also goes
    // through a group box to what stands in it.
    if (hit != hwnd_ && !IsChild(hwnd_, hit) && !IsChild(hit, hwnd_) && !IsGroupBox(hit)) {
        Fail(Describe(hwnd_) + L" is covered by " + Describe(hit));
    }
}

} // namespace UiDriver
