#include "ui/Outline.h"

namespace {

std::uint32_t Share(std::uint32_t text, std::uint32_t outline, unsigned shift, const OutlineColors& colors,
                    std::uint32_t all) {
    const std::uint32_t sum =
        text * (colors.text >> shift & 0xFF) + outline * (colors.outline >> shift & 0xFF);
    return sum / all;
}

} // namespace

std::vector<std::uint32_t> SmoothOutline(std::span<const std::uint8_t> drawn, std::size_t stride, int width,
                                         int height, int factor, const OutlineColors& colors) {
    const auto side = static_cast<std::size_t>(factor);
    const auto all = static_cast<std::uint32_t>(factor * factor);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
            std::uint32_t text = 0;
            std::uint32_t outline = 0;
            for (std::size_t row = 0; row < side; ++row) {
                for (const std::uint8_t pixel : drawn.subspan((y * side + row) * stride + x * side, side)) {
                    text += pixel == static_cast<std::uint8_t>(OutlinePixel::Text) ? 1 : 0;
                    outline += pixel == static_cast<std::uint8_t>(OutlinePixel::Outline) ? 1 : 0;
                }
            }
            pixels.push_back(
                (text + outline) * 0xFF / all << 24U | Share(text, outline, 0, colors, all) << 16U |
                Share(text, outline, 8, colors, all) << 8U | Share(text, outline, 16, colors, all));
        }
    }
    return pixels;
}
