#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Profile files as an editor sees them, without the system's functions for them.
namespace RawProfile {

/// Makes "key=bytes" the last line of the section, which goes to the end of the file when it is new.
void PutLine(const std::wstring& file, const std::string& section, const std::string& key,
             std::string_view bytes);

/// What stands behind "key=" in the section; nothing when there is no such line.
[[nodiscard]] std::optional<std::string> Line(const std::wstring& file, const std::string& section,
                                              const std::string& key);

} // namespace RawProfile
