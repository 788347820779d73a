#include "platform/windows/WindowsConsole.h"

#include <windows.h>

#include <algorithm>
#include <string>

namespace {

/// Some consoles refuse more than 64 KB in one call.
constexpr std::size_t kMostForConsole = 8000;
/// As many as the system's functions can count in bytes.
constexpr std::size_t kMostForFile = 100'000'000;

bool IsFirstHalf(wchar_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}

bool WritePart(HANDLE stream, bool isConsole, std::wstring_view part) {
    DWORD written = 0;
    const int length = static_cast<int>(part.size());
    if (isConsole) {
        return WriteConsoleW(stream, part.data(), static_cast<DWORD>(part.size()), &written, nullptr) !=
               FALSE;
    }
    std::string bytes(static_cast<std::size_t>(
                          WideCharToMultiByte(CP_UTF8, 0, part.data(), length, nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_UTF8, 0, part.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                        nullptr, nullptr);
    for (std::size_t done = 0; done < bytes.size(); done += written) {
        if (WriteFile(stream, bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &written,
                      nullptr) == FALSE ||
            written == 0) {
            return false;
        }
    }
    return true;
}

bool Write(DWORD which, std::wstring_view text) {
    const HANDLE stream = GetStdHandle(which);
    DWORD mode = 0;
    const bool isConsole = GetConsoleMode(stream, &mode) != FALSE;
    while (!text.empty()) {
        std::size_t length = std::min(text.size(), isConsole ? kMostForConsole : kMostForFile);
        if (length < text.size() && IsFirstHalf(text[length - 1])) {
            --length;
        }
        if (!WritePart(stream, isConsole, text.substr(0, length))) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

} // namespace

bool WindowsConsole::Out(std::wstring_view text) {
    return Write(STD_OUTPUT_HANDLE, text);
}

void WindowsConsole::Error(std::wstring_view text) {
    Write(STD_ERROR_HANDLE, text); // who would be told?
}
