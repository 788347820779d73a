#include "platform/TextCase.h"

#include <algorithm>
#include <locale>

int CompareIgnoreCase(std::wstring_view a, std::wstring_view b) {
    static const std::locale kUnicode("C.UTF-8");
    // As the system: only pairs. The Kelvin sign is no K, a dotless i no I.
    const auto fold = [](wchar_t c) {
        const wchar_t upper = std::toupper(c, kUnicode);
        return std::tolower(upper, kUnicode) == c ? upper : c;
    };
    const auto less = [&](wchar_t one, wchar_t other) { return fold(one) < fold(other); };
    if (std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), less)) {
        return -1;
    }
    return std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end(), less) ? 1 : 0;
}
