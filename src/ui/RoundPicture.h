#pragma once

#include <cstdint>
#include <vector>

/// A square of pixels 0xAARRGGBB, top row first. Colours are premultiplied by their alpha.
struct SquarePixels {
    int size = 0;
    std::vector<std::uint32_t> pixels;

    [[nodiscard]] std::uint32_t At(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
                      static_cast<std::size_t>(x)];
    }
};

/// Scales an opaque square picture to `size` pixels by averaging the area behind each pixel, and makes
/// everything outside its inscribed circle transparent, with a smooth edge.
[[nodiscard]] SquarePixels ScaleRoundPicture(const SquarePixels& source, int size);

/// A circle line of `width` pixels just inside a square of `size` pixels, in colour 0x00RRGGBB.
[[nodiscard]] SquarePixels RoundRing(int size, int width, std::uint32_t color);
