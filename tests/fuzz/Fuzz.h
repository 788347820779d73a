#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

/// Ends the run, for the fuzzer to keep the input.
inline void Require(bool holds, const char* what) {
    if (!holds) {
        std::cerr << what << '\n';
        std::abort();
    }
}

/// Takes an input apart from its beginning; what lacks reads as 0 or nothing.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    std::uint8_t Byte() {
        if (rest_.empty()) {
            return 0;
        }
        const auto byte = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    std::int32_t Number() {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < sizeof number; ++i) {
            number = number << 8U | Byte();
        }
        return static_cast<std::int32_t>(number);
    }
    /// Up to the next line feed, which is dropped.
    std::string_view Line() {
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        const std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return line;
    }
    [[nodiscard]] std::string_view Rest() const { return rest_; }

private:
    std::string_view rest_;
};

/// Each byte a character: the Latin ones, and in the last 16 places some that programs stumble over.
[[nodiscard]] inline std::wstring Widened(std::string_view bytes) {
    constexpr std::uint8_t kFirstOdd = 0xF0;
    constexpr std::array<wchar_t, 16> kOdd{
        0x0130, 0x0131, 0x03A3, 0x03C2, 0x2028, 0x212A, 0x3000, 0xD83D, // I, i and sigmas, K, blank, halves
        0xDE00, 0xFEFF, 0xFF06, 0xFF08, 0xFF11, 0xFF21, 0xFF5C, 0xFFFF, // of a pair, full-width &, (, 1, A, |
    };
    std::wstring text;
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        text += byte < kFirstOdd ? static_cast<wchar_t>(byte) : kOdd.at(byte - kFirstOdd);
    }
    return text;
}

[[nodiscard]] inline std::wstring LoweredAscii(std::wstring text) {
    for (wchar_t& c : text) {
        c = c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c + 0x20) : c;
    }
    return text;
}
