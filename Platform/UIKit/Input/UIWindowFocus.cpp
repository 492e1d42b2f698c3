#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/Input/FocusOrder.h"
#include "Platform/UIKit/UIWindow.h"

#include <algorithm>

namespace UIKit {

using namespace CoreGraphics;

namespace {

using Views = std::vector<std::shared_ptr<UIView>>;

void collectFocusable(const std::shared_ptr<UIView>& view, Views& found) {
    if (view->isFocusable()) {
        found.push_back(view);
    }
    const Views subviews = view->subviews();
    for (const std::shared_ptr<UIView>& each : subviews) {
        collectFocusable(each, found);
    }
}

std::vector<CGRect> framesIn(const UIView& window, const Views& views) {
    std::vector<CGRect> frames;
    frames.reserve(views.size());
    for (const std::shared_ptr<UIView>& each : views) {
        frames.push_back(each->convertRectToView(each->bounds(), window));
    }
    return frames;
}

} // namespace

const std::weak_ptr<UIView>& UIWindow::wantedFocus() const {
    const std::optional<std::size_t> front = frontModalView();
    return front ? modalViews_[*front].focus : focus_;
}

void UIWindow::setWantedFocus(const std::shared_ptr<UIView>& view) {
    const std::optional<std::size_t> front = frontModalView();
    (front ? modalViews_[*front].focus : focus_) = view;
}

bool UIWindow::canFocus(const UIView& view) const {
    const std::shared_ptr<UIView> modal = modalView();
    const UIView& around = modal ? *modal : static_cast<const UIView&>(*this);
    return view.isDescendantOfView(around) && view.isFocusable();
}

std::shared_ptr<UIView> UIWindow::focusedView() const {
    std::shared_ptr<UIView> view = wantedFocus().lock();
    return view && canFocus(*view) ? view : nullptr;
}

void UIWindow::setFocusedView(const std::shared_ptr<UIView>& view) {
    if (view && !canFocus(*view)) {
        return;
    }
    setWantedFocus(view);
    settleFocus();
}

// Whoever hears of it may move the focus on, or end the window.
void UIWindow::settleFocus() {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    if (!focusedView()) {
        setWantedFocus(nullptr);
    }
    const std::shared_ptr<UIView> before = toldFocus_.lock();
    if (before && before != focusedView()) {
        toldFocus_.reset();
        before->setNeedsDisplay();
        before->didLoseFocus();
    }
    const std::shared_ptr<UIView> view = focusedView();
    if (view && toldFocus_.expired()) {
        toldFocus_ = view;
        view->setNeedsDisplay();
        view->didGainFocus();
    }
}

// In reading order.
std::vector<std::shared_ptr<UIView>> UIWindow::focusableViews() const {
    Views found;
    const std::shared_ptr<UIView> modal = modalView();
    for (const std::shared_ptr<UIView>& each : modal ? Views{modal} : Views(subviews())) {
        collectFocusable(each, found);
    }
    Views ordered;
    ordered.reserve(found.size());
    for (std::size_t place : readingOrder(framesIn(*this, found))) {
        ordered.push_back(found[place]);
    }
    return ordered;
}

bool UIWindow::focusNextView() { return stepFocus(1); }

bool UIWindow::focusPreviousView() { return stepFocus(-1); }

bool UIWindow::stepFocus(std::ptrdiff_t step) {
    const std::shared_ptr<UIWindow> alive = self(this);
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    layoutIfNeeded();
    const Views views = focusableViews();
    if (views.empty()) {
        return false;
    }
    const auto count = static_cast<std::ptrdiff_t>(views.size());
    const auto found = std::find(views.begin(), views.end(), focusedView());
    const std::ptrdiff_t unfocused = step > 0 ? -1 : count;
    const std::ptrdiff_t place = found == views.end() ? unfocused : found - views.begin();
    return takeFocusTo(views[static_cast<std::size_t>((place + step + count) % count)]);
}

bool UIWindow::moveFocus(UIFocusHeading heading) {
    const std::shared_ptr<UIWindow> alive = self(this);
    const Foundation::NSRunLoop::Scope current(loop_.lock().get());
    layoutIfNeeded();
    const std::shared_ptr<UIView> focused = focusedView();
    if (!focused) {
        return stepFocus(1);
    }
    const Views views = focusableViews();
    const CGRect from = focused->convertRectToView(focused->bounds(), *this);
    const std::optional<std::size_t> nearest = nearestFrame(from, framesIn(*this, views), heading);
    return nearest && takeFocusTo(views[*nearest]);
}

bool UIWindow::takeFocusTo(const std::shared_ptr<UIView>& view) {
    const bool isAnother = view != focusedView();
    setFocusedView(view);
    return isAnother;
}

} // namespace UIKit
