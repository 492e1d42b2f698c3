#pragma once

#include <cmath>

namespace CoreGraphics {

/// A coordinate or length in points.
using CGFloat = double;

struct CGPoint {
    CGFloat x = 0.0;
    CGFloat y = 0.0;

    friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
    CGFloat width = 0.0;
    CGFloat height = 0.0;

    friend bool operator==(const CGSize&, const CGSize&) = default;
};

/// A rectangle as it was given: width and height may be negative. The CGRectGet… functions read it
/// standardized.
struct CGRect {
    CGPoint origin;
    CGSize size;

    friend bool operator==(const CGRect&, const CGRect&) = default;
};

constexpr CGPoint CGPointMake(CGFloat x, CGFloat y) { return {x, y}; }
constexpr CGSize CGSizeMake(CGFloat width, CGFloat height) { return {width, height}; }
constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

/// The same area with a width and height that are not negative.
CGRect CGRectStandardize(const CGRect& rect);

/// Width and height of the standardized rectangle: never negative.
inline CGFloat CGRectGetWidth(const CGRect& rect) { return std::abs(rect.size.width); }
inline CGFloat CGRectGetHeight(const CGRect& rect) { return std::abs(rect.size.height); }
inline CGFloat CGRectGetMinX(const CGRect& rect) {
    return rect.size.width < 0.0 ? rect.origin.x + rect.size.width : rect.origin.x;
}
inline CGFloat CGRectGetMinY(const CGRect& rect) {
    return rect.size.height < 0.0 ? rect.origin.y + rect.size.height : rect.origin.y;
}
constexpr CGFloat CGRectGetMidX(const CGRect& rect) { return rect.origin.x + rect.size.width / 2.0; }
constexpr CGFloat CGRectGetMidY(const CGRect& rect) { return rect.origin.y + rect.size.height / 2.0; }
inline CGFloat CGRectGetMaxX(const CGRect& rect) { return CGRectGetMinX(rect) + CGRectGetWidth(rect); }
inline CGFloat CGRectGetMaxY(const CGRect& rect) { return CGRectGetMinY(rect) + CGRectGetHeight(rect); }

/// True when the rectangle holds no point: a width or height of zero, or one that is lost in the size of the
/// origin, or anything that is not a number.
inline bool CGRectIsEmpty(const CGRect& rect) {
    return !(CGRectGetMinX(rect) < CGRectGetMaxX(rect) && CGRectGetMinY(rect) < CGRectGetMaxY(rect));
}

/// True for points on the left and top edges, false for those on the right and bottom ones.
bool CGRectContainsPoint(const CGRect& rect, const CGPoint& point);

/// True when no edge of `inner` lies outside `outer`; an empty rectangle is judged by where it lies.
bool CGRectContainsRect(const CGRect& outer, const CGRect& inner);

/// True when both share an area: touching edges don't count, and an empty rectangle shares nothing.
bool CGRectIntersectsRect(const CGRect& a, const CGRect& b);

/// The area that both share; an empty rectangle at the origin when there is none.
CGRect CGRectIntersection(const CGRect& a, const CGRect& b);

/// The smallest rectangle around both; an empty one adds nothing, and two of them are an empty rectangle at
/// the origin.
CGRect CGRectUnion(const CGRect& a, const CGRect& b);

/// Each edge moved inwards (outwards when negative); edges that would pass each other meet in the middle,
/// which leaves an empty rectangle.
CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy);

/// Moved; the size stays as it was given.
constexpr CGRect CGRectOffset(const CGRect& rect, CGFloat dx, CGFloat dy) {
    return {{rect.origin.x + dx, rect.origin.y + dy}, rect.size};
}

/// The smallest rectangle with whole coordinates around the rectangle; an empty one at the origin around an
/// empty one.
CGRect CGRectIntegral(const CGRect& rect);

} // namespace CoreGraphics
