#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <cstdint>
#include <memory>

namespace UIKit {

class UIView;

/// Names one finger, or one pointer with its button held, while it is down; the host chooses it.
using UITouchIdentifier = std::int64_t;

enum class UITouchPhase { Began, Moved, Ended, Cancelled };

/// One finger from the moment it goes down until it is lifted, as the view it went down on sees it. A value:
/// the window hands a fresh one to each call.
struct UITouch {
    UITouchIdentifier identifier = 0;
    UITouchPhase phase = UITouchPhase::Began;

    /// Run loop time in seconds.
    double timestamp = 0.0;

    /// In the window's coordinates.
    CoreGraphics::CGPoint location;
    CoreGraphics::CGPoint previousLocation;

    /// The view that the touch went down on and that hears all of it.
    std::shared_ptr<UIView> view;

    /// The location in a view's own coordinates; the origin for a view that is in no window or is scaled to
    /// nothing.
    CoreGraphics::CGPoint locationInView(const UIView& in) const;
    CoreGraphics::CGPoint previousLocationInView(const UIView& in) const;
};

} // namespace UIKit
