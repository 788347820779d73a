#include "ui/Form.h"

#include "app/FormClass.h"
#include "resources/resource.h"
#include "ui/Controls.h"
#include "ui/Dpi.h"
#include "ui/FormScroll.h"
#include "ui/Theme.h"

#include <windowsx.h>

#include <commctrl.h>

#include <algorithm>
#include <bit>
#include <cassert>
#include <utility>

namespace {

HINSTANCE Instance() {
    return GetModuleHandleW(nullptr);
}

bool RegisterFormClass() {
    static const ATOM kClass = [] {
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
        InitCommonControlsEx(&controls);
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = DefDlgProcW;
        windowClass.cbWndExtra = DLGWINDOWEXTRA;
        windowClass.hInstance = Instance();
        windowClass.hIcon = LoadIconW(Instance(), MAKEINTRESOURCEW(IDI_QLBUtl));
        windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
        windowClass.lpszClassName = kFormClass;
        return RegisterClassExW(&windowClass);
    }();
    return kClass != 0;
}

/// The common controls hear of new system colours only from their top-level window.
BOOL CALLBACK ForwardColorChange(HWND control, LPARAM /*unused*/) noexcept {
    SendMessageW(control, WM_SYSCOLORCHANGE, 0, 0);
    return TRUE;
}

RECT WorkArea(HMONITOR monitor) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(monitor, &info);
    return info.rcWork;
}

/// Where something of this length begins, as near to `wanted` as the room lets it.
LONG Within(LONG begin, LONG end, LONG wanted, LONG length) {
    return std::max(begin, std::min(wanted, end - length));
}

Form* FormOf(HWND window) {
    return std::bit_cast<Form*>(GetWindowLongPtrW(window, DWLP_USER));
}

} // namespace

Form::~Form() {
    Unload();
}

void Form::Unload() {
    const HWND window = std::exchange(window_, nullptr);
    if (window == nullptr) {
        return;
    }
    // The derived part may be gone: the window's last messages must not look for it.
    SetWindowLongPtrW(window, DWLP_USER, 0);
    if (owner_ == nullptr || owner_->window_ == nullptr) {
        DestroyWindow(window);
        return;
    }
    // A window manager that is handing the keyboard to this window while it goes would hand it to nobody. As long
    // as there is a window, even a hidden one, the system passes it on.
    HWND child = GetWindow(window, GW_CHILD);
    while (child != nullptr && DestroyWindow(child) != FALSE) { // not one that another program put there
        child = GetWindow(window, GW_CHILD);
    }
    if (GetCapture() == window) {
        ReleaseCapture();
    }
    SetWindowTextW(window, L"");
    if (const HWND former = std::exchange(owner_->formerFrame_, window); former != nullptr) {
        DestroyWindow(former);
    }
}

HWND Form::Control(int id) const {
    const auto found = controls_.find(id);
    assert(found != controls_.end());
    return found == controls_.end() ? nullptr : found->second;
}

bool Form::CreateHidden(const std::wstring& fontName) {
    fontName_ = fontName;
    return RegisterFormClass() && CreateDialogParamW(Instance(), MAKEINTRESOURCEW(IDD_FORM), OwnerWindow(),
                                                     FormProc, std::bit_cast<LPARAM>(this)) != nullptr;
}

bool Form::HandleDialogMessage(MSG& message) {
    if (window_ == nullptr) {
        return false;
    }
    const bool ours = message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE;
    if (ours && message.message == WM_KEYDOWN && OnKeyDown(message.wParam)) {
        return true;
    }
    if (ours && message.message == WM_MOUSEWHEEL && IsClosedComboBox(message.hwnd)) {
        // The wheel would choose in it, unasked.
        return ScrollByMessage(window_, message.message, message.wParam);
    }
    if (ours && message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST &&
        OnMouseMessage(message)) {
        return true;
    }
    if (ours && message.message == WM_SYSKEYDOWN && message.wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0) {
        // Not every control makes a menu request of it.
        SendMessageW(message.hwnd, WM_CONTEXTMENU, std::bit_cast<WPARAM>(message.hwnd), -1);
        return true;
    }
    const bool handled = IsDialogMessageW(window_, &message) != FALSE;
    ShowFocus();
    return handled;
}

void Form::ShowFocus() {
    const HWND focus = GetFocus();
    // Not under a mouse button that is down: a click ends where it began.
    if (focus != shownFocus_ && GetKeyState(VK_LBUTTON) >= 0 && IsChild(window_, focus) != FALSE) {
        shownFocus_ = focus;
        ScrollIntoView(window_, focus);
    }
}

void Form::FocusFirst(HWND parent) {
    Focus(GetNextDlgTabItem(parent, nullptr, FALSE));
}

void Form::Focus(HWND control) {
    // By message, so that the default button follows.
    SendMessageW(window_, WM_NEXTDLGCTL, std::bit_cast<WPARAM>(control), TRUE);
}

