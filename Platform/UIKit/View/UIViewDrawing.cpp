#include "Platform/Foundation/ScopeExit.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UIView.h"

namespace UIKit {

using namespace CoreGraphics;

namespace {

// Quickest where all of it is drawn again.
CGRect dirtyPart(const CGRect& bounds, const CGRect& dirty) {
    return CGRectContainsRect(dirty, bounds) ? bounds : CGRectIntersection(bounds, dirty);
}

} // namespace

void UIView::drawTree(CGContext& context, const CGRect& dirty) {
    draw(context, dirty, dirtyPart(presentedBounds(), dirty));
}

void UIView::draw(CGContext& context, const CGRect& dirty, const CGRect& dirtyContent) {
    const CGFloat alpha = presentedAlpha();
    if (alpha < 1.0) {
        context.beginGroup(alpha, presentedExtent());
        const Foundation::ScopeExit end([&context] { context.endGroup(); });
        drawContents(context, dirty, dirtyContent);
    } else {
        drawContents(context, dirty, dirtyContent);
    }
}

void UIView::drawContents(CGContext& context, const CGRect& dirty, const CGRect& dirtyContent) {
    const CGRect bounds = presentedBounds();
    if (clipsToBounds_) {
        clip(context);
    }
    if (!CGRectIsEmpty(dirtyContent)) {
        drawBackground(context, bounds);
        drawRect(context, dirtyContent);
    }
    for (const std::shared_ptr<UIView>& subview : subviews_) {
        subview->drawInSuperview(context, clipsToBounds_ ? dirtyContent : dirty);
    }
}

void UIView::drawInSuperview(CGContext& context, const CGRect& dirtyInSuperview) {
    if (!isVisible()) {
        return;
    }
    const ViewGeometry geometry = presentedGeometry();
    const std::optional<CGRect> dirty = geometry.rectFromSuperview(dirtyInSuperview);
    if (!dirty) {
        return;
    }
    const CGRect dirtyContent = dirtyPart(geometry.bounds(), *dirty);
    if (CGRectIsEmpty(dirtyContent) && !reachesInto(*dirty)) {
        return;
    }
    context.saveState();
    const Foundation::ScopeExit end([&context] { context.restoreState(); });
    context.concatenate(geometry.toSuperview());
    draw(context, *dirty, dirtyContent);
}

void UIView::drawBackground(CGContext& context, const CGRect& bounds) const {
    if (backgroundColor_ && backgroundColor_->patternImage()) {
        context.fillPattern(backgroundColor_->patternImage()->drawing(), bounds);
    } else if (backgroundColor_ || !animations_.isEmpty()) {
        const AnimatedValues values = presentedValues(AnimatedProperty::BackgroundColor);
        if (values[3] > 0.0) {
            context.fillRect(bounds, {values[0], values[1], values[2], values[3]});
        }
    }
}

} // namespace UIKit
