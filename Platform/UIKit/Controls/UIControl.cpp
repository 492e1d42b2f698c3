#include "Platform/UIKit/UIControl.h"

#include "Platform/Foundation/ClassBuilder.h"

#include <algorithm>
#include <iterator>

namespace UIKit {

using namespace CoreGraphics;

namespace {

bool isSame(const std::weak_ptr<Foundation::NSObject>& a, const std::weak_ptr<Foundation::NSObject>& b) {
    return !a.owner_before(b) && !b.owner_before(a);
}

} // namespace

const Foundation::Class& UIControl::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIControl, UIView>("UIKit.UIControl")
            .method<&UIControl::addTarget>("addTarget:action:forControlEvents:")
            .method<&UIControl::removeTarget>("removeTarget:action:forControlEvents:")
            .method<&UIControl::sendActionsForControlEvents>("sendActionsForControlEvents:")
            .property<&UIControl::isEnabled, &UIControl::setEnabled>("enabled")
            .property<&UIControl::isSelected, &UIControl::setSelected>("selected")
            .property<&UIControl::isHighlighted, &UIControl::setHighlighted>("highlighted")
            .property<&UIControl::state>("state")
            .build();
    return object;
}

bool UIControl::init(const CGRect& frame) { return UIView::init(frame); }

// Target and action

UIControl::Registration* UIControl::find(const std::weak_ptr<Foundation::NSObject>& target,
                                         Foundation::SEL action) {
    const auto found =
        std::find_if(registrations_.begin(), registrations_.end(), [&](const Registration& each) {
            return each.action == action && isSame(each.target, target);
        });
    return found == registrations_.end() ? nullptr : &*found;
}

void UIControl::addTarget(const std::shared_ptr<Foundation::NSObject>& target, Foundation::SEL action,
                          UIControlEvents events) {
    require(target, "target", "addTarget:action:forControlEvents:");
    std::erase_if(registrations_, [](const Registration& each) { return each.target.expired(); });
    if (Registration* present = find(target, action)) {
        present->events |= events;
    } else {
        registrations_.push_back({target, action, events});
    }
}

void UIControl::removeTarget(const std::shared_ptr<Foundation::NSObject>& target, Foundation::SEL action,
                             UIControlEvents events) {
    for (Registration& each : registrations_) {
        if ((!target || isSame(each.target, target)) && (!action || each.action == action)) {
            each.events &= ~events;
        }
    }
    std::erase_if(registrations_, [](const Registration& each) { return each.events == 0; });
}

void UIControl::sendActionsForControlEvents(UIControlEvents events) {
    const auto isFor = [events](const Registration& each) { return (each.events & events) != 0; };
    std::vector<Registration> snapshot;
    std::copy_if(registrations_.begin(), registrations_.end(), std::back_inserter(snapshot), isFor);
    if (snapshot.empty()) {
        return;
    }
    const std::shared_ptr<UIControl> sender = self(this);
    for (const Registration& each : snapshot) {
        const std::shared_ptr<Foundation::NSObject> target = each.target.lock();
        const Registration* present = target ? find(each.target, each.action) : nullptr;
        if (!present || !isFor(*present)) {
            continue;
        }
        if (each.action.argumentCount() > 0) {
            target->send(each.action, sender);
        } else {
            target->send(each.action);
        }
    }
}

// State

bool UIControl::isEnabled() const { return isEnabled_; }

void UIControl::setEnabled(bool enabled) {
    if (enabled == isEnabled_) {
        return;
    }
    isEnabled_ = enabled;
    setNeedsDisplay();
    if (!enabled) {
        cancelTrackedTouch();
    }
}

bool UIControl::isSelected() const { return isSelected_; }

void UIControl::setSelected(bool selected) {
    if (selected != isSelected_) {
        isSelected_ = selected;
        setNeedsDisplay();
    }
}

bool UIControl::isHighlighted() const { return isHighlighted_; }

void UIControl::setHighlighted(bool highlighted) {
    if (highlighted != isHighlighted_) {
        isHighlighted_ = highlighted;
        setNeedsDisplay();
    }
}

UIControlState UIControl::state() const {
    return (isHighlighted() ? UIControlStateHighlighted : UIControlStateNormal) |
           (isEnabled() ? UIControlStateNormal : UIControlStateDisabled) |
           (isSelected() ? UIControlStateSelected : UIControlStateNormal);
}

bool UIControl::admitsFocus() const { return isEnabled() && UIView::admitsFocus(); }

// Tracking

bool UIControl::beginTrackingWithTouch(const UITouch& /*touch*/) { return true; }

bool UIControl::continueTrackingWithTouch(const UITouch& /*touch*/) { return true; }

void UIControl::endTrackingWithTouch(const UITouch& /*touch*/) {}

void UIControl::cancelTracking() {}

bool UIControl::isTracked(const UITouch& touch) const { return trackedTouch_ == touch.identifier; }

void UIControl::stopTracking() {
    trackedTouch_.reset();
    isTouchInside_ = false;
    setHighlighted(false);
}

void UIControl::cancelTrackedTouch() {
    if (isTracking()) {
        const std::shared_ptr<UIControl> alive = self(this);
        stopTracking();
        cancelTracking();
        sendActionsForControlEvents(UIControlEventTouchCancel);
    }
}

// A subclass that throws at the beginning or the end of a touch must not leave the control waiting for more
// of that touch.
template <class Call>
void UIControl::orStopTracking(const UITouch& touch, Call call) {
    try {
        call();
    } catch (...) {
        if (isTracked(touch)) {
            stopTracking();
        }
        throw;
    }
}

void UIControl::touchesBegan(const UITouch& touch) {
    if (!isEnabled() || isTracking()) {
        return;
    }
    const std::shared_ptr<UIControl> alive = self(this);
    trackedTouch_ = touch.identifier;
    bool isAccepted = false;
    orStopTracking(touch, [&] { isAccepted = beginTrackingWithTouch(touch); });
    if (!isAccepted) {
        stopTracking();
    } else if (isTracked(touch)) {
        isTouchInside_ = true;
        setHighlighted(true);
        sendActionsForControlEvents(UIControlEventTouchDown);
    }
}

void UIControl::touchesMoved(const UITouch& touch) {
    if (!isTracked(touch)) {
        return;
    }
    const std::shared_ptr<UIControl> alive = self(this);
    const bool goesOn = continueTrackingWithTouch(touch);
    if (!isTracked(touch)) {
        return;
    }
    if (!goesOn) {
        cancelTrackedTouch();
        return;
    }
    const bool wasInside = isTouchInside_;
    isTouchInside_ = pointInside(touch.locationInView(*this));
    setHighlighted(isTouchInside_);
    const bool isInside = isTouchInside_;
    if (isInside != wasInside) {
        sendActionsForControlEvents(isInside ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit);
    }
    if (isTracked(touch)) {
        sendActionsForControlEvents(isInside ? UIControlEventTouchDragInside
                                             : UIControlEventTouchDragOutside);
    }
}

void UIControl::touchesEnded(const UITouch& touch) {
    if (!isTracked(touch)) {
        return;
    }
    const std::shared_ptr<UIControl> alive = self(this);
    const bool isInside = pointInside(touch.locationInView(*this));
    orStopTracking(touch, [&] { endTrackingWithTouch(touch); });
    if (isTracked(touch)) {
        stopTracking();
        sendActionsForControlEvents(isInside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside);
    }
}

void UIControl::touchesCancelled(const UITouch& touch) {
    if (isTracked(touch)) {
        cancelTrackedTouch();
    }
}

} // namespace UIKit
