#include "ui/Form.h"

#include "resources/resource.h"
#include "ui/Dpi.h"
#include "ui/FormClass.h"
#include "ui/Theme.h"

#include <windowsx.h>

#include <algorithm>
#include <bit>
#include <cassert>

namespace {

HINSTANCE Instance() {
    return GetModuleHandleW(nullptr);
}

bool RegisterFormClass() {
    static const ATOM kClass = [] {
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

Form* FormOf(HWND window) {
    return std::bit_cast<Form*>(GetWindowLongPtrW(window, DWLP_USER));
}

} // namespace

Form::~Form() {
    if (window_ != nullptr) {
        // The derived part is gone: its window's last messages must not look for it.
        SetWindowLongPtrW(window_, DWLP_USER, 0);
        DestroyWindow(window_);
    }
}

HWND Form::Control(int id) const {
    const auto found = controls_.find(id);
    assert(found != controls_.end());
    return found == controls_.end() ? nullptr : found->second;
}

bool Form::CreateHidden(HWND owner, const std::wstring& fontName) {
    owner_ = owner;
    fontName_ = fontName;
    return RegisterFormClass() && CreateDialogParamW(Instance(), MAKEINTRESOURCEW(IDD_FORM), owner, FormProc,
                                                     std::bit_cast<LPARAM>(this)) != nullptr;
}

bool Form::HandleDialogMessage(MSG& message) {
    if (window_ == nullptr) {
        return false;
    }
    const bool ours = message.hwnd == window_ || IsChild(window_, message.hwnd) != FALSE;
    if (ours && message.message == WM_KEYDOWN && OnKeyDown(message.wParam)) {
        return true;
    }
    if (ours && message.message == WM_MOUSEWHEEL && OnMouseWheel(message.hwnd)) {
        return true;
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
    return IsDialogMessageW(window_, &message) != FALSE;
}

void Form::FocusFirst(HWND parent) {
    // By message, so that the default button follows.
    SendMessageW(window_, WM_NEXTDLGCTL, std::bit_cast<WPARAM>(GetNextDlgTabItem(parent, nullptr, FALSE)),
                 TRUE);
}

void Form::RunModal(HWND focus) {
    if (window_ == nullptr) {
        return; // could not be created: nothing was answered
    }
    modalEnded_ = false;
    const bool ownerWasEnabled = EnableWindow(owner_, FALSE) == FALSE;
    if (focus == nullptr) {
        FocusFirst(window_);
    } else {
        SendMessageW(window_, WM_NEXTDLGCTL, std::bit_cast<WPARAM>(focus), TRUE);
    }
    ShowWindow(window_, SW_SHOW);
    if (owner_ == nullptr) {
        SetForegroundWindow(window_); // nothing of ours was in front before
    }
    MSG message{};
    while (!modalEnded_ && window_ != nullptr) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            PostQuitMessage(static_cast<int>(message.wParam)); // the program's own loop ends too
        }
        if (got <= 0) {
            break;
        }
        if (!HandleDialogMessage(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    modalEnded_ = true;
    // The owner first: otherwise another program's window would become active.
    if (ownerWasEnabled) {
        EnableWindow(owner_, TRUE);
    }
    if (window_ != nullptr) {
        ShowWindow(window_, SW_HIDE);
    }
}

void Form::EndModal() {
    modalEnded_ = true;
    // The loop may be waiting for a message while it answers one that was sent.
    PostMessageW(window_, WM_NULL, 0, 0);
}

void Form::FocusControl(int id) {
    SendMessageW(window_, WM_NEXTDLGCTL, std::bit_cast<WPARAM>(Control(id)), TRUE);
}

HWND Form::AddPage(const std::wstring& name, const RECT& place) {
    const HWND page = CreateDialogParamW(Instance(), MAKEINTRESOURCEW(IDD_PAGE), window_, PageProc, 0);
    if (page == nullptr) {
        return nullptr;
    }
    SetWindowTextW(page, name.c_str()); // what a screen reader says when the page is entered
    UseTabBackground(page);
    SetWindowPos(page, HWND_TOP, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOACTIVATE);
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
    return control;
}

void Form::Centre(SIZE size) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner_ != nullptr ? owner_ : window_, MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    const RECT& work = monitor.rcWork;
    RECT around = work;
    if (owner_ != nullptr) {
        GetWindowRect(owner_, &around);
    }
    // Top left stays on the screen even when the form is larger than it.
    const auto within = [](LONG begin, LONG end, LONG wanted, LONG length) {
        return std::max(begin, std::min(wanted, end - length));
    };
    const LONG left = within(work.left, work.right, (around.left + around.right - size.cx) / 2, size.cx);
    const LONG top = within(work.top, work.bottom, (around.top + around.bottom - size.cy) / 2, size.cy);
    SetWindowPos(window_, nullptr, left, top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::OnScalingChanged(UINT dpi, const RECT& suggested) {
    if (scaling_) {
        return; // moving the window below may ask again
    }
    const ScopedFlag scaling(scaling_);
    SetScaling(dpi);
    PlaceRows();
    const SIZE size = LayOut();
    SetWindowPos(window_, nullptr, suggested.left, suggested.top, size.cx, size.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    // Group boxes and labels leave standing what the former layout had inside them.
    RedrawWindow(window_, nullptr, nullptr, RDW_ERASE | RDW_INVALIDATE | RDW_ALLCHILDREN);
}

int Form::Ask(const std::wstring& text, const std::wstring& title, UINT style) {
    return WhileAsking([&] { return MessageBoxW(window_, text.c_str(), title.c_str(), style); });
}

INT_PTR CALLBACK Form::FormProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        auto* form = std::bit_cast<Form*>(lParam);
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        form->window_ = window;
        DisableSystemScaling(window);
        form->SetScaling(GetDpiForWindow(window));
        form->OnCreate();
        form->Centre(form->LayOut());
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
        if (asking_ || modalEnded_) {
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
        if (!asking_ && !modalEnded_) {
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
        if (asking_ || modalEnded_) {
            return TRUE;
        }
        const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
        const bool byKeyboard = at.x == -1 && at.y == -1;
        return OnContextMenu(std::bit_cast<HWND>(wParam), byKeyboard ? std::nullopt : std::optional(at))
                   ? TRUE
                   : FALSE;
    }
    case WM_VKEYTOITEM:
        if (!asking_) {
            OnListKey(GetDlgCtrlID(std::bit_cast<HWND>(lParam)), LOWORD(wParam));
        }
        return -1; // the list box does what it does with the key
    case WM_TIMER:
        OnTimer();
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
        const RECT place = font_->Pixels(placed.place);
        SetWindowPos(placed.window, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

SIZE Form::LayOut() {
    const SIZE client = OnLayout();
    RECT frame{0, 0, client.cx, client.cy};
    AdjustWindowRectExForDpi(&frame, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                             static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)), Dpi());
    return {frame.right - frame.left, frame.bottom - frame.top};
}
