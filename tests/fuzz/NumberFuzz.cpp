#include "Fuzz.h"
#include "settings/OnScreenSettings.h"
#include "settings/StdModule.h"

#include <cerrno>
#include <limits>
#include <optional>

namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int32_t>::min();

/// The C library's reading of the same text, which takes other white space too.
std::int64_t ByLibrary(const std::string& text) {
    return std::strtoll(text.c_str(), nullptr, 10);
}

bool IsStrictNumber(std::string_view text) {
    while (text.starts_with(' ')) {
        text.remove_prefix(1);
    }
    while (text.ends_with(' ')) {
        text.remove_suffix(1);
    }
    if (text.starts_with('-') || text.starts_with('+')) {
        text.remove_prefix(1);
    }
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

void CheckText(const std::string& text) {
    const std::wstring wide = Widened(text);
    const std::optional<std::int32_t> number = NumberFromText(wide);
    const std::int64_t value = ByLibrary(text);
    const bool fits = value >= kMin && value <= kMax;
    Require(number.has_value() == (IsStrictNumber(text) && fits), "the wrong texts are numbers");
    if (number) {
        Require(*number == value, "another number");
        Require(NumberFromText(std::to_wstring(*number)) == number, "its own text gives another number");
        Require(LeadingNumber(wide) == *number, "two readings of one number");
    }
    const bool otherSpace = text.find_first_not_of(" \t\n\v\f\r") != text.find_first_not_of(' ');
    Require(LeadingNumber(wide) == (otherSpace ? 0 : std::clamp(value, kMin, kMax)),
            "the number at the beginning");
    for (const auto& [low, high] : {std::pair{1, 5}, std::pair{0, 1}, std::pair{-3, -1}}) {
        const bool within = number && *number >= low && *number <= high;
        Require(IsNumericInRange(wide, low, high) == within, "the range");
        Require(NumberInRangeOr(wide, low, high, 99) == (within ? *number : 99), "what stands for it");
    }
}

void CheckColor(std::int32_t stored) {
    const std::string digits = std::to_string(stored);
    const std::uint64_t read = std::strtoull(digits.c_str(), nullptr, 16);
    const bool isColor = stored >= 0 && read <= std::numeric_limits<std::uint32_t>::max();
    const auto expected = static_cast<std::int32_t>(static_cast<std::uint32_t>(isColor ? read : 0xFF00));
    Require(ColorFromDecimalDigits(stored) == expected, "the maker's colour");
}

} // namespace

/// Four bytes of a number; the rest is a text.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::int32_t number = input.Number();
    CheckColor(number);
    CheckText(std::to_string(number));
    std::string text(input.Rest());
    // To the C library it is the end.
    std::erase(text, '\0');
    CheckText(text);
    CheckText(" " + text + "  ");
    return 0;
}
