#include "Platform/UIKit/UIWindow.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/ScopeExit.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;

namespace {

// What is added or taken out meanwhile is passed over.
bool offerKey(const std::shared_ptr<UIView>& view, const UIKey& key) {
    const std::vector<std::shared_ptr<UIView>> subviews = view->subviews();
    for (auto each = subviews.rbegin(); each != subviews.rend(); ++each) {
        if (!(*each)->isHidden() && (*each)->superview() == view && offerKey(*each, key)) {
            return true;
        }
    }
    return view->keyPressed(key);
}

} // namespace

const Foundation::Class& UIWindow::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIWindow, UIView>("UIKit.UIWindow").build();
    return object;
}

bool UIWindow::init(const CGRect& frame) {
    loop_ = Foundation::NSRunLoop::weakCurrentRunLoop();
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

std::shared_ptr<UIWindow> UIWindow::sharedWindow() {
    return std::static_pointer_cast<UIWindow>(weak_from_this().lock());
}

Foundation::NSRunLoop& UIWindow::runLoop() const {
    const std::shared_ptr<Foundation::NSRunLoop> loop = loop_.lock();
    return loop ? *loop : Foundation::NSRunLoop::currentRunLoop();
}

std::vector<UIWindow::Capture>::iterator UIWindow::findCapture(UITouchIdentifier identifier) {
    return std::find_if(captures_.begin(), captures_.end(),
                        [identifier](const Capture& each) { return each.touch.identifier == identifier; });
}

void UIWindow::layoutIfNeeded() {
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    UIView::layoutIfNeeded();
}

void UIWindow::sendTouch(UITouchIdentifier identifier, UITouchPhase phase, const CGPoint& location) {
    const std::shared_ptr<UIWindow> alive = self(this);
    Foundation::NSRunLoop& loop = runLoop();
    const Foundation::NSRunLoop::Scope current(&loop);
    const double now = loop.now();
    layoutIfNeeded();
    auto found = findCapture(identifier);
    if (phase == UITouchPhase::Began) {
        const std::shared_ptr<UIView> view = found == captures_.end() ? hitTest(location) : nullptr;
        if (view) {
            captures_.push_back({{identifier, phase, now, location, location, nullptr}, view});
            deliver(captures_.back().touch, view);
        }
        return;
    }
    if (found == captures_.end()) {
        return;
    }
    found->touch.phase = phase;
    found->touch.timestamp = now;
    found->touch.previousLocation = std::exchange(found->touch.location, location);
    const UITouch touch = found->touch;
    const std::shared_ptr<UIView> view = found->view.lock();
    if (phase != UITouchPhase::Moved) {
        captures_.erase(found);
    }
    deliver(touch, view);
}

void UIWindow::cancelTouches() {
    // None while the window is torn down, when no call can end it any more.
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    while (!captures_.empty()) {
        cancel(captures_.begin());
    }
}

void UIWindow::cancelTouchesIn(const UIView& subtree) {
    // From the start after each: whoever hears of a cancellation may end other touches.
    const auto isInside = [&subtree](const Capture& each) {
        const std::shared_ptr<UIView> view = each.view.lock();
        return view && view->isDescendantOfView(subtree);
    };
    for (auto found = std::find_if(captures_.begin(), captures_.end(), isInside); found != captures_.end();
         found = std::find_if(captures_.begin(), captures_.end(), isInside)) {
        cancel(found);
    }
}

void UIWindow::cancel(std::vector<Capture>::iterator found) {
    UITouch touch = found->touch;
    const std::shared_ptr<UIView> view = found->view.lock();
    captures_.erase(found);
    touch.phase = UITouchPhase::Cancelled;
    deliver(touch, view);
}

void UIWindow::deliver(UITouch touch, const std::shared_ptr<UIView>& view) {
    if (!view) {
        return;
    }
    touch.view = view;
    switch (touch.phase) {
    case UITouchPhase::Began:
        view->touchesBegan(touch);
        break;
    case UITouchPhase::Moved:
        view->touchesMoved(touch);
        break;
    case UITouchPhase::Ended:
        view->touchesEnded(touch);
        break;
    case UITouchPhase::Cancelled:
        view->touchesCancelled(touch);
        break;
    }
}

bool UIWindow::sendScroll(const CGPoint& location, const CGPoint& delta) {
    const std::shared_ptr<UIWindow> alive = self(this);
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    layoutIfNeeded();
    const std::shared_ptr<UIView> modal = modalView();
    const std::shared_ptr<UIView> hit = hitTest(location);
    for (std::shared_ptr<UIView> each = hit; each; each = each->superview()) {
        if (modal && !each->isDescendantOfView(*modal)) {
            return true;
        }
        if (each->scrollBy(delta)) {
            return true;
        }
    }
    return modal != nullptr;
}

bool UIWindow::sendKey(const UIKey& key) {
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    const std::shared_ptr<UIView> modal = modalView();
    return modal && offerKey(modal, key);
}

void UIWindow::addModalView(const std::shared_ptr<UIView>& view, const std::shared_ptr<UIView>& owner) {
    require(view, "view", "addModalView");
    require(owner, "owner", "addModalView");
    std::erase_if(modalViews_, [](const ModalView& each) { return each.view.expired(); });
    modalViews_.push_back({view, owner});
    addSubview(view);
}

std::shared_ptr<UIView> UIWindow::modalView() const {
    for (auto each = modalViews_.rbegin(); each != modalViews_.rend(); ++each) {
        std::shared_ptr<UIView> view = each->view.lock();
        if (view && view->superview().get() == this && view->isUserInteractionEnabled()) {
            return view;
        }
    }
    return nullptr;
}

bool UIWindow::isModal(const UIView& view) const {
    return view.isUserInteractionEnabled() &&
           std::any_of(modalViews_.begin(), modalViews_.end(),
                       [&view](const ModalView& each) { return each.view.lock().get() == &view; });
}

// The modal views in front, the others behind.
UIView::PlaceRange UIWindow::placesFor(const UIView& view) const {
    std::size_t behind = 0;
    std::size_t all = 0;
    for (const std::shared_ptr<UIView>& each : UIView::subviews()) {
        if (each.get() != &view) {
            behind += isModal(*each) ? 0 : 1;
            ++all;
        }
    }
    return isModal(view) ? PlaceRange{behind, all} : PlaceRange{0, behind};
}

void UIWindow::removeModalViewsOf(const UIView& subtree) {
    const std::vector<ModalView> snapshot = modalViews_;
    for (const ModalView& each : snapshot) {
        const std::shared_ptr<UIView> view = each.view.lock();
        const std::shared_ptr<UIView> owner = each.owner.lock();
        if (view && owner && view->superview().get() == this && owner->isDescendantOfView(subtree)) {
            view->removeFromSuperview();
        }
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
    // Everything includes what was noted before, which may lie outside now: the window was smaller since.
    if (visible == bounds()) {
        damage_.clear();
    } else if (damage_.contains(visible)) {
        return;
    }
    const CGFloat scale = contentScale_;
    const CGFloat left = std::floor(CGRectGetMinX(visible) * scale) / scale;
    const CGFloat top = std::floor(CGRectGetMinY(visible) * scale) / scale;
    const CGFloat right = std::ceil(CGRectGetMaxX(visible) * scale) / scale;
    const CGFloat bottom = std::ceil(CGRectGetMaxY(visible) * scale) / scale;
    damage_.add({{left, top}, {right - left, bottom - top}});
}

DamageRegion UIWindow::display(CGContext& context) {
    const std::shared_ptr<UIWindow> alive = self(this);
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    layoutIfNeeded();
    const DamageRegion damage = damage_;
    damage_.clear();
    std::size_t drawn = 0;
    const Foundation::ScopeExit end([&] {
        for (const CGRect& rect : damage.rects().subspan(drawn)) {
            damage_.add(rect);
        }
    });
    for (; drawn < damage.rects().size(); ++drawn) {
        displayRect(damage.rects()[drawn], context);
    }
    return damage;
}

void UIWindow::displayRect(const CGRect& rect, CGContext& context) {
    context.saveState();
    const Foundation::ScopeExit end([&context] { context.restoreState(); });
    context.clipToRect(rect);
    context.clearRect(rect);
    if (isVisible()) {
        drawTree(context, rect);
    }
}

} // namespace UIKit