void Form::Answer(MSG& message) {
    if (!HandleDialogMessage(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void Form::RunLoop() {
    MSG message{};
    while (!ended_ && window_ != nullptr) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) == FALSE) {
            if (!OnIdle() && !ended_ && window_ != nullptr) { // it may let messages be answered
                MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
            }
            continue;
        }
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam)); // the program's own loop ends too
            break;
        }
        Answer(message);
    }
}

void Form::End() {
    ended_ = true;
    // The loop may be waiting for a message while it answers one that was sent.
    PostMessageW(window_, WM_NULL, 0, 0);
}

HWND Form::AddPage(const std::wstring& name, const RECT& place) {
    const HWND page = CreateDialogParamW(Instance(), MAKEINTRESOURCEW(IDD_PAGE), window_, PageProc, 0);
    if (page == nullptr) {
        return nullptr;
    }
    SetWindowTextW(page, name.c_str()); // what a screen reader says when the page is entered
    UseTabBackground(page);
    const POINT scrolled = ScrollPosition(window_);
    SetWindowPos(page, HWND_TOP, place.left - scrolled.x, place.top - scrolled.y, place.right - place.left,
                 place.bottom - place.top, SWP_NOACTIVATE);
    return page;
}

HWND Form::AddFrame(int id, const std::wstring& name) {
    const HWND frame = CreateDialogParamW(Instance(), MAKEINTRESOURCEW(IDD_PAGE), window_, PageProc, 0);
    if (frame != nullptr) {
        SetWindowTextW(frame, name.c_str());
        SetWindowLongPtrW(frame, GWLP_ID, id);
        controls_.emplace(id, frame);
    }
    return frame;
}

HWND Form::AddControl(HWND parent, const ControlRow& row, const std::wstring& text, RECT pixels) {
    assert(row.place.cx == 0 || IsRectEmpty(&pixels) != FALSE);
    const RECT place = row.place.cx != 0 ? font_->Pixels(row.place) : pixels;
    const HWND control =
        CreateWindowExW(row.exStyle, row.windowClass, text.c_str(), row.style | WS_CHILD | WS_VISIBLE,
                        place.left, place.top, place.right - place.left, place.bottom - place.top, parent,
                        std::bit_cast<HMENU>(static_cast<INT_PTR>(row.id)), Instance(), nullptr);
    if (control == nullptr) {
        return nullptr;
    }
    controls_.emplace(row.id, control);
    if (row.place.cx != 0) {
        placed_.push_back({control, row.place});
    }
    SendMessageW(control, WM_SETFONT, std::bit_cast<WPARAM>(font_->Handle()), FALSE);
    if (row.place.cx != 0 && HasOwnHeight(row.windowClass)) {
        PlaceInRow(control, place);
    }
    return control;
}

