#include "Platform/CoreGraphics/CGAffineTransform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace CoreGraphics {

namespace {

/// A coefficient of zero takes no part, not even in an infinite length.
CGFloat scaled(CGFloat length, CGFloat coefficient) {
    return coefficient == 0.0 ? 0.0 : length * coefficient;
}

bool isFinite(const CGAffineTransform& transform) {
    const std::array numbers{transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
    return std::all_of(numbers.begin(), numbers.end(), [](CGFloat number) { return std::isfinite(number); });
}

} // namespace

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) { return {sx, 0.0, 0.0, sy, 0.0, 0.0}; }

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
    const CGFloat cosine = std::cos(angle);
    const CGFloat sine = std::sin(angle);
    return {cosine, sine, -sine, cosine, 0.0, 0.0};
}

CGAffineTransform CGAffineTransformConcat(const CGAffineTransform& first, const CGAffineTransform& second) {
    return {first.a * second.a + first.b * second.c,
            first.a * second.b + first.b * second.d,
            first.c * second.a + first.d * second.c,
            first.c * second.b + first.d * second.d,
            first.tx * second.a + first.ty * second.c + second.tx,
            first.tx * second.b + first.ty * second.d + second.ty};
}

std::optional<CGAffineTransform> CGAffineTransformInvert(const CGAffineTransform& transform) {
    const auto& [a, b, c, d, tx, ty] = transform;
    const CGFloat mainProduct = a * d;
    const CGFloat crossProduct = b * c;
    const CGFloat determinant = mainProduct - crossProduct;

    // How small a determinant may be depends on its products: a difference within their rounding is a zero.
    constexpr CGFloat rounding = 8.0 * std::numeric_limits<CGFloat>::epsilon();
    if (!std::isnormal(determinant) ||
        !(std::abs(determinant) > rounding * std::max(std::abs(mainProduct), std::abs(crossProduct))))
        return std::nullopt;

    const CGAffineTransform inverse{d / determinant,
                                    -b / determinant,
                                    -c / determinant,
                                    a / determinant,
                                    (c * ty - d * tx) / determinant,
                                    (b * tx - a * ty) / determinant};
    if (!isFinite(inverse))
        return std::nullopt;
    return inverse;
}

bool CGAffineTransformIsIdentity(const CGAffineTransform& transform) {
    return transform == CGAffineTransform{};
}

CGSize CGSizeApplyAffineTransform(const CGSize& size, const CGAffineTransform& transform) {
    return {transform.a * size.width + transform.c * size.height,
            transform.b * size.width + transform.d * size.height};
}

CGRect CGRectApplyAffineTransform(const CGRect& rect, const CGAffineTransform& transform) {
    const auto& [a, b, c, d, tx, ty] = transform;
    const CGRect upright = CGRectStandardize(rect);
    const auto& [width, height] = upright.size;
    const CGFloat maxX = CGRectGetMaxX(upright);
    const CGFloat maxY = CGRectGetMaxY(upright);

    // Each coefficient finds its own nearest edge, and the lengths are no differences of corners: a moved or
    // scaled rectangle keeps its exact size.
    return CGRectMake(
        scaled(a < 0.0 ? maxX : upright.origin.x, a) + scaled(c < 0.0 ? maxY : upright.origin.y, c) + tx,
        scaled(b < 0.0 ? maxX : upright.origin.x, b) + scaled(d < 0.0 ? maxY : upright.origin.y, d) + ty,
        scaled(width, std::abs(a)) + scaled(height, std::abs(c)),
        scaled(width, std::abs(b)) + scaled(height, std::abs(d)));
}

} // namespace CoreGraphics
