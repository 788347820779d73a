#include "platform/windows/WindowsNameOrder.h"

WindowsNameOrder::WindowsNameOrder(HWND sortedListBox)
    : locale_(static_cast<LCID>(SendMessageW(sortedListBox, LB_GETLOCALE, 0, 0))) {}

std::string WindowsNameOrder::SortKey(const std::wstring& name) const {
    const auto map = [&](std::string& key) {
        // With this flag the text that is written, and its size, are bytes.
        return LCMapStringW(locale_, LCMAP_SORTKEY | NORM_IGNORECASE, name.data(),
                            static_cast<int>(name.size()), reinterpret_cast<wchar_t*>(key.data()),
                            static_cast<int>(key.size()));
    };
    std::string key(8 * name.size() + 16,
                    '\0'); // mostly enough: asking for the size takes as long as the key
    int bytes = map(key);
    if (bytes == 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
        std::string none;
        key.resize(static_cast<std::size_t>(map(none)));
        bytes = map(key);
    }
    key.resize(static_cast<std::size_t>(bytes));
    return key;
}
