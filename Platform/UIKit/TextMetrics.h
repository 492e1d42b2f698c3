#pragma once

#include "Platform/CoreGraphics/CGText.h"

#include <string_view>

namespace UIKit {

/// How much room a text is likely to need in one line, in points. Text is shaped by the host alone, so this
/// is an estimate from the classes of its characters: a little wide rather than narrow.
CoreGraphics::CGFloat estimatedTextWidth(std::string_view text, const CoreGraphics::CGFont& font);

CoreGraphics::CGFloat estimatedLineHeight(const CoreGraphics::CGFont& font);

} // namespace UIKit
