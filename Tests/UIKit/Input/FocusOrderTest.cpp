#include "Platform/UIKit/Input/FocusOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FocusOrderTest, ReadsRowsFromTheTopAndEachFromTheLeft) {
    const std::vector<CGRect> frames{CGRectMake(50, 40, 20, 20), CGRectMake(0, 40, 20, 20),
                                     CGRectMake(60, 0, 20, 20), CGRectMake(10, 0, 20, 20)};
    EXPECT_THAT(readingOrder(frames), ElementsAre(3, 2, 1, 0));
    EXPECT_THAT(readingOrder({}), IsEmpty());
}

TEST(FocusOrderTest, WhatIsLowerOrHigherInARowIsInItAllTheSame) {
    const std::vector<CGRect> frames{CGRectMake(100, 10, 200, 20), CGRectMake(320, 2, 40, 36),
                                     CGRectMake(0, 0, 44, 44), CGRectMake(0, 50, 44, 44)};
    EXPECT_THAT(readingOrder(frames), ElementsAre(2, 0, 1, 3));
}

TEST(FocusOrderTest, OfTheSameFramesTheEarlierComesFirst) {
    const CGRect frame = CGRectMake(5, 5, 10, 10);
    EXPECT_THAT(readingOrder({frame, frame, frame}), ElementsAre(0, 1, 2));
}

/// A cross of four around a middle, at equal distances.
class FocusHeadingTest : public testing::Test {
protected:
    const CGRect middle = CGRectMake(100, 100, 20, 20);
    std::vector<CGRect> frames{CGRectMake(100, 50, 20, 20), CGRectMake(100, 150, 20, 20),
                               CGRectMake(50, 100, 20, 20), CGRectMake(150, 100, 20, 20)};
};

TEST_F(FocusHeadingTest, EachSideHasItsNearest) {
    EXPECT_EQ(nearestFrame(middle, frames, UIFocusHeading::Up), 0U);
    EXPECT_EQ(nearestFrame(middle, frames, UIFocusHeading::Down), 1U);
    EXPECT_EQ(nearestFrame(middle, frames, UIFocusHeading::Left), 2U);
    EXPECT_EQ(nearestFrame(middle, frames, UIFocusHeading::Right), 3U);
}

TEST_F(FocusHeadingTest, NothingLiesBeyondTheLast) {
    EXPECT_EQ(nearestFrame(frames[0], frames, UIFocusHeading::Up), std::nullopt);
    EXPECT_EQ(nearestFrame(frames[3], frames, UIFocusHeading::Right), std::nullopt);
    EXPECT_EQ(nearestFrame(middle, {middle}, UIFocusHeading::Down), std::nullopt);
}

TEST_F(FocusHeadingTest, WhatLiesStraightAheadComesBeforeWhatLiesAside) {
    frames.push_back(CGRectMake(140, 60, 20, 20));
    EXPECT_EQ(nearestFrame(middle, frames, UIFocusHeading::Right), 3U);
    frames[3].origin.x = 300;
    EXPECT_EQ(nearestFrame(middle, frames, UIFocusHeading::Right), 4U) << "far ahead is farther than aside";
}

TEST_F(FocusHeadingTest, FromAWideOneTheNearestToItsMiddleIsTaken) {
    const CGRect wide = CGRectMake(0, 200, 300, 20);
    EXPECT_EQ(
        nearestFrame(wide,
                     {CGRectMake(0, 150, 20, 20), CGRectMake(130, 150, 20, 20), CGRectMake(280, 150, 20, 20)},
                     UIFocusHeading::Up),
        1U);
}

} // namespace
