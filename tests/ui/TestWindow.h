#pragma once

#include "driver/Driver.h"

#include <atomic>
#include <string>
#include <thread>

/// A visible window of the test's own, answering on a thread of its own as another program's would.
class TestWindow {
public:
    TestWindow(const std::wstring& className, const std::wstring& title);
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow();

    UiDriver::Window Shown() const { return UiDriver::Window(hwnd_); }

    /// Brings another window to the front.
    void GiveWayTo(const UiDriver::Window& other);
    /// Whether it was in front since it gave way, if only for a moment: the window manager may give the focus back.
    bool CameForward() const { return cameForward_; }
    void WaitUntilItComesForward() const;

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    HWND Create(const std::wstring& className, const std::wstring& title);

    std::atomic<bool> inFront_ = false;
    std::atomic<bool> cameForward_ = false;
    HWND hwnd_ = nullptr;
    std::thread thread_;
};
