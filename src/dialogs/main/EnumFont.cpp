#include "dialogs/main/EnumFont.h"

#include "settings/StdModule.h"

namespace {

constexpr std::uint32_t kTrueTypeBit = 4;
constexpr std::int32_t kRegularWeight = 400;
constexpr std::uint8_t kAnsiCharSet = 0;
constexpr std::uint8_t kShiftJisCharSet = 128;

bool IsOffered(const ReportedFont& font) {
    return (font.fontType & kTrueTypeBit) != 0 && !font.italic && font.weight <= kRegularWeight &&
           (font.charSet == kAnsiCharSet || font.charSet == kShiftJisCharSet);
}

} // namespace

void FontList::EnumerateFonts(const InstalledFonts& installed) {
    faces_.clear();
    installed.Enumerate([this](const ReportedFont& font) {
        const std::wstring face = CutAtNul(font.faceName);
        if (IsOffered(font) && !face.empty() && IndexOf(face) < 0) {
            faces_.push_back(face);
        }
    });
}

std::wstring FontList::MatchInstalledFont(const std::wstring& wanted) const {
    for (const std::wstring& name : {wanted, fallbackFace_}) {
        if (const int index = IndexOf(name); index >= 0) {
            return faces_[static_cast<std::size_t>(index)];
        }
    }
    return wanted;
}

int FontList::IndexOf(const std::wstring& face) const {
    for (std::size_t i = 0; i < faces_.size(); ++i) {
        if (EqualsIgnoreCase(faces_[i], face)) {
            return static_cast<int>(i);
        }
    }
    return -1;
}
