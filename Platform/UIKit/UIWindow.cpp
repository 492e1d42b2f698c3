#include "Platform/UIKit/UIWindow.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/ViewRenderer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;

const Foundation::Class& UIWindow::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIWindow, UIView>("UIKit.UIWindow").build();
    return object;
}

bool UIWindow::init(const CGRect& frame) {
    isWindow_ = true;
    if (!UIView::init(frame)) {
        return false;
    }
    setNeedsDisplayEverywhere();
    return true;
}

void UIWindow::dealloc() {
    cancelTouches();
    UIView::dealloc();
}

void UIWindow::sendTouch(UITouchIdentifier identifier, UITouchPhase phase, const CGPoint& location) {
    const std::shared_ptr<UIWindow> alive = self(this);
    const auto found = std::find_if(touches_.begin(), touches_.end(), [identifier](const UITouch& each) {
        return each.identifier == identifier;
    });
    const double now = Foundation::NSRunLoop::currentRunLoop().now();
    if (phase == UITouchPhase::Began) {
        const std::shared_ptr<UIView> view = found == touches_.end() ? hitTest(location) : nullptr;
        if (view) {
            const UITouch touch{identifier, phase, now, location, location, view};
            touches_.push_back(touch);
            deliver(touch);
        }
        return;
    }
    if (found == touches_.end()) {
        return;
    }
    found->phase = phase;
    found->timestamp = now;
    found->previousLocation = found->location;
    found->location = location;
    const UITouch touch = *found;
    if (phase != UITouchPhase::Moved) {
        touches_.erase(found);
    }
    deliver(touch);
}

void UIWindow::cancelTouches() {
    while (!touches_.empty()) {
        cancelTouch(0);
    }
}

void UIWindow::cancelTouchesIn(const UIView& subtree) {
    // From the start after each: whoever hears of a cancellation may end other touches.
    for (std::size_t index = 0; index < touches_.size();) {
        if (touches_[index].view->isDescendantOfView(subtree)) {
            cancelTouch(index);
            index = 0;
        } else {
            ++index;
        }
    }
}

void UIWindow::cancelTouch(std::size_t index) {
    UITouch touch = touches_[index];
    touches_.erase(touches_.begin() + static_cast<std::ptrdiff_t>(index));
    touch.phase = UITouchPhase::Cancelled;
    deliver(touch);
}

void UIWindow::deliver(const UITouch& touch) {
    switch (touch.phase) {
    case UITouchPhase::Began:
        touch.view->touchesBegan(touch);
        break;
    case UITouchPhase::Moved:
        touch.view->touchesMoved(touch);
        break;
    case UITouchPhase::Ended:
        touch.view->touchesEnded(touch);
        break;
    case UITouchPhase::Cancelled:
        touch.view->touchesCancelled(touch);
        break;
    }
}

void UIWindow::setContentScale(CGFloat scale) {
    if (!(scale > 0.0) || !std::isfinite(scale)) {
        Foundation::fatalError("A window's content scale is a number above zero");
    }
    if (scale != contentScale_) {
        contentScale_ = scale;
        setNeedsDisplayEverywhere();
    }
}

void UIWindow::setNeedsDisplayEverywhere() { damage(bounds()); }

void UIWindow::damage(const CGRect& rect) {
    const CGRect visible = CGRectIntersection(rect, bounds());
    const CGFloat scale = contentScale_;
    const CGFloat left = std::floor(CGRectGetMinX(visible) * scale) / scale;
    const CGFloat top = std::floor(CGRectGetMinY(visible) * scale) / scale;
    const CGFloat right = std::ceil(CGRectGetMaxX(visible) * scale) / scale;
    const CGFloat bottom = std::ceil(CGRectGetMaxY(visible) * scale) / scale;
    damage_.add({{left, top}, {right - left, bottom - top}});
}

void UIWindow::display(CGContext& context) {
    const DamageRegion damage = std::exchange(damage_, {});
    for (const CGRect& rect : damage.rects()) {
        context.saveState();
        context.clipToRect(rect);
        context.clearRect(rect);
        ViewRenderer(context).drawContents(*this, rect);
        context.restoreState();
    }
}

} // namespace UIKit
