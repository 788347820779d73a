#include "platform/windows/WindowsTopLevelWindows.h"

#include "platform/windows/SystemLibrary.h"

#include <windows.h>

#include <bit>

namespace {

/// Longer than any reload takes; at 5 s Windows would call us the program that does not answer.
constexpr UINT kPatienceMs = 4000;

HWND Handle(WindowId window) {
    return std::bit_cast<HWND>(window);
}

/// A console program that tells nobody anything does without the library of windows, which takes as long to load
/// as the rest of the program.
template <class Procedure> Procedure* User32(const char* name) {
    return SystemProcedure<Procedure>(L"user32.dll", name);
}

} // namespace

WindowId WindowsTopLevelWindows::Find(const std::wstring& className,
                                      const std::optional<std::wstring>& title) const {
    static const auto kFind = User32<decltype(FindWindowW)>("FindWindowW");
    return kFind == nullptr
               ? 0
               : std::bit_cast<WindowId>(kFind(className.c_str(), title ? title->c_str() : nullptr));
}

bool WindowsTopLevelWindows::Post(WindowId window, std::uint32_t message, std::uintptr_t wParam,
                                  const std::int32_t* lParam) {
    static const auto kPost = User32<decltype(PostMessageW)>("PostMessageW");
    return kPost != nullptr && kPost(Handle(window), message, wParam, std::bit_cast<LPARAM>(lParam)) != FALSE;
}

bool WindowsTopLevelWindows::Send(WindowId window, std::uint32_t message, std::uintptr_t wParam,
                                  const std::int32_t* lParam) {
    static const auto kSend = User32<decltype(SendMessageTimeoutW)>("SendMessageTimeoutW");
    DWORD_PTR answer = 0;
    return kSend != nullptr && kSend(Handle(window), message, wParam, std::bit_cast<LPARAM>(lParam),
                                     SMTO_NORMAL | SMTO_ABORTIFHUNG, kPatienceMs, &answer) != 0;
}

void WindowsTopLevelWindows::BringForward(WindowId window) {
    const auto isIconic = User32<decltype(IsIconic)>("IsIconic");
    const auto showAsync = User32<decltype(ShowWindowAsync)>("ShowWindowAsync");
    const auto lastPopup = User32<decltype(GetLastActivePopup)>("GetLastActivePopup");
    const auto isVisible = User32<decltype(IsWindowVisible)>("IsWindowVisible");
    const auto setForeground = User32<decltype(SetForegroundWindow)>("SetForegroundWindow");
    if (isIconic == nullptr || showAsync == nullptr || lastPopup == nullptr || isVisible == nullptr ||
        setForeground == nullptr) {
        return;
    }
    const HWND hwnd = Handle(window);
    if (isIconic(hwnd) != FALSE) {
        // Not ShowWindow: the other program may be busy, and we would wait for it.
        showAsync(hwnd, SW_RESTORE);
    }
    const HWND popup = lastPopup(hwnd);
    setForeground(isVisible(popup) != FALSE ? popup : hwnd);
}
