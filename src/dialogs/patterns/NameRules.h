#pragma once

#include <cstddef>
#include <string>
#include <vector>

class AnsiText;

/// Bytes of the ANSI code page; a full-width character counts two under code page 932.
inline constexpr std::size_t kLongestPatternName = 20;

/// Why a Pattern can't have a name, in the order in which the reasons are looked for.
enum class NameProblem { None, Empty, Used, TooLong };

/// `usedNames` are compared exactly, upper and lower case apart, as the ANSI code page stores them.
[[nodiscard]] NameProblem CheckPatternName(const std::wstring& name,
                                           const std::vector<std::wstring>& usedNames,
                                           const AnsiText& ansiText);
