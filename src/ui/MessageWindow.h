#pragma once

#include <windows.h>

#include <functional>

/// A window that nobody sees, to which work for later can be posted, from other threads too. Messages from
/// WM_APP on reach `onMessage` on the thread that made it.
class MessageWindow {
public:
    explicit MessageWindow(std::function<void(UINT)> onMessage);
    ~MessageWindow();
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    [[nodiscard]] HWND Handle() const { return window_; }
    void Post(UINT message) const { PostMessageW(window_, message, 0, 0); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    std::function<void(UINT)> onMessage_;
    HWND window_ = nullptr;
};
