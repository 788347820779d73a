#pragma once

#include "platform/TrayIcon.h"
#include "platform/windows/Handles.h"

#include <windows.h>

#include <shellapi.h>

/// An icon that reports to a window, by a message whose lParam has the event in its low word and whose wParam has
/// the place on the screen.
class WindowsTrayIcon final : public TrayIcon {
public:
    WindowsTrayIcon(HWND window, UINT message, int icon);
    ~WindowsTrayIcon() override;
    WindowsTrayIcon(const WindowsTrayIcon&) = delete;
    WindowsTrayIcon& operator=(const WindowsTrayIcon&) = delete;

    void SetTip(const std::wstring& tip) override;
    void Notify(const std::wstring& title, const std::wstring& text) override;

    /// The taskbar is there now, or is there again.
    void PutBack();

private:
    void Change(UINT what);
    bool Add();

    NOTIFYICONDATAW data_{};
    Icon icon_;
};
