#include "Player/Overlay/Looks/PlateView.h"

#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UILabel.h"

#include <algorithm>

namespace KivUICore::Overlay {

using namespace CoreGraphics;

namespace {

constexpr CGFloat radius = 10.0;
constexpr CGFloat sidePadding = 14.0;
constexpr CGFloat padding = 9.0;

} // namespace

bool PlateView::init(const CGRect& frame) {
    label_ = Foundation::make<UIKit::UILabel>();
    label_->setFont(UIKit::UIFont::systemFontOfSize(15.0, UIKit::UIFontWeightMedium));
    label_->setTextAlignment(CGTextAlignment::Center);
    label_->setNumberOfLines(0);
    if (!UIView::init(frame)) {
        return false;
    }
    addSubview(label_);
    setNeedsLayout();
    return true;
}

void PlateView::setFootHeight(CGFloat height) {
    footHeight_ = height;
    setNeedsLayout();
}

void PlateView::setTailWidth(CGFloat width) {
    tailWidth_ = width;
    setNeedsLayout();
}

CGFloat PlateView::bottomPadding() const { return std::max(padding, footHeight_); }

CGFloat PlateView::rightPadding() const { return std::max(sidePadding, tailWidth_); }

CGRect PlateView::textArea(const CGSize& size) const {
    return {{sidePadding, padding},
            {std::max(0.0, size.width - sidePadding - rightPadding()),
             std::max(0.0, size.height - padding - bottomPadding())}};
}

void PlateView::layoutSubviews() { label_->setFrame(textArea(bounds().size)); }

CGSize PlateView::sizeThatFits(const CGSize& size) const {
    // A room of no points would stand for one without limits.
    const CGSize room = textArea(size).size;
    const CGSize text = label_->sizeThatFits({std::max(1.0, room.width), std::max(1.0, room.height)});
    return {std::min(size.width, text.width + sidePadding + rightPadding()),
            std::min(size.height, text.height + padding + bottomPadding())};
}

void PlateView::drawRect(CGContext& context, const CGRect& /*rect*/) {
    context.fillRoundedRect(alignedToPixels(presentedBounds()), radius, plateColor);
}

} // namespace KivUICore::Overlay
