#include "Platform/CoreGraphics/CGImage.h"

#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>

using namespace CoreGraphics;

TEST(CGImage, KeepsItsPixelsAndMeasuresItselfInPoints) {
    const std::vector<std::uint8_t> bytes{1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,
                                          13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24};
    const auto image = CGImage::create(3, 2, bytes, 2.0);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width(), 3u);
    EXPECT_EQ(image->height(), 2u);
    EXPECT_EQ(image->scale(), 2.0);
    EXPECT_EQ(image->size(), CGSizeMake(1.5, 1.0));
    EXPECT_EQ(image->bytes(), bytes);
}

TEST(CGImage, HasOnePixelAPointUnlessTold) {
    const auto image = CGImage::create(1, 2, std::vector<std::uint8_t>(8));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), CGSizeMake(1, 2));
}

TEST(CGImage, IsNotMadeWithoutPixels) {
    EXPECT_FALSE(CGImage::create(0, 0, {}));
    EXPECT_FALSE(CGImage::create(0, 1, {}));
    EXPECT_FALSE(CGImage::create(1, 0, {}));
}

TEST(CGImage, IsNotMadeFromBytesThatDoNotFitItsSides) {
    for (const std::size_t count : {0u, 4u, 20u, 23u, 25u, 28u, 32u, 48u})
        EXPECT_FALSE(CGImage::create(3, 2, std::vector<std::uint8_t>(count))) << count;
    EXPECT_TRUE(CGImage::create(3, 2, std::vector<std::uint8_t>(24)));
}

TEST(CGImage, IsNotMadeWhenTheNumberOfBytesOverflows) {
    const std::size_t half = std::size_t{1} << (std::numeric_limits<std::size_t>::digits / 2);
    EXPECT_FALSE(CGImage::create(half, half, {}));
    EXPECT_FALSE(CGImage::create(half * 2, half / 8, {}));
    EXPECT_FALSE(
        CGImage::create(std::numeric_limits<std::size_t>::max() / 4 + 2, 1, std::vector<std::uint8_t>(4)));
}

TEST(CGImage, IsNotMadeWithAScaleThatIsNotFiniteAndAboveZero) {
    for (const double scale : {0.0, -1.0, notANumber, infinity, -infinity})
        EXPECT_FALSE(CGImage::create(1, 1, std::vector<std::uint8_t>(4), scale)) << scale;
}

TEST(CGImage, ImagesAreEqualWhenPixelsShapeAndScaleAre) {
    const std::vector<std::uint8_t> bytes(8, 7);
    const auto image = CGImage::create(2, 1, bytes);
    EXPECT_EQ(*image, *CGImage::create(2, 1, bytes));
    EXPECT_NE(*image, *CGImage::create(1, 2, bytes));
    EXPECT_NE(*image, *CGImage::create(2, 1, bytes, 2.0));
    EXPECT_NE(*image, *CGImage::create(2, 1, std::vector<std::uint8_t>(8, 6)));
}
