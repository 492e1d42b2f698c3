#include "Platform/UIKit/View/ViewGeometry.h"

#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>
#include <numbers>

namespace {

using namespace CoreGraphics;
using UIKit::ViewGeometry;

constexpr CGFloat pi = std::numbers::pi;

void expectNear(const CGRect& actual, const CGRect& expected) {
    EXPECT_NEAR(actual.origin.x, expected.origin.x, 1e-9);
    EXPECT_NEAR(actual.origin.y, expected.origin.y, 1e-9);
    EXPECT_NEAR(actual.size.width, expected.size.width, 1e-9);
    EXPECT_NEAR(actual.size.height, expected.size.height, 1e-9);
}

void expectNear(const CGPoint& actual, const CGPoint& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
}

ViewGeometry withFrame(const CGRect& frame) {
    ViewGeometry geometry;
    geometry.setFrame(frame);
    return geometry;
}

TEST(ViewGeometryTest, FrameIsReadBackToTheBitWithoutATransform) {
    for (const CGFloat start : awkwardNumbers) {
        for (const CGFloat length : awkwardNumbers) {
            if (start == start && length == length) {
                const CGRect frame = CGRectMake(start, -start, length, -length);
                EXPECT_EQ(withFrame(frame).frame(), frame);
            }
        }
    }
}

TEST(ViewGeometryTest, NegativeWidthIsKeptAsGiven) {
    const ViewGeometry geometry = withFrame(CGRectMake(10, 20, -30, 40));
    EXPECT_EQ(geometry.frame(), CGRectMake(10, 20, -30, 40));
    EXPECT_EQ(geometry.bounds(), CGRectMake(0, 0, -30, 40));
    EXPECT_EQ(geometry.center(), CGPointMake(-5, 40));
    EXPECT_EQ(CGRectApplyAffineTransform(geometry.bounds(), geometry.toSuperview()),
              CGRectMake(-20, 20, 30, 40));
}

TEST(ViewGeometryTest, FrameBoundsAndCentreAgree) {
    ViewGeometry geometry = withFrame(CGRectMake(10, 20, 30, 40));
    EXPECT_EQ(geometry.bounds(), CGRectMake(0, 0, 30, 40));
    EXPECT_EQ(geometry.center(), CGPointMake(25, 40));

    geometry.setCenter({100, 100});
    EXPECT_EQ(geometry.frame(), CGRectMake(85, 80, 30, 40));
    EXPECT_EQ(geometry.bounds(), CGRectMake(0, 0, 30, 40));

    geometry.setBounds(CGRectMake(5, 6, 10, 20));
    EXPECT_EQ(geometry.center(), CGPointMake(100, 100));
    EXPECT_EQ(geometry.frame(), CGRectMake(95, 90, 10, 20));
    EXPECT_EQ(geometry.bounds(), CGRectMake(5, 6, 10, 20));

    geometry.setFrame(CGRectMake(0, 0, 7, 8));
    EXPECT_EQ(geometry.bounds(), CGRectMake(5, 6, 7, 8));
}

TEST(ViewGeometryTest, BoundsOfTheSameSizeLeaveTheFrameToTheBit) {
    ViewGeometry geometry = withFrame(CGRectMake(0.1, 0.2, 0.3, 0.7));
    geometry.setBounds(CGRectMake(5, 5, 0.3, 0.7));
    EXPECT_EQ(geometry.frame(), CGRectMake(0.1, 0.2, 0.3, 0.7));
}

TEST(ViewGeometryTest, TransformActsAboutTheCentre) {
    ViewGeometry geometry = withFrame(CGRectMake(10, 10, 40, 20));
    geometry.setTransform(CGAffineTransformMakeScale(0.5, 2.0));
    EXPECT_EQ(geometry.center(), CGPointMake(30, 20));
    EXPECT_EQ(geometry.bounds(), CGRectMake(0, 0, 40, 20));
    expectNear(geometry.frame(), CGRectMake(20, 0, 20, 40));

    geometry.setTransform(CGAffineTransformMakeRotation(pi / 2));
    expectNear(geometry.frame(), CGRectMake(20, 0, 20, 40));

    geometry.setTransform({});
    EXPECT_EQ(geometry.frame(), CGRectMake(10, 10, 40, 20));
}

TEST(ViewGeometryTest, FrameOfAScaledViewMovesTheCentreAndSizesTheBounds) {
    ViewGeometry geometry = withFrame(CGRectMake(0, 0, 100, 100));
    geometry.setTransform(CGAffineTransformMakeScale(0.8, 0.5));
    geometry.setFrame(CGRectMake(10, 20, 40, 50));
    expectNear(geometry.center(), {30, 45});
    expectNear(geometry.bounds(), CGRectMake(0, 0, 50, 100));
    expectNear(geometry.frame(), CGRectMake(10, 20, 40, 50));
}

TEST(ViewGeometryTest, FrameIsWhatWasSetUnderQuarterTurnsMirrorsAndShifts) {
    const CGAffineTransform shift = CGAffineTransformMakeTranslation(13, -7);
    for (const CGAffineTransform& transform :
         {CGAffineTransformMakeScale(-0.8, 1.5), CGAffineTransformMakeRotation(pi / 2),
          CGAffineTransformMakeRotation(pi), CGAffineTransformMakeRotation(-pi / 2), shift,
          CGAffineTransformConcat(CGAffineTransformMakeScale(2, 3), shift)}) {
        ViewGeometry geometry = withFrame(CGRectMake(1, 2, 3, 4));
        geometry.setTransform(transform);
        geometry.setBounds(CGRectMake(9, 9, 5, 5));
        geometry.setFrame(CGRectMake(10, 20, 40, 60));
        expectNear(geometry.frame(), CGRectMake(10, 20, 40, 60));
        EXPECT_GT(geometry.bounds().size.width, 0.0);
        EXPECT_GT(geometry.bounds().size.height, 0.0);
        EXPECT_EQ(geometry.bounds().origin, CGPointMake(9, 9));
    }
}

TEST(ViewGeometryTest, FrameOfNegativeWidthUnderATransformIsStandardized) {
    ViewGeometry geometry;
    geometry.setTransform(CGAffineTransformMakeScale(2, 2));
    geometry.setFrame(CGRectMake(50, 0, -40, 20));
    expectNear(geometry.bounds(), CGRectMake(0, 0, 20, 10));
    expectNear(geometry.frame(), CGRectMake(10, 0, 40, 20));
}

TEST(ViewGeometryTest, SingularTransformKeepsTheSizeAndHasNoWayBack) {
    ViewGeometry geometry = withFrame(CGRectMake(0, 0, 100, 50));
    geometry.setTransform(CGAffineTransformMakeScale(0, 1));
    EXPECT_EQ(geometry.frame(), CGRectMake(50, 0, 0, 50));
    EXPECT_EQ(geometry.fromSuperview(), std::nullopt);
    geometry.setFrame(CGRectMake(0, 0, 20, 20));
    EXPECT_EQ(geometry.bounds(), CGRectMake(0, 0, 100, 50));
    EXPECT_EQ(geometry.center(), CGPointMake(10, 10));
    geometry.setTransform({});
    EXPECT_EQ(geometry.frame(), CGRectMake(-40, -15, 100, 50));
}

TEST(ViewGeometryTest, WayToTheSuperviewAndBackMeet) {
    ViewGeometry geometry = withFrame(CGRectMake(10, 20, 30, 40));
    geometry.setBounds(CGRectMake(100, 200, 30, 40));
    EXPECT_EQ(CGPointApplyAffineTransform({100, 200}, geometry.toSuperview()), CGPointMake(10, 20));
    geometry.setTransform(CGAffineTransformMakeRotation(pi / 2));
    // The box's corner turns clockwise about the centre (25, 40), from its left top to its right top.
    expectNear(CGPointApplyAffineTransform({100, 200}, geometry.toSuperview()), {45, 25});
    expectNear(CGPointApplyAffineTransform({45, 25}, *geometry.fromSuperview()), {100, 200});
}

TEST(ViewGeometryTest, RectanglesGoTheWayOfTheirPoints) {
    ViewGeometry geometry = withFrame(CGRectMake(10, 20, 30, 40));
    geometry.setBounds(CGRectMake(100, 200, 30, 40));
    EXPECT_EQ(geometry.rectToSuperview(CGRectMake(101, 202, 3, 4)), CGRectMake(11, 22, 3, 4));
    EXPECT_EQ(geometry.rectFromSuperview(CGRectMake(11, 22, 3, 4)), CGRectMake(101, 202, 3, 4));
    geometry.setTransform(CGAffineTransformMakeScale(2, 2));
    EXPECT_EQ(geometry.rectToSuperview(geometry.bounds()), geometry.frame());
    expectNear(*geometry.rectFromSuperview(geometry.frame()), geometry.bounds());
    geometry.setTransform(CGAffineTransformMakeScale(2, 0));
    EXPECT_EQ(geometry.rectFromSuperview(geometry.frame()), std::nullopt);
    geometry.setTransform({});
    EXPECT_EQ(geometry.rectToSuperview(geometry.bounds()), CGRectMake(10, 20, 30, 40));
}

} // namespace
