#include "Platform/UIKit/Presentation/PopoverView.h"

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIImage.h"

#include <algorithm>
#include <numbers>
#include <vector>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr CGColor plateColor{0.97, 0.97, 0.97, 0.94};
constexpr CGColor edgeColor{0.0, 0.0, 0.0, 0.28};
constexpr CGStroke edge{1.0, CGLineCap::Butt, CGLineJoin::Round};

// Room around the content for arrow and edge.
constexpr CGFloat padding = popoverArrowHeight + 1.0;

CGFloat radiusFor(const CGRect& rect) {
    return std::min({popoverCornerRadius, rect.size.width / 2.0, rect.size.height / 2.0});
}

void addArrow(CGPath& path, const CGRect& rect, const CGPoint& tip, CGFloat side) {
    const CGFloat half = std::min(popoverArrowWidth, rect.size.width) / 2.0;
    const CGFloat base = side < 0.0 ? CGRectGetMinY(rect) : CGRectGetMaxY(rect);
    path.addLine({tip.x + side * half, base});
    path.addLine(tip);
    path.addLine({tip.x - side * half, base});
}

CGPath outlineOf(const CGRect& rect, UIPopoverArrowDirection arrow, const CGPoint& tip) {
    using std::numbers::pi;
    const CGFloat radius = radiusFor(rect);
    const CGRect corners = CGRectInset(rect, radius, radius);
    const CGFloat left = CGRectGetMinX(corners);
    const CGFloat right = CGRectGetMaxX(corners);
    CGPath path;
    path.moveTo({left, CGRectGetMinY(rect)});
    if (arrow == UIPopoverArrowDirectionUp) {
        addArrow(path, rect, tip, -1.0);
    }
    path.addArc({right, CGRectGetMinY(corners)}, radius, -pi / 2.0, 0.0);
    path.addArc({right, CGRectGetMaxY(corners)}, radius, 0.0, pi / 2.0);
    if (arrow == UIPopoverArrowDirectionDown) {
        addArrow(path, rect, tip, 1.0);
    }
    path.addArc({left, CGRectGetMaxY(corners)}, radius, pi / 2.0, pi);
    path.addArc({left, CGRectGetMinY(corners)}, radius, pi, 1.5 * pi);
    path.closeSubpath();
    return path;
}

} // namespace

/// Holds the content and cuts it at the round corners.
class PopoverView::ContentClip : public UIView {
public:
    bool init(const CGRect& frame) override {
        setClipsToBounds(true);
        return UIView::init(frame);
    }
    using UIView::init;

    void layoutSubviews() override {
        shape_ = {};
        shape_.addRoundedRect(bounds(), popoverCornerRadius);
        const std::vector<std::shared_ptr<UIView>> contents = subviews();
        for (const std::shared_ptr<UIView>& content : contents) {
            content->setFrame(bounds());
        }
    }

protected:
    void clip(CGContext& context) const override { context.clipToPath(shape_); }

private:
    CGPath shape_;
};

bool PopoverView::init(const CGRect& frame) {
    clip_ = Foundation::make<ContentClip>();
    if (!UIView::init(frame)) {
        return false;
    }
    addSubview(clip_);
    return true;
}

void PopoverView::setContent(const std::shared_ptr<UIView>& content) {
    content->setFrame(clip_->bounds());
    clip_->addSubview(content);
}

void PopoverView::setPlacement(const PopoverPlacement& placement) {
    setFrame(CGRectInset(placement.content, -padding, -padding));
    const CGPoint origin = frame().origin;
    const CGRect plate = CGRectOffset(placement.content, -origin.x, -origin.y);
    const CGPoint tip{placement.arrowTip.x - origin.x, placement.arrowTip.y - origin.y};
    outline_ = outlineOf(plate, placement.arrowDirection, tip);
    arrowRect_ =
        placement.arrowDirection == UIPopoverArrowDirectionUnknown
            ? CGRect{}
            : CGRectMake(tip.x - popoverArrowWidth / 2.0, 0.0, popoverArrowWidth, frame().size.height);
    setNeedsDisplay();
    clip_->setFrame(plate);
}

bool PopoverView::pointInside(const CGPoint& point) const {
    return CGRectContainsPoint(clip_->frame(), point) || CGRectContainsPoint(arrowRect_, point);
}

void PopoverView::setFillColor(const std::shared_ptr<UIColor>& color) {
    fillColor_ = color;
    setNeedsDisplay();
}

void PopoverView::drawRect(CGContext& context, const CGRect& /*rect*/) {
    if (fillColor_ && fillColor_->patternImage()) {
        context.saveState();
        context.clipToPath(outline_);
        context.fillPattern(fillColor_->patternImage()->drawing(), presentedBounds());
        context.restoreState();
    } else {
        context.fillPath(outline_, fillColor_ ? fillColor_->cgColor() : plateColor);
    }
    context.strokePath(outline_, edge, edgeColor);
}

} // namespace UIKit
