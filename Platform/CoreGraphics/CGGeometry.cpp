#include "Platform/CoreGraphics/CGGeometry.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CoreGraphics {

namespace {

/// One axis of a standardized rectangle. One that is not empty starts at a finite number.
struct Span {
    CGFloat start;
    CGFloat length;

    CGFloat end() const { return start + length; }
    bool isEmpty() const { return !(start < end()); }
};

Span standardizedSpan(CGFloat start, CGFloat length) {
    return {length < 0.0 ? start + length : start, std::abs(length)};
}

Span horizontalSpan(const CGRect& rect) { return standardizedSpan(rect.origin.x, rect.size.width); }
Span verticalSpan(const CGRect& rect) { return standardizedSpan(rect.origin.y, rect.size.height); }

CGRect rectOfSpans(const Span& horizontal, const Span& vertical) {
    return CGRectMake(horizontal.start, vertical.start, horizontal.length, vertical.length);
}

bool contains(const Span& span, CGFloat value) { return span.start <= value && value < span.end(); }

bool contains(const Span& outer, const Span& inner) {
    return outer.start <= inner.start && inner.end() <= outer.end();
}

bool overlap(const Span& a, const Span& b) {
    return !a.isEmpty() && !b.isEmpty() && a.start < b.end() && b.start < a.end();
}

// A length is a rounded difference, with which the far edge may land just beside the one that was meant. The
// two below return a span as it came where they can, and otherwise round to the side that keeps their
// promise.

/// Requires an overlap; never reaches beyond either.
Span intersection(const Span& a, const Span& b) {
    if (contains(a, b))
        return b;
    if (contains(b, a))
        return a;
    const Span& last = a.start < b.start ? b : a;
    const CGFloat end = std::min(a.end(), b.end());
    Span result{last.start, end - last.start};
    if (result.end() > end)
        result.length = std::nextafter(result.length, 0.0);
    return result;
}

/// Requires that neither is empty; never falls short of either.
Span hull(const Span& a, const Span& b) {
    if (contains(a, b))
        return a;
    if (contains(b, a))
        return b;
    const Span& first = a.start < b.start ? a : b;
    const CGFloat end = std::max(a.end(), b.end());
    Span result{first.start, end - first.start};
    if (result.end() < end)
        result.length = std::nextafter(result.length, std::numeric_limits<CGFloat>::infinity());
    return result;
}

Span inset(const Span& span, CGFloat distance) {
    const CGFloat length = span.length - 2.0 * distance;
    if (length < 0.0)
        return {span.start + span.length / 2.0, 0.0};
    return {span.start + distance, length};
}

Span integral(const Span& span) {
    const CGFloat start = std::floor(span.start);
    return {start, std::ceil(span.end()) - start};
}

} // namespace

CGRect CGRectStandardize(const CGRect& rect) { return rectOfSpans(horizontalSpan(rect), verticalSpan(rect)); }

bool CGRectContainsPoint(const CGRect& rect, const CGPoint& point) {
    return contains(horizontalSpan(rect), point.x) && contains(verticalSpan(rect), point.y);
}

bool CGRectContainsRect(const CGRect& outer, const CGRect& inner) {
    return contains(horizontalSpan(outer), horizontalSpan(inner)) &&
           contains(verticalSpan(outer), verticalSpan(inner));
}

bool CGRectIntersectsRect(const CGRect& a, const CGRect& b) {
    return overlap(horizontalSpan(a), horizontalSpan(b)) && overlap(verticalSpan(a), verticalSpan(b));
}

CGRect CGRectIntersection(const CGRect& a, const CGRect& b) {
    const Span horizontalOfA = horizontalSpan(a);
    const Span horizontalOfB = horizontalSpan(b);
    const Span verticalOfA = verticalSpan(a);
    const Span verticalOfB = verticalSpan(b);
    if (!overlap(horizontalOfA, horizontalOfB) || !overlap(verticalOfA, verticalOfB))
        return {};
    return rectOfSpans(intersection(horizontalOfA, horizontalOfB), intersection(verticalOfA, verticalOfB));
}

CGRect CGRectUnion(const CGRect& a, const CGRect& b) {
    if (CGRectIsEmpty(a))
        return CGRectIsEmpty(b) ? CGRect{} : CGRectStandardize(b);
    if (CGRectIsEmpty(b))
        return CGRectStandardize(a);
    return rectOfSpans(hull(horizontalSpan(a), horizontalSpan(b)), hull(verticalSpan(a), verticalSpan(b)));
}

CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy) {
    return rectOfSpans(inset(horizontalSpan(rect), dx), inset(verticalSpan(rect), dy));
}

CGRect CGRectIntegral(const CGRect& rect) {
    if (CGRectIsEmpty(rect))
        return {};
    return rectOfSpans(integral(horizontalSpan(rect)), integral(verticalSpan(rect)));
}

} // namespace CoreGraphics
