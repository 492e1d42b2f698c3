#include "Platform/CoreGraphics/ContentLayout.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace CoreGraphics;

TEST(ContentLayoutTest, WhatFitsKeepsItsSize) {
    EXPECT_EQ(sizeFittedInto({20, 10}, {20, 10}), (CGSize{20, 10}));
    EXPECT_EQ(sizeFittedInto({20, 10}, {100, 100}), (CGSize{20, 10}));
}

TEST(ContentLayoutTest, WhatIsTooLargeShrinksInItsShape) {
    EXPECT_EQ(sizeFittedInto({20, 10}, {10, 100}), (CGSize{10, 5}));
    EXPECT_EQ(sizeFittedInto({20, 10}, {100, 1}), (CGSize{2, 1}));
}

TEST(ContentLayoutTest, WithoutAnAreaNothingFits) {
    EXPECT_EQ(sizeFittedInto({0, 10}, {10, 10}), (CGSize{}));
    EXPECT_EQ(sizeFittedInto({10, 10}, {10, 0}), (CGSize{}));
    EXPECT_EQ(sizeFittedInto({10, 10}, {-5, 10}), (CGSize{}));
    EXPECT_EQ(sizeFittedInto({10, std::numeric_limits<CGFloat>::quiet_NaN()}, {10, 10}), (CGSize{}));
}

TEST(ContentLayoutTest, CentersARectAroundAnothersMiddle) {
    EXPECT_EQ(rectCenteredIn(CGRectMake(10, 20, 30, 40), {10, 60}), CGRectMake(20, 10, 10, 60));
    EXPECT_EQ(rectCenteredIn(CGRectMake(40, 60, -30, -40), {10, 10}), CGRectMake(20, 35, 10, 10));
}

} // namespace
