#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

namespace CoreGraphics {

/// A colour in sRGB, components from 0.0 to 1.0, not premultiplied. Made without arguments it is opaque
/// black.
struct CGColor {
    CGFloat red = 0.0;
    CGFloat green = 0.0;
    CGFloat blue = 0.0;
    CGFloat alpha = 1.0;

    friend bool operator==(const CGColor&, const CGColor&) = default;
};

} // namespace CoreGraphics
