#include "Platform/UIKit/UIColor.h"

#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/Foundation/Message.h"
#include "Platform/UIKit/UIImage.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

TEST(UIColorTest, KeepsItsComponents) {
    EXPECT_EQ(make<UIColor>(0.1, 0.2, 0.3, 0.4)->cgColor(), (CGColor{0.1, 0.2, 0.3, 0.4}));
    EXPECT_EQ(make<UIColor>(2.0, -1.0, 0.0, 1.5)->cgColor(), (CGColor{2.0, -1.0, 0.0, 1.5}));
}

TEST(UIColorTest, WhiteIsTheSameOfEach) {
    EXPECT_EQ(make<UIColor>(0.9, 0.5)->cgColor(), (CGColor{0.9, 0.9, 0.9, 0.5}));
}

TEST(UIColorTest, PatternHasAnImageAndNoColor) {
    const auto image = make<UIImage>(
        std::make_shared<const CGDrawing>(CGSizeMake(2, 2), std::vector<CGDrawing::Operation>{}));
    const auto color = make<UIColor>(image);
    EXPECT_EQ(color->patternImage(), image);
    EXPECT_EQ(color->cgColor().alpha, 0.0);
    EXPECT_EQ(make<UIColor>(0.0, 1.0)->patternImage(), nullptr);
}

TEST(UIColorTest, WithoutAnImageThereIsNoPattern) {
    EXPECT_EQ(make<UIColor>(std::shared_ptr<UIImage>()), nullptr);
}

} // namespace
