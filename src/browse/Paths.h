#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Text rules for paths; nothing here looks at the disk.

/// Without one trailing "\".
[[nodiscard]] std::wstring WithoutTrailingBackslash(std::wstring_view path);

/// With a "\" between them, unless the folder ends in one.
[[nodiscard]] std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);

/// Whether `path` is `root` or lies below it; upper and lower case count as the same. `root` without a trailing
/// "\". Nothing lies below an empty root.
[[nodiscard]] bool LiesUnder(std::wstring_view path, std::wstring_view root);

/// The parts between "\", empty ones included.
[[nodiscard]] std::vector<std::wstring> SplitPath(std::wstring_view path);

/// What follows the last "\"; all of it without one.
[[nodiscard]] std::wstring LastPart(std::wstring_view path);

/// What stands before the last "."; all of it without one.
[[nodiscard]] std::wstring WithoutExtension(std::wstring_view name);

/// Whether the last four characters are ".url", in any case.
[[nodiscard]] bool EndsInUrl(std::wstring_view name);
