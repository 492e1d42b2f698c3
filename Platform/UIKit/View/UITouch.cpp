#include "Platform/UIKit/UITouch.h"

#include "Platform/UIKit/UIView.h"

namespace UIKit {

using namespace CoreGraphics;

CGPoint UITouch::locationInView(const UIView& in) const { return in.convertPointFromWindow(location); }

CGPoint UITouch::previousLocationInView(const UIView& in) const {
    return in.convertPointFromWindow(previousLocation);
}

} // namespace UIKit
