#include "RawProfile.h"

#include "ScratchFolder.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";

/// The section's lines, without its head: position and length; nothing when there is no such section.
std::optional<std::pair<std::size_t, std::size_t>> Body(const std::string& text, const std::string& section) {
    const std::string head = '[' + section + "]\r\n";
    const std::size_t start = text.find(head);
    if (start == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t begin = start + head.size();
    const std::size_t end = text.find("\r\n[", begin - kLineEnd.size());
    return std::pair{begin, (end == std::string::npos ? text.size() : end + kLineEnd.size()) - begin};
}

} // namespace

namespace RawProfile {

void PutLine(const std::wstring& file, const std::string& section, const std::string& key,
             std::string_view bytes) {
    std::string text = ReadBytes(file);
    if (!Body(text, section)) {
        text += '[' + section + "]\r\n";
    }
    const auto [begin, length] = *Body(text, section);
    text.insert(begin + length, key + '=' + std::string(bytes) + std::string(kLineEnd));
    WriteBytes(file, text);
}

std::optional<std::string> Line(const std::wstring& file, const std::string& section,
                                const std::string& key) {
    const std::string text = ReadBytes(file);
    const auto body = Body(text, section);
    if (!body) {
        return std::nullopt;
    }
    const std::string lines = std::string(kLineEnd) + text.substr(body->first, body->second);
    const std::string head = std::string(kLineEnd) + key + '=';
    const std::size_t start = lines.find(head);
    if (start == std::string::npos) {
        return std::nullopt;
    }
    const std::size_t begin = start + head.size();
    return lines.substr(begin, lines.find(kLineEnd, begin) - begin);
}

} // namespace RawProfile
