#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

namespace UIKit {

/// The largest size of the same shape that is neither above `size` nor above `space`; none if either has no
/// area.
CoreGraphics::CGSize sizeFittedInto(const CoreGraphics::CGSize& size, const CoreGraphics::CGSize& space);

/// A rectangle of the size around the middle of another.
constexpr CoreGraphics::CGRect rectCenteredIn(const CoreGraphics::CGRect& rect,
                                              const CoreGraphics::CGSize& size) {
    return {{CGRectGetMidX(rect) - size.width / 2.0, CGRectGetMidY(rect) - size.height / 2.0}, size};
}

} // namespace UIKit
