#pragma once

#include "driver/Driver.h"

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

private:
    HWND hwnd_ = nullptr;
    std::thread thread_;
};
