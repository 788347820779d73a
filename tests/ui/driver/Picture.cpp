#include "Picture.h"

#include "Handle.h"
#include "Message.h"
#include "Wait.h"

#include <algorithm>

namespace UiDriver {
namespace {

constexpr Milliseconds kBetweenLooks{80};
constexpr std::uint32_t kColourBits = 0x00FFFFFF;

class ScreenDc {
public:
    ScreenDc() : hdc_(GetDC(nullptr)) {}
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;
    ~ScreenDc() { ReleaseDC(nullptr, hdc_); }
    [[nodiscard]] HDC Get() const { return hdc_; }

private:
    HDC hdc_;
};

BITMAPINFO TopDownInfo(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

void WriteAll(HANDLE file, const void* bytes, std::size_t count) {
    DWORD written = 0;
    if (!WriteFile(file, bytes, static_cast<DWORD>(count), &written, nullptr) || written != count) {
        FailLastError(L"writing a picture");
    }
}

} // namespace

Picture::Picture(int width, int height, std::uint32_t colour) : width_(width), height_(height) {
    if (width <= 0 || height <= 0) {
        Fail(L"a picture of " + std::to_wstring(width) + L" x " + std::to_wstring(height) +
             L" pixels was asked for");
    }
    pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour);
}

Picture Picture::Capture(HWND hwnd) {
    RequireAlive(hwnd);
    RECT rect{};
    GetClientRect(hwnd, &rect);
    MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return CaptureRect(rect);
}

Picture Picture::CaptureRect(const RECT& screenRect) {
    Picture picture(screenRect.right - screenRect.left, screenRect.bottom - screenRect.top);
    const ScreenDc screen;
    picture.Draw([&](HDC hdc) {
        if (!BitBlt(hdc, 0, 0, picture.width_, picture.height_, screen.Get(), screenRect.left, screenRect.top,
                    SRCCOPY | CAPTUREBLT)) {
            FailLastError(L"copying from the screen");
        }
    });
    return picture;
}

Picture Picture::CaptureStill(HWND hwnd) {
    Picture last = Capture(hwnd);
    WaitUntil(
        [&] {
            Pause(kBetweenLooks);
            Picture now = Capture(hwnd);
            const bool still = now == last;
            last = std::move(now);
            return still;
        },
        Describe(hwnd) + L" to stop changing on the screen");
    return last;
}

void Picture::Draw(const std::function<void(HDC)>& paint) {
    const UniqueMemoryDc hdc(CreateCompatibleDC(nullptr));
    const BITMAPINFO info = TopDownInfo(width_, height_);
    void* bits = nullptr;
    const UniqueGdiObject bitmap(CreateDIBSection(hdc.Get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!hdc || !bitmap) {
        FailLastError(L"making a bitmap");
    }
    auto* const pixels = static_cast<std::uint32_t*>(bits);
    std::copy(pixels_.begin(), pixels_.end(), pixels);
    const HGDIOBJ previous = SelectObject(hdc.Get(), bitmap.Get());
    try {
        paint(hdc.Get());
    } catch (...) {
        SelectObject(hdc.Get(), previous);
        throw;
    }
    GdiFlush();
    std::transform(pixels, pixels + pixels_.size(), pixels_.begin(),
                   [](std::uint32_t pixel) { return pixel & kColourBits; });
    SelectObject(hdc.Get(), previous);
}

std::size_t Picture::Index(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) {
        Fail(L"pixel " + std::to_wstring(x) + L", " + std::to_wstring(y) + L" is outside the picture");
    }
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
}

std::uint32_t Picture::Pixel(int x, int y) const {
    return pixels_[Index(x, y)];
}

std::size_t Picture::CountOf(std::uint32_t colour) const {
    return static_cast<std::size_t>(std::count(pixels_.begin(), pixels_.end(), colour));
}

Picture Picture::Crop(const RECT& part) const {
    Picture cropped(part.right - part.left, part.bottom - part.top);
    for (int y = 0; y < cropped.height_; ++y) {
        for (int x = 0; x < cropped.width_; ++x) {
            cropped.pixels_[cropped.Index(x, y)] = Pixel(part.left + x, part.top + y);
        }
    }
    return cropped;
}

void Picture::SaveBmp(const std::wstring& path) const {
    const UniqueKernelHandle file([&] {
        const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr);
        return handle == INVALID_HANDLE_VALUE ? nullptr : handle;
    }());
    if (!file) {
        FailLastError(L"creating " + path);
    }
    const BITMAPINFO info = TopDownInfo(width_, height_);
    const std::size_t bytes = pixels_.size() * sizeof pixels_.front();
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = header.bfOffBits + static_cast<DWORD>(bytes);
    WriteAll(file.Get(), &header, sizeof header);
    WriteAll(file.Get(), &info.bmiHeader, sizeof info.bmiHeader);
    WriteAll(file.Get(), pixels_.data(), bytes);
}

std::size_t DifferingPixels(const Picture& a, const Picture& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height()) {
        Fail(L"pictures of different sizes cannot be compared: " + std::to_wstring(a.Width()) + L" x " +
             std::to_wstring(a.Height()) + L" and " + std::to_wstring(b.Width()) + L" x " +
             std::to_wstring(b.Height()));
    }
    std::size_t differing = 0;
    for (int y = 0; y < a.Height(); ++y) {
        for (int x = 0; x < a.Width(); ++x) {
            differing += a.Pixel(x, y) != b.Pixel(x, y) ? 1U : 0U;
        }
    }
    return differing;
}

} // namespace UiDriver
