#pragma once

#include "Win32.h"

#include <string>

namespace UiDriver {

/// What a screen reader is told of a window or control, asked from this other process.
struct Accessible {
    /// Fails when the system has no answer at all.
    static Accessible Of(HWND hwnd);

    std::wstring name{};
    std::wstring description{};
    LONG role = 0;  ///< ROLE_SYSTEM_...
    LONG state = 0; ///< STATE_SYSTEM_...
};

/// The default action, as a screen reader does it.
void DoDefaultAction(HWND hwnd);

/// In the user's language.
std::wstring RoleText(LONG role);
std::wstring StateText(LONG state);

} // namespace UiDriver
