#include "Options.h"

#include <cwchar>
#include <string_view>

namespace {

bool TakePrefix(std::wstring_view& text, std::wstring_view prefix) {
    if (text.substr(0, prefix.size()) != prefix) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

std::optional<unsigned long> ReadNumber(std::wstring_view text) {
    const std::wstring copy(text);
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(copy.c_str(), &end, 10);
    return copy.empty() || *end != L'\0' ? std::nullopt : std::optional(number);
}

} // namespace

std::optional<Options> ReadOptions(int count, const wchar_t* const* arguments) {
    Options options;
    for (int i = 0; i < count; ++i) {
        std::wstring_view argument = arguments[i];
        if (argument == L"/vistacast") {
            options.vistacast = true;
        } else if (argument == L"/hang") {
            options.hang = true;
        } else if (argument == L"/show") {
            options.show = true;
        } else if (TakePrefix(argument, L"/log:")) {
            options.logPath = argument;
        } else if (TakePrefix(argument, L"/slow:")) {
            const std::optional<unsigned long> number = ReadNumber(argument);
            if (!number) {
                return std::nullopt;
            }
            options.slowMs = *number;
        } else {
            return std::nullopt;
        }
    }
    // Without a log there would be nothing to see.
    options.show = options.show || options.logPath.empty();
    return options;
}
