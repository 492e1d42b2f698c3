#pragma once

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/UIKit/Animation/AnimatedObject.h"
#include "Platform/UIKit/Animation/PropertyAnimations.h"
#include "Platform/UIKit/UIResponder.h"
#include "Platform/UIKit/UIViewAnimationOptions.h"
#include "Platform/UIKit/UIViewAutoresizing.h"
#include "Platform/UIKit/View/ViewExtent.h"
#include "Platform/UIKit/View/ViewGeometry.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Foundation {
class NSRunLoop;
}

namespace UIKit {

class UIColor;
class UIWindow;
class ViewRoot;

/// A rectangle on the screen with views of its own on top. A view owns its subviews and refers weakly to its
/// superview. Setting a property sets the model, which is what reads see; inside an animation the
/// presentation, which is what is drawn and what `presentedFrame` and `presentedAlpha` tell, travels there.
/// All coordinates are points, y downwards.
class UIView : public UIResponder, public AnimatedObject {
public:
    static const Foundation::Class& classObject();

    /// A view of no size at the origin.
    bool init() override;
    virtual bool init(const CoreGraphics::CGRect& frame);

    /// The rectangle in the superview's coordinates, as it was set while there is no transform; else the
    /// smallest one around the transformed view. Setting it under a transform moves the centre and sizes the
    /// bounds to fit.
    virtual CoreGraphics::CGRect frame() const;
    virtual void setFrame(const CoreGraphics::CGRect& frame);

    /// The frame as it is shown at present: on its way while an animation takes it to `frame`. Moves on with
    /// each turn of the run loop.
    CoreGraphics::CGRect presentedFrame() const { return presentedGeometry().frame(); }

    /// The rectangle in the view's own coordinates. A new size keeps the centre and resizes the subviews by
    /// their autoresizing masks; so does a new frame.
    virtual CoreGraphics::CGRect bounds() const;
    virtual void setBounds(const CoreGraphics::CGRect& bounds);

    virtual CoreGraphics::CGPoint center() const;
    virtual void setCenter(const CoreGraphics::CGPoint& center);

    /// Applied about the centre.
    virtual const CoreGraphics::CGAffineTransform& transform() const;
    virtual void setTransform(const CoreGraphics::CGAffineTransform& transform);

    virtual UIViewAutoresizing autoresizingMask() const;
    virtual void setAutoresizingMask(UIViewAutoresizing mask);

    /// Has `layoutSubviews` called in the window's next pass, before it draws; a new size does so by itself.
    virtual void setNeedsLayout();

    /// Lays out at once what is marked, this view and those in it: the outer ones first, and each once unless
    /// it is marked again meanwhile. One that marks itself each time is left for the next pass after some
    /// rounds. An exception passes through, and what has not been laid out stays marked.
    virtual void layoutIfNeeded();

    /// Gives the subviews their places; called by a pass for a view that is marked. Nothing by default: what
    /// follows a size by autoresizing has done so already.
    virtual void layoutSubviews() {}

    /// The size that suits the view best in at most `size`; its present one unless a subclass knows better.
    virtual CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const;

    /// Takes the size that suits best and keeps the corner.
    virtual void sizeToFit();

    /// Nothing when it has none, or one that is being torn down.
    std::shared_ptr<UIView> superview() const;

    /// The window at the top; nothing when there is none.
    std::shared_ptr<UIWindow> window() const;

    /// The loop that runs the view's animations and should run its timers: the one of the host whose window
    /// it is in; in none, the current one.
    Foundation::NSRunLoop& runLoop() const;

    /// From back to front. Copy it before calling anything that may change it.
    virtual const std::vector<std::shared_ptr<UIView>>& subviews() const;

    /// Puts `view` on top, taking it out of where it was; in a window, on top of all but what is presented
    /// there. Adding nothing, a window, the view itself or one that contains it is a fatal report.
    virtual void addSubview(const std::shared_ptr<UIView>& view);

    /// The same at a place among the subviews, 0 at the back; one beyond the end is the top.
    virtual void insertSubview(const std::shared_ptr<UIView>& view, std::size_t index);

    /// Does nothing for a view that isn't a direct subview.
    virtual void bringSubviewToFront(const std::shared_ptr<UIView>& view);
    virtual void sendSubviewToBack(const std::shared_ptr<UIView>& view);

    /// Touches inside are cancelled. Does nothing without a superview.
    virtual void removeFromSuperview();

    /// True for the view itself too.
    bool isDescendantOfView(const UIView& view) const;

