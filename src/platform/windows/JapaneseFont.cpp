#include "platform/windows/JapaneseFont.h"

#include "platform/windows/Handles.h"

#include <algorithm>
#include <bit>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Of every character that the printout's labels use.
constexpr std::wstring_view kCharacters =
    L"設定名実行形態起動称単独順次同時ＡＰボタンショートカッ１２３４５：　";

enum class Suitable { No, WithoutFixedPitch, Yes };

LOGFONTW FontOf(std::wstring_view face, BYTE charset) {
    LOGFONTW font{};
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = charset;
    font.lfOutPrecision = OUT_TT_ONLY_PRECIS; // a printer's own fonts may lack the characters
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return font;
}

Suitable Suits(HDC hdc, const LOGFONTW& wanted) {
    const Font font(CreateFontIndirectW(&wanted));
    if (!font) {
        return Suitable::No;
    }
    const Selected selected(hdc, font.get());
    std::vector<WORD> glyphs(kCharacters.size());
    const DWORD found = GetGlyphIndicesW(hdc, kCharacters.data(), static_cast<int>(kCharacters.size()),
                                         glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
    constexpr WORD kMissing = 0xFFFF;
    if (found == GDI_ERROR || std::find(glyphs.begin(), glyphs.end(), kMissing) != glyphs.end()) {
        return Suitable::No;
    }
    TEXTMETRICW metric{};
    // Set means variable pitch, whatever the constant's name says.
    const bool fixed =
        GetTextMetricsW(hdc, &metric) != FALSE && (metric.tmPitchAndFamily & TMPF_FIXED_PITCH) == 0;
    return fixed ? Suitable::Yes : Suitable::WithoutFixedPitch;
}

/// The first of the fonts that suits; one without fixed pitch only goes to `lastResort`.
class Search {
public:
    explicit Search(HDC hdc) : hdc_(hdc) {}

    bool Look(const LOGFONTW& font) {
        const Suitable suits = Suits(hdc_, font);
        if (suits == Suitable::Yes) {
            found_ = font;
        } else if (suits == Suitable::WithoutFixedPitch && !lastResort_) {
            lastResort_ = font;
        }
        return found_.has_value();
    }
    [[nodiscard]] LOGFONTW Result(const LOGFONTW& otherwise) const {
        return found_ ? *found_ : lastResort_.value_or(otherwise);
    }

private:
    HDC hdc_;
    std::optional<LOGFONTW> found_;
    std::optional<LOGFONTW> lastResort_;
};

int CALLBACK CollectFace(const LOGFONTW* font, const TEXTMETRICW* /*metric*/, DWORD /*type*/,
                         LPARAM faces) noexcept {
    const std::wstring_view name = font->lfFaceName;
    if (name.starts_with(L'@')) {
        return 1; // for vertical text
    }
    try {
        std::bit_cast<std::vector<LOGFONTW>*>(faces)->push_back(FontOf(name, font->lfCharSet));
    } catch (const std::bad_alloc&) {
        return 0;
    }
    return 1;
}

} // namespace

LOGFONTW JapaneseFont(HDC hdc, std::span<const wchar_t* const> preferred) {
    Search search(hdc);
    for (const wchar_t* face : preferred) {
        if (const LOGFONTW font = FontOf(face, SHIFTJIS_CHARSET); search.Look(font)) {
            return font;
        }
    }
    // Fonts that say they are Japanese first; others, Chinese ones say, may have the characters all the same.
    for (const BYTE charset : {BYTE{SHIFTJIS_CHARSET}, BYTE{DEFAULT_CHARSET}}) {
        LOGFONTW all{};
        all.lfCharSet = charset;
        std::vector<LOGFONTW> fonts;
        EnumFontFamiliesExW(hdc, &all, CollectFace, std::bit_cast<LPARAM>(&fonts), 0);
        if (std::any_of(fonts.begin(), fonts.end(),
                        [&](const LOGFONTW& font) { return search.Look(font); })) {
            break;
        }
    }
    return search.Result(FontOf(preferred.empty() ? L"" : preferred.front(), SHIFTJIS_CHARSET));
}
