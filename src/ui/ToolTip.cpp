#include "ui/ToolTip.h"

#include "ui/Dpi.h"

#include <commctrl.h>

#include <algorithm>
#include <bit>

namespace {

constexpr int kLongestLine = 1000; // pixels at 100 %
constexpr int kShownMs = 15'000;   // several lines take time to read

/// What the system cuts off a tip beyond it.
int ScreenWidth(HWND form) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(form, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork.right - monitor.rcWork.left;
}

} // namespace

ToolTip::~ToolTip() {
    if (window_ != nullptr && IsWindow(window_) != FALSE) { // else gone with its form
        DestroyWindow(window_);
    }
}

bool ToolTip::Create(HWND form) {
    if (window_ == nullptr) {
        form_ = form;
        window_ = CreateWindowExW(
            WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT,
            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, form, nullptr, GetModuleHandleW(nullptr), nullptr);
        SendMessageW(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, MAKELPARAM(kShownMs, 0));
    }
    return window_ != nullptr;
}

void ToolTip::Tell(UINT message, WPARAM wParam, std::wstring* text) const {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = form_;
    tool.uId = std::bit_cast<UINT_PTR>(control_);
    tool.lpszText = text == nullptr ? nullptr : text->data();
    SendMessageW(window_, message, wParam, std::bit_cast<LPARAM>(&tool));
}

void ToolTip::Give(HWND form, HWND control, const std::wstring& text, HFONT font, UINT dpi) {
    Take();
    if (text.empty() || !Create(form)) {
        return;
    }
    SendMessageW(window_, WM_SETFONT, std::bit_cast<WPARAM>(font), FALSE);
    SendMessageW(window_, TTM_SETMAXTIPWIDTH, 0, std::min(Scaled(kLongestLine, dpi), ScreenWidth(form)));
    control_ = control;
    std::wstring shown = text;
    Tell(TTM_ADDTOOLW, 0, &shown);
    if (lastMove_.hwnd == control) {
        Relay(lastMove_); // the pointer may move no more
    }
}

void ToolTip::Take() {
    if (control_ != nullptr) {
        Tell(TTM_DELTOOLW, 0);
        control_ = nullptr;
    }
}

void ToolTip::Relay(const MSG& message) {
    if (message.message == WM_MOUSEMOVE) {
        lastMove_ = message;
    }
    if (window_ != nullptr) {
        MSG copy = message;
        SendMessageW(window_, TTM_RELAYEVENT, 0, std::bit_cast<LPARAM>(&copy));
    }
}
