#include "Platform/CoreGraphics/CGPath.h"

#include "Tests/CoreGraphics/Values.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <numbers>

using namespace CoreGraphics;
using Verb = CGPath::Verb;

namespace {

constexpr double pi = std::numbers::pi;

CGPoint between(const CGPoint& from, const CGPoint& to, double t) {
    return {from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * t};
}

CGPoint onCurve(const CGPoint& start, const CGPath::Element& curve, double t) {
    const auto& [control1, control2, end] = curve.points;
    const CGPoint middle = between(control1, control2, t);
    return between(between(between(start, control1, t), middle, t),
                   between(middle, between(control2, end, t), t), t);
}

CGPoint endOf(const CGPath::Element& element) {
    return element.verb == Verb::Curve ? element.points[2] : element.points[0];
}

/// Points along the outline, the closing lines included.
std::vector<CGPoint> flattened(const CGPath& path) {
    constexpr int steps = 64;
    std::vector<CGPoint> points;
    CGPoint current;
    CGPoint start;
    for (const CGPath::Element& element : path.elements()) {
        if (element.verb == Verb::Close) {
            current = start;
            points.push_back(current);
            continue;
        }
        if (element.verb == Verb::Curve) {
            for (int step = 1; step < steps; ++step)
                points.push_back(onCurve(current, element, static_cast<double>(step) / steps));
        }
        current = endOf(element);
        if (element.verb == Verb::Move)
            start = current;
        points.push_back(current);
    }
    return points;
}

double distance(const CGPoint& a, const CGPoint& b) { return std::hypot(a.x - b.x, a.y - b.y); }

/// The angle that a line from the centre to the outline sweeps over.
double sweptAngle(const CGPath& path, const CGPoint& center) {
    const std::vector<CGPoint> points = flattened(path);
    double sum = 0.0;
    for (std::size_t index = 1; index < points.size(); ++index) {
        const CGPoint from{points[index - 1].x - center.x, points[index - 1].y - center.y};
        const CGPoint to{points[index].x - center.x, points[index].y - center.y};
        sum += std::atan2(from.x * to.y - from.y * to.x, from.x * to.x + from.y * to.y);
    }
    return sum;
}

/// By the shoelace rule; positive for an outline that runs clockwise where y grows downwards.
double area(const CGPath& path) {
    const std::vector<CGPoint> points = flattened(path);
    double sum = 0.0;
    for (std::size_t index = 1; index < points.size(); ++index)
        sum += points[index - 1].x * points[index].y - points[index].x * points[index - 1].y;
    return sum / 2.0;
}

void expectOnCircle(const CGPath& path, const CGPoint& center, double radius) {
    for (const CGPoint& point : flattened(path))
        EXPECT_NEAR(distance(point, center), radius, radius * 0.0005);
}

std::vector<Verb> verbs(const CGPath& path) {
    std::vector<Verb> result;
    for (const CGPath::Element& element : path.elements())
        result.push_back(element.verb);
    return result;
}

void expectWellFormed(const CGPath& path) {
    if (!path.isEmpty()) {
        EXPECT_EQ(path.elements().front().verb, Verb::Move);
    }
    for (const CGPath::Element& element : path.elements()) {
        for (const CGPoint& point : element.points)
            EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
    }
}

} // namespace

TEST(CGPath, StartsEmpty) {
    const CGPath path;
    EXPECT_TRUE(path.isEmpty());
    EXPECT_EQ(path.boundingBox(), CGRect{});
}

TEST(CGPath, KeepsWhatWasAddedInOrder) {
    CGPath path;
    path.moveTo({1, 2});
    path.addLine({3, 4});
    path.addCurve({5, 6}, {7, 8}, {9, 10});
    path.closeSubpath();

    ASSERT_EQ(verbs(path), (std::vector{Verb::Move, Verb::Line, Verb::Curve, Verb::Close}));
    EXPECT_EQ(path.elements()[0].points[0], CGPointMake(1, 2));
    EXPECT_EQ(path.elements()[1].points[0], CGPointMake(3, 4));
    EXPECT_EQ(path.elements()[2].points, (std::array<CGPoint, 3>{{{5, 6}, {7, 8}, {9, 10}}}));
}

