#pragma once

#include <optional>
#include <string>

namespace UiDriver {

/// All bytes of a file, or nullopt when there is none. The file may be open for writing elsewhere.
std::optional<std::string> ReadBytes(const std::wstring& path);

void WriteBytes(const std::wstring& path, const std::string& bytes);

/// The file need not exist.
void RemoveFile(const std::wstring& path);

std::wstring WindowsDirectory();

/// The folder of the running program, without a backslash at its end.
std::wstring OwnDirectory();

} // namespace UiDriver
