#include "Platform/CoreGraphics/CGGeometry.h"

#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>
#include <random>

using namespace CoreGraphics;

namespace {

/// The same sequence in every run; positions and sizes, also negative ones, whose sums are not exact.
class Rectangles {
public:
    CGRect next() { return CGRectMake(number(), number(), number(), number()); }

private:
    double number() { return distribution_(engine_); }

    std::mt19937 engine_{20};
    std::uniform_real_distribution<double> distribution_{-100.0, 100.0};
};

} // namespace

TEST(CGGeometry, ValuesMadeWithoutArgumentsAreZero) {
    EXPECT_EQ(CGPoint{}, CGPointMake(0.0, 0.0));
    EXPECT_EQ(CGSize{}, CGSizeMake(0.0, 0.0));
    EXPECT_EQ(CGRect{}, CGRectMake(0.0, 0.0, 0.0, 0.0));
}

TEST(CGGeometry, EveryNumberTakesPartInEquality) {
    EXPECT_EQ(CGRectMake(1, 2, 3, 4), CGRectMake(1, 2, 3, 4));
    EXPECT_NE(CGRectMake(1, 2, 3, 4), CGRectMake(0, 2, 3, 4));
    EXPECT_NE(CGRectMake(1, 2, 3, 4), CGRectMake(1, 0, 3, 4));
    EXPECT_NE(CGRectMake(1, 2, 3, 4), CGRectMake(1, 2, 0, 4));
    EXPECT_NE(CGRectMake(1, 2, 3, 4), CGRectMake(1, 2, 3, 0));
}

TEST(CGGeometry, ARectangleKeepsTheNegativeSizeItWasGiven) {
    const CGRect rect = CGRectMake(10, 20, -4, -6);
    EXPECT_EQ(rect.size, CGSizeMake(-4, -6));
    EXPECT_EQ(rect.origin, CGPointMake(10, 20));
}

TEST(CGGeometry, GettersReadARectangleOfNegativeSizeStandardized) {
    const CGRect rect = CGRectMake(10, 20, -4, -6);
    EXPECT_EQ(CGRectStandardize(rect), CGRectMake(6, 14, 4, 6));
    EXPECT_EQ(CGRectGetWidth(rect), 4);
    EXPECT_EQ(CGRectGetHeight(rect), 6);
    EXPECT_EQ(CGRectGetMinX(rect), 6);
    EXPECT_EQ(CGRectGetMinY(rect), 14);
    EXPECT_EQ(CGRectGetMidX(rect), 8);
    EXPECT_EQ(CGRectGetMidY(rect), 17);
    EXPECT_EQ(CGRectGetMaxX(rect), 10);
    EXPECT_EQ(CGRectGetMaxY(rect), 20);
}

TEST(CGGeometry, WidthAndHeightAreNeverNegativeNotEvenAsAZero) {
    for (const double length : awkwardNumbers) {
        const CGRect rect = CGRectMake(3, 4, length, length);
        EXPECT_FALSE(CGRectGetWidth(rect) < 0.0) << length;
        EXPECT_FALSE(CGRectGetHeight(rect) < 0.0) << length;
    }
    EXPECT_FALSE(std::signbit(CGRectGetWidth(CGRectMake(0, 0, -0.0, 1))));
    EXPECT_FALSE(std::signbit(CGRectStandardize(CGRectMake(0, 0, 1, -0.0)).size.height));
}

TEST(CGGeometry, ARectangleWithoutWidthOrHeightIsEmpty) {
    EXPECT_TRUE(CGRectIsEmpty({}));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 1, 0, 5)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 1, 5, -0.0)));
    EXPECT_FALSE(CGRectIsEmpty(CGRectMake(1, 1, 5, 5)));
    EXPECT_FALSE(CGRectIsEmpty(CGRectMake(1, 1, -5, -5)));
    EXPECT_FALSE(CGRectIsEmpty(CGRectMake(0, 0, infinity, infinity)));
}

TEST(CGGeometry, ARectangleThatIsNotANumberIsEmpty) {
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(notANumber, 0, 1, 1)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(0, notANumber, 1, 1)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(0, 0, notANumber, 1)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(0, 0, 1, notANumber)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(-infinity, 0, infinity, 1)));
}

