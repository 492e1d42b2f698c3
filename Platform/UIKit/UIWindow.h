#pragma once

#include "Platform/CoreGraphics/DamageRegion.h"
#include "Platform/UIKit/UIFocusHeading.h"
#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"
#include "Platform/UIKit/View/ViewRoot.h"

#include <cstddef>
#include <optional>
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

    /// Whose turn it is when nobody in the window took a touch, the wheel or a key; nothing at first. Held
    /// weakly. One that leads back to the window is a fatal report.
    std::shared_ptr<UIResponder> owner() const { return owner_.lock(); }
    void setOwner(const std::shared_ptr<UIResponder>& owner);
    std::shared_ptr<UIResponder> nextResponder() const override { return owner(); }

    /// Wheel movement over `location`, in points, offered to the view there and then to one responder after
    /// the other. True if somebody took it. A modal view takes what nobody in it does, and what is beside it.
    bool sendScroll(const CoreGraphics::CGPoint& location, const CoreGraphics::CGPoint& delta);

    /// Offers a key to the focused view and those around it, then to the modal view on top, the other views
    /// in it first, and then to the window and its owner. True if somebody took it.
    bool sendKey(const UIKey& key);

    /// The view that is offered keys first; nothing at first. Each modal view keeps the focus to itself and
    /// has one of its own, so that it is back where it was when the modal view goes. A view that can't have
    /// it any more has lost it; it hears of that at once when it is taken out, and else before the window
    /// draws or hands on a key. Nobody takes it over unless asked to.
    std::shared_ptr<UIView> focusedView() const;

    /// Nothing takes the focus away. Does nothing for a view that is not focusable, or beside a modal view.
    void setFocusedView(const std::shared_ptr<UIView>& view);

    /// Focuses the next view, or the one before, as one reads: from top to bottom, and in a row from left to
    /// right. After the last comes the first, which is next too while there is no focus. True if it moved.
    bool focusNextView();
    bool focusPreviousView();

    /// Focuses the nearest view on that side, the first one while there is no focus. True if it moved.
    bool moveFocus(UIFocusHeading heading);

    /// Puts `view` over all others, those that are added or raised later too, and in front of them for keys
    /// and the wheel, until it is taken out or takes no touches any more. It is taken out when `owner`,
    /// another view in this window, is.
    void addModalView(const std::shared_ptr<UIView>& view, const std::shared_ptr<UIView>& owner);

    /// The modal view on top; nothing when there is none.
    std::shared_ptr<UIView> modalView() const;

    /// True while anything that is visible differs from what was drawn last, or is to be laid out, or a view
    /// is to hear of the focus.
    bool needsDisplay() const { return !damage_.isEmpty() || awaitsLayout() || !isFocusSettled(); }

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
        std::weak_ptr<UIView> focus;
    };

    ViewRoot* asRoot() override { return this; }
    std::shared_ptr<UIWindow> sharedWindow() override;
    void damage(const CoreGraphics::CGRect& rect) override;
    Foundation::NSRunLoop& runLoop() const override;
    void viewWillLeave(UIView& view) override { cancelTouchesIn(view); }
    void viewDidLeave(UIView& view) override;
    bool hasFocus(const UIView& view) const override { return focusedView().get() == &view; }

    void displayRect(const CoreGraphics::CGRect& rect, CoreGraphics::CGContext& context);
    std::optional<std::size_t> frontModalView() const;
    bool isModal(const UIView& view) const;
    void removeModalViewsOf(const UIView& subtree);
    std::vector<Capture>::iterator findCapture(UITouchIdentifier identifier);
    void cancel(std::vector<Capture>::iterator found);
    static void deliver(UITouch touch, const std::shared_ptr<UIView>& view);

    const std::weak_ptr<UIView>& wantedFocus() const;
    void setWantedFocus(const std::shared_ptr<UIView>& view);
    bool canFocus(const UIView& view) const;
    bool isFocusSettled() const { return toldFocus_.lock() == focusedView(); }
    void settleFocus();
    std::vector<std::shared_ptr<UIView>> focusableViews() const;
    bool stepFocus(std::ptrdiff_t step);
    bool takeFocusTo(const std::shared_ptr<UIView>& view);

    std::weak_ptr<Foundation::NSRunLoop> loop_;
    CoreGraphics::CGFloat contentScale_ = 1.0;
    CoreGraphics::DamageRegion damage_;
    std::vector<Capture> captures_;
    std::vector<ModalView> modalViews_;
    std::weak_ptr<UIResponder> owner_;

    // Beside every modal view.
    std::weak_ptr<UIView> focus_;

    // Who heard last that it has the focus.
    std::weak_ptr<UIView> toldFocus_;
};

} // namespace UIKit
