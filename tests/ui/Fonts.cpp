#include "Fonts.h"

#include "AnsiBytes.h"
#include "driver/Driver.h"

#include <algorithm>

namespace {

bool SameFace(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool Contains(const std::vector<std::wstring>& faces, const std::wstring& face) {
    return std::any_of(faces.begin(), faces.end(), [&](const auto& each) { return SameFace(each, face); });
}

int CALLBACK Collect(const LOGFONTA* font, const TEXTMETRICA*, DWORD type, LPARAM param) {
    auto& faces = *reinterpret_cast<std::vector<std::wstring>*>(param);
    const bool charSet = font->lfCharSet == ANSI_CHARSET || font->lfCharSet == SHIFTJIS_CHARSET;
    if ((type & TRUETYPE_FONTTYPE) != 0 && font->lfItalic == 0 && font->lfWeight <= FW_NORMAL && charSet) {
        const std::wstring face = FromAnsi(font->lfFaceName);
        if (!Contains(faces, face)) {
            faces.push_back(face);
        }
    }
    return 1;
}

std::vector<std::wstring> Enumerate() {
    std::vector<std::wstring> faces;
    LOGFONTA all{};
    all.lfCharSet = DEFAULT_CHARSET;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExA(screen, &all, Collect, reinterpret_cast<LPARAM>(&faces), 0);
    ReleaseDC(nullptr, screen);
    return faces;
}

} // namespace

const std::vector<std::wstring>& OfferedFaces() {
    static const std::vector<std::wstring> kFaces = Enumerate();
    return kFaces;
}

bool IsOffered(const std::wstring& face) {
    return Contains(OfferedFaces(), face);
}