    /// From 0.0, invisible, to 1.0; kept as given and cut to that range when drawn. The view and what is in
    /// it fade as one.
    virtual CoreGraphics::CGFloat alpha() const;
    virtual void setAlpha(CoreGraphics::CGFloat alpha);

    /// The alpha as it is shown at present, as `presentedFrame` is; of this view alone, whatever fades around
    /// it.
    CoreGraphics::CGFloat presentedAlpha() const {
        return animations_.isEmpty() ? alpha_ : presentedValues(AnimatedProperty::Alpha)[0];
    }

    virtual bool isHidden() const;
    virtual void setHidden(bool hidden);

    /// A promise to cover the bounds entirely.
    virtual bool isOpaque() const;
    virtual void setOpaque(bool opaque);

    /// Nothing by default.
    virtual std::shared_ptr<UIColor> backgroundColor() const;
    virtual void setBackgroundColor(const std::shared_ptr<UIColor>& color);

    /// Whether subviews are cut at the bounds.
    virtual bool clipsToBounds() const;
    virtual void setClipsToBounds(bool clips);

    /// Whether touches reach the view and what is in it.
    virtual bool isUserInteractionEnabled() const;
    virtual void setUserInteractionEnabled(bool enabled);

    /// The frontmost view at `point`, in this view's coordinates, that takes touches: itself, one inside, or
    /// nothing. Passes over views that are hidden, have an alpha under 0.01, or take no touches.
    virtual std::shared_ptr<UIView> hitTest(const CoreGraphics::CGPoint& point);
    virtual bool pointInside(const CoreGraphics::CGPoint& point) const;

    /// From this view's coordinates to another's of the same tree. Through a view that is scaled to a line or
    /// a point nothing comes back: the result is the origin.
    CoreGraphics::CGPoint convertPointToView(const CoreGraphics::CGPoint& point, const UIView& view) const;
    CoreGraphics::CGRect convertRectToView(const CoreGraphics::CGRect& rect, const UIView& view) const;

    /// From the window's coordinates to this view's; the origin where it is in none.
    CoreGraphics::CGPoint convertPointFromWindow(const CoreGraphics::CGPoint& point) const;

    /// The superview.
    std::shared_ptr<UIResponder> nextResponder() const override;

    /// Whether the view wants the keys first when it is its turn; false by default. It must change nothing.
    virtual bool canBecomeFocused() const { return false; }

    /// Whether it can have the focus now: it can become focused and is in a window, and neither it nor one
    /// around it is hidden, has an alpha under 0.01, takes no touches or is disabled.
    bool isFocusable() const;

    /// Whether it is the one in its window that is offered keys first. A view draws its ring itself, in
    /// `drawRect`, and is asked to draw again when this changes.
    bool isFocused() const;

    /// Told by the window after the focus came and after it went. May tear down anything.
    virtual void didGainFocus() {}
    virtual void didLoseFocus() {}

    /// Draws the view's own content between its background and its subviews, in its own coordinates and
    /// inside its bounds; `rect` is the part that is needed. Must not change any view.
    virtual void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect);

    /// Marks the content as changed. Property changes do so by themselves.
    void setNeedsDisplay();

    /// Runs `animations` at once and lets the properties that it changes travel to their new values: after
    /// `delay`, over `duration` (both in seconds; none if they are negative or not a number). Frame, bounds,
    /// centre, transform, alpha and plain background colours travel. A property that is set outside an
    /// animation is there at once, and setting what is set already changes nothing.
    ///
    /// `completion` is called exactly once, by the run loop of the first view that is changed, or the current
    /// one, and never from inside this call: with true when the time has passed, or as soon as the loop turns
    /// where nothing changed; with false when another change took one of the properties over or a view is
    /// gone. A loop that is destroyed first lets go of it without a call. An exception from `animations`
    /// passes through: what was changed before it travels, and the completion is called.
    ///
    /// Views of several hosts each travel in the time of theirs.
    static void animateWithDuration(double duration, double delay, UIViewAnimationOptions options,
                                    const std::function<void()>& animations,
                                    std::function<void(bool finished)> completion = nullptr);

protected:
    void dealloc() override;

    /// Called after the view came under another window or under none.
    virtual void didMoveToWindow() {}

    /// Whether the view, and what is in it, may have the focus as far as it depends on this view alone.
    virtual bool admitsFocus() const;

    /// The bounds as they are shown at present, which is what there is to draw in.
    CoreGraphics::CGRect presentedBounds() const { return presentedGeometry().bounds(); }

