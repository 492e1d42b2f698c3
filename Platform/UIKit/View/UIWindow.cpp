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

using Responders = std::vector<std::shared_ptr<UIResponder>>;

// Innermost first, and not to those who were offered it before. What is added or taken out meanwhile is
// passed over.
bool offerKeyInside(const std::shared_ptr<UIView>& view, const UIKey& key, const Responders& before) {
    const std::vector<std::shared_ptr<UIView>> subviews = view->subviews();
    for (auto each = subviews.rbegin(); each != subviews.rend(); ++each) {
        if (!(*each)->isHidden() && (*each)->superview() == view && offerKeyInside(*each, key, before)) {
            return true;
        }
    }
    return std::find(before.begin(), before.end(), view) == before.end() && view->keyPressed(key);
}

// Notes in `offered` who is offered it, up to one of `ends` or the end.
bool offerKeyAlong(std::shared_ptr<UIResponder> each, const UIKey& key, Responders& offered,
                   const Responders& ends = {}) {
    for (; each && std::find(ends.begin(), ends.end(), each) == ends.end(); each = each->nextResponder()) {
        offered.push_back(each);
        if (each->keyPressed(key)) {
            return true;
        }
    }
    return false;
}

} // namespace

const Foundation::Class& UIWindow::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIWindow, UIView>("UIKit.UIWindow")
            .property<&UIWindow::owner, &UIWindow::setOwner>("owner")
            .property<&UIWindow::focusedView, &UIWindow::setFocusedView>("focusedView")
            .method<&UIWindow::focusNextView>("focusNextView")
            .method<&UIWindow::focusPreviousView>("focusPreviousView")
            .method<&UIWindow::moveFocus>("moveFocus:")
            .build();
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
    modalViews_.clear();
    focus_.reset();
    settleFocus();
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

void UIWindow::setOwner(const std::shared_ptr<UIResponder>& owner) {
    for (std::shared_ptr<UIResponder> each = owner; each; each = each->nextResponder()) {
        if (each.get() == this) {
            Foundation::fatalError("A window's owner leads back to the window");
        }
    }
    owner_ = owner;
}

bool UIWindow::sendScroll(const CGPoint& location, const CGPoint& delta) {
    const std::shared_ptr<UIWindow> alive = self(this);
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    layoutIfNeeded();
    const std::shared_ptr<UIView> modal = modalView();
    const std::shared_ptr<UIView> hit = hitTest(location);
    if (modal && !(hit && hit->isDescendantOfView(*modal))) {
        return true;
    }
    const std::shared_ptr<UIResponder> end = modal ? alive : nullptr;
    for (std::shared_ptr<UIResponder> each = hit; each != end; each = each->nextResponder()) {
        if (each->scrollBy(delta)) {
            return true;
        }
    }
    return modal != nullptr;
}

bool UIWindow::sendKey(const UIKey& key) {
    const std::shared_ptr<UIWindow> alive = self(this);
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    settleFocus();
    const std::shared_ptr<UIView> modal = modalView();
    Responders offered;
    return offerKeyAlong(focusedView(), key, offered, {modal, alive}) ||
           (modal && offerKeyInside(modal, key, offered)) || offerKeyAlong(alive, key, offered);
}

void UIWindow::addModalView(const std::shared_ptr<UIView>& view, const std::shared_ptr<UIView>& owner) {
    require(view, "view", "addModalView");
    require(owner, "owner", "addModalView");
    std::erase_if(modalViews_, [](const ModalView& each) { return each.view.expired(); });
    modalViews_.push_back({view, owner, {}});
    const std::shared_ptr<UIWindow> alive = self(this);
    addSubview(view);
    settleFocus();
}

std::optional<std::size_t> UIWindow::frontModalView() const {
    for (std::size_t left = modalViews_.size(); left > 0; --left) {
        const std::shared_ptr<UIView> view = modalViews_[left - 1].view.lock();
        if (view && view->superview().get() == this && view->isUserInteractionEnabled()) {
            return left - 1;
        }
    }
    return std::nullopt;
}

std::shared_ptr<UIView> UIWindow::modalView() const {
    const std::optional<std::size_t> front = frontModalView();
    return front ? modalViews_[*front].view.lock() : nullptr;
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

void UIWindow::viewDidLeave(UIView& view) {
    removeModalViewsOf(view);
    settleFocus();
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
    settleFocus();
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
