#pragma once

#include "Win32.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace UiDriver {

/// A block of pixels, each 0x00RRGGBB.
class Picture {
public:
    Picture(int width, int height, std::uint32_t colour = 0);

    /// What the screen shows at the client area of a window or control, whatever lies over it.
    static Picture Capture(HWND hwnd);
    static Picture CaptureRect(const RECT& screenRect);

    /// As Capture, once two looks in a row agree: painting is not finished when a message is answered.
    static Picture CaptureStill(HWND hwnd);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    [[nodiscard]] std::uint32_t Pixel(int x, int y) const;

    /// How many pixels have exactly this colour.
    [[nodiscard]] std::size_t CountOf(std::uint32_t colour) const;

    [[nodiscard]] Picture Crop(const RECT& part) const;

    /// Lets GDI paint over the picture.
    void Draw(const std::function<void(HDC)>& paint);

    void SaveBmp(const std::wstring& path) const;

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    [[nodiscard]] std::size_t Index(int x, int y) const;

    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
};

/// Fails when the sizes differ.
std::size_t DifferingPixels(const Picture& a, const Picture& b);

} // namespace UiDriver
