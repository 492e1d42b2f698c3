#pragma once

#include "Platform/CoreGraphics/CGText.h"

#include <string_view>

namespace CoreGraphics {

/// How much room a text is likely to need in one line, in points. Text is shaped by the host alone, so this
/// is an estimate from the classes of its characters: a little wide rather than narrow.
CGFloat estimatedTextWidth(std::string_view text, const CGFont& font);

CGFloat estimatedLineHeight(const CGFont& font);

} // namespace CoreGraphics
