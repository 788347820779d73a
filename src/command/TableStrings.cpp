#include "command/TableStrings.h"

#include <algorithm>
#include <array>

namespace {

struct Text {
    int id;
    const wchar_t* english;
    const wchar_t* japanese;
};

constexpr std::array kTexts{
#define QLB_STRING(id, english, japanese) Text{id, L##english, L##japanese},
#include "resources/StringTable.inc"
#undef QLB_STRING
};

} // namespace

std::wstring TableStrings::Load(int id) const {
    const auto found = std::ranges::find(kTexts, id, &Text::id);
    if (found == kTexts.end()) {
        return {};
    }
    return tongue_ == Tongue::Japanese ? found->japanese : found->english;
}
