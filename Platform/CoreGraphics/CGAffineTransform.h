#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <optional>

namespace CoreGraphics {

/// Maps (x, y) to (a·x + c·y + tx, b·x + d·y + ty). Made without arguments it is the identity.
struct CGAffineTransform {
    CGFloat a = 1.0;
    CGFloat b = 0.0;
    CGFloat c = 0.0;
    CGFloat d = 1.0;
    CGFloat tx = 0.0;
    CGFloat ty = 0.0;

    friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

constexpr CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) {
    return {1.0, 0.0, 0.0, 1.0, tx, ty};
}
CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);

/// `angle` in radians, clockwise where y grows downwards.
CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);

/// The transform that applies `first` and then `second`.
CGAffineTransform CGAffineTransformConcat(const CGAffineTransform& first, const CGAffineTransform& second);

/// The way back, or nothing for a transform that maps the plane onto a line or a point, within the precision
/// of its numbers, or whose way back has no finite numbers.
std::optional<CGAffineTransform> CGAffineTransformInvert(const CGAffineTransform& transform);

bool CGAffineTransformIsIdentity(const CGAffineTransform& transform);

constexpr CGPoint CGPointApplyAffineTransform(const CGPoint& point, const CGAffineTransform& transform) {
    return {transform.a * point.x + transform.c * point.y + transform.tx,
            transform.b * point.x + transform.d * point.y + transform.ty};
}

/// The size as a vector: translation plays no part, and the result may be negative.
CGSize CGSizeApplyAffineTransform(const CGSize& size, const CGAffineTransform& transform);

/// The smallest upright rectangle around the transformed one, standardized.
CGRect CGRectApplyAffineTransform(const CGRect& rect, const CGAffineTransform& transform);

} // namespace CoreGraphics
