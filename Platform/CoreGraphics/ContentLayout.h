#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

namespace CoreGraphics {

/// The largest size of the same shape that is neither above `size` nor above `space`; none if either has no
/// area.
CGSize sizeFittedInto(const CGSize& size, const CGSize& space);

/// A rectangle of the size around the middle of another.
constexpr CGRect rectCenteredIn(const CGRect& rect, const CGSize& size) {
    return {{CGRectGetMidX(rect) - size.width / 2.0, CGRectGetMidY(rect) - size.height / 2.0}, size};
}

} // namespace CoreGraphics
