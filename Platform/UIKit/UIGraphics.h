#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <memory>

namespace CoreGraphics {
class CGContext;
}

namespace UIKit {

class UIImage;

/// Opens a context for a picture of `size` points on top of those that are open. It stays open until it is
/// ended.
void UIGraphicsBeginImageContext(const CoreGraphics::CGSize& size);

/// The context opened last; nothing when none is open. Valid until it is ended.
CoreGraphics::CGContext* UIGraphicsGetCurrentContext();

/// What was drawn into that context so far, crisp at every scale. Nothing when none is open or when its size
/// has no area: not above zero, infinite or not a number.
std::shared_ptr<UIImage> UIGraphicsGetImageFromCurrentImageContext();

/// Closes the context opened last. Does nothing when none is open.
void UIGraphicsEndImageContext();

} // namespace UIKit