TEST(CGGeometry, ASizeLostInTheOriginLeavesAnEmptyRectangle) {
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1e300, 0, 1, 1)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(0, infinity, 1, 1)));
}

TEST(CGGeometry, APointOnTheLeftOrTopEdgeIsInsideAndOnTheOthersOutside) {
    for (const CGRect& rect : {CGRectMake(10, 20, 30, 40), CGRectMake(40, 60, -30, -40)}) {
        EXPECT_TRUE(CGRectContainsPoint(rect, {10, 20}));
        EXPECT_TRUE(CGRectContainsPoint(rect, {39.999, 59.999}));
        EXPECT_FALSE(CGRectContainsPoint(rect, {40, 30}));
        EXPECT_FALSE(CGRectContainsPoint(rect, {20, 60}));
        EXPECT_FALSE(CGRectContainsPoint(rect, {9.999, 30}));
        EXPECT_FALSE(CGRectContainsPoint(rect, {20, 19.999}));
    }
}

TEST(CGGeometry, NoPointIsInsideAnEmptyRectangleNorIsOneThatIsNotANumber) {
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(1, 1, 0, 0), {1, 1}));
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(0, 0, notANumber, 9), {1, 1}));
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(0, 0, 9, 9), {notANumber, 1}));
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(0, 0, 9, 9), {1, notANumber}));
    EXPECT_TRUE(CGRectContainsPoint(CGRectMake(0, 0, infinity, infinity), {1e300, 1}));
}

TEST(CGGeometry, ARectangleContainsItselfAndWhatLiesWithin) {
    const CGRect outer = CGRectMake(0, 0, 10, 10);
    EXPECT_TRUE(CGRectContainsRect(outer, outer));
    EXPECT_TRUE(CGRectContainsRect(outer, CGRectMake(9, 9, -8, -8)));
    EXPECT_TRUE(CGRectContainsRect(outer, CGRectMake(10, 10, 0, 0)));
    EXPECT_FALSE(CGRectContainsRect(outer, CGRectMake(-1, 0, 5, 5)));
    EXPECT_FALSE(CGRectContainsRect(outer, CGRectMake(0, -1, 5, 5)));
    EXPECT_FALSE(CGRectContainsRect(outer, CGRectMake(6, 0, 5, 5)));
    EXPECT_FALSE(CGRectContainsRect(outer, CGRectMake(0, 6, 5, 5)));
    EXPECT_FALSE(CGRectContainsRect(outer, CGRectMake(11, 11, 0, 0)));
    EXPECT_FALSE(CGRectContainsRect(outer, CGRectMake(1, 1, notANumber, 1)));
}

TEST(CGGeometry, RectanglesThatOnlyTouchDoNotIntersect) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(10, 0, 5, 5)));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(0, -5, 10, 5)));
    EXPECT_TRUE(CGRectIntersectsRect(rect, CGRectMake(9.999, 9.999, 5, 5)));
    EXPECT_TRUE(CGRectIntersectsRect(rect, CGRectMake(20, 20, -11, -11)));
}

TEST(CGGeometry, AnEmptyRectangleIntersectsNothing) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(5, 5, 0, 0)));
    EXPECT_FALSE(CGRectIntersectsRect(CGRectMake(5, 0, 0, 10), rect));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(5, 5, notANumber, 2)));
}

TEST(CGGeometry, IntersectionIsTheAreaThatBothShare) {
    EXPECT_EQ(CGRectIntersection(CGRectMake(0, 0, 10, 10), CGRectMake(4, 6, 20, 2)), CGRectMake(4, 6, 6, 2));
    EXPECT_EQ(CGRectIntersection(CGRectMake(10, 10, -10, -10), CGRectMake(24, 8, -20, -2)),
              CGRectMake(4, 6, 6, 2));
}

