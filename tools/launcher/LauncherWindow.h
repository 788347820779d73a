#pragma once

#include "LogFile.h"
#include "Options.h"
#include "Win32.h"

/// The window that the settings program looks for and tells of its changes.
class LauncherWindow {
public:
    LauncherWindow(HINSTANCE instance, const Options& options, LogFile& log);
    LauncherWindow(const LauncherWindow&) = delete;
    LauncherWindow& operator=(const LauncherWindow&) = delete;
    ~LauncherWindow() = default;

    [[nodiscard]] bool Created() const { return hwnd_ != nullptr; }

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Handle(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

    void CreateView(HWND hwnd);
    void Record(UINT message, WPARAM wParam);
    void ShowText(const std::wstring& text);

    const Options& options_;
    LogFile& log_;
    HWND hwnd_ = nullptr;
    HWND view_ = nullptr;
    WPARAM mark_ = 0;
};
