#include "Platform/UIKit/UITouch.h"

#include "Platform/UIKit/UIWindow.h"

namespace UIKit {

using namespace CoreGraphics;

namespace {

CGPoint locate(const CGPoint& location, const UIView& view) {
    const std::shared_ptr<UIWindow> window = view.window();
    return window ? window->convertPointToView(location, view) : CGPoint{};
}

} // namespace

CGPoint UITouch::locationInView(const UIView& in) const { return locate(location, in); }

CGPoint UITouch::previousLocationInView(const UIView& in) const { return locate(previousLocation, in); }

} // namespace UIKit
