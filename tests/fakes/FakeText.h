#pragma once

#include <string>
#include <string_view>

/// Names of keys, values, sections and windows count without regard to case. The tests' names are ASCII.
[[nodiscard]] inline std::wstring Lowered(std::wstring_view text) {
    std::wstring lowered(text);
    for (wchar_t& c : lowered) {
        if (c >= L'A' && c <= L'Z') {
            c = static_cast<wchar_t>(c - L'A' + L'a');
        }
    }
    return lowered;
}

[[nodiscard]] inline std::string Lowered(std::string_view bytes) {
    std::string lowered(bytes);
    for (char& c : lowered) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return lowered;
}
