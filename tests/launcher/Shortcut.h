#pragma once

#include <string>

/// Writes a shortcut file.
void MakeShortcut(const std::wstring& file, const std::wstring& target, const std::wstring& arguments,
                  const std::wstring& directory);
