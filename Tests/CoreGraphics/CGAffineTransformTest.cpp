#include "Platform/CoreGraphics/CGAffineTransform.h"

#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>
#include <numbers>
#include <vector>

using namespace CoreGraphics;

namespace {

constexpr double pi = std::numbers::pi;

void expectNear(const CGPoint& actual, const CGPoint& expected, double tolerance = 1e-12) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
}

void expectNear(const CGAffineTransform& actual, const CGAffineTransform& expected,
                double tolerance = 1e-12) {
    EXPECT_NEAR(actual.a, expected.a, tolerance);
    EXPECT_NEAR(actual.b, expected.b, tolerance);
    EXPECT_NEAR(actual.c, expected.c, tolerance);
    EXPECT_NEAR(actual.d, expected.d, tolerance);
    EXPECT_NEAR(actual.tx, expected.tx, tolerance);
    EXPECT_NEAR(actual.ty, expected.ty, tolerance);
}

/// A determinant of `scale` squared, in a matrix without a zero.
CGAffineTransform turnedAndScaled(double scale) {
    return CGAffineTransformConcat(CGAffineTransformMakeRotation(0.7),
                                   CGAffineTransformMakeScale(scale, scale));
}

} // namespace

TEST(CGAffineTransform, MadeWithoutArgumentsItIsTheIdentity) {
    EXPECT_TRUE(CGAffineTransformIsIdentity({}));
    EXPECT_EQ(CGPointApplyAffineTransform({3, 4}, {}), CGPointMake(3, 4));
    EXPECT_EQ(CGAffineTransformMakeScale(1, 1), CGAffineTransform{});
    EXPECT_EQ(CGAffineTransformMakeTranslation(0, 0), CGAffineTransform{});
    EXPECT_EQ(CGAffineTransformMakeRotation(0), CGAffineTransform{});
}

TEST(CGAffineTransform, EveryNumberTakesPartInEqualityAndIdentity) {
    for (auto member : {&CGAffineTransform::a, &CGAffineTransform::b, &CGAffineTransform::c,
                        &CGAffineTransform::d, &CGAffineTransform::tx, &CGAffineTransform::ty}) {
        CGAffineTransform changed;
        changed.*member = 0.5;
        EXPECT_NE(changed, CGAffineTransform{});
        EXPECT_FALSE(CGAffineTransformIsIdentity(changed));
    }
}

TEST(CGAffineTransform, APointIsMappedByBothColumnsAndMoved) {
    EXPECT_EQ(CGPointApplyAffineTransform({10, 100}, {2, 3, 5, 7, 11, 13}), CGPointMake(531, 743));
}

TEST(CGAffineTransform, ASizeIsMappedWithoutTheTranslationAndMayTurnNegative) {
    EXPECT_EQ(CGSizeApplyAffineTransform({10, 100}, {2, 3, 5, 7, 11, 13}), CGSizeMake(520, 730));
    EXPECT_EQ(CGSizeApplyAffineTransform({10, 100}, CGAffineTransformMakeScale(-1, 2)), CGSizeMake(-10, 200));
}

TEST(CGAffineTransform, RotationTurnsClockwiseWhereYGrowsDownwards) {
    expectNear(CGPointApplyAffineTransform({1, 0}, CGAffineTransformMakeRotation(pi / 2)), {0, 1});
    expectNear(CGPointApplyAffineTransform({0, 1}, CGAffineTransformMakeRotation(pi / 2)), {-1, 0});
}

TEST(CGAffineTransform, ConcatAppliesTheFirstBeforeTheSecond) {
    const CGAffineTransform move = CGAffineTransformMakeTranslation(10, 20);
    const CGAffineTransform scale = CGAffineTransformMakeScale(2, 3);
    EXPECT_EQ(CGPointApplyAffineTransform({1, 1}, CGAffineTransformConcat(move, scale)), CGPointMake(22, 63));
    EXPECT_EQ(CGPointApplyAffineTransform({1, 1}, CGAffineTransformConcat(scale, move)), CGPointMake(12, 23));
}

TEST(CGAffineTransform, ConcatMapsAsBothDoInTurn) {
    const CGAffineTransform first{2, 3, 5, 7, 11, 13};
    const CGAffineTransform second{17, 19, 23, 29, 31, 37};
    const CGPoint point{41, 43};
    EXPECT_EQ(CGPointApplyAffineTransform(point, CGAffineTransformConcat(first, second)),
              CGPointApplyAffineTransform(CGPointApplyAffineTransform(point, first), second));
}

