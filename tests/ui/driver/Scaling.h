#pragma once

#include "Win32.h"

namespace UiDriver {

/// From now on the window's process is told by GetDpiForWindow that every window has this scaling: for screens
/// that there are not. Nobody tells it that anything has changed.
void FakeScaling(HWND window, UINT dpi);

/// Tells a form that it came, where it stands, to a screen of another scaling.
void TellScaling(HWND form, UINT dpi);

/// Both, as the system does it.
void ScaleTo(HWND form, UINT dpi);

} // namespace UiDriver
