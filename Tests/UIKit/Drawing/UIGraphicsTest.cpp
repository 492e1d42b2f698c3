#include "Platform/UIKit/UIGraphics.h"

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/UIKit/UIImage.h"
#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;

std::size_t operationCount(const std::shared_ptr<UIImage>& image) {
    return image->drawing()->operations().size();
}

TEST(UIGraphicsTest, WithoutAContextThereIsNoImage) {
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST(UIGraphicsTest, ImageHasTheSizeAndWhatWasDrawnSoFar) {
    UIGraphicsBeginImageContext({12, 34});
    EXPECT_EQ(operationCount(UIGraphicsGetImageFromCurrentImageContext()), 0u);
    UIGraphicsGetCurrentContext()->fillRect(CGRectMake(0, 0, 1, 1), {});
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsGetCurrentContext()->fillRect(CGRectMake(1, 0, 1, 1), {});
    EXPECT_EQ(operationCount(image), 1u);
    EXPECT_EQ(operationCount(UIGraphicsGetImageFromCurrentImageContext()), 2u);
    UIGraphicsEndImageContext();
    EXPECT_EQ(image->size(), CGSizeMake(12, 34));
}

TEST(UIGraphicsTest, ContextsNestAndStayOpenUntilTheyAreEnded) {
    UIGraphicsBeginImageContext({1, 1});
    CGContext* outer = UIGraphicsGetCurrentContext();
    UIGraphicsBeginImageContext({2, 2});
    EXPECT_NE(UIGraphicsGetCurrentContext(), outer);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), CGSizeMake(2, 2));
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), outer);
    EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext()->size(), CGSizeMake(1, 1));
    UIGraphicsEndImageContext();
    EXPECT_EQ(UIGraphicsGetCurrentContext(), nullptr);
}

TEST(UIGraphicsTest, SizeWithoutAnAreaOpensAContextThatMakesNoImage) {
    for (const CGFloat length : {0.0, -0.0, -5.0, notANumber, infinity, -infinity}) {
        for (const CGSize& size : {CGSizeMake(length, 10), CGSizeMake(10, length)}) {
            UIGraphicsBeginImageContext(size);
            ASSERT_NE(UIGraphicsGetCurrentContext(), nullptr);
            UIGraphicsGetCurrentContext()->fillRect(CGRectMake(0, 0, 1, 1), {});
            EXPECT_EQ(UIGraphicsGetImageFromCurrentImageContext(), nullptr);
            UIGraphicsEndImageContext();
        }
    }
}

} // namespace
