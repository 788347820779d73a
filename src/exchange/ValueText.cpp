#include "exchange/ValueText.h"

#include "settings/StdModule.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::wstring_view kHexMark = L"hex(";
constexpr std::wstring_view kDigits = L"0123456789abcdef";

struct Escape {
    wchar_t letter;
    wchar_t character;
};
constexpr std::array kEscapes{Escape{L'"', L'"'},  Escape{L'\\', L'\\'}, Escape{L'n', L'\n'},
                              Escape{L'r', L'\r'}, Escape{L't', L'\t'},  Escape{L'/', L'/'},
                              Escape{L'b', L'\b'}, Escape{L'f', L'\f'}};

/// Control characters, and what some programs take for the end of a line or of the text.
bool NeedsEscape(wchar_t c) {
    return c < L' ' || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029 || c == 0xFEFF ||
           (c >= 0xD800 && c <= 0xDFFF && sizeof(wchar_t) > 2);
}

void AppendHex(std::wstring& text, unsigned number, int digits) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
        text += kDigits[number >> static_cast<unsigned>(shift) & 0xFU];
    }
}

std::optional<unsigned> HexNumber(std::wstring_view digits) {
    unsigned number = 0;
    for (const wchar_t c : digits) {
        const wchar_t lower = c >= L'A' && c <= L'F' ? static_cast<wchar_t>(c + 0x20) : c;
        const std::size_t digit = kDigits.find(lower);
        if (digit == std::wstring_view::npos) {
            return std::nullopt;
        }
        number = number * 16 + static_cast<unsigned>(digit);
    }
    return number;
}

/// One escape behind its backslash; empty when there is no such one.
std::wstring Unescaped(std::wstring_view escape, std::size_t& length) {
    length = 1;
    if (escape.empty()) {
        return {};
    }
    if (escape.front() == L'u') {
        constexpr std::size_t kLength = 5;
        const auto number = escape.size() < kLength ? std::nullopt : HexNumber(escape.substr(1, kLength - 1));
        length = kLength;
        return number ? std::wstring(1, static_cast<wchar_t>(*number)) : std::wstring();
    }
    const auto found = std::ranges::find(kEscapes, escape.front(), &Escape::letter);
    return found == kEscapes.end() ? std::wstring() : std::wstring(1, found->character);
}

/// An empty text as other programs store it; the store's own has two NULs.
RegistryValue OneNul() {
    return {kRegistryString, std::string(1, '\0')};
}

ReadValue ReadQuoted(std::wstring_view written) {
    std::wstring text;
    for (std::size_t i = 1; i < written.size(); ++i) {
        if (written[i] == L'"') {
            const auto problem = i + 1 == written.size() ? ValueProblem::None : ValueProblem::TextBehindQuote;
            return text.empty() ? ReadValue{OneNul(), problem} : ReadValue{std::move(text), problem};
        }
        if (written[i] != L'\\') {
            text += written[i];
            continue;
        }
        std::size_t length = 0;
        const std::wstring character = Unescaped(written.substr(i + 1), length);
        if (character.empty()) {
            return {{},
                    i + 1 == written.size() ? ValueProblem::UnfinishedQuote : ValueProblem::UnknownEscape};
        }
        text += character;
        i += length;
    }
    return {{}, ValueProblem::UnfinishedQuote};
}

ReadValue ReadBytes(std::wstring_view written) {
    const ReadValue kWrong{{}, ValueProblem::WrongBytes};
    const std::size_t end = written.find(L"):");
    if (end == std::wstring_view::npos) {
        return kWrong;
    }
    const auto type = HexNumber(written.substr(kHexMark.size(), end - kHexMark.size()));
    if (!type || end == kHexMark.size() || end > kHexMark.size() + 8) {
        return kWrong;
    }
    RegistryValue value{*type, {}};
    written.remove_prefix(end + 2);
    while (!written.empty()) {
        const auto byte = written.size() < 2 ? std::nullopt : HexNumber(written.substr(0, 2));
        if (!byte || (written.size() > 2 && (written[2] != L',' || written.size() == 3))) {
            return kWrong;
        }
        value.bytes.push_back(static_cast<char>(*byte));
        written.remove_prefix(std::min<std::size_t>(written.size(), 3));
    }
    return {std::move(value)};
}

} // namespace

std::wstring JsonText(std::wstring_view text) {
    std::wstring quoted(1, L'"');
    for (const wchar_t c : text) {
        if (!NeedsEscape(c) && c != L'"' && c != L'\\') {
            quoted += c;
            continue;
        }
        quoted += L'\\';
        const auto found = std::ranges::find(kEscapes, c, &Escape::character);
        if (found != kEscapes.end()) {
            quoted += found->letter;
        } else {
            quoted += L'u';
            AppendHex(quoted, static_cast<unsigned>(c), 4);
        }
    }
    return quoted + L'"';
}

std::wstring WrittenText(std::wstring_view text) {
    const bool plain =
        text.empty() || (text.front() != L' ' && text.back() != L' ' && text.front() != L'"' &&
                         !text.starts_with(kHexMark) && std::ranges::none_of(text, NeedsEscape));
    return plain ? std::wstring(text) : JsonText(text);
}

std::wstring WrittenBytes(const RegistryValue& value) {
    if (value == OneNul()) {
        return L"\"\"";
    }
    std::wstring text(kHexMark);
    constexpr unsigned kMostOneDigit = 0xF;
    AppendHex(text, value.type, value.type > kMostOneDigit ? 8 : 1);
    text += L"):";
    for (std::size_t i = 0; i < value.bytes.size(); ++i) {
        text.append(i == 0 ? 0 : 1, L',');
        AppendHex(text, static_cast<unsigned char>(value.bytes[i]), 2);
    }
    return text;
}

ReadValue ReadWritten(std::wstring_view written) {
    if (written.starts_with(L'"')) {
        return ReadQuoted(written);
    }
    if (written.starts_with(kHexMark)) {
        return ReadBytes(written);
    }
    return {std::wstring(written)};
}
