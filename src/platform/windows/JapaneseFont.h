#pragma once

#include <windows.h>

#include <span>

/// A fixed-pitch font for the printout's Japanese texts on this device: the first of the preferred faces that has
/// their characters (the system may stand another one in for it), else any fixed-pitch one that has them, else any
/// that has them, else the first preferred one. The height is the caller's to set.
[[nodiscard]] LOGFONTW JapaneseFont(HDC hdc, std::span<const wchar_t* const> preferred);
