#include "platform/TextCase.h"

#include <algorithm>
#include <locale>

int CompareIgnoreCase(std::wstring_view a, std::wstring_view b) {
    static const std::locale kUnicode("C.UTF-8");
    const auto fold = [](wchar_t c) { return std::toupper(c, kUnicode); };
    const auto less = [&](wchar_t one, wchar_t other) { return fold(one) < fold(other); };
    if (std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), less)) {
        return -1;
    }
    return std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end(), less) ? 1 : 0;
}
