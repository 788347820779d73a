#include "platform/windows/WindowsPrintDevice.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cwchar>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int kPointsPerInch = 72;
constexpr int kBodyPoints = 10;
constexpr int kTitlePoints = 12;
constexpr const wchar_t* kFace = L"ＭＳ ゴシック";
/// Of every character that the fixed labels use.
constexpr std::wstring_view kLabelCharacters =
    L"設定名実行形態起動称単独順次同時ＡＰボタンショートカッ１２３４５：　";
constexpr int kFrameMicrometres = 250;
constexpr int kMicrometresPerInch = 25400;

LOGFONTW FontOfPoints(const std::wstring& face, int points, int dpi) {
    LOGFONTW font{};
    font.lfHeight = -MulDiv(points, dpi, kPointsPerInch);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = SHIFTJIS_CHARSET;
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return font;
}

bool HasLabelCharacters(HDC hdc, const std::wstring& face) {
    const LOGFONTW wanted = FontOfPoints(face, kBodyPoints, GetDeviceCaps(hdc, LOGPIXELSY));
    const Font font(CreateFontIndirectW(&wanted));
    if (!font) {
        return false;
    }
    const Selected selected(hdc, font.get());
    std::vector<WORD> glyphs(kLabelCharacters.size());
    const DWORD found =
        GetGlyphIndicesW(hdc, kLabelCharacters.data(), static_cast<int>(kLabelCharacters.size()),
                         glyphs.data(), GGI_MARK_NONEXISTING_GLYPHS);
    constexpr WORD kMissing = 0xFFFF;
    return found != GDI_ERROR && std::find(glyphs.begin(), glyphs.end(), kMissing) == glyphs.end();
}

int CALLBACK CollectFace(const LOGFONTW* font, const TEXTMETRICW* /*metric*/, DWORD /*type*/,
                         LPARAM faces) noexcept {
    const std::wstring_view name = font->lfFaceName;
    if (!name.starts_with(L'@') && (font->lfPitchAndFamily & 3) == FIXED_PITCH) { // "@": for vertical text
        std::bit_cast<std::vector<std::wstring>*>(faces)->emplace_back(name);
    }
    return 1;
}

/// The usual face where it has the characters (the system may stand another one in for it), else the first
/// fixed-pitch one that has them.
std::wstring JapaneseFace(HDC hdc) {
    if (HasLabelCharacters(hdc, kFace)) {
        return kFace;
    }
    LOGFONTW all{};
    all.lfCharSet = SHIFTJIS_CHARSET;
    std::vector<std::wstring> faces;
    EnumFontFamiliesExW(hdc, &all, CollectFace, std::bit_cast<LPARAM>(&faces), 0);
    const auto found = std::find_if(faces.begin(), faces.end(), [hdc](const std::wstring& face) {
        return HasLabelCharacters(hdc, face);
    });
    return found == faces.end() ? kFace : *found;
}

/// SetAbortProc has no place for a context of the caller's; there is one printout at a time.
const std::atomic<bool>*& GivenUpOfAbortProc() {
    static const std::atomic<bool>* givenUp = nullptr;
    return givenUp;
}

BOOL CALLBACK GoOn(HDC /*hdc*/, int /*error*/) noexcept {
    const std::atomic<bool>* givenUp = GivenUpOfAbortProc();
    return givenUp == nullptr || !*givenUp ? TRUE : FALSE;
}

} // namespace

WindowsPrintDevice::WindowsPrintDevice(HDC hdc, std::shared_ptr<const std::atomic<bool>> givenUp)
    : hdc_(hdc), givenUp_(std::move(givenUp)) {
    const std::wstring face = JapaneseFace(hdc);
    const int dpi = GetDeviceCaps(hdc, LOGPIXELSY);
    const LOGFONTW body = FontOfPoints(face, kBodyPoints, dpi);
    const LOGFONTW title = FontOfPoints(face, kTitlePoints, dpi);
    body_.reset(CreateFontIndirectW(&body));
    title_.reset(CreateFontIndirectW(&title));
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, RGB(0, 0, 0));
}

HFONT WindowsPrintDevice::FontFor(PrintFont font) const {
    return font == PrintFont::Title ? title_.get() : body_.get();
}

std::wstring WindowsPrintDevice::FaceName() const {
    const Selected selected(hdc_.get(), body_.get());
    std::array<wchar_t, LF_FACESIZE> name{};
    GetTextFaceW(hdc_.get(), static_cast<int>(name.size()), name.data());
    return name.data();
}

PrintPage WindowsPrintDevice::Page() const {
    const auto caps = [this](int index) { return GetDeviceCaps(hdc_.get(), index); };
    PrintPage page{caps(HORZRES),         caps(VERTRES),         caps(PHYSICALWIDTH), caps(PHYSICALHEIGHT),
                   caps(PHYSICALOFFSETX), caps(PHYSICALOFFSETY), caps(LOGPIXELSX),    caps(LOGPIXELSY)};
    if (page.paperWidth == 0 || page.paperHeight == 0) { // not a printer
        page.paperWidth = page.width;
        page.paperHeight = page.height;
    }
    return page;
}

PrintExtent WindowsPrintDevice::Extent(const std::wstring& text, PrintFont font) const {
    const Selected selected(hdc_.get(), FontFor(font));
    SIZE size{};
    GetTextExtentPoint32W(hdc_.get(), text.data(), static_cast<int>(text.size()), &size);
    return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

bool WindowsPrintDevice::StartDocument(const std::wstring& name) {
    if (GivenUp()) {
        return false;
    }
    GivenUpOfAbortProc() = givenUp_.get();
    SetAbortProc(hdc_.get(), GoOn);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    document.lpszOutput = output_.empty() ? nullptr : output_.c_str();
    const bool started = StartDocW(hdc_.get(), &document) > 0;
    if (!started) {
        GivenUpOfAbortProc() = nullptr; // no document will be ended
    }
    return started;
}

bool WindowsPrintDevice::StartPage() {
    return !GivenUp() && ::StartPage(hdc_.get()) > 0;
}

bool WindowsPrintDevice::EndPage() {
    return ::EndPage(hdc_.get()) > 0 && !GivenUp();
}

bool WindowsPrintDevice::EndDocument() {
    if (GivenUp()) {
        return false;
    }
    const bool ended = EndDoc(hdc_.get()) > 0;
    GivenUpOfAbortProc() = nullptr;
    return ended;
}

void WindowsPrintDevice::Abort() {
    AbortDoc(hdc_.get());
    GivenUpOfAbortProc() = nullptr;
}

void WindowsPrintDevice::Text(int x, int y, const std::wstring& text, PrintFont font) {
    const Selected selected(hdc_.get(), FontFor(font));
    TextOutW(hdc_.get(), x, y, text.data(), static_cast<int>(text.size()));
}

void WindowsPrintDevice::Frame(const PrintRect& frame) {
    const auto thickness = [this](int dpi) {
        return std::max(1, MulDiv(kFrameMicrometres, GetDeviceCaps(hdc_.get(), dpi), kMicrometresPerInch));
    };
    const int across = thickness(LOGPIXELSX);
    const int down = thickness(LOGPIXELSY);
    const auto fill = [&](int left, int top, int right, int bottom) {
        const RECT bar{left, top, right, bottom};
        FillRect(hdc_.get(), &bar, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    };
    fill(frame.left, frame.top, frame.right, frame.top + down);
    fill(frame.left, frame.bottom - down, frame.right, frame.bottom);
    fill(frame.left, frame.top, frame.left + across, frame.bottom);
    fill(frame.right - across, frame.top, frame.right, frame.bottom);
}
