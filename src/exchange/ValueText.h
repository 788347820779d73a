#pragma once

#include "platform/Registry.h"

#include <optional>
#include <string>
#include <string_view>
#include <variant>

/// What a settings file says behind the "=" of an entry: a text, or a value of the registry byte by byte.
using FileValue = std::variant<std::wstring, RegistryValue>;

/// The text itself where it stands on a line as it is; otherwise in quotes, with the escapes of JSON.
[[nodiscard]] std::wstring WrittenText(std::wstring_view text);
/// "hex(1):48,69,00": the number of the type, and the bytes; for a text of one NUL two quotes.
[[nodiscard]] std::wstring WrittenBytes(const RegistryValue& value);

/// In quotes as JSON has them: `"` and `\` and control characters are escaped.
[[nodiscard]] std::wstring JsonText(std::wstring_view text);

enum class ValueProblem { None, UnfinishedQuote, UnknownEscape, TextBehindQuote, WrongBytes };

struct ReadValue {
    FileValue value;
    ValueProblem problem = ValueProblem::None;
};
/// `written`: without the blanks around it.
[[nodiscard]] ReadValue ReadWritten(std::wstring_view written);
