#pragma once

#include "Platform/CoreGraphics/CGDrawing.h"

#include <string>

namespace KivUICore::Overlay {

/// A drawing of transforms, shapes and lines as text, an operation a line, to a thousandth of a point: paths
/// are written as in SVG, with M, L, C and Z. Any other operation is a question mark.
std::string describe(const CoreGraphics::CGDrawing& drawing);

} // namespace KivUICore::Overlay