void Form::Centre() {
    const HWND owner = OwnerWindow();
    const RECT work =
        WorkArea(MonitorFromWindow(owner != nullptr ? owner : window_, MONITOR_DEFAULTTOPRIMARY));
    const SIZE size = LayOut(work);
    RECT around = work;
    if (owner != nullptr) {
        GetWindowRect(owner, &around);
    }
    const LONG left = Within(work.left, work.right, (around.left + around.right - size.cx) / 2, size.cx);
    const LONG top = Within(work.top, work.bottom, (around.top + around.bottom - size.cy) / 2, size.cy);
    SetWindowPos(window_, nullptr, left, top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE Form::LayOutFor(UINT dpi, const RECT& work) {
    ScrollTo(window_, {0, 0}); // the layout counts from there
    SetScaling(dpi);
    PlaceRows();
    const SIZE size = LayOut(work);
    // Group boxes and labels leave standing what the former layout had inside them.
    RedrawWindow(window_, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
    return size;
}

SIZE Form::SizeAt(UINT dpi) {
    const UINT now = Dpi();
    const POINT scrolled = ScrollPosition(window_);
    const SIZE size =
        LayOutFor(dpi, {0, 0, SHRT_MAX, SHRT_MAX}); // which monitor it comes to is not known yet
    LayOutFor(now, WorkArea(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST)));
    ScrollTo(window_, scrolled);
    return size;
}

void Form::OnScalingChanged(UINT dpi, const RECT& suggested) {
    if (scaling_) {
        return; // of the move below, which looks for itself
    }
    const ScopedFlag scaling(scaling_);
    shownFocus_ = nullptr;
    RECT work = WorkArea(MonitorFromRect(&suggested, MONITOR_DEFAULTTONEAREST));
    SIZE size = LayOutFor(dpi, work);
    SetWindowPos(window_, nullptr, size.cx < work.right - work.left ? suggested.left : work.left,
                 size.cy < work.bottom - work.top ? suggested.top : work.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    if (const UINT now = GetDpiForWindow(window_); now != dpi) {
        // The size has brought most of the window to another monitor. Wholly there, it stays there.
        work = WorkArea(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST));
        size = LayOutFor(now, work);
        SetWindowPos(window_, nullptr, Within(work.left, work.right, suggested.left, size.cx),
                     Within(work.top, work.bottom, suggested.top, size.cy), size.cx, size.cy,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

int Form::Ask(const std::wstring& text, const std::wstring& title, UINT style) {
    return RunOver([&](HWND window) { return MessageBoxW(window, text.c_str(), title.c_str(), style); });
}

INT_PTR CALLBACK Form::FormProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        auto* form = std::bit_cast<Form*>(lParam);
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        form->window_ = window;
        DisableSystemScaling(window);
        form->SetScaling(GetDpiForWindow(window));
        form->OnCreate();
        form->Centre();
        return FALSE;
    }
    Form* form = FormOf(window);
    return form == nullptr ? FALSE : form->OnMessage(message, wParam, lParam);
}

INT_PTR CALLBACK Form::PageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        DisableSystemScaling(window);
        return FALSE;
    }
    Form* form = FormOf(GetParent(window));
    if (form == nullptr) {
        return FALSE;
    }
    if (message == WM_MOUSEMOVE) {
        form->OnMouseOverPage();
        return TRUE;
    }
    return form->OnControlMessage(window, message, wParam, lParam).value_or(FALSE);
}

std::optional<INT_PTR> Form::OnControlMessage(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
        if (asking_ || ended_) {
            return TRUE; // not from the user, who has another dialog in front
        }
        OnCommand(LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    case WM_NOTIFY:
        SetWindowLongPtrW(receiver, DWLP_MSGRESULT, OnNotify(*std::bit_cast<NMHDR*>(lParam)));
        return TRUE;
    case WM_CTLCOLORSTATIC:
        if (const HBRUSH brush = OnStaticColour(std::bit_cast<HWND>(lParam), std::bit_cast<HDC>(wParam));
            brush != nullptr) {
            return std::bit_cast<INT_PTR>(brush);
        }
        return std::nullopt;
    case WM_SETCURSOR:
        if (!ShowsHourglass()) {
            return std::nullopt;
        }
        SetCursor(LoadCursorW(nullptr, IDC_WAIT));
        SetWindowLongPtrW(receiver, DWLP_MSGRESULT, TRUE);
        return TRUE;
    case WM_DRAWITEM:
        OnDrawItem(*std::bit_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    default:
        return std::nullopt;
    }
}

INT_PTR Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto answer = OnControlMessage(window_, message, wParam, lParam)) {
        return *answer;
    }
    switch (message) {
    case WM_CLOSE:
        if (!asking_ && !ended_) {
            OnClose();
        }
        return TRUE;
    case WM_HELP:
        return OnHelpKey() ? TRUE : FALSE; // what no form answers, the system passes on to its owner
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE) {
            OnActivate();
        }
        return FALSE; // the system's own handling restores the focus
    case WM_CAPTURECHANGED:
        OnCaptureLost();
        return TRUE;
    case WM_CONTEXTMENU: {
        if (asking_ || ended_) {
            return TRUE;
        }
        const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        const bool byKeyboard = at.x == -1 && at.y == -1;
        return OnContextMenu(std::bit_cast<HWND>(wParam), byKeyboard ? std::nullopt : std::optional(at))
                   ? TRUE
                   : FALSE;
    }
    case WM_VKEYTOITEM:
        if (!asking_ && !ended_) {
            OnListKey(GetDlgCtrlID(std::bit_cast<HWND>(lParam)), LOWORD(wParam));
        }
        return -1; // the list box does what it does with the key
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
        return ScrollByMessage(window_, message, wParam) ? TRUE : FALSE;
    case WM_GETDPISCALEDSIZE:
        *std::bit_cast<SIZE*>(lParam) = SizeAt(static_cast<UINT>(wParam));
        SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
        return TRUE;
    case WM_DPICHANGED:
        OnScalingChanged(HIWORD(wParam), *std::bit_cast<const RECT*>(lParam));
        return TRUE;
    case WM_SYSCOLORCHANGE:
        EnumChildWindows(window_, ForwardColorChange, 0);
        return FALSE;
    case WM_DESTROY:
        OnDestroy();
        // The controls go after this, and have nothing more to say.
        SetWindowLongPtrW(window_, DWLP_USER, 0);
        window_ = nullptr;
        return TRUE;
    default:
        return message >= WM_APP && OnPrivateMessage(message, wParam, lParam) ? TRUE : FALSE;
    }
}

void Form::SetScaling(UINT dpi) {
    auto font = std::make_unique<DialogFont>(fontName_, dpi);
    SendMessageW(window_, WM_SETFONT, std::bit_cast<WPARAM>(font->Handle()), FALSE);
    for (const auto& [id, control] : controls_) {
        SendMessageW(control, WM_SETFONT, std::bit_cast<WPARAM>(font->Handle()), TRUE);
    }
    font_ = std::move(font); // only now: until here the controls drew with the old one
}

void Form::PlaceRows() {
    for (const Placed& placed : placed_) {
        PlaceInRow(placed.window, font_->Pixels(placed.place));
    }
}

SIZE Form::LayOut(const RECT& work) {
    return FitForm(window_, OnLayout(), {work.right - work.left, work.bottom - work.top}, Dpi());
}
