#include "ui/RoundPicture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr std::uint32_t kOrange = 0xFFFF8000;

std::uint32_t Alpha(std::uint32_t pixel) {
    return pixel >> 24;
}

std::uint32_t BrightestChannel(std::uint32_t pixel) {
    return std::max({pixel & 0xFF, pixel >> 8 & 0xFF, pixel >> 16 & 0xFF});
}

SquarePixels Filled(int size, std::uint32_t pixel) {
    const auto count = static_cast<std::size_t>(size) * static_cast<std::size_t>(size);
    return {size, std::vector<std::uint32_t>(count, pixel)};
}

constexpr int kSizes[] = {16, 31, 48, 72, 96, 128, 144, 200};

SquarePixels Scaled(int size) {
    return ScaleRoundPicture(Filled(128, kOrange), size);
}

TEST(ScaleRoundPictureTest, HasTheSizeAskedFor) {
    for (const int size : kSizes) {
        SCOPED_TRACE(size);
        const SquarePixels picture = Scaled(size);
        EXPECT_EQ(picture.size, size);
        EXPECT_EQ(picture.pixels.size(), static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    }
}

TEST(ScaleRoundPictureTest, IsTransparentInItsCorners) {
    for (const int size : kSizes) {
        SCOPED_TRACE(size);
        const SquarePixels picture = Scaled(size);
        const int last = size - 1;
        EXPECT_EQ(picture.At(0, 0), 0U);
        EXPECT_EQ(picture.At(last, 0), 0U);
        EXPECT_EQ(picture.At(0, last), 0U);
        EXPECT_EQ(picture.At(last, last), 0U);
    }
}

TEST(ScaleRoundPictureTest, KeepsAPlainColorInside) {
    for (const int size : kSizes) {
        SCOPED_TRACE(size);
        const SquarePixels picture = Scaled(size);
        EXPECT_EQ(picture.At(size / 2, size / 2), kOrange);
        EXPECT_EQ(picture.At(size / 2, 2), kOrange);
        EXPECT_EQ(picture.At(size - 3, size / 2), kOrange);
    }
}

TEST(ScaleRoundPictureTest, LooksTheSameFromAllSides) {
    for (const int size : kSizes) {
        SCOPED_TRACE(size);
        const SquarePixels picture = Scaled(size);
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                ASSERT_EQ(picture.At(x, y), picture.At(size - 1 - x, y));
                ASSERT_EQ(picture.At(x, y), picture.At(y, x));
            }
        }
    }
}

TEST(ScaleRoundPictureTest, IsPremultipliedByItsAlpha) {
    for (const int size : kSizes) {
        SCOPED_TRACE(size);
        const SquarePixels picture = Scaled(size);
        for (const std::uint32_t pixel : picture.pixels) {
            ASSERT_LE(BrightestChannel(pixel), Alpha(pixel));
        }
    }
}

TEST(ScaleRoundPictureTest, HasASmoothEdge) {
    for (const int size : kSizes) {
        SCOPED_TRACE(size);
        const SquarePixels picture = Scaled(size);
        const bool smooth =
            std::any_of(picture.pixels.begin(), picture.pixels.end(),
                        [](std::uint32_t pixel) { return Alpha(pixel) > 0 && Alpha(pixel) < 255; });
        EXPECT_TRUE(smooth);
    }
}

TEST(ScaleRoundPictureTest, AveragesTheAreaBehindAPixel) {
    const SquarePixels quarters{2, {0xFF000000, 0xFF0000FF, 0xFF00FF00, 0xFFFF0000}};
    const SquarePixels one = ScaleRoundPicture(quarters, 1);
    ASSERT_EQ(one.size, 1);
    EXPECT_EQ(one.At(0, 0), 0xFF404040U);
}

