#include "LogEntry.h"

void LogEntry::Add(std::wstring_view key, std::wstring_view value) {
    lines_ += key;
    lines_ += L'=';
    for (const wchar_t unit : value) {
        switch (unit) {
        case L'\\':
            lines_ += L"\\\\";
            break;
        case L'\n':
            lines_ += L"\\n";
            break;
        case L'\r':
            lines_ += L"\\r";
            break;
        case L'\t':
            lines_ += L"\\t";
            break;
        default:
            lines_ += unit;
        }
    }
    lines_ += L'\n';
}

void LogEntry::Add(std::wstring_view key, unsigned long long number) {
    Add(key, std::to_wstring(number));
}

std::wstring LogEntry::Text() const {
    return lines_ + L"end\n";
}
