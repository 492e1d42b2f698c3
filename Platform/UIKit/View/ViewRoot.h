#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <memory>

namespace Foundation {
class NSRunLoop;
}

namespace UIKit {

class UIView;
class UIWindow;

/// What a view tree hangs from: a window, as the views in it see it.
class ViewRoot {
public:
    /// Nothing while it is torn down.
    virtual std::shared_ptr<UIWindow> sharedWindow() = 0;

    /// `rect`, in the root's coordinates, must be drawn again.
    virtual void damage(const CoreGraphics::CGRect& rect) = 0;

    /// Pixels a point.
    virtual CoreGraphics::CGFloat contentScale() const = 0;

    /// The loop of the host that shows the tree.
    virtual Foundation::NSRunLoop& runLoop() const = 0;

    /// Whether `view`, which is in the tree, is offered keys first.
    virtual bool hasFocus(const UIView& view) const = 0;

    /// `view` is about to be taken out. Whoever hears of it may change anything.
    virtual void viewWillLeave(UIView& view) = 0;

    /// `view` was taken out.
    virtual void viewDidLeave(UIView& view) = 0;

protected:
    ~ViewRoot() = default;
};

} // namespace UIKit