    /// `rect`, in this view's coordinates, moved by less than a pixel so that its corner lies on one of the
    /// window's: what has straight edges shows them sharp. Unchanged in no window, and where this view or one
    /// around it is transformed.
    CoreGraphics::CGRect alignedToPixels(const CoreGraphics::CGRect& rect) const;

    /// Cuts off what is outside, where `clipsToBounds`: a rectangle unless a subclass has another shape. Must
    /// change nothing but the clip.
    virtual void clip(CoreGraphics::CGContext& context) const;

    /// A number that a subclass animates: what it shows at present, given its model value.
    double presentedValue(double model) const;

    /// Call before changing that number: records its way from what is shown to `target` if an animation is
    /// being made.
    void willChangeValue(double model, double target);

    /// Whether any of it shows.
    bool isVisible() const { return !isHidden_ && presentedAlpha() > 0.0; }

    /// Whether this view, or one in it, is to be laid out.
    bool awaitsLayout() const { return needsLayout_ || holdsMarked_; }

    /// Draws the view and what is in it, faded if it is partly transparent, where it meets `dirty`, all in
    /// the view's own coordinates and as its animations show it at present. Allocates nothing after the first
    /// time. The context's state is the caller's to restore.
    void drawTree(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& dirty);

    /// What hangs from this view hangs from this root; nothing for one that is no root.
    virtual ViewRoot* asRoot() { return nullptr; }

    /// Where among the other subviews one may stand: behind all of them at 0.
    struct PlaceRange {
        std::size_t back;
        std::size_t front;
    };

    virtual PlaceRange placesFor(const UIView& view) const;

private:
    void presentationMoves(const AnimationGroup& group) final;
    void animationsEnded(const AnimationGroup& group) final;

    AnimatedValues modelValues(AnimatedProperty property) const;
    AnimatedValues presentedValues(AnimatedProperty property) const;
    ViewGeometry animatedGeometry() const;

    // Inline, for drawing asks every view each time, and hardly ever one that moves.
    ViewGeometry presentedGeometry() const { return animations_.isEmpty() ? geometry_ : animatedGeometry(); }

    template <class Change>
    void change(AnimatedProperty property, Change&& change);
    std::shared_ptr<AnimationGroup> recordingGroup() const;
    void recordChange(AnimatedProperty property, const AnimatedValues& from, const AnimatedValues& to);

    bool isShownForTouches() const;

    void setGeometry(const ViewGeometry& geometry);
    void setBox(const CoreGraphics::CGRect& box);
    void resizeSubviews(const CoreGraphics::CGSize& oldSize);
    void sizeChanged(const CoreGraphics::CGSize& oldSize);

    void markHolders();
    void layOutTree();

    void invalidateExtent();
    void invalidateRect(const CoreGraphics::CGRect& rect);
    void extentChanged();
    void reachChanged();
    CoreGraphics::CGRect presentedExtent() const;
    CoreGraphics::CGRect extentOfAll() const;
    bool reachesInto(const CoreGraphics::CGRect& area) const;

    void draw(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& dirty,
              const CoreGraphics::CGRect& dirtyContent);
    void drawContents(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& dirty,
                      const CoreGraphics::CGRect& dirtyContent);
    void drawInSuperview(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& dirtyInSuperview);
    void drawBackground(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& bounds) const;

    std::size_t placeFor(const UIView& view, std::size_t wanted) const;
    std::size_t placesBehind(const std::shared_ptr<UIView>& view, std::size_t place) const;
    ViewRoot* root() const;
    std::shared_ptr<ViewRoot> sharedRoot() const;
    void moveSubview(const std::shared_ptr<UIView>& view, std::size_t index);
    void detach();
    void notifyMovedToWindow();
    CoreGraphics::CGAffineTransform toRoot() const;
    std::optional<CoreGraphics::CGPoint> pointFromRoot(const CoreGraphics::CGPoint& point) const;

    ViewGeometry geometry_;
    CoreGraphics::CGFloat alpha_ = 1.0;
    std::shared_ptr<UIColor> backgroundColor_;
    UIViewAutoresizing autoresizingMask_ = UIViewAutoresizingNone;
    bool isHidden_ = false;
    bool isOpaque_ = false;
    bool clipsToBounds_ = false;
    bool isUserInteractionEnabled_ = true;
    bool needsLayout_ = false;

    // One inside needs layout; so says each view around it.
    bool holdsMarked_ = false;

    // Cleared by the superview when it goes.
    UIView* superview_ = nullptr;
    std::vector<std::shared_ptr<UIView>> subviews_;
    PropertyAnimations animations_;
    mutable ViewExtent extent_;
};

} // namespace UIKit
