#include "Platform/UIKit/Table/ScrollIndicator.h"

#include <algorithm>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr CGFloat width = 4.0;
constexpr CGFloat margin = 3.0;

// Clear of round corners.
constexpr CGFloat endMargin = 7.0;

constexpr CGFloat leastLength = 24.0;
constexpr CGColor color{0.0, 0.0, 0.0, 0.45};

} // namespace

bool ScrollIndicator::init(const CGRect& frame) {
    setUserInteractionEnabled(false);
    return UIView::init(frame);
}

void ScrollIndicator::show(const CGRect& visible, CGFloat contentHeight) {
    const CGFloat track = visible.size.height - 2.0 * endMargin;
    setHidden(!(contentHeight > visible.size.height && track > 0.0));
    if (isHidden()) {
        return;
    }
    const CGFloat length =
        std::min(track, std::max(leastLength, track * visible.size.height / contentHeight));
    const CGFloat way = visible.origin.y / (contentHeight - visible.size.height);
    const CGFloat top = endMargin + (track - length) * std::clamp(way, 0.0, 1.0);
    setFrame({{CGRectGetMaxX(visible) - margin - width, visible.origin.y + top}, {width, length}});
}

void ScrollIndicator::drawRect(CGContext& context, const CGRect& /*rect*/) {
    context.fillRoundedRect(presentedBounds(), width / 2.0, color);
}

} // namespace UIKit