TEST(CGPath, PathsAreEqualWhenTheirElementsAre) {
    CGPath first;
    first.moveTo({1, 2});
    CGPath second;
    EXPECT_NE(first, second);
    second.moveTo({1, 2});
    EXPECT_EQ(first, second);
    first.addLine({3, 3});
    second.addLine({3, 4});
    EXPECT_NE(first, second);
}

TEST(CGPath, ALineOrCurveInAnEmptyPathBeginsIt) {
    CGPath line;
    line.addLine({1, 2});
    EXPECT_EQ(verbs(line), std::vector{Verb::Move});

    CGPath curve;
    curve.addCurve({1, 2}, {3, 4}, {5, 6});
    EXPECT_EQ(verbs(curve), (std::vector{Verb::Move, Verb::Curve}));
    EXPECT_EQ(curve.elements()[0].points[0], CGPointMake(1, 2));
}

TEST(CGPath, ClosingNeedsSomethingOpen) {
    CGPath path;
    path.closeSubpath();
    EXPECT_TRUE(path.isEmpty());
    path.addRect(CGRectMake(0, 0, 1, 1));
    const CGPath once = path;
    path.closeSubpath();
    EXPECT_EQ(path, once);
}

TEST(CGPath, APointThatIsNotFiniteAddsNothing) {
    for (const double number : {notANumber, infinity, -infinity}) {
        CGPath path;
        path.moveTo({number, 0});
        path.moveTo({0, number});
        path.addLine({number, 0});
        path.addLine({0, number});
        path.addCurve({number, 0}, {1, 1}, {2, 2});
        path.addCurve({0, 0}, {1, number}, {2, 2});
        path.addCurve({0, 0}, {1, 1}, {number, 2});
        EXPECT_TRUE(path.isEmpty()) << number;
    }
}

TEST(CGPath, ARectangleIsItsFourCornersClosed) {
    for (const CGRect& rect : {CGRectMake(1, 2, 3, 4), CGRectMake(4, 6, -3, -4)}) {
        CGPath path;
        path.addRect(rect);
        ASSERT_EQ(verbs(path), (std::vector{Verb::Move, Verb::Line, Verb::Line, Verb::Line, Verb::Close}));
        EXPECT_EQ(path.boundingBox(), CGRectMake(1, 2, 3, 4));
        EXPECT_DOUBLE_EQ(area(path), 12);
    }
}

TEST(CGPath, AnEmptyOrInfiniteRectangleAddsNothing) {
    for (const CGRect& rect :
         {CGRectMake(1, 1, 0, 5), CGRectMake(1, 1, 5, 0), CGRectMake(notANumber, 1, 5, 5),
          CGRectMake(1, 1, 5, notANumber), CGRectMake(0, 0, infinity, 5), CGRectMake(0, 0, 5, -infinity)}) {
        CGPath path;
        path.addRect(rect);
        path.addRoundedRect(rect, 2);
        path.addEllipse(rect);
        EXPECT_TRUE(path.isEmpty()) << testing::PrintToString(rect);
    }
}

TEST(CGPath, ARoundedRectangleHasRoundCornersAndStraightSides) {
    for (const CGRect& rect : {CGRectMake(10, 20, 40, 30), CGRectMake(-10, -20, 30, 40)}) {
        for (const double radius : {0.5, 5.0, 14.5}) {
            SCOPED_TRACE(testing::Message() << testing::PrintToString(rect) << " by " << radius);
            CGPath path;
            path.addRoundedRect(rect, radius);
            EXPECT_EQ(path.boundingBox(), rect);
            EXPECT_NEAR(area(path), 1200 - (4 - pi) * radius * radius, radius * radius * 0.005);
            EXPECT_EQ(std::ranges::count(verbs(path), Verb::Line), 3);
            const CGRect sides = CGRectInset(rect, radius, radius);
            for (const CGPoint& point : flattened(path)) {
                const CGPoint nearest{std::clamp(point.x, CGRectGetMinX(sides), CGRectGetMaxX(sides)),
                                      std::clamp(point.y, CGRectGetMinY(sides), CGRectGetMaxY(sides))};
                EXPECT_NEAR(distance(point, nearest), radius, radius * 0.0005);
            }
        }
    }
}

