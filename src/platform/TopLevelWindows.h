#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// Names a window of this or another program; 0 is no window (HWND).
using WindowId = std::uintptr_t;

/// Other programs' top-level windows: looked up, told something, brought forward.
class TopLevelWindows {
public:
    virtual ~TopLevelWindows() = default;

    /// FindWindow. Without a title any window of the class counts. 0 when there is none.
    [[nodiscard]] virtual WindowId Find(const std::wstring& className,
                                        const std::optional<std::wstring>& title) const = 0;

    /// PostMessage: does not wait. `lParam` is an address in this process and means nothing to the receiver.
    virtual bool Post(WindowId window, std::uint32_t message, std::uintptr_t wParam,
                      const std::int32_t* lParam) = 0;

    /// SendMessage, but waits for at most a few seconds, and not at all for a window that has stopped
    /// answering. False when no answer came.
    virtual bool Send(WindowId window, std::uint32_t message, std::uintptr_t wParam,
                      const std::int32_t* lParam) = 0;

    /// Restores a minimised window and makes it, or the dialog it has open, the foreground window.
    virtual void BringForward(WindowId window) = 0;
};
