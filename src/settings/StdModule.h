#pragma once

#include "platform/TextCase.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// Procedures on text that every other part of the program shares.

/// At the first "|": the text before it and the text after it. Without "|": the whole text, and nothing.
[[nodiscard]] std::pair<std::wstring, std::wstring> SplitAtBar(std::wstring_view text);

/// The text up to its first NUL, or all of it.
[[nodiscard]] std::wstring CutAtNul(std::wstring_view text);

/// Without leading and trailing blanks (U+0020 only).
[[nodiscard]] std::wstring TrimBlanks(std::wstring_view text);

/// The one test of "is numeric": decimal digits with an optional sign, blanks around them allowed, and a
/// value of 32 signed bits. Anything else, empty text too, gives nothing.
[[nodiscard]] std::optional<std::int32_t> NumberFromText(std::wstring_view text);

/// In decimal digits, with a "-" in front where it is negative; numbers of up to 63 bits and a sign. Without
/// the C library's formatting, which std::to_wstring brings along.
[[nodiscard]] std::wstring DecimalText(std::int64_t number);

template <std::integral Number>
requires(!std::same_as<Number, std::int64_t>) [[nodiscard]] std::wstring DecimalText(Number number) {
    return DecimalText(static_cast<std::int64_t>(number));
}

/// The number at the start of the text, leading blanks and a sign allowed; 0 when there is none. Values
/// beyond 32 signed bits stay at the nearest limit.
[[nodiscard]] std::int32_t LeadingNumber(std::wstring_view text);

/// A control's text as it reads: without the mark of its access key, and without the "(&X)" that stands for a
/// key which the words don't have.
[[nodiscard]] std::wstring WithoutMnemonic(std::wstring_view text);

/// Text for a control that would take "&" for the mark of an access key.
[[nodiscard]] std::wstring WithoutAccessKeys(std::wstring_view text);

/// True when the text is numeric and min <= value <= max.
[[nodiscard]] bool IsNumericInRange(std::wstring_view text, std::int32_t min, std::int32_t max);

/// The same, with the value: what `fallback` stands for when the text is out of range or no number.
[[nodiscard]] std::int32_t NumberInRangeOr(std::wstring_view text, std::int32_t min, std::int32_t max,
                                           std::int32_t fallback);

/// Upper and lower case are the same, here and below, as the system takes them for file names.
[[nodiscard]] inline bool EqualsIgnoreCase(std::wstring_view a, std::wstring_view b) {
    return CompareIgnoreCase(a, b) == 0;
}

struct LessIgnoreCase {
    [[nodiscard]] bool operator()(std::wstring_view a, std::wstring_view b) const {
        return CompareIgnoreCase(a, b) < 0;
    }
};

/// 0-based position of `part` in `text`; std::wstring_view::npos when absent.
[[nodiscard]] std::size_t FindIgnoreCase(std::wstring_view text, std::wstring_view part);

[[nodiscard]] inline bool ContainsIgnoreCase(std::wstring_view text, std::wstring_view part) {
    return FindIgnoreCase(text, part) != std::wstring_view::npos;
}

/// Half of a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(std::wstring_view text);

/// Bytes that are no UTF-8 become U+FFFD, one for each.
[[nodiscard]] std::wstring FromUtf8(std::string_view bytes);
