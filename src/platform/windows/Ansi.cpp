#include "platform/windows/Ansi.h"

#include <windows.h>

#include <algorithm>

namespace {

/// The same bytes in every ANSI code page of Windows, and nearly all that the store's names are made of.
template <class Text> bool IsAscii(Text text) {
    return std::all_of(text.begin(), text.end(), [](auto c) { return c >= 0 && c < 0x80; });
}

/// A look-alike could change a command ("｜" would become the bar before its parameters): "?" is the honest
/// loss. UTF-8 as the ANSI code page loses nothing, and the system refuses the flag there.
DWORD EncodingFlags() {
    static const DWORD kFlags = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    return kFlags;
}

} // namespace

std::string ToAnsi(std::wstring_view text) {
    if (IsAscii(text)) {
        constexpr std::size_t kNuls = 2; // that callers add
        std::string bytes;
        bytes.reserve(text.size() + kNuls);
        bytes.resize(text.size());
        std::transform(text.begin(), text.end(), bytes.begin(),
                       [](wchar_t c) { return static_cast<char>(c); });
        return bytes;
    }
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_ACP, EncodingFlags(), text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    const int written = WideCharToMultiByte(CP_ACP, EncodingFlags(), text.data(), length, bytes.data(), size,
                                            nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(written));
    return bytes;
}

std::wstring FromAnsi(std::string_view bytes) {
    if (IsAscii(bytes)) {
        return {bytes.begin(), bytes.end()};
    }
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    const int written = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, text.data(), size);
    text.resize(static_cast<std::size_t>(written));
    return text;
}
