#include "AnsiBytes.h"

#include "driver/Driver.h"

std::string ToAnsi(const std::wstring& text) {
    BOOL lost = FALSE;
    const int length = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), length, nullptr, 0, nullptr, &lost);
    if (lost) {
        UiDriver::Fail(L"the ANSI code page has not all characters of \"" + text + L"\"");
    }
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::wstring FromAnsi(const std::string& bytes) {
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), needed);
    return text;
}
