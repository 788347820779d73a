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
/// The first one goes by its English name where Windows is not Japanese.
constexpr std::array kFaces = {L"ＭＳ ゴシック", L"MS Gothic"};
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
    font.lfOutPrecision = OUT_TT_ONLY_PRECIS; // a printer's own fonts may lack the characters
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return font;
}

PrintPage PageOf(HDC hdc) {
    const auto caps = [hdc](int index) { return GetDeviceCaps(hdc, index); };
    PrintPage page{caps(HORZRES),         caps(VERTRES),         caps(PHYSICALWIDTH), caps(PHYSICALHEIGHT),
                   caps(PHYSICALOFFSETX), caps(PHYSICALOFFSETY), caps(LOGPIXELSX),    caps(LOGPIXELSY)};
    if (page.paperWidth == 0 || page.paperHeight == 0) { // not a printer
        page.paperWidth = page.width;
        page.paperHeight = page.height;
    }
    return page;
}

enum class Suitable { No, WithoutFixedPitch, Yes };

Suitable Suits(HDC hdc, const std::wstring& face) {
    const LOGFONTW wanted = FontOfPoints(face, kBodyPoints, GetDeviceCaps(hdc, LOGPIXELSY));
    const Font font(CreateFontIndirectW(&wanted));
    if (!font) {
        return Suitable::No;
    }
    const Selected selected(hdc, font.get());
    std::vector<WORD> glyphs(kLabelCharacters.size());
    const DWORD found =
        GetGlyphIndicesW(hdc, kLabelCharacters.data(), static_cast<int>(kLabelCharacters.size()),
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

int CALLBACK CollectFace(const LOGFONTW* font, const TEXTMETRICW* /*metric*/, DWORD /*type*/,
                         LPARAM faces) noexcept {
    const std::wstring_view name = font->lfFaceName;
    if (!name.starts_with(L'@')) { // "@": for vertical text
        std::bit_cast<std::vector<std::wstring>*>(faces)->emplace_back(name);
    }
    return 1;
}

/// The usual face where it has the characters (the system may stand another one in for it), else the first
/// fixed-pitch one that has them, else any that has them.
std::wstring JapaneseFace(HDC hdc) {
    for (const wchar_t* face : kFaces) {
        if (Suits(hdc, face) == Suitable::Yes) {
            return face;
        }
    }
    LOGFONTW all{};
    all.lfCharSet = SHIFTJIS_CHARSET;
    std::vector<std::wstring> faces;
    EnumFontFamiliesExW(hdc, &all, CollectFace, std::bit_cast<LPARAM>(&faces), 0);
    std::wstring lastResort = kFaces.front();
    bool found = false;
    for (const std::wstring& face : faces) {
        const Suitable suits = Suits(hdc, face);
        if (suits == Suitable::Yes) {
            return face;
        }
        if (suits == Suitable::WithoutFixedPitch && !std::exchange(found, true)) {
            lastResort = face;
        }
    }
    return lastResort;
}

/// SetAbortProc has no place for a context of the caller's. Each printout has a thread of its own, on which
/// the procedure is called.
const std::atomic<bool>*& GivenUpOfThisThread() {
    thread_local const std::atomic<bool>* givenUp = nullptr;
    return givenUp;
}

BOOL CALLBACK GoOn(HDC /*hdc*/, int /*error*/) noexcept {
    const std::atomic<bool>* givenUp = GivenUpOfThisThread();
    return givenUp == nullptr || !*givenUp ? TRUE : FALSE;
}

} // namespace

WindowsPrintDevice::WindowsPrintDevice(HDC hdc, std::shared_ptr<const std::atomic<bool>> givenUp,
                                       const std::optional<PrintPage>& page)
    : hdc_(hdc), page_(page.value_or(PageOf(hdc))), givenUp_(std::move(givenUp)),
      starter_([](HDC printer, const DOCINFOW& document) { return StartDocW(printer, &document); }) {
    const std::wstring face = JapaneseFace(hdc);
    const LOGFONTW body = FontOfPoints(face, kBodyPoints, page_.dpiY);
    const LOGFONTW title = FontOfPoints(face, kTitlePoints, page_.dpiY);
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

PrintExtent WindowsPrintDevice::Extent(const std::wstring& text, PrintFont font) const {
    const Selected selected(hdc_.get(), FontFor(font));
    SIZE size{};
    GetTextExtentPoint32W(hdc_.get(), text.data(), static_cast<int>(text.size()), &size);
    return {static_cast<int>(size.cx), static_cast<int>(size.cy)};
}

bool WindowsPrintDevice::Checked(bool succeeded) {
    if (!succeeded && error_ == 0) {
        const DWORD error = GetLastError();
        error_ = error == ERROR_SUCCESS ? ERROR_GEN_FAILURE : error;
    }
    return succeeded;
}

bool WindowsPrintDevice::StartDocument(const std::wstring& name) {
    if (GivenUp()) {
        return false;
    }
    GivenUpOfThisThread() = givenUp_.get();
    SetAbortProc(hdc_.get(), GoOn);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    document.lpszOutput = output_.empty() ? nullptr : output_.c_str();
    const bool started = Checked(starter_(hdc_.get(), document) > 0);
    if (!started) {
        GivenUpOfThisThread() = nullptr; // no document will be ended
    }
    return started;
}

bool WindowsPrintDevice::StartPage() {
    return !GivenUp() && Checked(::StartPage(hdc_.get()) > 0);
}

bool WindowsPrintDevice::EndPage() {
    return Checked(::EndPage(hdc_.get()) > 0) && error_ == 0 && !GivenUp();
}

bool WindowsPrintDevice::EndDocument() {
    if (GivenUp()) {
        return false;
    }
    const bool ended = Checked(EndDoc(hdc_.get()) > 0);
    GivenUpOfThisThread() = nullptr;
    return ended;
}

void WindowsPrintDevice::Abort() {
    AbortDoc(hdc_.get());
    GivenUpOfThisThread() = nullptr;
}

void WindowsPrintDevice::Text(int x, int y, const std::wstring& text, PrintFont font) {
    const Selected selected(hdc_.get(), FontFor(font));
    Checked(TextOutW(hdc_.get(), x, y, text.data(), static_cast<int>(text.size())) != FALSE);
}

void WindowsPrintDevice::Frame(const PrintRect& frame) {
    const auto thickness = [](int dpi) {
        return std::max(1, MulDiv(kFrameMicrometres, dpi, kMicrometresPerInch));
    };
    const int across = thickness(page_.dpiX);
    const int down = thickness(page_.dpiY);
    const auto fill = [&](int left, int top, int right, int bottom) {
        const RECT bar{left, top, right, bottom};
        Checked(FillRect(hdc_.get(), &bar, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))) != 0);
    };
    fill(frame.left, frame.top, frame.right, frame.top + down);
    fill(frame.left, frame.bottom - down, frame.right, frame.bottom);
    fill(frame.left, frame.top, frame.left + across, frame.bottom);
    fill(frame.right - across, frame.top, frame.right, frame.bottom);
}
