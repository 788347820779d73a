#pragma once

#include "Win32.h"

#include <string>
#include <vector>

namespace UiDriver {

/// SendMessageW that fails instead of hanging when the window does not answer in time.
LRESULT Send(HWND hwnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// Delivers without waiting for the answer, so that a modal window may open underneath. It is handled before
/// every later Send to the same program, which a posted message is not.
void SendWithoutWaiting(HWND hwnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

/// Asks for the foreground until the window has it.
void BringForward(HWND hwnd);

/// Class, title and handle of a window, for failure messages.
std::wstring Describe(HWND hwnd);

std::wstring ClassNameOf(HWND hwnd);

/// The text of any window or control, asked from its own process.
std::wstring TextOf(HWND hwnd);

/// Whether two class names are the same to the system.
bool SameClass(const std::wstring& a, const std::wstring& b);

/// All windows inside, in the order of the system's enumeration; none when the window is gone.
std::vector<HWND> WindowsInside(HWND hwnd);

/// Fails when the window no longer exists.
void RequireAlive(HWND hwnd);

} // namespace UiDriver
