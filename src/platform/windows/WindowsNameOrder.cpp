#include "platform/windows/WindowsNameOrder.h"

#include <algorithm>

WindowsNameOrder::WindowsNameOrder(HWND sortedListBox)
    : locale_(static_cast<LCID>(SendMessageW(sortedListBox, LB_GETLOCALE, 0, 0))) {}

void WindowsNameOrder::Sort(std::vector<std::wstring>& names) const {
    std::stable_sort(names.begin(), names.end(), [this](const std::wstring& a, const std::wstring& b) {
        return CompareStringW(locale_, NORM_IGNORECASE, a.data(), static_cast<int>(a.size()), b.data(),
                              static_cast<int>(b.size())) == CSTR_LESS_THAN;
    });
}
