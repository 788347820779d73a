#pragma once

#include "exchange/Words.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class AnsiText;

/// The first line of a .qlb file: the format, and its version.
inline constexpr std::wstring_view kFirstLine = L"; QLBUtl settings, format 1";

/// A settings file as lines of text, the first one included.
struct FileLines {
    bool isIni = false; ///< has no first line of the format: an ini file of the store
    std::vector<std::wstring> lines;
    std::optional<Say> problem; ///< why the bytes are no such text
    int problemLine = 0;
};

[[nodiscard]] FileLines ReadLines(std::string_view bytes, const AnsiText& ansiText);
