#include "launcher/OnScreenWindow.h"

#include "launcher/NameShown.h"
#include "ui/Outline.h"

#include <shellapi.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <span>
#include <vector>

namespace {

constexpr const wchar_t* kClass = L"QLBOnScreen";
constexpr int kPointsPerInch = 72;
constexpr UINT_PTR kTimer = 1;

struct NamePicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

MONITORINFO MonitorInFront() {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(MonitorFromWindow(GetForegroundWindow(), MONITOR_DEFAULTTOPRIMARY), &info);
    return info;
}

bool IsGameInFront() {
    QUERY_USER_NOTIFICATION_STATE state{};
    return SUCCEEDED(SHQueryUserNotificationState(&state)) && state == QUNS_RUNNING_D3D_FULL_SCREEN;
}

Font FontOf(const ShownName& name, int height) {
    LOGFONTW font{};
    font.lfHeight = -height;
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfOutPrecision = OUT_TT_ONLY_PRECIS; // others have no outlines
    name.face.copy(font.lfFaceName, LF_FACESIZE - 1);
    return Font(CreateFontIndirectW(&font));
}

SIZE Measure(HDC hdc, const ShownName& name, int height) {
    const Font font = FontOf(name, height);
    const Selected selected(hdc, font.get());
    SIZE size{};
    GetTextExtentPoint32W(hdc, name.text.c_str(), static_cast<int>(name.text.size()), &size);
    return size;
}

/// One byte a pixel, whose value is the colour's place in the palette.
Bitmap IndexedBitmap(HDC hdc, int width, int height, void*& bits) {
    struct {
        BITMAPINFOHEADER header;
        std::array<RGBQUAD, 3> colors;
    } info{};
    info.header.biSize = sizeof info.header;
    info.header.biWidth = width;
    info.header.biHeight = -height; // from the top
    info.header.biPlanes = 1;
    info.header.biBitCount = 8;
    info.header.biClrUsed = static_cast<DWORD>(info.colors.size());
    info.colors.at(static_cast<std::size_t>(OutlinePixel::Outline)).rgbRed = 0xFF;
    info.colors.at(static_cast<std::size_t>(OutlinePixel::Text)).rgbGreen = 0xFF;
    return Bitmap(
        CreateDIBSection(hdc, std::bit_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS, &bits, nullptr, 0));
}

using Pen = Owned<HPEN, DeleteObject>;
using Brush = Owned<HBRUSH, DeleteObject>;

/// The outline first, then the text over it: filled and stroked in one go, thin letters would drown in their
/// outlines.
void DrawLetters(HDC hdc, const ShownName& name, int margin, int outline) {
    constexpr COLORREF kOutline = RGB(0xFF, 0, 0);
    constexpr COLORREF kText = RGB(0, 0xFF, 0);
    const LOGBRUSH solid{BS_SOLID, kOutline, 0};
    const DWORD width = 2 * static_cast<DWORD>(outline); // half of it lies inside the letters
    const Pen pen(ExtCreatePen(PS_GEOMETRIC | PS_JOIN_ROUND, width, &solid, 0, nullptr)); // with round ends
    const Brush brush(CreateSolidBrush(kText));
    const Selected selectedPen(hdc, pen.get());
    const Selected selectedBrush(hdc, brush.get());
    SetBkMode(hdc, TRANSPARENT);
    SetPolyFillMode(hdc, WINDING);
    const auto trace = [&] {
        BeginPath(hdc);
        TextOutW(hdc, margin, margin, name.text.c_str(), static_cast<int>(name.text.size()));
        EndPath(hdc);
    };
    trace();
    StrokePath(hdc);
    trace();
    FillPath(hdc);
}

/// Drawn several times as large: the paths of the system have no smooth edges.
NamePicture Draw(const ShownName& name, UINT dpi, int widest) {
    constexpr int kOutlineShare = 14;
    constexpr int kLargeText = 96;
    const MemoryDc hdc(CreateCompatibleDC(nullptr));
    int em = std::max(1, MulDiv(name.points, static_cast<int>(dpi), kPointsPerInch));
    if (const SIZE size = Measure(hdc.get(), name, em); size.cx > widest) {
        em = std::max(1, MulDiv(em, widest, size.cx));
    }
    const int factor = em < kLargeText ? 4 : 2;
    const int outline = std::max(2, em / kOutlineShare);
    const SIZE size = Measure(hdc.get(), name, em);
    NamePicture picture;
    picture.width = size.cx + 4 * outline + em / 4; // letters may lean out of their cells
    picture.height = size.cy + 4 * outline;

    const int stride = (picture.width * factor + 3) / 4 * 4;
    void* bits = nullptr;
    const Bitmap bitmap = IndexedBitmap(hdc.get(), stride, picture.height * factor, bits);
    const Font font = FontOf(name, em * factor);
    if (!bitmap || bits == nullptr) {
        return {};
    }
    const Selected selectedBitmap(hdc.get(), bitmap.get());
    const Selected selectedFont(hdc.get(), font.get());
    DrawLetters(hdc.get(), name, 2 * outline * factor, outline * factor);
    GdiFlush();
    const auto bytes = static_cast<std::size_t>(stride) * static_cast<std::size_t>(picture.height * factor);
    picture.pixels =
        SmoothOutline({static_cast<const std::uint8_t*>(bits), bytes}, static_cast<std::size_t>(stride),
                      picture.width, picture.height, factor, {name.color, OutlineColor(name.color)});
    return picture;
}

bool GiveTo(HWND window, const NamePicture& picture, POINT place) {
    const MemoryDc hdc(CreateCompatibleDC(nullptr));
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = picture.width;
    info.bmiHeader.biHeight = -picture.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const Bitmap bitmap(CreateDIBSection(hdc.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap || bits == nullptr) {
        return false;
    }
    std::memcpy(bits, picture.pixels.data(), picture.pixels.size() * sizeof picture.pixels.front());
    const Selected selected(hdc.get(), bitmap.get());
    SIZE size{picture.width, picture.height};
    POINT origin{};
    BLENDFUNCTION blend{AC_SRC_OVER, 0, 0xFF, AC_SRC_ALPHA};
    return UpdateLayeredWindow(window, nullptr, &place, &size, hdc.get(), &origin, 0, &blend, ULW_ALPHA) !=
           FALSE;
}

} // namespace

LRESULT CALLBACK OnScreenWindow::WindowProc(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          std::bit_cast<LONG_PTR>(std::bit_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
    }
    if (message == WM_TIMER && wParam == kTimer) {
        std::bit_cast<OnScreenWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA))->window_.reset();
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void OnScreenWindow::Show(const ShownName& name) {
    constexpr UINT kMsPerSecond = 1000;
    window_.reset();
    if (IsGameInFront()) {
        return;
    }
    static const ATOM kRegistered = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = WindowProc;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = kClass;
        return RegisterClassW(&windowClass);
    }();
    const RECT monitor = MonitorInFront().rcWork;
    // On the monitor from the beginning, so that it says the scaling there.
    window_.reset(CreateWindowExW(WS_EX_LAYERED | WS_EX_TRANSPARENT | WS_EX_TOPMOST | WS_EX_TOOLWINDOW |
                                      WS_EX_NOACTIVATE,
                                  MAKEINTATOM(kRegistered), name.text.c_str(), WS_POPUP, monitor.left,
                                  monitor.top, 1, 1, nullptr, nullptr, GetModuleHandleW(nullptr), this));
    if (!window_) {
        return;
    }
    constexpr int kWidestShare = 10;
    const int width = monitor.right - monitor.left;
    const NamePicture picture = Draw(name, GetDpiForWindow(window_.get()), width - width / kWidestShare);
    const NamePlace place = PlaceOfName({monitor.left, monitor.top, monitor.right, monitor.bottom},
                                        picture.width, picture.height);
    if (picture.pixels.empty() || !GiveTo(window_.get(), picture, {place.x, place.y}) ||
        SetTimer(window_.get(), kTimer, static_cast<UINT>(name.seconds) * kMsPerSecond, nullptr) == 0) {
        window_.reset(); // better none than one that stays
        return;
    }
    ShowWindow(window_.get(), SW_SHOWNOACTIVATE);
}
