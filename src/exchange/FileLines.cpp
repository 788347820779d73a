#include "exchange/FileLines.h"

#include "platform/AnsiText.h"
#include "settings/StdModule.h"

#include <algorithm>

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";
constexpr std::wstring_view kFormat = L"; QLBUtl settings, format ";

std::wstring FromUtf16(std::string_view bytes, bool bigEnd) {
    std::string utf16(bytes.substr(0, bytes.size() / 2 * 2));
    std::wstring text;
    for (std::size_t i = 0; i < utf16.size(); i += 2) {
        const auto low = static_cast<unsigned char>(utf16[bigEnd ? i + 1 : i]);
        const auto high = static_cast<unsigned char>(utf16[bigEnd ? i : i + 1]);
        text += static_cast<wchar_t>(high << 8U | low);
    }
    return text;
}

int LineOf(std::wstring_view text, std::size_t position) {
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(position, text.size()));
    return 1 + static_cast<int>(std::count(text.begin(), end, L'\n'));
}

int LineOf(std::string_view bytes, std::size_t position) {
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(std::min(position, bytes.size()));
    return 1 + static_cast<int>(std::count(bytes.begin(), end, '\n'));
}

std::vector<std::wstring> LinesOf(std::wstring_view text) {
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(L'\n');
        std::wstring_view line = text.substr(0, end);
        text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
        if (line.ends_with(L'\r')) {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
    }
    return lines;
}

/// Where bytes that are no UTF-8 begin; their number when all are.
std::size_t Utf8Length(std::string_view bytes) {
    const std::string again = ToUtf8(FromUtf8(bytes));
    const auto difference = std::mismatch(bytes.begin(), bytes.end(), again.begin(), again.end());
    return static_cast<std::size_t>(difference.first - bytes.begin());
}

FileLines Wrong(Say what, int line) {
    FileLines lines;
    lines.problem = what;
    lines.problemLine = line;
    return lines;
}

} // namespace

FileLines ReadLines(std::string_view bytes, const AnsiText& ansiText) {
    std::wstring text;
    bool isUnicode = true;
    if (bytes.starts_with(kUtf16Mark) || bytes.starts_with(kUtf16BigMark)) {
        text = FromUtf16(bytes.substr(kUtf16Mark.size()), bytes.starts_with(kUtf16BigMark));
        if (bytes.size() % 2 != 0) {
            return Wrong(Say::kFileCutOff, LineOf(text, text.size()));
        }
    } else {
        const bool isMarked = bytes.starts_with(kUtf8Mark);
        bytes.remove_prefix(isMarked ? kUtf8Mark.size() : 0);
        if (const std::size_t nul = bytes.find('\0'); nul != std::string_view::npos) {
            return Wrong(Say::kFileNoText, LineOf(bytes, nul));
        }
        const std::size_t length = Utf8Length(bytes);
        isUnicode = isMarked || bytes.starts_with(ToUtf8(kFormat));
        if (isUnicode && length < bytes.size()) {
            return Wrong(Say::kFileNoUtf8, LineOf(bytes, length));
        }
        text = isUnicode ? FromUtf8(bytes) : ansiText.Decode(bytes);
    }
    if (const std::size_t nul = text.find(L'\0'); nul != std::wstring::npos) {
        return Wrong(Say::kFileNoText, LineOf(text, nul));
    }
    FileLines lines;
    lines.lines = LinesOf(text);
    if (lines.lines.empty()) {
        return Wrong(Say::kFileEmpty, 0);
    }
    const std::wstring first = TrimBlanks(lines.lines.front());
    lines.isIni = !first.starts_with(kFormat);
    if (!lines.isIni && first != kFirstLine) {
        return Wrong(Say::kFileLaterFormat, 1);
    }
    return lines;
}
