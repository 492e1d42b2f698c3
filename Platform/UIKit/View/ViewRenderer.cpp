#include "Platform/UIKit/View/ViewRenderer.h"

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

void ViewRenderer::draw(UIView& view, const CGRect& dirty) {
    draw(view, dirty, dirtyPart(view.presentedBounds(), dirty));
}

void ViewRenderer::draw(UIView& view, const CGRect& dirty, const CGRect& dirtyContent) {
    const CGFloat alpha = view.presentedAlpha();
    if (alpha < 1.0) {
        context_.beginGroup(alpha, view.presentedExtent());
        const Foundation::ScopeExit end([this] { context_.endGroup(); });
        drawContents(view, dirty, dirtyContent);
    } else {
        drawContents(view, dirty, dirtyContent);
    }
}

void ViewRenderer::drawContents(UIView& view, const CGRect& dirty, const CGRect& dirtyContent) {
    const CGRect bounds = view.presentedBounds();
    if (view.clipsToBounds_) {
        view.clip(context_);
    }
    if (!CGRectIsEmpty(dirtyContent)) {
        drawBackground(view, bounds);
        view.drawRect(context_, dirtyContent);
    }
    for (const std::shared_ptr<UIView>& subview : view.subviews_) {
        drawSubview(*subview, view.clipsToBounds_ ? dirtyContent : dirty);
    }
}

void ViewRenderer::drawSubview(UIView& view, const CGRect& dirtyInSuperview) {
    if (!view.isVisible()) {
        return;
    }
    const ViewGeometry geometry = view.presentedGeometry();
    const std::optional<CGRect> dirty = geometry.rectFromSuperview(dirtyInSuperview);
    if (!dirty) {
        return;
    }
    const CGRect dirtyContent = dirtyPart(geometry.bounds(), *dirty);
    if (CGRectIsEmpty(dirtyContent) && !view.reachesInto(*dirty)) {
        return;
    }
    context_.saveState();
    const Foundation::ScopeExit end([this] { context_.restoreState(); });
    context_.concatenate(geometry.toSuperview());
    draw(view, *dirty, dirtyContent);
}

void ViewRenderer::drawBackground(const UIView& view, const CGRect& bounds) {
    if (const UIColor* color = view.backgroundColor_.get()) {
        if (color->patternImage()) {
            context_.fillPattern(color->patternImage()->drawing(), bounds);
            return;
        }
    }
    if (view.backgroundColor_ || !view.animations_.isEmpty()) {
        const AnimatedValues values = view.presentedValues(AnimatedProperty::BackgroundColor);
        if (values[3] > 0.0) {
            context_.fillRect(bounds, {values[0], values[1], values[2], values[3]});
        }
    }
}

} // namespace UIKit
