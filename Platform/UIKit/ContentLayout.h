#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

namespace UIKit {

class UIView;

/// The largest size of the same shape that is neither above `size` nor above `space`; none if either has no
/// area.
CoreGraphics::CGSize sizeFittedInto(const CoreGraphics::CGSize& size, const CoreGraphics::CGSize& space);

/// A rectangle of the size around the middle of another.
CoreGraphics::CGRect rectCenteredIn(const CoreGraphics::CGRect& rect, const CoreGraphics::CGSize& size);

/// `rect`, in the view's coordinates, moved by less than a pixel so that its corner lies on one of the
/// window's: what has straight edges shows them sharp. Unchanged in a view that is scaled or turned, or in no
/// window.
CoreGraphics::CGRect alignedToPixels(const CoreGraphics::CGRect& rect, const UIView& view);

} // namespace UIKit
