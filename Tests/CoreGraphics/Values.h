#pragma once

#include "Platform/CoreGraphics/CGPath.h"

#include <array>
#include <cmath>
#include <limits>
#include <ostream>

/// Numbers that layouts and hosts hand in sooner or later.
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double largest = std::numeric_limits<double>::max();
inline constexpr std::array awkwardNumbers{0.0,  -0.0,  1.0,      -1.0,      0.1,       -0.3,
                                           7e-9, 1e300, -1e300,   5e-324,    largest,   -largest,
                                           1e16, -1e16, infinity, -infinity, notANumber};

namespace CoreGraphics {

inline void PrintTo(const CGPoint& point, std::ostream* out) {
    *out << '(' << point.x << ", " << point.y << ')';
}
inline void PrintTo(const CGSize& size, std::ostream* out) { *out << size.width << " x " << size.height; }
inline void PrintTo(const CGRect& rect, std::ostream* out) {
    PrintTo(rect.origin, out);
    *out << ' ';
    PrintTo(rect.size, out);
}
inline void PrintTo(const CGAffineTransform& transform, std::ostream* out) {
    *out << '[' << transform.a << ' ' << transform.b << ' ' << transform.c << ' ' << transform.d << ' '
         << transform.tx << ' ' << transform.ty << ']';
}

} // namespace CoreGraphics