TEST(CGPath, ARoundedRectangleHasNoSideWhereItsCornersMeet) {
    CGPath flat;
    flat.addRoundedRect(CGRectMake(0, 0, 40, 10), 5);
    EXPECT_EQ(verbs(flat), (std::vector{Verb::Move, Verb::Curve, Verb::Curve, Verb::Line, Verb::Curve,
                                        Verb::Curve, Verb::Close}));
    CGPath tall;
    tall.addRoundedRect(CGRectMake(0, 0, 10, 40), 5);
    EXPECT_EQ(verbs(tall), (std::vector{Verb::Move, Verb::Curve, Verb::Line, Verb::Curve, Verb::Curve,
                                        Verb::Line, Verb::Curve, Verb::Close}));
}

TEST(CGPath, ARadiusIsCutToHalfTheShorterSide) {
    CGPath flat;
    flat.addRoundedRect(CGRectMake(0, 0, 40, 10), 5);
    CGPath tall;
    tall.addRoundedRect(CGRectMake(0, 0, 10, 40), 5);
    for (const double radius : {5.001, 40.0, 1e300, infinity}) {
        CGPath path;
        path.addRoundedRect(CGRectMake(40, 10, -40, -10), radius);
        EXPECT_EQ(path, flat) << radius;
        CGPath turned;
        turned.addRoundedRect(CGRectMake(0, 0, 10, 40), radius);
        EXPECT_EQ(turned, tall) << radius;
    }
}

TEST(CGPath, ARoundedRectangleWithoutARadiusIsARectangle) {
    CGPath rect;
    rect.addRect(CGRectMake(1, 2, 3, 4));
    for (const double radius : {0.0, -0.0, -5.0, notANumber, -infinity}) {
        CGPath path;
        path.addRoundedRect(CGRectMake(1, 2, 3, 4), radius);
        EXPECT_EQ(path, rect) << radius;
    }
}

TEST(CGPath, ASquareRoundedByHalfItsSideIsACircleWithoutLines) {
    CGPath rounded;
    rounded.addRoundedRect(CGRectMake(-7, -7, 14, 14), 7);
    expectOnCircle(rounded, {0, 0}, 7);
    EXPECT_EQ(std::ranges::count(verbs(rounded), Verb::Line), 0);
}

TEST(CGPath, AnEllipseKeepsToItsRadii) {
    for (const CGSize& radius : {CGSizeMake(15, 4), CGSizeMake(4, 15), CGSizeMake(0.25, 0.5)}) {
        SCOPED_TRACE(testing::PrintToString(radius));
        const CGRect rect =
            CGRectMake(5 - radius.width, 9 - radius.height, 2 * radius.width, 2 * radius.height);
        CGPath path;
        path.addEllipse(rect);
        EXPECT_EQ(path.boundingBox(), rect);
        EXPECT_EQ(verbs(path),
                  (std::vector{Verb::Move, Verb::Curve, Verb::Curve, Verb::Curve, Verb::Curve, Verb::Close}));
        const double expected = pi * radius.width * radius.height;
        EXPECT_NEAR(area(path), expected, expected * 0.001);
        for (const CGPoint& point : flattened(path))
            EXPECT_NEAR(std::hypot((point.x - 5) / radius.width, (point.y - 9) / radius.height), 1, 0.0005);
    }
}

TEST(CGPath, WholeOutlinesRunClockwiseAndBeginTheirOwnSubpath) {
    const std::vector<std::function<void(CGPath&)>> outlines{
        [](CGPath& path) { path.addRect(CGRectMake(0, 0, 9, 9)); },
        [](CGPath& path) { path.addRoundedRect(CGRectMake(0, 0, 9, 9), 2); },
        [](CGPath& path) { path.addEllipse(CGRectMake(0, 0, 9, 9)); }};
    for (const auto& outline : outlines) {
        CGPath path;
        outline(path);
        EXPECT_GT(area(path), 0);
        const std::size_t count = path.elements().size();
        outline(path);
        EXPECT_EQ(path.elements()[count].verb, Verb::Move);
        EXPECT_EQ(path.elements().back().verb, Verb::Close);
    }
}

