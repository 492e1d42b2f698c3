#pragma once

#include "Platform/CoreGraphics/CGColor.h"

#include <string_view>

namespace CoreGraphics {

enum class CGFontWeight { Regular, Medium, Bold };
enum class CGFigures { Proportional, Monospaced };
enum class CGTextAlignment { Leading, Center, Trailing };

/// The system's face at a size in points.
struct CGFont {
    CGFloat size = 17.0;
    CGFontWeight weight = CGFontWeight::Regular;
    CGFigures figures = CGFigures::Proportional;

    friend bool operator==(const CGFont&, const CGFont&) = default;
};

/// How a text is set into a rectangle: centred vertically, broken at words into at most `maximumLines` lines
/// (0 for as many as fit), with an ellipsis where the rest doesn't fit. Leading is the side on which the
/// text's own script starts.
struct CGTextStyle {
    CGFont font;
    CGColor color;
    CGTextAlignment alignment = CGTextAlignment::Leading;
    int maximumLines = 1;

    friend bool operator==(const CGTextStyle&, const CGTextStyle&) = default;
};

} // namespace CoreGraphics
