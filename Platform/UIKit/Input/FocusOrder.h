#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/UIKit/UIFocusHeading.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace UIKit {

/// The places of `frames`, from top to bottom and in each row from left to right. A row is what has its
/// middle at the height of the highest one in it, however high each is.
std::vector<std::size_t> readingOrder(const std::vector<CoreGraphics::CGRect>& frames);

/// The place of the one that lies nearest to `from` on that side, with its middle beyond the edge: what lies
/// straight ahead comes before what lies aside, and of equals the one whose middle is nearest. Nothing where
/// none lies there.
std::optional<std::size_t> nearestFrame(const CoreGraphics::CGRect& from,
                                        const std::vector<CoreGraphics::CGRect>& frames,
                                        UIFocusHeading heading);

} // namespace UIKit