TEST(ScaleRoundPictureTest, WeighsPartOfAPixelByItsShare) {
    // The middle one of three columns belongs half to each of two.
    SquarePixels thirds = Filled(3, 0xFF000000);
    for (const std::size_t pixel : {1U, 4U, 7U}) {
        thirds.pixels[pixel] = 0xFFFFFFFF;
    }
    const SquarePixels two = ScaleRoundPicture(thirds, 2);
    ASSERT_EQ(two.size, 2);
    EXPECT_EQ(two.At(0, 0), two.At(1, 0));
    EXPECT_NEAR(static_cast<double>(two.At(0, 0) & 0xFF) / Alpha(two.At(0, 0)), 1.0 / 3, 0.01);
}

TEST(ScaleRoundPictureTest, KeepsLeftAndRightAndTopAndBottomApart) {
    SquarePixels source = Filled(4, 0xFF000000);
    for (std::size_t y = 0; y < 4; ++y) {
        source.pixels[y * 4] = 0xFFFF0000;
        source.pixels[y] |= 0xFF0000FF;
    }
    const SquarePixels same = ScaleRoundPicture(source, 40);
    EXPECT_EQ(same.At(4, 20), 0xFFFF0000U) << "left";
    EXPECT_EQ(same.At(20, 4), 0xFF0000FFU) << "top";
    EXPECT_EQ(same.At(35, 20), 0xFF000000U) << "right";
    EXPECT_EQ(same.At(20, 35), 0xFF000000U) << "bottom";
}

TEST(ScaleRoundPictureTest, GivesNothing_ForNoSizeOrNoPicture) {
    EXPECT_EQ(ScaleRoundPicture(Filled(4, kOrange), 0).size, 0);
    EXPECT_EQ(ScaleRoundPicture(Filled(4, kOrange), -1).size, 0);
    EXPECT_EQ(ScaleRoundPicture(SquarePixels{}, 10).size, 0);
    EXPECT_TRUE(ScaleRoundPicture(SquarePixels{}, 10).pixels.empty());
}

TEST(RoundRingTest, IsALineJustInsideTheSquare) {
    const SquarePixels ring = RoundRing(40, 3, 0x00123456);
    EXPECT_GT(Alpha(ring.At(20, 0)), 240U);
    EXPECT_EQ(ring.At(20, 1), 0xFF123456U);
    EXPECT_EQ(ring.At(1, 20), 0xFF123456U);
    EXPECT_EQ(ring.At(38, 20), 0xFF123456U);
    EXPECT_EQ(ring.At(20, 38), 0xFF123456U);
}

TEST(RoundRingTest, IsTransparentInsideAndInTheCorners) {
    const SquarePixels ring = RoundRing(40, 3, 0x00FFFFFF);
    EXPECT_EQ(ring.At(20, 20), 0U);
    EXPECT_EQ(ring.At(20, 5), 0U);
    EXPECT_EQ(ring.At(0, 0), 0U);
    EXPECT_EQ(ring.At(39, 39), 0U);
}

TEST(RoundRingTest, IsPremultipliedByItsAlpha) {
    for (const std::uint32_t pixel : RoundRing(31, 2, 0x00FF8000).pixels) {
        ASSERT_LE(BrightestChannel(pixel), Alpha(pixel));
    }
}

TEST(RoundRingTest, FillsTheCircle_WhenItIsWiderThanTheRadius) {
    const SquarePixels disc = RoundRing(20, 100, 0x00FFFFFF);
    EXPECT_EQ(disc.At(10, 10), 0xFFFFFFFFU);
    EXPECT_EQ(disc.At(0, 0), 0U);
}

TEST(RoundRingTest, IsEmpty_WithoutASizeOrAWidth) {
    EXPECT_TRUE(RoundRing(0, 2, 0).pixels.empty());
    for (const std::uint32_t pixel : RoundRing(10, 0, 0x00FFFFFF).pixels) {
        ASSERT_EQ(pixel, 0U);
    }
}

} // namespace
