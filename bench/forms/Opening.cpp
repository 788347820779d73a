#include "forms/Opening.h"

#include "common/Statistics.h"
#include "forms/BareForm.h"

#include <bit>
#include <utility>

namespace {

/// Posted before a form is created, it is the first message that the form's loop gets.
constexpr UINT kOpenMessage = WM_APP + 0x1000;

/// A hook has no place for a context of its owner's.
Opening*& Watching() {
    static Opening* watching = nullptr;
    return watching;
}

} // namespace

Opening::Opening() : hook_(SetWindowsHookExW(WH_GETMESSAGE, OnMessage, nullptr, GetCurrentThreadId())) {
    Watching() = this;
}

Opening::~Opening() {
    UnhookWindowsHookEx(hook_);
    Watching() = nullptr;
}

std::optional<double> Opening::TimeOf(const std::function<void()>& open) {
    taken_.reset();
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) { // what earlier forms left
        DispatchMessageW(&message);
    }
    PostThreadMessageW(GetCurrentThreadId(), kOpenMessage, 0, 0);
    start_ = NowMilliseconds();
    open();
    return taken_;
}

LRESULT CALLBACK Opening::OnMessage(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& message = *std::bit_cast<const MSG*>(lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && message.hwnd == nullptr &&
        message.message == kOpenMessage) {
        Watching()->OnOpen();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void Opening::OnOpen() {
    const HWND form = GetActiveWindow();
    if (IsWindowVisible(form) == FALSE || GetWindow(form, GW_OWNER) == nullptr) {
        return;
    }
    PaintNow(form);
    taken_ = NowMilliseconds() - start_;
    if (const auto look = std::exchange(look_, nullptr)) {
        look(form);
    }
    PostMessageW(form, WM_CLOSE, 0, 0);
}
