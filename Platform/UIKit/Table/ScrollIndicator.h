#pragma once

#include "Platform/UIKit/UIView.h"

namespace UIKit {

/// The rounded bar that shows which part of a scrolled content is in view. Hidden while all of it is.
class ScrollIndicator : public UIView {
public:
    using UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// Places the bar at the trailing edge of `visible`, a part of a content that is `contentHeight` high,
    /// both in the superview's coordinates.
    void show(const CoreGraphics::CGRect& visible, CoreGraphics::CGFloat contentHeight);

    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;
};

} // namespace UIKit
