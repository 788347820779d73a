#pragma once

#include <windows.h>

// A form that is larger than its monitor's work area shows a part of itself and has scroll bars.

/// Gives the form the scroll bars that it needs for `content`, in pixels of its client area, at its beginning.
/// Returns the size of the whole window: no larger than `room`.
[[nodiscard]] SIZE FitForm(HWND form, SIZE content, SIZE room, UINT dpi);

/// The point of the content in the form's top left corner; {0, 0} without scroll bars.
[[nodiscard]] POINT ScrollPosition(HWND form);
/// As near to `position` as the content allows; does nothing without scroll bars.
void ScrollTo(HWND form, POINT position);
void ScrollIntoView(HWND form, HWND control);

/// For the messages of scroll bars and of the mouse wheel. True when it was one.
bool ScrollByMessage(HWND form, UINT message, WPARAM wParam);
