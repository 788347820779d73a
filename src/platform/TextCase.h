#pragma once

#include <string_view>

/// Compares as the system compares file names: upper and lower case are the same, whatever the user's locale.
/// Negative, 0 or positive, as a stands to b.
[[nodiscard]] int CompareIgnoreCase(std::wstring_view a, std::wstring_view b);
