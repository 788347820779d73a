#include "ui/MessageWindow.h"

#include <bit>
#include <utility>

namespace {

constexpr const wchar_t* kClass = L"QLBUtlMessages";

} // namespace

MessageWindow::MessageWindow(std::function<void(UINT)> onMessage) : onMessage_(std::move(onMessage)) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    static const ATOM kRegistered = [instance] {
        WNDCLASSEXW windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = Procedure;
        windowClass.hInstance = instance;
        windowClass.lpszClassName = kClass;
        return RegisterClassExW(&windowClass);
    }();
    if (kRegistered != 0) {
        window_ = CreateWindowExW(0, kClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, instance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, std::bit_cast<LONG_PTR>(this));
    }
}

MessageWindow::~MessageWindow() {
    if (window_ != nullptr) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
}

LRESULT CALLBACK MessageWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto* self = std::bit_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message >= WM_APP) {
        self->onMessage_(message);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}
