#pragma once

#include <windows.h>

inline constexpr int kUnscaledDpi = 96;

/// Pixels at 100 % scaling to pixels at `dpi`.
[[nodiscard]] int Scaled(int pixels, UINT dpi);

/// The system would stretch a dialog's controls by itself when the scaling changes; forms lay themselves out.
void DisableSystemScaling(HWND dialog);
