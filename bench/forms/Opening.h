#pragma once

#include <windows.h>

#include <functional>
#include <optional>

/// Watches modal forms open: until they stand on the screen, painted, and the program waits for its user.
class Opening {
public:
    Opening();
    ~Opening();
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

    /// `open` creates a form and runs it until it is closed, which happens as soon as it is open. Returns the
    /// milliseconds until then, nothing when no form came.
    std::optional<double> TimeOf(const std::function<void()>& open);

    /// Called with the next form that is open.
    void LookAtNext(std::function<void(HWND)> look) { look_ = std::move(look); }

private:
    static LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam) noexcept;
    void OnOpen();

    HHOOK hook_;
    double start_ = 0;
    std::optional<double> taken_;
    std::function<void(HWND)> look_;
};
