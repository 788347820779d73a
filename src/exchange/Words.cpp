#include "exchange/Words.h"

#include <array>
#include <cstddef>

namespace {

struct Text {
    const wchar_t* english;
    const wchar_t* japanese;
};

constexpr std::array kTexts{
#define QLB_TEXT(name, english, japanese) Text{L##english, L##japanese},
#include "resources/CommandTexts.inc"
#undef QLB_TEXT
};

} // namespace

std::wstring Said(Tongue tongue, Say what, const std::vector<std::wstring>& parts) {
    const Text& text = kTexts.at(static_cast<std::size_t>(what));
    const std::wstring_view pattern = tongue == Tongue::Japanese ? text.japanese : text.english;
    std::wstring said;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool isPlace = pattern[i] == L'%' && i + 1 < pattern.size() && pattern[i + 1] >= L'1';
        const std::size_t part = isPlace ? static_cast<std::size_t>(pattern[i + 1] - L'1') : parts.size();
        if (part < parts.size()) {
            said += parts[part];
            ++i;
        } else {
            said += pattern[i];
        }
    }
    return said;
}
