#include "Platform/UIKit/UIImage.h"

#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Platform/UIKit/UIGraphics.h"
#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

std::shared_ptr<const CGDrawing> redSquare() {
    CGRecordingContext context({10, 10});
    context.fillRect(CGRectMake(0, 0, 10, 10), {1, 0, 0, 1});
    return context.drawing();
}

TEST(UIImageTest, IsADrawing) {
    const auto drawing = redSquare();
    const auto image = make<UIImage>(drawing);
    EXPECT_EQ(image->size(), CGSizeMake(10, 10));
    EXPECT_EQ(image->drawing(), drawing);
}

TEST(UIImageTest, IsPixelsAtTheirScale) {
    const auto pixels = CGImage::create(4, 2, std::vector<std::uint8_t>(32), 2.0);
    const auto image = make<UIImage>(pixels);
    EXPECT_EQ(image->size(), CGSizeMake(2, 1));
    ASSERT_EQ(image->drawing()->operations().size(), 1u);
    const auto& draw = std::get<CGDrawing::DrawImage>(image->drawing()->operations()[0]);
    EXPECT_EQ(draw.image, pixels);
    EXPECT_EQ(draw.rect, CGRectMake(0, 0, 2, 1));
}

TEST(UIImageTest, IsNothingWithoutAPicture) {
    EXPECT_EQ(make<UIImage>(std::shared_ptr<const CGImage>()), nullptr);
    EXPECT_EQ(make<UIImage>(std::shared_ptr<const CGDrawing>()), nullptr);
    EXPECT_EQ(make<UIImage>(), nullptr);
}

TEST(UIImageTest, DrawsScaledIntoTheRectangle) {
    UIGraphicsBeginImageContext({100, 100});
    make<UIImage>(redSquare())->drawInRect(CGRectMake(20, 30, 40, 5));
    const auto result = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();

    CGRecordingContext expected({100, 100});
    redSquare()->draw(expected, CGRectMake(20, 30, 40, 5));
    EXPECT_EQ(*result->drawing(), *expected.drawing());
    CGAffineTransform scale;
    for (const CGDrawing::Operation& operation : result->drawing()->operations()) {
        if (const auto* concatenate = std::get_if<CGDrawing::Concatenate>(&operation)) {
            scale = CGAffineTransformConcat(concatenate->transform, scale);
        }
    }
    EXPECT_EQ(CGRectApplyAffineTransform(CGRectMake(0, 0, 10, 10), scale), CGRectMake(20, 30, 40, 5));
}

TEST(UIImageTest, DrawsNothingIntoARectangleWithoutArea) {
    const auto image = make<UIImage>(redSquare());
    UIGraphicsBeginImageContext({100, 100});
    image->drawInRect(CGRectMake(0, 0, 0, 10));
    image->drawInRect(CGRectMake(0, 0, notANumber, 10));
    image->drawInRect(CGRectMake(0, 0, infinity, 10));
    EXPECT_TRUE(UIGraphicsGetImageFromCurrentImageContext()->drawing()->operations().empty());
    UIGraphicsEndImageContext();
}

TEST(UIImageTest, WithoutAContextDrawsNothing) {
    ASSERT_EQ(UIGraphicsGetCurrentContext(), nullptr);
    make<UIImage>(redSquare())->drawInRect(CGRectMake(0, 0, 10, 10));
}

} // namespace