TEST(CGAffineTransform, ConcatWithItsInverseIsTheIdentityFromBothSides) {
    const std::vector<CGAffineTransform> transforms{{},
                                                    CGAffineTransformMakeTranslation(-7, 300),
                                                    CGAffineTransformMakeScale(0.8, -4),
                                                    CGAffineTransformMakeRotation(2.5),
                                                    {2, 3, 5, 7, 11, 13},
                                                    {2, 1, -3, 4, 11, 13},
                                                    {0, 1, -1, 0, 5, 5},
                                                    turnedAndScaled(100)};
    for (const CGAffineTransform& transform : transforms) {
        SCOPED_TRACE(testing::PrintToString(transform));
        const auto inverse = CGAffineTransformInvert(transform);
        ASSERT_TRUE(inverse);
        expectNear(CGAffineTransformConcat(transform, *inverse), {});
        expectNear(CGAffineTransformConcat(*inverse, transform), {});
    }
}

TEST(CGAffineTransform, ATransformOntoALineOrAPointHasNoInverse) {
    EXPECT_FALSE(CGAffineTransformInvert(CGAffineTransformMakeScale(0, 1)));
    EXPECT_FALSE(CGAffineTransformInvert(CGAffineTransformMakeScale(1, 0)));
    EXPECT_FALSE(CGAffineTransformInvert(CGAffineTransformMakeScale(0, 0)));
    EXPECT_FALSE(CGAffineTransformInvert({1, 2, 2, 4, 0, 0}));
}

TEST(CGAffineTransform, ATransformOntoATurnedLineHasNoInverseInSpiteOfRounding) {
    for (const double scale : {1e-3, 1.0, 1e3}) {
        for (double turn = 0.05; turn < 6.3; turn += 0.1) {
            for (double angle = 0.05; angle < 6.3; angle += 0.1) {
                const CGAffineTransform flattened = CGAffineTransformConcat(
                    CGAffineTransformMakeRotation(turn), CGAffineTransformMakeScale(scale, 0));
                const CGAffineTransform line =
                    CGAffineTransformConcat(flattened, CGAffineTransformMakeRotation(angle));
                EXPECT_FALSE(CGAffineTransformInvert(line)) << scale << ' ' << turn << ' ' << angle;
            }
        }
    }
}

TEST(CGAffineTransform, ASmallDeterminantHasAnInverse) {
    for (const double scale : {1e-3, 1e-6, 1e-9, 1e-100}) {
        for (const CGAffineTransform& transform :
             {CGAffineTransformMakeScale(scale, scale), turnedAndScaled(scale)}) {
            const auto inverse = CGAffineTransformInvert(transform);
            ASSERT_TRUE(inverse) << scale;
            expectNear(CGAffineTransformConcat(transform, *inverse), {});
        }
    }
    EXPECT_TRUE(CGAffineTransformInvert(CGAffineTransformMakeScale(1e-9, 1e9)));
}

TEST(CGAffineTransform, ADeterminantTooSmallToBePreciseHasNoInverse) {
    EXPECT_FALSE(CGAffineTransformInvert(CGAffineTransformMakeScale(1e-160, 1e-160)));
    EXPECT_FALSE(CGAffineTransformInvert(CGAffineTransformMakeScale(1e-300, 1e-300)));
}

TEST(CGAffineTransform, ATransformThatIsNotFiniteHasNoInverse) {
    for (auto member : {&CGAffineTransform::a, &CGAffineTransform::b, &CGAffineTransform::c,
                        &CGAffineTransform::d, &CGAffineTransform::tx, &CGAffineTransform::ty}) {
        for (const double number : {notANumber, infinity, -infinity}) {
            CGAffineTransform transform{2, 3, 5, 7, 11, 13};
            transform.*member = number;
            EXPECT_FALSE(CGAffineTransformInvert(transform)) << testing::PrintToString(transform);
        }
    }
}

TEST(CGAffineTransform, AnInverseIsAlwaysFinite) {
    for (const double a : awkwardNumbers) {
        for (const double d : awkwardNumbers) {
            for (const double tx : awkwardNumbers) {
                const auto inverse = CGAffineTransformInvert({a, 0.1, -0.3, d, tx, 1});
                if (inverse) {
                    EXPECT_TRUE(std::isfinite(inverse->a + inverse->b + inverse->c + inverse->d))
                        << a << ' ' << d << ' ' << tx;
                    EXPECT_TRUE(std::isfinite(inverse->tx) && std::isfinite(inverse->ty))
                        << a << ' ' << d << ' ' << tx;
                }
            }
        }
    }
}