TEST(CGGeometry, IntersectionOfRectanglesThatShareNothingIsEmptyAtTheOrigin) {
    EXPECT_EQ(CGRectIntersection(CGRectMake(5, 5, 10, 10), CGRectMake(15, 5, 5, 5)), CGRect{});
    EXPECT_EQ(CGRectIntersection(CGRectMake(5, 5, 10, 10), CGRectMake(7, 7, 0, 3)), CGRect{});
    EXPECT_EQ(CGRectIntersection(CGRectMake(5, 5, 10, 10), CGRectMake(7, notANumber, 3, 3)), CGRect{});
}

TEST(CGGeometry, IntersectionWithAnInfiniteRectangleIsTheOtherOne) {
    const CGRect everything = CGRectMake(-largest / 2.0, -largest / 2.0, largest, largest);
    const CGRect rect = CGRectMake(0.1, 0.2, 0.3, 0.7);
    EXPECT_EQ(CGRectIntersection(everything, rect), rect);
    EXPECT_EQ(CGRectIntersection(rect, CGRectMake(0, 0, infinity, infinity)), rect);
}

TEST(CGGeometry, UnionReachesAroundBoth) {
    EXPECT_EQ(CGRectUnion(CGRectMake(0, 0, 10, 10), CGRectMake(20, -5, 5, 7)), CGRectMake(0, -5, 25, 15));
    EXPECT_EQ(CGRectUnion(CGRectMake(10, 10, -10, -10), CGRectMake(25, 2, -5, -7)),
              CGRectMake(0, -5, 25, 15));
}

TEST(CGGeometry, AnEmptyRectangleAddsNothingToAUnion) {
    const CGRect rect = CGRectMake(0.1, 0.2, 0.3, 0.7);
    EXPECT_EQ(CGRectUnion(rect, CGRectMake(50, 50, 0, 9)), rect);
    EXPECT_EQ(CGRectUnion(CGRectMake(50, 50, 9, notANumber), rect), rect);
    EXPECT_EQ(CGRectUnion(CGRectMake(50, 50, 0, 0), CGRectMake(notANumber, 1, 1, 1)), CGRect{});
    EXPECT_EQ(CGRectUnion({}, CGRectMake(4, 4, -2, -2)), CGRectMake(2, 2, 2, 2));
    EXPECT_EQ(CGRectUnion(CGRectMake(4, 4, -2, -2), {}), CGRectMake(2, 2, 2, 2));
}

TEST(CGGeometry, AnIntersectionShorterThanOneReachesBeyondNeither) {
    // Both differences round up.
    const CGRect a = CGRectMake(-0.01, -1.0, 5.0, 1.03);
    const CGRect b = CGRectMake(-1.0, -0.02, 1.12, 5.0);
    const CGRect shared = CGRectIntersection(a, b);
    EXPECT_TRUE(CGRectContainsRect(a, shared) && CGRectContainsRect(b, shared));
    for (int start = 1; start < 100; ++start) {
        for (int end = 1; start + end < 100; ++end) {
            const CGRect left = CGRectMake(-1.0, 0.0, 1.0 + end / 100.0, 1.0);
            const CGRect right = CGRectMake(-start / 100.0, 0.0, 1.0, 1.0);
            EXPECT_TRUE(CGRectContainsRect(left, CGRectIntersection(left, right))) << start << " " << end;
        }
    }
}

TEST(CGGeometry, UnionAndIntersectionKeepTheirPromisesInSpiteOfRounding) {
    Rectangles rectangles;
    for (int round = 0; round < 20000; ++round) {
        const CGRect a = rectangles.next();
        const CGRect b = rectangles.next();
        const CGRect both = CGRectUnion(a, b);
        EXPECT_TRUE(CGRectContainsRect(both, a) && CGRectContainsRect(both, b));
        EXPECT_EQ(both, CGRectUnion(b, a));

        const CGRect shared = CGRectIntersection(a, b);
        EXPECT_EQ(CGRectIsEmpty(shared), !CGRectIntersectsRect(a, b));
        EXPECT_EQ(shared, CGRectIntersection(b, a));
        if (!CGRectIsEmpty(shared)) {
            EXPECT_TRUE(CGRectContainsRect(a, shared) && CGRectContainsRect(b, shared));
        }
        EXPECT_EQ(CGRectIntersection(both, a), CGRectStandardize(a));
        if (HasFailure())
            FAIL() << testing::PrintToString(a) << " and " << testing::PrintToString(b);
    }
}

