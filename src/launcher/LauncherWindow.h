#pragma once

#include "launcher/Launcher.h"
#include "launcher/LauncherBackups.h"
#include "platform/LogonStart.h"
#include "platform/windows/Handles.h"
#include "platform/windows/WindowsTrayIcon.h"

#include <windows.h>

#include <functional>
#include <optional>

/// By which ours is told from other launchers.
inline constexpr const wchar_t* kLauncherTitle = L"QLBLauncher";

/// The hidden window that programs and the system talk to. It is no message-only window: those do not hear when
/// the taskbar comes back, or the session ends.
class LauncherWindow {
public:
    LauncherWindow();
    ~LauncherWindow();
    LauncherWindow(const LauncherWindow&) = delete;
    LauncherWindow& operator=(const LauncherWindow&) = delete;

    /// Null when it could not be created.
    [[nodiscard]] HWND Handle() const { return window_; }
    [[nodiscard]] WindowsTrayIcon& Tray() { return *tray_; }

    /// From now on the window does what it is told.
    void Serve(Launcher& launcher, LauncherBackups& backups, LogonStart& logonStart,
               const StringTable& texts);

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnTray(UINT event, POINT at);
    void ShowMenu(POINT at);
    void OnMenuCommand(int command);
    void ShowKeys();
    void BackUp(bool byHand);
    void RestoreBackup(const std::wstring& path);
    /// A message box; `part` stands in the place that the text has for it. Returns the button.
    int Ask(int textOffset, const std::wstring& part, UINT style);
    /// Runs a dialog; while one is open, there is no other.
    void RunDialog(const std::function<void()>& dialog);

    HWND window_ = nullptr;
    UINT taskbarCreated_ = 0;
    std::optional<WindowsTrayIcon> tray_;
    Launcher* launcher_ = nullptr;
    LauncherBackups* backups_ = nullptr;
    LogonStart* logonStart_ = nullptr;
    const StringTable* texts_ = nullptr;
    bool dialogIsOpen_ = false;
};
