#include "TestWindow.h"

#include <future>

LRESULT CALLBACK TestWindow::WindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* const self = reinterpret_cast<TestWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (message == WM_ACTIVATE) {
        self->inFront_ = LOWORD(wParam) != WA_INACTIVE;
        self->cameForward_ = self->cameForward_ || self->inFront_;
    }
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

HWND TestWindow::Create(const std::wstring& className, const std::wstring& title) {
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
                           this);
}

TestWindow::TestWindow(const std::wstring& className, const std::wstring& title) {
    std::promise<HWND> created;
    std::future<HWND> result = created.get_future();
    thread_ = std::thread([this, created = std::move(created), className, title]() mutable {
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

void TestWindow::GiveWayTo(const UiDriver::Window& other) {
    other.BringToFront();
    UiDriver::WaitUntil([this] { return !inFront_; }, L"the test's own window to give way");
    cameForward_ = false;
}

void TestWindow::WaitUntilItComesForward() const {
    UiDriver::WaitUntil([this] { return CameForward(); }, L"the test's own window to come forward");
}
