#include "dialogs/register/DragCursor.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace {

/// A picture of 32 bits a pixel, top-down.
class Canvas {
public:
    Canvas(int size, COLORREF background) : hdc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size;
        info.bmiHeader.biHeight = -size;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        if (bitmap_) {
            pixels_ = {static_cast<std::uint32_t*>(bits),
                       static_cast<std::size_t>(size) * static_cast<std::size_t>(size)};
            std::fill(pixels_.begin(), pixels_.end(), background);
        }
    }

    [[nodiscard]] bool IsReady() const { return hdc_ && bitmap_; }
    [[nodiscard]] HBITMAP Handle() const { return bitmap_.get(); }
    /// Blue in the lowest byte; the highest one's meaning is the caller's.
    [[nodiscard]] std::span<std::uint32_t> Pixels() {
        GdiFlush();
        return pixels_;
    }

    void Draw(HICON icon, int left, int top, int size) {
        const Selected selected(hdc_.get(), bitmap_.get());
        DrawIconEx(hdc_.get(), left, top, icon, size, size, 0, nullptr, DI_NORMAL);
    }

private:
    MemoryDc hdc_;
    Bitmap bitmap_;
    std::span<std::uint32_t> pixels_;
};

std::uint32_t Byte(std::uint32_t pixel, unsigned shift) {
    return pixel >> shift & 0xFFU;
}

/// What is transparent shows by the difference between the same picture on black and on white: so it needs no
/// icon to have an alpha channel.
std::uint32_t WithAlpha(std::uint32_t onBlack, std::uint32_t onWhite) {
    const std::uint32_t green = Byte(onBlack, 8);
    const std::uint32_t alpha = 255 - (std::max(Byte(onWhite, 8), green) - green);
    std::uint32_t pixel = alpha << 24U;
    for (const unsigned shift : {0U, 8U, 16U}) {
        pixel |= alpha == 0 ? 0 : std::min(255U, Byte(onBlack, shift) * 255U / alpha) << shift;
    }
    return pixel;
}

} // namespace

Cursor CreateDragCursor(HICON icon, int iconSize) {
    const HCURSOR arrow = LoadCursorW(nullptr, IDC_ARROW);
    const int arrowSize = GetSystemMetrics(SM_CXCURSOR);
    const int size = arrowSize + iconSize;
    Canvas onBlack(size, 0);
    Canvas onWhite(size, 0xFFFFFF);
    const std::vector<std::uint8_t> noMask(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    const Bitmap mask(CreateBitmap(size, size, 1, 1, noMask.data()));
    ICONINFO info{};
    if (!onBlack.IsReady() || !onWhite.IsReady() || !mask || GetIconInfo(arrow, &info) == FALSE) {
        return nullptr;
    }
    const Bitmap arrowColour(info.hbmColor);
    const Bitmap arrowMask(info.hbmMask);
    for (Canvas* canvas : {&onBlack, &onWhite}) {
        canvas->Draw(icon, arrowSize / 3, arrowSize / 2, iconSize);
        canvas->Draw(arrow, 0, 0, arrowSize);
    }
    const std::span<std::uint32_t> result = onBlack.Pixels();
    std::transform(result.begin(), result.end(), onWhite.Pixels().begin(), result.begin(), WithAlpha);
    info.hbmColor = onBlack.Handle();
    info.hbmMask = mask.get(); // only its size counts beside an alpha channel
    return Cursor(CreateIconIndirect(&info));
}
