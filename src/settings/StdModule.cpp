#include "settings/StdModule.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace {

constexpr std::int64_t kMaxNumber = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kMinNumber = std::numeric_limits<std::int32_t>::min();

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

struct ScannedNumber {
    std::int64_t value = 0; ///< kept at the limits of 32 signed bits
    std::size_t length = 0; ///< characters used; 0 when there is no digit
    bool outOfRange = false;
};

ScannedNumber ScanNumber(std::wstring_view text) {
    std::size_t pos = 0;
    bool negative = false;
    if (!text.empty() && (text[0] == L'+' || text[0] == L'-')) {
        negative = text[0] == L'-';
        pos = 1;
    }
    if (pos >= text.size() || !IsDigit(text[pos])) {
        return {};
    }
    ScannedNumber result;
    for (; pos < text.size() && IsDigit(text[pos]); ++pos) {
        const std::int64_t digit = text[pos] - L'0';
        result.value = result.value * 10 + (negative ? -digit : digit);
        if (result.value > kMaxNumber || result.value < kMinNumber) {
            result.value = std::clamp(result.value, kMinNumber, kMaxNumber);
            result.outOfRange = true;
        }
    }
    result.length = pos;
    return result;
}

constexpr std::uint32_t kReplacement = 0xFFFD;

struct Utf8Character {
    std::uint32_t code = kReplacement;
    std::size_t length = 1;
};

Utf8Character FirstUtf8Character(std::string_view bytes) {
    const auto byte = [bytes](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const std::uint32_t lead = byte(0);
    if (lead < 0x80) {
        return {lead, 1};
    }
    // Leads 0xC0, 0xC1 and from 0xF5 on begin nothing; the smallest code of a length keeps over-long forms out.
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) {
        return {};
    }
    std::uint32_t code = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0U) != 0x80) {
            return {};
        }
        code = code << 6U | (byte(i) & 0x3FU);
    }
    constexpr std::array<std::uint32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
    if (code < kSmallest.at(length) || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
        return {};
    }
    return {code, length};
}

void AppendCharacter(std::wstring& text, std::uint32_t code) {
    if (sizeof(wchar_t) > 2 || code < 0x10000) {
        text += static_cast<wchar_t>(code);
        return;
    }
    code -= 0x10000;
    text += static_cast<wchar_t>(0xD800 + (code >> 10U));
    text += static_cast<wchar_t>(0xDC00 + (code & 0x3FFU));
}

} // namespace

std::pair<std::wstring, std::wstring> SplitAtBar(std::wstring_view text) {
    const std::size_t bar = text.find(L'|');
    if (bar == std::wstring_view::npos) {
        return {std::wstring(text), std::wstring()};
    }
    return {std::wstring(text.substr(0, bar)), std::wstring(text.substr(bar + 1))};
}

std::wstring CutAtNul(std::wstring_view text) {
    return std::wstring(text.substr(0, text.find(L'\0')));
}

std::wstring WithoutMnemonic(std::wstring_view text) {
    constexpr std::size_t kAppended = 4; // "(&X)"
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::wstring_view rest = text.substr(i, kAppended);
        if (rest.size() == kAppended && rest.substr(0, 2) == L"(&" && rest[2] != L'&' && rest[3] == L')') {
            i += kAppended - 1;
            continue;
        }
        if (text[i] == L'&' && ++i == text.size()) {
            break;
        }
        result += text[i];
    }
    return result;
}

std::wstring WithoutAccessKeys(std::wstring_view text) {
    std::wstring result;
    for (const wchar_t c : text) {
        result.append(c == L'&' ? 2 : 1, c);
    }
    return result;
}

std::wstring TrimBlanks(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) {
        return {};
    }
    return std::wstring(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

std::wstring DecimalText(std::int64_t number) {
    std::array<char, std::numeric_limits<std::int64_t>::digits10 + 2> digits{}; // and the sign
    char* const begin = digits.data();
    return {begin, std::to_chars(begin, begin + digits.size(), number).ptr};
}

std::optional<std::int32_t> NumberFromText(std::wstring_view text) {
    const std::wstring trimmed = TrimBlanks(text);
    const ScannedNumber number = ScanNumber(trimmed);
    if (number.length == 0 || number.length != trimmed.size() || number.outOfRange) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(number.value);
}

std::int32_t LeadingNumber(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) {
        return 0;
    }
    return static_cast<std::int32_t>(ScanNumber(text.substr(first)).value);
}

bool IsNumericInRange(std::wstring_view text, std::int32_t min, std::int32_t max) {
    const auto number = NumberFromText(text);
    return number.has_value() && *number >= min && *number <= max;
}

std::int32_t NumberInRangeOr(std::wstring_view text, std::int32_t min, std::int32_t max,
                             std::int32_t fallback) {
    return IsNumericInRange(text, min, max) ? *NumberFromText(text) : fallback;
}

std::size_t FindIgnoreCase(std::wstring_view text, std::wstring_view part) {
    for (std::size_t pos = 0; pos + part.size() <= text.size(); ++pos) {
        if (EqualsIgnoreCase(text.substr(pos, part.size()), part)) {
            return pos;
        }
    }
    return std::wstring_view::npos;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    const auto put = [&bytes](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    const auto isHalf = [](std::uint32_t code, std::uint32_t first) {
        return code >= first && code < first + 0x400;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<std::uint32_t>(text[i]);
        if (isHalf(code, 0xD800) && i + 1 < text.size() &&
            isHalf(static_cast<std::uint32_t>(text[i + 1]), 0xDC00)) {
            code = 0x10000 + ((code - 0xD800) << 10U) + (static_cast<std::uint32_t>(text[++i]) - 0xDC00);
        } else if (isHalf(code, 0xD800) || isHalf(code, 0xDC00) || code > 0x10FFFF) {
            code = kReplacement;
        }
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0 | code >> 6U);
            put(0x80 | (code & 0x3FU));
        } else if (code < 0x10000) {
            put(0xE0 | code >> 12U);
            put(0x80 | (code >> 6U & 0x3FU));
            put(0x80 | (code & 0x3FU));
        } else {
            put(0xF0 | code >> 18U);
            put(0x80 | (code >> 12U & 0x3FU));
            put(0x80 | (code >> 6U & 0x3FU));
            put(0x80 | (code & 0x3FU));
        }
    }
    return bytes;
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text;
    while (!bytes.empty()) {
        const Utf8Character character = FirstUtf8Character(bytes);
        AppendCharacter(text, character.code);
        bytes.remove_prefix(character.length);
    }
    return text;
}