TEST(CGAffineTransform, ATransformedRectangleIsTheUprightOneAroundItsCorners) {
    const CGRect rect = CGRectMake(1, 2, 3, 4);
    EXPECT_EQ(CGRectApplyAffineTransform(rect, {2, 3, 5, 7, 11, 13}), CGRectMake(23, 30, 26, 37));
    EXPECT_EQ(CGRectApplyAffineTransform(rect, {-2, 3, 5, -7, 11, 13}), CGRectMake(13, -26, 26, 37));
    EXPECT_EQ(CGRectApplyAffineTransform(rect, CGAffineTransformMakeScale(-1, -1)), CGRectMake(-4, -6, 3, 4));
    EXPECT_EQ(CGRectApplyAffineTransform(CGRectMake(4, 6, -3, -4), {}), rect);
}

TEST(CGAffineTransform, ASquareTurnedByAnEighthGrowsToItsDiagonal) {
    const CGRect turned =
        CGRectApplyAffineTransform(CGRectMake(-1, -1, 2, 2), CGAffineTransformMakeRotation(pi / 4));
    expectNear(turned.origin, {-std::numbers::sqrt2, -std::numbers::sqrt2});
    EXPECT_NEAR(turned.size.width, 2 * std::numbers::sqrt2, 1e-12);
    EXPECT_NEAR(turned.size.height, 2 * std::numbers::sqrt2, 1e-12);
}

TEST(CGAffineTransform, ATransformedRectangleHoldsEachOfItsCorners) {
    const CGRect rect = CGRectMake(0.1, -0.7, 3.3, 4.9);
    for (double angle = 0.0; angle < 6.3; angle += 0.05) {
        const CGAffineTransform transform =
            CGAffineTransformConcat(CGAffineTransformMakeScale(2, -3), CGAffineTransformMakeRotation(angle));
        const CGRect around = CGRectInset(CGRectApplyAffineTransform(rect, transform), -1e-12, -1e-12);
        double leastX = infinity;
        for (const CGPoint& corner : {CGPoint{0.1, -0.7}, {3.4, -0.7}, {3.4, 4.2}, {0.1, 4.2}}) {
            const CGPoint mapped = CGPointApplyAffineTransform(corner, transform);
            EXPECT_TRUE(CGRectContainsPoint(around, mapped)) << angle;
            leastX = std::min(leastX, mapped.x);
        }
        EXPECT_NEAR(leastX, CGRectGetMinX(around), 1e-11) << angle;
    }
}

TEST(CGAffineTransform, AMovedRectangleKeepsItsExactSize) {
    const CGRect rect = CGRectMake(0.1, 0.2, 0.3, 0.7);
    const CGRect moved = CGRectApplyAffineTransform(rect, CGAffineTransformMakeTranslation(1e6, -1e7));
    EXPECT_EQ(moved.size, rect.size);
}

TEST(CGAffineTransform, AnInfiniteRectangleStaysInfiniteWhenItIsMovedOrScaled) {
    const CGRect rect = CGRectMake(0, 0, infinity, infinity);
    EXPECT_EQ(CGRectApplyAffineTransform(rect, CGAffineTransformMakeTranslation(5, 6)),
              CGRectMake(5, 6, infinity, infinity));
    EXPECT_EQ(CGRectApplyAffineTransform(rect, CGAffineTransformMakeScale(2, 3)), rect);
}

TEST(CGAffineTransform, ARectangleOrTransformThatIsNotANumberGivesAnEmptyRectangle) {
    EXPECT_TRUE(CGRectIsEmpty(CGRectApplyAffineTransform(CGRectMake(0, 0, notANumber, 1), {})));
    EXPECT_TRUE(CGRectIsEmpty(CGRectApplyAffineTransform(CGRectMake(notANumber, 0, 1, 1), {})));
    EXPECT_TRUE(
        CGRectIsEmpty(CGRectApplyAffineTransform(CGRectMake(0, 0, 1, 1), {notANumber, 0, 0, 1, 0, 0})));
    EXPECT_TRUE(
        CGRectIsEmpty(CGRectApplyAffineTransform(CGRectMake(0, 0, 1, 1), {1, 0, 0, 1, 0, notANumber})));
}

TEST(CGAffineTransform, ARotationByNoNumberHasNoInverse) {
    EXPECT_FALSE(CGAffineTransformInvert(CGAffineTransformMakeRotation(infinity)));
    EXPECT_FALSE(CGAffineTransformInvert(CGAffineTransformMakeRotation(notANumber)));
}