TEST(CGPath, AnArcStaysOnItsCircleFromItsStartToItsEnd) {
    const CGPoint center{3, -4};
    for (const double start : {-20.0, -1.0, 0.0, 0.3, pi, 9.0}) {
        for (const double sweep : {1e-6, 0.1, pi / 2, 1.6, pi, 4.0, 2 * pi, -0.1, -pi / 2, -3.0, -2 * pi}) {
            SCOPED_TRACE(testing::Message() << start << " + " << sweep);
            CGPath path;
            path.addArc(center, 50, start, start + sweep);
            expectOnCircle(path, center, 50);
            EXPECT_NEAR(sweptAngle(path, center), sweep, 1e-9);
            const CGPoint first = endOf(path.elements().front());
            const CGPoint last = endOf(path.elements().back());
            EXPECT_LT(distance(first, {3 + 50 * std::cos(start), -4 + 50 * std::sin(start)}), 1e-9);
            EXPECT_LT(distance(last, {3 + 50 * std::cos(start + sweep), -4 + 50 * std::sin(start + sweep)}),
                      1e-9);
        }
    }
}

TEST(CGPath, AnArcGrowsClockwiseWhereYGrowsDownwards) {
    CGPath path;
    path.addArc({0, 0}, 1, 0, pi / 2);
    const CGPoint last = endOf(path.elements().back());
    EXPECT_NEAR(last.x, 0, 1e-12);
    EXPECT_NEAR(last.y, 1, 1e-12);
    for (const CGPoint& point : flattened(path))
        EXPECT_TRUE(point.x > -1e-12 && point.y > -1e-12);
}

TEST(CGPath, AnArcOverAFullTurnIsOneTurnAndTheRest) {
    for (const double sweep : {2 * pi + 1, 6 * pi + 1, 200 * pi + 1}) {
        for (const double sign : {1.0, -1.0}) {
            SCOPED_TRACE(sign * sweep);
            CGPath path;
            path.addArc({0, 0}, 10, 0.5, 0.5 + sign * sweep);
            expectOnCircle(path, {0, 0}, 10);
            EXPECT_NEAR(sweptAngle(path, {0, 0}), sign * (2 * pi + 1), 1e-9);
            EXPECT_LT(distance(endOf(path.elements().back()),
                               {10 * std::cos(0.5 + sign), 10 * std::sin(0.5 + sign)}),
                      1e-9);
        }
    }
}

TEST(CGPath, AnArcWithHugeAnglesStaysSmallAndOnItsCircle) {
    for (const double end : {1e9, 1e300, -1e300, largest}) {
        CGPath path;
        path.addArc({0, 0}, 10, 1, end);
        EXPECT_LT(path.elements().size(), 12u) << end;
        expectOnCircle(path, {0, 0}, 10);
    }
    CGPath far;
    far.addArc({0, 0}, 10, 1e300, -1e300);
    EXPECT_LT(far.elements().size(), 12u);
    expectOnCircle(far, {0, 0}, 10);
}

TEST(CGPath, ALineJoinsAnArcToTheCurrentPoint) {
    CGPath path;
    path.moveTo({100, 100});
    path.addArc({0, 0}, 10, 0, 1);
    ASSERT_GE(path.elements().size(), 3u);
    EXPECT_EQ(path.elements()[1].verb, Verb::Line);
    EXPECT_EQ(path.elements()[1].points[0], CGPointMake(10, 0));
    EXPECT_EQ(path.elements()[2].verb, Verb::Curve);

    CGPath alone;
    alone.addArc({0, 0}, 10, 0, 1);
    EXPECT_EQ(alone.elements().front().verb, Verb::Move);
}

TEST(CGPath, AnArcWithoutASweepIsItsPoint) {
    CGPath path;
    path.addArc({5, 5}, 10, 0, 0);
    ASSERT_EQ(verbs(path), std::vector{Verb::Move});
    EXPECT_EQ(path.elements()[0].points[0], CGPointMake(15, 5));
}

