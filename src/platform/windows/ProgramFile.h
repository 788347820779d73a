#pragma once

#include <string>

/// The full path of this program's file.
[[nodiscard]] std::wstring ProgramFile();
