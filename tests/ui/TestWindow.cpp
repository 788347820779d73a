#include "TestWindow.h"

#include <future>

namespace {

LRESULT CALLBACK WindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

HWND Create(const std::wstring& className, const std::wstring& title) {
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = instance;
    windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    windowClass.lpszClassName = className.c_str();
    RegisterClassExW(&windowClass);
    // A bare pop-up is none of the window manager's business under Wine: for any other kind the manager gives
    // the new window the focus at some moment after it has been shown, in the middle of the test.
    return CreateWindowExW(WS_EX_TOOLWINDOW, className.c_str(), title.c_str(),
                           WS_POPUP | WS_BORDER | WS_VISIBLE, 20, 20, 260, 120, nullptr, nullptr, instance,
                           nullptr);
}

} // namespace

TestWindow::TestWindow(const std::wstring& className, const std::wstring& title) {
    std::promise<HWND> created;
    std::future<HWND> result = created.get_future();
    thread_ = std::thread([created = std::move(created), className, title]() mutable {
        const HWND hwnd = Create(className, title);
        created.set_value(hwnd);
        MSG message{};
        while (hwnd != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        UnregisterClassW(className.c_str(), GetModuleHandleW(nullptr));
    });
    hwnd_ = result.get();
    if (hwnd_ == nullptr) {
        thread_.join();
        UiDriver::Fail(L"the test's own window of class " + className + L" could not be made");
    }
}

TestWindow::~TestWindow() {
    PostMessageW(hwnd_, WM_CLOSE, 0, 0);
    thread_.join();
}