TEST(CGPath, AnArcWithoutARadiusIsItsCenter) {
    CGPath path;
    path.addArc({5, 6}, 0, 0, 1);
    EXPECT_FALSE(path.isEmpty());
    EXPECT_EQ(path.boundingBox(), CGRectMake(5, 6, 0, 0));
}

TEST(CGPath, AnArcSmallerThanAPointIsDrawn) {
    CGPath path;
    path.addArc({0, 0}, 0.25, 0, 2);
    EXPECT_NEAR(sweptAngle(path, {0, 0}), 2, 1e-9);
    expectOnCircle(path, {0, 0}, 0.25);
}

TEST(CGPath, AnArcThatIsNotFiniteOrHasANegativeRadiusAddsNothing) {
    CGPath path;
    path.addArc({0, 0}, -1, 0, 1);
    for (const double number : {notANumber, infinity, -infinity}) {
        path.addArc({number, 0}, 1, 0, 1);
        path.addArc({0, number}, 1, 0, 1);
        path.addArc({0, 0}, number, 0, 1);
        path.addArc({0, 0}, 1, number, 1);
        path.addArc({0, 0}, 1, 0, number);
        path.addArc({0, 0}, 1, number, number);
    }
    path.addArc({0, 0}, 1, -largest, largest);
    EXPECT_TRUE(path.isEmpty());
}

TEST(CGPath, ATransformMovesEveryPointAndNothingElse) {
    CGPath path;
    path.moveTo({1, 2});
    path.addLine({3, 4});
    path.addCurve({5, 6}, {7, 8}, {9, 10});
    path.closeSubpath();
    path.applyTransform({2, 0, 0, 3, 100, 200});

    CGPath expected;
    expected.moveTo({102, 206});
    expected.addLine({106, 212});
    expected.addCurve({110, 218}, {114, 224}, {118, 230});
    expected.closeSubpath();
    EXPECT_EQ(path, expected);
}

TEST(CGPath, ATransformToPointsThatAreNotFiniteEmptiesThePath) {
    for (const CGAffineTransform& transform :
         {CGAffineTransformMakeTranslation(notANumber, 0), CGAffineTransformMakeScale(1, infinity),
          CGAffineTransformMakeScale(largest, 1)}) {
        CGPath path;
        path.addRect(CGRectMake(1, 2, 3, 4));
        path.applyTransform(transform);
        EXPECT_TRUE(path.isEmpty());
    }
}

TEST(CGPath, TheBoundingBoxHoldsControlPoints) {
    CGPath path;
    path.moveTo({0, 0});
    path.addCurve({-5, 10}, {20, -30}, {1, 1});
    EXPECT_EQ(path.boundingBox(), CGRectMake(-5, -30, 25, 40));
}

TEST(CGPath, TheBoundingBoxOfAPathAwayFromTheOriginDoesNotReachIt) {
    CGPath path;
    path.addRect(CGRectMake(10, 20, 5, 5));
    path.addRect(CGRectMake(-30, -20, 5, 5));
    EXPECT_EQ(path.boundingBox(), CGRectMake(-30, -20, 45, 45));
    path.applyTransform(CGAffineTransformMakeTranslation(100, 100));
    EXPECT_EQ(path.boundingBox(), CGRectMake(70, 80, 45, 45));
}

TEST(CGPath, AwkwardNumbersLeaveEveryPathWellFormed) {
    for (const double first : awkwardNumbers) {
        for (const double second : awkwardNumbers) {
            SCOPED_TRACE(testing::Message() << first << ' ' << second);
            CGPath path;
            path.addArc({first, second}, second, first, second);
            path.addArc({0, 0}, first, second, first);
            path.addRoundedRect(CGRectMake(first, first, second, second), second);
            path.addRoundedRect(CGRectMake(0, 0, first, second), 3);
            path.addEllipse(CGRectMake(second, 0, first, first));
            path.closeSubpath();
            expectWellFormed(path);
            path.applyTransform({first, second, second, first, first, second});
            expectWellFormed(path);
        }
    }
}
