#include "ui/DialogFont.h"

#include <algorithm>

namespace {

constexpr int kLatinPoints = 8;
constexpr int kKanjiPoints = 9; ///< below 12 pixels kanji are hard to read
constexpr int kPointsPerInch = 72;
constexpr int kUnitsPerWidth = 4;
constexpr int kUnitsPerHeight = 8;

/// As the system's dialog manager takes them: the average of the 52 letters, and the height.
SIZE MeasureBaseUnits(HFONT font) {
    constexpr int kLetters = 52;
    const MemoryDc hdc(CreateCompatibleDC(nullptr));
    const Selected selected(hdc.get(), font);
    SIZE letters{};
    TEXTMETRICW metrics{};
    GetTextExtentPoint32W(hdc.get(), L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", kLetters,
                          &letters);
    GetTextMetricsW(hdc.get(), &metrics);
    const LONG width = (letters.cx / (kLetters / 2) + 1) / 2;
    return {std::max<LONG>(width, 1), std::max<LONG>(metrics.tmHeight, 1)};
}

/// In the size that Windows' own dialogs have in the language of the face; a Japanese face has a Japanese
/// name.
Font CreateDialogFont(const std::wstring& faceName, UINT dpi) {
    const bool kanji = std::any_of(faceName.begin(), faceName.end(), [](wchar_t c) { return c > 0x7F; });
    return CreateFontOfPoints(faceName, kanji ? kKanjiPoints : kLatinPoints, dpi);
}

} // namespace

Font CreateFontOfPoints(const std::wstring& faceName, int points, UINT dpi) {
    LOGFONTW font{};
    font.lfHeight = -MulDiv(points, static_cast<int>(dpi), kPointsPerInch);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    faceName.copy(font.lfFaceName, LF_FACESIZE - 1);
    return Font(CreateFontIndirectW(&font));
}

DialogFont::DialogFont(const std::wstring& faceName, UINT dpi)
    : dpi_(dpi), font_(CreateDialogFont(faceName, dpi)), baseUnits_(MeasureBaseUnits(font_.get())) {}

int DialogFont::PixelsX(int dlu) const {
    return MulDiv(dlu, baseUnits_.cx, kUnitsPerWidth);
}

int DialogFont::PixelsY(int dlu) const {
    return MulDiv(dlu, baseUnits_.cy, kUnitsPerHeight);
}

RECT DialogFont::Pixels(const DluRect& dlu) const {
    return {PixelsX(dlu.x), PixelsY(dlu.y), PixelsX(dlu.x + dlu.cx), PixelsY(dlu.y + dlu.cy)};
}
