#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/UIKit/UIViewAutoresizing.h"

namespace UIKit {

/// The frame that a view takes when its superview's bounds go from `oldSize` to `newSize`. On each axis the
/// flexible distances share the difference in proportion to what they were, evenly if they were nothing; with
/// none flexible the view stays where it is.
CoreGraphics::CGRect autoresizedFrame(const CoreGraphics::CGRect& frame, UIViewAutoresizing mask,
                                      const CoreGraphics::CGSize& oldSize,
                                      const CoreGraphics::CGSize& newSize);

} // namespace UIKit
