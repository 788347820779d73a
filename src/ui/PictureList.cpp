#include "ui/PictureList.h"

#include "ui/RoundPicture.h"

#include <cstring>

namespace {

constexpr WORD kBitsPerPixel = 32;
constexpr BYTE kOpaque = 255;

BITMAPINFO TopDownInfo(int size) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size;
    info.bmiHeader.biHeight = -size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = kBitsPerPixel;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

SquarePixels LoadPixels(const wchar_t* name) {
    SquarePixels square;
    // Not as a DIB section: the resources are run-length encoded.
    const Bitmap bitmap(static_cast<HBITMAP>(
        LoadImageW(GetModuleHandleW(nullptr), name, IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
    BITMAP properties{};
    if (!bitmap || GetObjectW(bitmap.get(), sizeof properties, &properties) == 0) {
        return square;
    }
    const int size = properties.bmWidth;
    square.pixels.resize(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    const MemoryDc hdc(CreateCompatibleDC(nullptr));
    BITMAPINFO info = TopDownInfo(size);
    if (GetDIBits(hdc.get(), bitmap.get(), 0, static_cast<UINT>(size), square.pixels.data(), &info,
                  DIB_RGB_COLORS) == size) {
        square.size = size;
    }
    return square;
}

Bitmap ToBitmap(const SquarePixels& square) {
    if (square.size == 0) {
        return nullptr;
    }
    const BITMAPINFO info = TopDownInfo(square.size);
    void* bits = nullptr;
    Bitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (bitmap) {
        std::memcpy(bits, square.pixels.data(), square.pixels.size() * sizeof square.pixels[0]);
    }
    return bitmap;
}

} // namespace

HBITMAP PictureList::Picture(int number, int size) {
    Bitmap& scaled = scaled_[{number, size}];
    if (!scaled && number >= 1 && static_cast<std::size_t>(number) <= names_.size()) {
        scaled = ToBitmap(ScaleRoundPicture(LoadPixels(names_[static_cast<std::size_t>(number) - 1]), size));
    }
    return scaled.get();
}

Bitmap CreateRing(int size, int width, COLORREF color) {
    const auto red = static_cast<std::uint32_t>(GetRValue(color));
    const auto green = static_cast<std::uint32_t>(GetGValue(color));
    const auto blue = static_cast<std::uint32_t>(GetBValue(color));
    return ToBitmap(RoundRing(size, width, red << 16 | green << 8 | blue));
}

void DrawWithAlpha(HDC hdc, int x, int y, int size, HBITMAP bitmap) {
    const MemoryDc source(CreateCompatibleDC(hdc));
    const Selected selected(source.get(), bitmap);
    const BLENDFUNCTION blend{AC_SRC_OVER, 0, kOpaque, AC_SRC_ALPHA};
    GdiAlphaBlend(hdc, x, y, size, size, source.get(), 0, 0, size, size, blend);
}
