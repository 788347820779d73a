#include "platform/windows/WindowsPrintDevice.h"

#include "platform/windows/JapaneseFont.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int kPointsPerInch = 72;
constexpr int kBodyPoints = 10;
constexpr int kTitlePoints = 12;
/// The first one goes by its English name where Windows is not Japanese.
constexpr std::array kFaces = {L"ＭＳ ゴシック", L"MS Gothic"};
constexpr int kFrameMicrometres = 250;
constexpr int kMicrometresPerInch = 25400;

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

/// SetAbortProc has no place for a context of the caller's.
const std::function<bool()>*& AskedByPrinter() {
    static const std::function<bool()>* goOn = nullptr;
    return goOn;
}

BOOL CALLBACK GoOn(HDC /*hdc*/, int /*error*/) noexcept {
    return AskedByPrinter() == nullptr || (*AskedByPrinter())() ? TRUE : FALSE;
}

/// StartPage and EndPage answer some reasons, and leave others to GetLastError.
DWORD ErrorOf(int answer, DWORD lastError) {
    switch (answer) {
    case SP_OUTOFDISK:
        return ERROR_DISK_FULL;
    case SP_OUTOFMEMORY:
        return ERROR_NOT_ENOUGH_MEMORY;
    case SP_APPABORT:
    case SP_USERABORT:
        return ERROR_PRINT_CANCELLED;
    default:
        return lastError == ERROR_SUCCESS ? ERROR_GEN_FAILURE : lastError;
    }
}

} // namespace

WindowsPrintDevice::WindowsPrintDevice(HDC hdc, std::function<bool()> goOn,
                                       const std::optional<PrintPage>& page)
    : hdc_(hdc), page_(page.value_or(PageOf(hdc))), goOn_(std::move(goOn)) {
    LOGFONTW font = JapaneseFont(hdc, kFaces);
    const auto ofPoints = [&](int points) {
        font.lfHeight = -MulDiv(points, page_.dpiY, kPointsPerInch);
        return Font(CreateFontIndirectW(&font));
    };
    body_ = ofPoints(kBodyPoints);
    title_ = ofPoints(kTitlePoints);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, RGB(0, 0, 0));
}

WindowsPrintDevice::~WindowsPrintDevice() {
    if (AskedByPrinter() == &goOn_) {
        AskedByPrinter() = nullptr;
    }
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

template <class Call> bool WindowsPrintDevice::Succeeds(const Call& call) {
    if (error_ == ERROR_SUCCESS && !goOn_()) {
        error_ = ERROR_PRINT_CANCELLED;
    }
    if (error_ != ERROR_SUCCESS) {
        return false;
    }
    SetLastError(ERROR_SUCCESS);
    if (const int answer = call(); answer <= 0) {
        const DWORD error = ErrorOf(answer, GetLastError());
        error_ = goOn_() ? error : ERROR_PRINT_CANCELLED;
    }
    return error_ == ERROR_SUCCESS;
}

bool WindowsPrintDevice::StartDocument(const std::wstring& name) {
    AskedByPrinter() = &goOn_;
    SetAbortProc(hdc_.get(), GoOn);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    document.lpszOutput = output_.empty() ? nullptr : output_.c_str();
    return Succeeds([&] { return StartDocW(hdc_.get(), &document); });
}

bool WindowsPrintDevice::StartPage() {
    return Succeeds([&] { return ::StartPage(hdc_.get()); });
}

bool WindowsPrintDevice::EndPage() {
    return Succeeds([&] { return ::EndPage(hdc_.get()); });
}

bool WindowsPrintDevice::EndDocument() {
    return Succeeds([&] { return EndDoc(hdc_.get()); });
}

void WindowsPrintDevice::Abort() {
    AbortDoc(hdc_.get());
}

void WindowsPrintDevice::Text(int x, int y, const std::wstring& text, PrintFont font) {
    const Selected selected(hdc_.get(), FontFor(font));
    (void)Succeeds([&] { return TextOutW(hdc_.get(), x, y, text.data(), static_cast<int>(text.size())); });
}

void WindowsPrintDevice::Frame(const PrintRect& frame) {
    const auto thickness = [](int dpi) {
        return std::max(1, MulDiv(kFrameMicrometres, dpi, kMicrometresPerInch));
    };
    const int across = thickness(page_.dpiX);
    const int down = thickness(page_.dpiY);
    const auto fill = [&](int left, int top, int right, int bottom) {
        const RECT bar{left, top, right, bottom};
        (void)Succeeds(
            [&] { return FillRect(hdc_.get(), &bar, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH))); });
    };
    fill(frame.left, frame.top, frame.right, frame.top + down);
    fill(frame.left, frame.bottom - down, frame.right, frame.bottom);
    fill(frame.left, frame.top, frame.left + across, frame.bottom);
    fill(frame.right - across, frame.top, frame.right, frame.bottom);
}
