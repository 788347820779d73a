#include "platform/TextCase.h"

#include <windows.h>

int CompareIgnoreCase(std::wstring_view a, std::wstring_view b) {
    if (a.empty() || b.empty()) {
        return static_cast<int>(!a.empty()) -
               static_cast<int>(!b.empty()); // the system refuses a null pointer
    }
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) -
           CSTR_EQUAL;
}
