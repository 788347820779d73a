#include "platform/windows/WindowsInstalledFonts.h"

#include "platform/windows/Ansi.h"

#include <windows.h>

#include <bit>
#include <cstring>

namespace {

using Report = std::function<void(const ReportedFont&)>;

int CALLBACK OnFont(const LOGFONTA* font, const TEXTMETRICA* /*metrics*/, DWORD fontType,
                    LPARAM report) noexcept {
    ReportedFont reported;
    reported.faceName = FromAnsi({font->lfFaceName, strnlen(font->lfFaceName, LF_FACESIZE)});
    reported.fontType = fontType;
    reported.italic = font->lfItalic != 0;
    reported.weight = font->lfWeight;
    reported.charSet = font->lfCharSet;
    (*std::bit_cast<const Report*>(report))(reported);
    return 1;
}

} // namespace

void WindowsInstalledFonts::Enumerate(const Report& report) const {
    const HDC screen = GetDC(nullptr);
    if (screen == nullptr) {
        return;
    }
    LOGFONTA all{};
    all.lfCharSet = DEFAULT_CHARSET;
    EnumFontFamiliesExA(screen, &all, OnFont, std::bit_cast<LPARAM>(&report), 0);
    ReleaseDC(nullptr, screen);
}
