#pragma once

#include <windows.h>

#include <string>

[[nodiscard]] std::wstring TextOf(HWND window);
void SetTextOf(HWND window, const std::wstring& text);

/// Entries of a combo box are numbered from 0; -1 is no selection.
void ComboAdd(HWND combo, const std::wstring& text, LPARAM data = 0);
[[nodiscard]] int ComboSelection(HWND combo);
void ComboSelect(HWND combo, int index);
[[nodiscard]] LPARAM ComboData(HWND combo, int index);
[[nodiscard]] bool ComboIsOpen(HWND combo);