TEST(CGGeometry, InsetMovesEachEdgeInwardsOrOutwards) {
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, 30, 40), 5, 6), CGRectMake(15, 26, 20, 28));
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, 30, 40), -5, -6), CGRectMake(5, 14, 40, 52));
    EXPECT_EQ(CGRectInset(CGRectMake(40, 60, -30, -40), 5, 6), CGRectMake(15, 26, 20, 28));
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, 0, 0), -1, -2), CGRectMake(9, 18, 2, 4));
    EXPECT_EQ(CGRectInset(CGRectMake(0, 0, 1, 2), 0.25, 0.75), CGRectMake(0.25, 0.75, 0.5, 0.5));
}

TEST(CGGeometry, InsetBeyondTheMiddleLeavesAnEmptyRectangleThere) {
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, 30, 40), 15, 1), CGRectMake(25, 21, 0, 38));
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, 30, 40), 16, 1), CGRectMake(25, 21, 0, 38));
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, 30, 40), 1, 1e300), CGRectMake(11, 40, 28, 0));
    EXPECT_TRUE(CGRectIsEmpty(CGRectInset(CGRectMake(10, 20, 30, 40), infinity, infinity)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectInset(CGRectMake(10, 20, 30, 40), notANumber, 1)));
}

TEST(CGGeometry, OffsetMovesTheOriginAndKeepsTheSizeAsGiven) {
    EXPECT_EQ(CGRectOffset(CGRectMake(10, 20, 30, 40), -3, 4), CGRectMake(7, 24, 30, 40));
    EXPECT_EQ(CGRectOffset(CGRectMake(10, 20, -30, 40), 1, 1), CGRectMake(11, 21, -30, 40));
}

TEST(CGGeometry, IntegralGrowsToWholeCoordinates) {
    EXPECT_EQ(CGRectIntegral(CGRectMake(0.5, -0.5, 1, 1)), CGRectMake(0, -1, 2, 2));
    EXPECT_EQ(CGRectIntegral(CGRectMake(3, 4, 5, 6)), CGRectMake(3, 4, 5, 6));
    EXPECT_EQ(CGRectIntegral(CGRectMake(1.25, 2.25, -1, -1)), CGRectMake(0, 1, 2, 2));
    EXPECT_EQ(CGRectIntegral(CGRectMake(-1.5, -1.5, 0.25, 0.25)), CGRectMake(-2, -2, 1, 1));
}

TEST(CGGeometry, IntegralLeavesAnEmptyRectangleEmpty) {
    EXPECT_EQ(CGRectIntegral(CGRectMake(0.5, 0.5, 0, 3)), CGRect{});
    EXPECT_EQ(CGRectIntegral(CGRectMake(0.5, 0.5, notANumber, 3)), CGRect{});
}

TEST(CGGeometry, IntegralLeavesInfiniteEdgesInfinite) {
    EXPECT_EQ(CGRectIntegral(CGRectMake(0.5, 0.5, infinity, 1)), CGRectMake(0, 0, infinity, 2));
}

TEST(CGGeometry, AwkwardNumbersNeverMakeARectangleLargerThanItsPromise) {
    for (const double x : awkwardNumbers) {
        for (const double width : awkwardNumbers) {
            const CGRect rect = CGRectMake(x, x, width, width);
            const CGRect unit = CGRectMake(0, 0, 1, 1);
            const CGRect shared = CGRectIntersection(rect, unit);
            EXPECT_TRUE(CGRectContainsRect(unit, shared)) << x << ' ' << width;
            EXPECT_TRUE(CGRectContainsRect(CGRectUnion(rect, unit), unit)) << x << ' ' << width;
            EXPECT_EQ(CGRectIsEmpty(CGRectIntegral(rect)), CGRectIsEmpty(rect)) << x << ' ' << width;
            if (CGRectIsEmpty(rect)) {
                EXPECT_FALSE(CGRectContainsPoint(rect, rect.origin)) << x << ' ' << width;
                EXPECT_EQ(shared, CGRect{}) << x << ' ' << width;
            }
        }
    }
}
