#pragma once

#include <string>
#include <string_view>

/// Names of keys, values, sections and windows count without regard to case. The tests' names are ASCII.
template <class Text, class View> void AppendLowered(Text& lowered, View text) {
    for (const auto c : text) {
        const bool isUpper = c >= 'A' && c <= 'Z';
        lowered.push_back(isUpper ? static_cast<typename Text::value_type>(c - 'A' + 'a') : c);
    }
}

[[nodiscard]] inline std::wstring Lowered(std::wstring_view text) {
    std::wstring lowered;
    lowered.reserve(text.size());
    AppendLowered(lowered, text);
    return lowered;
}

[[nodiscard]] inline std::string Lowered(std::string_view bytes) {
    std::string lowered;
    lowered.reserve(bytes.size());
    AppendLowered(lowered, bytes);
    return lowered;
}
