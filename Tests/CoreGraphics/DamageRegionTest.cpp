#include "Platform/CoreGraphics/DamageRegion.h"

#include "Tests/CoreGraphics/Values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

using namespace CoreGraphics;

std::vector<CGRect> rectsOf(const DamageRegion& region) {
    return {region.rects().begin(), region.rects().end()};
}

bool covers(const DamageRegion& region, const CGPoint& point) {
    for (const CGRect& each : region.rects()) {
        if (CGRectContainsPoint(each, point)) {
            return true;
        }
    }
    return false;
}

TEST(DamageRegionTest, StartsEmptyAndStaysSoWhenNothingIsAdded) {
    DamageRegion region;
    EXPECT_TRUE(region.isEmpty());
    region.add({});
    region.add(CGRectMake(5, 5, 0, 10));
    region.add(CGRectMake(notANumber, 0, 10, 10));
    EXPECT_TRUE(region.isEmpty());
    EXPECT_TRUE(region.rects().empty());
}

TEST(DamageRegionTest, KeepsWhatIsApartApart) {
    DamageRegion region;
    region.add(CGRectMake(0, 0, 10, 10));
    region.add(CGRectMake(10, 0, 10, 10));
    region.add(CGRectMake(50, 50, 10, 10));
    EXPECT_THAT(rectsOf(region),
                testing::UnorderedElementsAre(CGRectMake(0, 0, 10, 10), CGRectMake(10, 0, 10, 10),
                                              CGRectMake(50, 50, 10, 10)));
}

TEST(DamageRegionTest, JoinsWhatOverlapsAndWhatTheUnionReaches) {
    DamageRegion region;
    region.add(CGRectMake(0, 0, 10, 10));
    region.add(CGRectMake(30, 30, 10, 10));
    region.add(CGRectMake(32, 12, 4, 4));
    region.add(CGRectMake(5, 5, 26, 26));
    EXPECT_EQ(rectsOf(region), (std::vector{CGRectMake(0, 0, 40, 40)}));
}

TEST(DamageRegionTest, WhatIsCoveredAlreadyChangesNothing) {
    DamageRegion region;
    region.add(CGRectMake(0, 0, 10, 10));
    region.add(CGRectMake(2, 2, 3, 3));
    region.add(CGRectMake(10, 10, -10, -10));
    EXPECT_EQ(rectsOf(region), (std::vector{CGRectMake(0, 0, 10, 10)}));
}

TEST(DamageRegionTest, PastItsCapacityJoinsThePairThatWastesLeast) {
    DamageRegion region;
    for (int index = 0; index < 8; ++index) {
        region.add(CGRectMake(index * 100, 0, 10, 10));
    }
    ASSERT_EQ(region.rects().size(), 8u);
    region.add(CGRectMake(315, 0, 10, 10));
    EXPECT_EQ(region.rects().size(), 8u);
    EXPECT_THAT(rectsOf(region), testing::Contains(CGRectMake(300, 0, 25, 10)));
}

TEST(DamageRegionTest, NeverOverlapsAndCoversAllThatWasAdded) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> grid(0, 99);
    for (int round = 0; round < 300; ++round) {
        // Sides that no binary fraction meets, so that rounding has its chance.
        const CGFloat unit = 0.1 + 0.01 * round;
        DamageRegion region;
        std::vector<CGRect> added;
        for (int step = 0; step < 40; ++step) {
            const CGRect rect = CGRectMake(grid(random) * unit, grid(random) * unit,
                                           (grid(random) % 12) * unit, (grid(random) % 12) * unit);
            region.add(rect);
            added.push_back(rect);
            ASSERT_LE(region.rects().size(), 8u);
            for (std::size_t a = 0; a < region.rects().size(); ++a) {
                for (std::size_t b = a + 1; b < region.rects().size(); ++b) {
                    ASSERT_FALSE(CGRectIntersectsRect(region.rects()[a], region.rects()[b]));
                }
            }
        }
        for (const CGRect& each : added) {
            if (CGRectIsEmpty(each)) {
                continue;
            }
            // Rectangles may cover one together, so its points are asked for.
            for (const CGFloat x : {0.0, 0.3, 0.7, 0.999}) {
                for (const CGFloat y : {0.0, 0.3, 0.7, 0.999}) {
                    ASSERT_TRUE(covers(
                        region, {each.origin.x + x * each.size.width, each.origin.y + y * each.size.height}));
                }
            }
        }
    }
}

TEST(DamageRegionTest, ContainsWhatOneOfItsRectanglesCovers) {
    DamageRegion region;
    EXPECT_FALSE(region.contains(CGRectMake(0.0, 0.0, 10.0, 10.0)));
    region.add(CGRectMake(0.0, 0.0, 10.0, 10.0));
    region.add(CGRectMake(20.0, 0.0, 10.0, 10.0));
    EXPECT_TRUE(region.contains(CGRectMake(0.0, 0.0, 10.0, 10.0)));
    EXPECT_TRUE(region.contains(CGRectMake(22.0, 2.0, 5.0, 5.0)));
    EXPECT_FALSE(region.contains(CGRectMake(5.0, 0.0, 20.0, 10.0)));
    EXPECT_FALSE(region.contains(CGRectMake(5.0, 5.0, 10.0, 1.0)));
}

} // namespace
