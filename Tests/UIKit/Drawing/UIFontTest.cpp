#include "Platform/UIKit/UIFont.h"

#include "Platform/Foundation/Message.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace CoreGraphics;
using namespace UIKit;

TEST(UIFontTest, CarriesSizeWeightAndFigures) {
    EXPECT_EQ(UIFont::systemFontOfSize(12)->cgFont(),
              (CGFont{12, CGFontWeight::Regular, CGFigures::Proportional}));
    EXPECT_EQ(UIFont::systemFontOfSize(13, UIFontWeightMedium)->cgFont(),
              (CGFont{13, CGFontWeight::Medium, CGFigures::Proportional}));
    EXPECT_EQ(UIFont::boldSystemFontOfSize(14)->cgFont(),
              (CGFont{14, CGFontWeight::Bold, CGFigures::Proportional}));
    EXPECT_EQ(UIFont::monospacedDigitSystemFontOfSize(15, UIFontWeightBold)->cgFont(),
              (CGFont{15, CGFontWeight::Bold, CGFigures::Monospaced}));
}

TEST(UIFontTest, ASizeThatIsNoneIsTheSystemsOwn) {
    for (const CGFloat size :
         {0.0, -3.0, std::numeric_limits<CGFloat>::infinity(), std::numeric_limits<CGFloat>::quiet_NaN()}) {
        EXPECT_EQ(UIFont::systemFontOfSize(size)->pointSize(), 17.0);
    }
}

TEST(UIFontTest, AnotherSizeKeepsTheFace) {
    const auto font = UIFont::monospacedDigitSystemFontOfSize(15, UIFontWeightBold)->fontWithSize(30);
    EXPECT_EQ(font->cgFont(), (CGFont{30, CGFontWeight::Bold, CGFigures::Monospaced}));
    EXPECT_GT(font->lineHeight(), 30.0);
}

TEST(UIFontTest, CanBeReachedByName) {
    const auto& factory = UIFont::classObject();
    const auto bold = factory.send<std::shared_ptr<UIFont>>("boldSystemFontOfSize:", 12.0);
    EXPECT_EQ(bold->send<CGFloat>("pointSize"), 12.0);
    const auto figures = factory.send<std::shared_ptr<UIFont>>(
        "monospacedDigitSystemFontOfSize:weight:", 11.0, UIFontWeightMedium);
    EXPECT_EQ(figures->cgFont(), (CGFont{11, CGFontWeight::Medium, CGFigures::Monospaced}));
    EXPECT_EQ(factory.send<std::shared_ptr<UIFont>>("systemFontOfSize:", 10.0)->pointSize(), 10.0);
}

} // namespace
