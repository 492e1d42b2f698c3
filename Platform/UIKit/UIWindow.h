#pragma once

#include "Platform/CoreGraphics/DamageRegion.h"
#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"
#include "Platform/UIKit/View/ViewRoot.h"

#include <cstddef>
#include <vector>

namespace UIKit {

/// The root of a view tree: where a host hands in touches and takes out drawing. The host owns it, resizes it
/// by `setFrame` and draws it when it needs display. It is transparent where no view is. The run loop that is
/// current when the window is made is the one of its host: it runs the animations and timers of what is in
/// it.
class UIWindow : public UIView, private ViewRoot {
public:
    static const Foundation::Class& classObject();

    using UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// In the time of its host.
    void layoutIfNeeded() override;

    /// One step of a touch, `location` in the window's coordinates. A touch that begins is captured by the
    /// view under it, as everything is laid out by then, which hears all the rest; steps of a touch that
    /// isn't down are ignored, and so is a second beginning of one that is. May be called with several
    /// touches down at once.
    void sendTouch(UITouchIdentifier identifier, UITouchPhase phase, const CoreGraphics::CGPoint& location);

    /// Cancels all touches that are down: when the window loses the pointer or the focus.
    void cancelTouches();

    /// Cancels those that are down on a view or inside it.
    void cancelTouchesIn(const UIView& subtree);

    /// Wheel movement over `location`, in points, offered to the view there and then to those around it, as
    /// UIView::scrollBy tells. True if somebody took it. A modal view takes what nobody in it does, and what
    /// is beside it.
    bool sendScroll(const CoreGraphics::CGPoint& location, const CoreGraphics::CGPoint& delta);

    /// Offers a key to the modal view on top, the views in it first. True if somebody took it; false too
    /// while there is no such view.
    bool sendKey(const UIKey& key);

    /// Puts `view` over all others, those that are added or raised later too, and in front of them for keys
    /// and the wheel, until it is taken out or takes no touches any more. It is taken out when `owner`,
    /// another view in this window, is.
    void addModalView(const std::shared_ptr<UIView>& view, const std::shared_ptr<UIView>& owner);

    /// The modal view on top; nothing when there is none.
    std::shared_ptr<UIView> modalView() const;

    /// True while anything that is visible differs from what was drawn last, or is to be laid out.
    bool needsDisplay() const { return !damage_.isEmpty() || awaitsLayout(); }

    /// What must be drawn again, in the window's coordinates; all of it once everything is laid out.
    const CoreGraphics::DamageRegion& damage() const { return damage_; }

    /// Pixels a point, 1.0 at first. Damage covers whole pixels, so that what is drawn again meets what isn't
    /// without a seam. A change makes everything need drawing.
    CoreGraphics::CGFloat contentScale() const override { return contentScale_; }
    void setContentScale(CoreGraphics::CGFloat scale);

    /// Makes everything need drawing: after the host lost its pixels.
    void setNeedsDisplayEverywhere();

    /// Lays out what needs it, draws each damaged rectangle, clipped to it and cleared first, and forgets the
    /// damage; gives back what it drew. `context` is in the window's coordinates. Allocates nothing after the
    /// first time. An exception from a view passes through: what has not been drawn stays damaged, and what
    /// the window saved of the context is restored.
    CoreGraphics::DamageRegion display(CoreGraphics::CGContext& context);

protected:
    void dealloc() override;
    PlaceRange placesFor(const UIView& view) const override;

private:
    /// A touch that is down. It must not hold the view, which may be the window itself.
    struct Capture {
        UITouch touch;
        std::weak_ptr<UIView> view;
    };

    struct ModalView {
        std::weak_ptr<UIView> view;
        std::weak_ptr<UIView> owner;
    };

    ViewRoot* asRoot() override { return this; }
    std::shared_ptr<UIWindow> sharedWindow() override;
    void damage(const CoreGraphics::CGRect& rect) override;
    Foundation::NSRunLoop& runLoop() const override;
    void viewWillLeave(UIView& view) override { cancelTouchesIn(view); }
    void viewDidLeave(UIView& view) override { removeModalViewsOf(view); }

    void displayRect(const CoreGraphics::CGRect& rect, CoreGraphics::CGContext& context);
    bool isModal(const UIView& view) const;
    void removeModalViewsOf(const UIView& subtree);
    std::vector<Capture>::iterator findCapture(UITouchIdentifier identifier);
    void cancel(std::vector<Capture>::iterator found);
    static void deliver(UITouch touch, const std::shared_ptr<UIView>& view);

    std::weak_ptr<Foundation::NSRunLoop> loop_;
    CoreGraphics::CGFloat contentScale_ = 1.0;
    CoreGraphics::DamageRegion damage_;
    std::vector<Capture> captures_;
    std::vector<ModalView> modalViews_;
};

} // namespace UIKit
