#include "ui/RoundPicture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr int kChannels = 3;
constexpr int kBitsPerChannel = 8;
constexpr std::uint32_t kChannelMask = 0xFF;
constexpr int kAlphaShift = 24;
constexpr double kOpaque = 255.0;

/// Share of one source row or column in one target row or column.
struct Weight {
    std::size_t source = 0;
    double share = 0;
};

std::vector<std::vector<Weight>> AreaWeights(int sourceSize, int targetSize) {
    const double step = static_cast<double>(sourceSize) / targetSize;
    std::vector<std::vector<Weight>> weights(static_cast<std::size_t>(targetSize));
    for (int target = 0; target < targetSize; ++target) {
        const double begin = target * step;
        const double end = begin + step;
        const int last = std::min(sourceSize - 1, static_cast<int>(std::ceil(end)) - 1);
        for (int source = static_cast<int>(begin); source <= last; ++source) {
            const double share = std::min(end, source + 1.0) - std::max(begin, static_cast<double>(source));
            if (share > 0) {
                weights[static_cast<std::size_t>(target)].push_back(
                    {static_cast<std::size_t>(source), share / step});
            }
        }
    }
    return weights;
}

double Channel(std::uint32_t pixel, int channel) {
    return pixel >> (channel * kBitsPerChannel) & kChannelMask;
}

std::uint32_t Premultiplied(const double* color, double alpha) {
    auto pixel = static_cast<std::uint32_t>(std::lround(alpha * kOpaque)) << kAlphaShift;
    for (int channel = 0; channel < kChannels; ++channel) {
        const double value = std::clamp(color[channel] * alpha, 0.0, kOpaque);
        pixel |= static_cast<std::uint32_t>(std::lround(value)) << (channel * kBitsPerChannel);
    }
    return pixel;
}

/// Share of a pixel that lies within `radius` of the square's centre, good to a few per cent.
double Coverage(int size, double radius, std::size_t x, std::size_t y) {
    const double centre = (size - 1) / 2.0;
    const double distance = std::hypot(static_cast<double>(x) - centre, static_cast<double>(y) - centre);
    return std::clamp(radius + 0.5 - distance, 0.0, 1.0);
}

} // namespace

SquarePixels ScaleRoundPicture(const SquarePixels& source, int size) {
    SquarePixels result;
    if (size <= 0 || source.size <= 0) {
        return result;
    }
    const auto weights = AreaWeights(source.size, size);
    const auto sourceSize = static_cast<std::size_t>(source.size);
    const auto targetSize = static_cast<std::size_t>(size);

    // Columns first, so that the second pass reads each narrowed row only as often as rows overlap.
    std::vector<double> narrowed(sourceSize * targetSize * kChannels);
    for (std::size_t y = 0; y < sourceSize; ++y) {
        for (std::size_t x = 0; x < targetSize; ++x) {
            double* sum = &narrowed[(y * targetSize + x) * kChannels];
            for (const Weight& weight : weights[x]) {
                const std::uint32_t pixel = source.pixels[y * sourceSize + weight.source];
                for (int channel = 0; channel < kChannels; ++channel) {
                    sum[channel] += Channel(pixel, channel) * weight.share;
                }
            }
        }
    }

    result.size = size;
    result.pixels.resize(targetSize * targetSize);
    for (std::size_t y = 0; y < targetSize; ++y) {
        for (std::size_t x = 0; x < targetSize; ++x) {
            double color[kChannels] = {};
            for (const Weight& weight : weights[y]) {
                const double* row = &narrowed[(weight.source * targetSize + x) * kChannels];
                for (int channel = 0; channel < kChannels; ++channel) {
                    color[channel] += row[channel] * weight.share;
                }
            }
            result.pixels[y * targetSize + x] = Premultiplied(color, Coverage(size, size / 2.0, x, y));
        }
    }
    return result;
}

SquarePixels RoundRing(int size, int width, std::uint32_t color) {
    SquarePixels result{
        size, std::vector<std::uint32_t>(static_cast<std::size_t>(size) * static_cast<std::size_t>(size))};
    const double channels[kChannels] = {Channel(color, 0), Channel(color, 1), Channel(color, 2)};
    const auto side = static_cast<std::size_t>(size);
    for (std::size_t y = 0; y < side; ++y) {
        for (std::size_t x = 0; x < side; ++x) {
            const double ring = Coverage(size, size / 2.0, x, y) - Coverage(size, size / 2.0 - width, x, y);
            result.pixels[y * side + x] = Premultiplied(channels, ring);
        }
    }
    return result;
}
