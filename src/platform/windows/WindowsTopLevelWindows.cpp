#include "platform/windows/WindowsTopLevelWindows.h"

#include <windows.h>

#include <bit>

namespace {

/// Longer than any reload takes; at 5 s Windows would call us the program that does not answer.
constexpr UINT kPatienceMs = 4000;

HWND Handle(WindowId window) {
    return std::bit_cast<HWND>(window);
}

} // namespace

WindowId WindowsTopLevelWindows::Find(const std::wstring& className,
                                      const std::optional<std::wstring>& title) const {
    return std::bit_cast<WindowId>(FindWindowW(className.c_str(), title ? title->c_str() : nullptr));
}

bool WindowsTopLevelWindows::Post(WindowId window, std::uint32_t message, std::uintptr_t wParam,
                                  const std::int32_t* lParam) {
    return PostMessageW(Handle(window), message, wParam, std::bit_cast<LPARAM>(lParam)) != FALSE;
}

bool WindowsTopLevelWindows::Send(WindowId window, std::uint32_t message, std::uintptr_t wParam,
                                  const std::int32_t* lParam) {
    DWORD_PTR answer = 0;
    return SendMessageTimeoutW(Handle(window), message, wParam, std::bit_cast<LPARAM>(lParam),
                               SMTO_NORMAL | SMTO_ABORTIFHUNG, kPatienceMs, &answer) != 0;
}

void WindowsTopLevelWindows::BringForward(WindowId window) {
    const HWND hwnd = Handle(window);
    if (IsIconic(hwnd) != FALSE) {
        // Not ShowWindow: the other program may be busy, and we would wait for it.
        ShowWindowAsync(hwnd, SW_RESTORE);
    }
    const HWND popup = GetLastActivePopup(hwnd);
    SetForegroundWindow(IsWindowVisible(popup) != FALSE ? popup : hwnd);
}
