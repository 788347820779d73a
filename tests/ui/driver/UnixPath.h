#pragma once

#include <string>

namespace UiDriver {

/// The path that Wine has for a file of the system below it.
std::wstring OnDriveZ(const char* unixPath);

/// Where a file of Wine's really lies, in UTF-8. Fails on Windows.
std::string UnixPath(const std::wstring& path);

} // namespace UiDriver
