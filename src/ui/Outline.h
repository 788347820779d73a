#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// What a pixel of a drawn text is.
enum class OutlinePixel : std::uint8_t { Nothing, Outline, Text };

struct OutlineColors {
    std::uint32_t text = 0;    ///< 0x00BBGGRR
    std::uint32_t outline = 0; ///< likewise
};

/// A picture of `width` by `height` pixels, each made of `factor` by `factor` of the drawn ones, whose rows are
/// `stride` long: 0xAARRGGBB, the colours multiplied with the alpha, as layered windows want it.
[[nodiscard]] std::vector<std::uint32_t> SmoothOutline(std::span<const std::uint8_t> drawn,
                                                       std::size_t stride, int width, int height, int factor,
                                                       const OutlineColors& colors);
