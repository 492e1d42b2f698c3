#pragma once

#include "Platform/Foundation/SEL.h"
#include "Platform/UIKit/UIControlEvents.h"
#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"

#include <memory>
#include <optional>
#include <vector>

namespace UIKit {

/// A view that turns touches into events and tells its targets of them. It follows one touch at a time:
/// another that goes down meanwhile is ignored.
class UIControl : public UIView {
public:
    static const Foundation::Class& classObject();

    using UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// Has `target` sent `action` for each of the events, after those that were registered before it; the
    /// control is the argument if the action takes one. The target is held weakly: one that has gone is
    /// passed over. The same target and action again adds to their events. No target is a fatal report.
    virtual void addTarget(const std::shared_ptr<Foundation::NSObject>& target, Foundation::SEL action,
                           UIControlEvents events);

    /// Takes the events away from matching registrations; no target stands for every one, no action for each.
    virtual void removeTarget(const std::shared_ptr<Foundation::NSObject>& target, Foundation::SEL action,
                              UIControlEvents events);

    /// Tells the targets registered for any of `events`, each once. A registration that is taken away
    /// meanwhile is no longer told, one that is added not yet. An exception from one passes through, and
    /// those after it are not told.
    void sendActionsForControlEvents(UIControlEvents events);

    /// Disabling a control in mid-touch cancels the touch. While disabled it swallows touches.
    virtual bool isEnabled() const;
    virtual void setEnabled(bool enabled);

    virtual bool isSelected() const;
    virtual void setSelected(bool selected);

    /// True while a touch is down on the control and inside it.
    virtual bool isHighlighted() const;
    virtual void setHighlighted(bool highlighted);

    /// All of the above as bits.
    UIControlState state() const;

    /// Unless it is disabled.
    bool canBecomeFocused() const override { return isEnabled(); }

    /// True from an accepted beginning until the touch ends.
    bool isTracking() const { return trackedTouch_.has_value(); }
    bool isTouchInside() const { return isTouchInside_; }

    /// Called when a touch goes down, before the event is sent; false refuses the touch.
    virtual bool beginTrackingWithTouch(const UITouch& touch);

    /// Called for each move, before the drag events are sent; false ends the tracking.
    virtual bool continueTrackingWithTouch(const UITouch& touch);

    /// Called when the touch is lifted, before the event is sent.
    virtual void endTrackingWithTouch(const UITouch& touch);

    /// Called when the touch is cancelled, before the event is sent.
    virtual void cancelTracking();

    void touchesBegan(const UITouch& touch) override;
    void touchesMoved(const UITouch& touch) override;
    void touchesEnded(const UITouch& touch) override;
    void touchesCancelled(const UITouch& touch) override;

protected:
    bool admitsFocus() const override;

private:
    struct Registration {
        std::weak_ptr<Foundation::NSObject> target;
        Foundation::SEL action;
        UIControlEvents events;
    };

    Registration* find(const std::weak_ptr<Foundation::NSObject>& target, Foundation::SEL action);
    bool isTracked(const UITouch& touch) const;
    template <class Call>
    void orStopTracking(const UITouch& touch, Call call);
    void stopTracking();
    void cancelTrackedTouch();

    std::vector<Registration> registrations_;
    std::optional<UITouchIdentifier> trackedTouch_;
    bool isTouchInside_ = false;
    bool isEnabled_ = true;
    bool isSelected_ = false;
    bool isHighlighted_ = false;
};

} // namespace UIKit
