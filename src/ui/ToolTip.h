#pragma once

#include <windows.h>

#include <string>

/// A tip beside the pointer while it rests on a control.
class ToolTip {
public:
    ToolTip() = default;
    ~ToolTip();
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;

    /// Gives the tip, of one or several lines, to the control under the pointer; it comes up when the pointer
    /// has rested.
    void Give(HWND form, HWND control, const std::wstring& text, HFONT font, UINT dpi);
    void Take();

    /// The form's mouse messages, which bring the tip up and let it go.
    void Relay(const MSG& message);

private:
    bool Create(HWND form);
    void Tell(UINT message, WPARAM wParam, std::wstring* text = nullptr) const;

    HWND window_ = nullptr; ///< made when the first tip is given
    HWND form_ = nullptr;
    HWND control_ = nullptr;
    MSG lastMove_{};
};
