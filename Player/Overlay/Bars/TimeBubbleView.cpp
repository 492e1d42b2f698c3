#include "Player/Overlay/Bars/TimeBubbleView.h"

#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Looks/PlateView.h"

#include <algorithm>
#include <cmath>

namespace KivUICore::Overlay {

using namespace CoreGraphics;

namespace {

constexpr CGFloat plateHeight = 24.0;
constexpr CGFloat arrowHeight = 6.0;
constexpr CGFloat arrowHalf = 6.0;
constexpr CGFloat radius = 6.0;
constexpr CGFloat sidePadding = 5.0;
constexpr CGFloat leastArrow = radius + arrowHalf;

/// As `std::clamp`, and the lower limit where there is no room between both.
CGFloat limited(CGFloat value, CGFloat lowest, CGFloat highest) {
    return std::max(lowest, std::min(value, highest));
}

} // namespace

bool TimeBubbleView::init(const CGRect& frame) {
    label_ = Foundation::make<UIKit::UILabel>();
    label_->setFont(UIKit::UIFont::monospacedDigitSystemFontOfSize(13.0, UIKit::UIFontWeightMedium));
    label_->setTextAlignment(CGTextAlignment::Center);
    if (!UIView::init(frame)) {
        return false;
    }
    setUserInteractionEnabled(false);
    addSubview(label_);
    return true;
}

CGSize TimeBubbleView::sizeThatFits(const CGSize& /*size*/) const {
    // Whole points on both sides of the tip.
    const CGFloat half = std::ceil(label_->sizeThatFits({}).width / 2.0 + sidePadding);
    return {2.0 * std::max(half, leastArrow), plateHeight + arrowHeight};
}

void TimeBubbleView::pointAt(const CGPoint& tip, const CGRect& within) {
    const CGSize size = sizeThatFits({});
    const CGFloat left =
        limited(tip.x - size.width / 2.0, CGRectGetMinX(within), CGRectGetMaxX(within) - size.width);
    setFrame({{left, tip.y - size.height}, size});
    label_->setFrame(CGRectMake(0.0, 0.0, size.width, plateHeight));
    const CGFloat arrow = limited(tip.x - left, leastArrow, size.width - leastArrow);
    if (arrow != arrow_) {
        arrow_ = arrow;
        setNeedsDisplay();
    }
}

void TimeBubbleView::drawRect(CGContext& context, const CGRect& /*rect*/) {
    const CGRect bounds = alignedToPixels(presentedBounds());
    const CGFloat bottom = bounds.origin.y + plateHeight;
    const CGFloat tip = bounds.origin.x + arrow_;
    CGPath outline;
    outline.addRoundedRect({bounds.origin, {bounds.size.width, plateHeight}}, radius);
    outline.moveTo({tip - arrowHalf, bottom});
    outline.addLine({tip + arrowHalf, bottom});
    outline.addLine({tip, bottom + arrowHeight});
    outline.closeSubpath();
    context.fillPath(outline, plateColor);
}

} // namespace KivUICore::Overlay
