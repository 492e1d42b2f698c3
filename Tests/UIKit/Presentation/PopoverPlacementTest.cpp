#include "Platform/UIKit/Presentation/PopoverPlacement.h"

#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace CoreGraphics;
using namespace UIKit;

constexpr UIPopoverArrowDirection both = UIPopoverArrowDirectionUp | UIPopoverArrowDirectionDown;
constexpr CGSize window{640, 360};
constexpr CGSize menu{200, 300};

TEST(PopoverPlacementTest, OpensBelowAnAnchorAtTheTop) {
    const PopoverPlacement placed = placePopover(window, CGRectMake(300, 0, 40, 40), {200, 100}, both);
    EXPECT_EQ(placed.arrowDirection, UIPopoverArrowDirectionUp);
    EXPECT_EQ(placed.arrowTip, CGPointMake(320, 42));
    EXPECT_EQ(placed.content, CGRectMake(220, 52, 200, 100));
}

TEST(PopoverPlacementTest, OpensAboveAnAnchorAtTheBottom) {
    const PopoverPlacement placed = placePopover(window, CGRectMake(300, 320, 40, 40), {200, 100}, both);
    EXPECT_EQ(placed.arrowDirection, UIPopoverArrowDirectionDown);
    EXPECT_EQ(placed.arrowTip, CGPointMake(320, 318));
    EXPECT_EQ(placed.content, CGRectMake(220, 208, 200, 100));
}

TEST(PopoverPlacementTest, TakesTheRoomierSideAndShrinksWhereThatIsTooSmall) {
    const PopoverPlacement below = placePopover(window, CGRectMake(300, 120, 40, 40), menu, both);
    EXPECT_EQ(below.arrowDirection, UIPopoverArrowDirectionUp);
    EXPECT_EQ(below.content, CGRectMake(220, 172, 200, 178));
    const PopoverPlacement above = placePopover(window, CGRectMake(300, 200, 40, 40), menu, both);
    EXPECT_EQ(above.arrowDirection, UIPopoverArrowDirectionDown);
    EXPECT_EQ(above.content, CGRectMake(220, 10, 200, 178));
}

TEST(PopoverPlacementTest, KeepsToThePermittedSide) {
    const CGRect anchor = CGRectMake(300, 180, 40, 40);
    EXPECT_EQ(placePopover(window, anchor, {200, 100}, UIPopoverArrowDirectionUp).arrowDirection,
              UIPopoverArrowDirectionUp);
    EXPECT_EQ(placePopover(window, anchor, {200, 100}, UIPopoverArrowDirectionDown).arrowDirection,
              UIPopoverArrowDirectionDown);
    EXPECT_EQ(placePopover(window, anchor, {200, 100}, UIPopoverArrowDirectionLeft).arrowDirection,
              UIPopoverArrowDirectionDown);
}

TEST(PopoverPlacementTest, StaysWithinTheMarginsAndTheArrowOnTheAnchor) {
    const PopoverPlacement left = placePopover(window, CGRectMake(40, 0, 20, 20), {200, 100}, both);
    EXPECT_EQ(left.content.origin.x, 10.0);
    EXPECT_EQ(left.arrowTip.x, 50.0);
    const PopoverPlacement right = placePopover(window, CGRectMake(630, 0, 10, 20), {200, 100}, both);
    EXPECT_EQ(right.content.origin.x, 430.0);
    EXPECT_EQ(right.arrowTip.x, 630.0 - 21.0);
}

TEST(PopoverPlacementTest, IsInsideAtEveryWindowSizeAndForEveryAnchor) {
    for (const CGFloat width : {0.0, 15.0, 60.0, 320.0, 4000.0}) {
        for (const CGFloat height : {0.0, 15.0, 60.0, 180.0, 4000.0}) {
            for (const CGFloat x : {-500.0, 0.0, 100.0, 5000.0}) {
                for (const CGFloat y : {-500.0, 0.0, 100.0, 5000.0}) {
                    const PopoverPlacement placed =
                        placePopover({width, height}, CGRectMake(x, y, 44, 44), menu, both);
                    const CGRect shown = CGRectStandardize(placed.content);
                    EXPECT_GE(shown.origin.x, std::min(popoverMargin, width / 2.0));
                    EXPECT_GE(shown.origin.y, std::min(popoverMargin, height / 2.0));
                    EXPECT_LE(CGRectGetMaxX(shown), std::max(width - popoverMargin, width / 2.0));
                    EXPECT_LE(CGRectGetMaxY(shown), std::max(height - popoverMargin, height / 2.0));
                    if (placed.arrowDirection != UIPopoverArrowDirectionUnknown) {
                        EXPECT_GE(placed.arrowTip.x, shown.origin.x);
                        EXPECT_LE(placed.arrowTip.x, CGRectGetMaxX(shown));
                    }
                }
            }
        }
    }
}

TEST(PopoverPlacementTest, WithoutRoomOnEitherSideItLiesOverTheMiddle) {
    const PopoverPlacement placed = placePopover({320, 180}, CGRectMake(0, 60, 320, 60), menu, both);
    EXPECT_EQ(placed.arrowDirection, UIPopoverArrowDirectionUnknown);
    EXPECT_EQ(placed.content, CGRectMake(60, 10, 200, 160));
}

TEST(PopoverPlacementTest, AShortMenuNeedsNoMoreRoomThanItself) {
    const PopoverPlacement placed = placePopover({320, 180}, CGRectMake(0, 60, 320, 60), {200, 20}, both);
    EXPECT_EQ(placed.arrowDirection, UIPopoverArrowDirectionUp);
    EXPECT_EQ(placed.content.size.height, 20.0);
}

TEST(PopoverPlacementTest, WithoutAnAnchorItLiesInTheMiddle) {
    const PopoverPlacement expected{CGRectMake(220, 130, 200, 100), UIPopoverArrowDirectionUnknown, {}};
    EXPECT_EQ(placePopover(window, std::nullopt, {200, 100}, both), expected);
    const CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    EXPECT_EQ(placePopover(window, CGRectMake(infinity, 0, 1, 1), {200, 100}, both), expected);
    EXPECT_EQ(placePopover(window, CGRectMake(0, infinity - infinity, 1, 1), {200, 100}, both), expected);
}

} // namespace
