#pragma once

#include <windows.h>

/// The page takes the background of the tab control that it lies on.
void UseTabBackground(HWND page);

/// Paints what the visual style shows behind `child`; nothing without visual styles.
void PaintParentTheme(HWND child, HDC hdc);
