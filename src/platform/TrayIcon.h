#pragma once

#include <string>

/// The program's icon in the notification area.
class TrayIcon {
public:
    virtual ~TrayIcon() = default;

    /// What is said when the mouse rests on the icon.
    virtual void SetTip(const std::wstring& tip) = 0;
    virtual void Notify(const std::wstring& title, const std::wstring& text) = 0;
};
