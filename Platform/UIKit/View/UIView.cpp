#include "Platform/UIKit/UIView.h"

#include "Platform/Foundation/Class.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/ScopeExit.h"
#include "Platform/UIKit/Animation/AnimationGroup.h"
#include "Platform/UIKit/Animation/Animator.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/View/Autoresizing.h"
#include "Platform/UIKit/View/ViewRoot.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr CGFloat leastTouchableAlpha = 0.01;
constexpr int mostLayoutRounds = 8;

AnimatedValues valuesOf(const CGRect& rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

AnimatedValues valuesOf(const CGAffineTransform& transform) {
    return {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
}

AnimatedValues valuesOf(const UIColor* color) {
    const CGColor values = color ? color->cgColor() : CGColor{0.0, 0.0, 0.0, 0.0};
    return {values.red, values.green, values.blue, values.alpha};
}

// A tree has moved as a whole: all in it must hear of that, also after one of them has thrown.
class FirstException {
public:
    template <class Call>
    void catchFrom(Call call) {
        try {
            call();
        } catch (...) {
            if (!exception_) {
                exception_ = std::current_exception();
            }
        }
    }

    void passOn() const {
        if (exception_) {
            std::rethrow_exception(exception_);
        }
    }

private:
    std::exception_ptr exception_;
};

bool isPlain(const UIColor* color) { return !color || !color->patternImage(); }

bool looksLike(const UIColor* a, const UIColor* b) {
    return isPlain(a) ? isPlain(b) && valuesOf(a) == valuesOf(b)
                      : !isPlain(b) && a->patternImage() == b->patternImage();
}

} // namespace

bool UIView::init() { return init(CGRect{}); }

bool UIView::init(const CGRect& frame) {
    geometry_.setFrame(frame);
    return NSObject::init();
}

void UIView::dealloc() {
    animations_.interruptAll();
    const std::vector<std::shared_ptr<UIView>> subviews = std::exchange(subviews_, {});
    for (const std::shared_ptr<UIView>& subview : subviews) {
        subview->superview_ = nullptr;
    }
    if (asRoot()) {
        for (const std::shared_ptr<UIView>& subview : subviews) {
            subview->notifyMovedToWindow();
        }
    }
    NSObject::dealloc();
}

// Geometry

CGRect UIView::frame() const { return geometry_.frame(); }

void UIView::setFrame(const CGRect& frame) {
    if (!geometry_.isTransformed()) {
        setBox(frame);
        return;
    }
    ViewGeometry geometry = geometry_;
    geometry.setFrame(frame);
    setGeometry(geometry);
}

CGRect UIView::bounds() const { return geometry_.bounds(); }

void UIView::setBounds(const CGRect& bounds) {
    ViewGeometry geometry = geometry_;
    geometry.setBounds(bounds);
    setGeometry(geometry);
}

CGPoint UIView::center() const { return geometry_.center(); }

void UIView::setCenter(const CGPoint& center) {
    ViewGeometry geometry = geometry_;
    geometry.setCenter(center);
    setGeometry(geometry);
}

const CGAffineTransform& UIView::transform() const { return geometry_.transform(); }

void UIView::setTransform(const CGAffineTransform& transform) {
    ViewGeometry geometry = geometry_;
    geometry.setTransform(transform);
    setGeometry(geometry);
}

void UIView::setGeometry(const ViewGeometry& geometry) {
    const CGSize oldSize = geometry_.box().size;
    if (geometry.box() != geometry_.box()) {
        change(AnimatedProperty::Box, [&] { geometry_.setBox(geometry.box()); });
    }
    if (geometry.boundsOrigin() != geometry_.boundsOrigin()) {
        change(AnimatedProperty::BoundsOrigin, [&] { geometry_.setBoundsOrigin(geometry.boundsOrigin()); });
    }
    if (geometry.transform() != geometry_.transform()) {
        change(AnimatedProperty::Transform, [&] { geometry_.setTransform(geometry.transform()); });
    }
    sizeChanged(oldSize);
}

void UIView::setBox(const CGRect& box) {
    const CGSize oldSize = geometry_.box().size;
    if (box != geometry_.box()) {
        change(AnimatedProperty::Box, [&] { geometry_.setBox(box); });
    }
    sizeChanged(oldSize);
}

// By whichever property it came.
void UIView::sizeChanged(const CGSize& oldSize) {
    if (oldSize != geometry_.box().size) {
        setNeedsLayout();
        resizeSubviews(oldSize);
    }
}

void UIView::resizeSubviews(const CGSize& oldSize) {
    if (std::none_of(subviews_.begin(), subviews_.end(), [](const std::shared_ptr<UIView>& subview) {
            return subview->autoresizingMask_ != UIViewAutoresizingNone;
        })) {
        return;
    }
    const CGSize newSize = geometry_.box().size;
    const std::vector<std::shared_ptr<UIView>> subviews = subviews_;
    for (const std::shared_ptr<UIView>& subview : subviews) {
        if (subview->superview_ == this && subview->autoresizingMask_ != UIViewAutoresizingNone) {
            subview->setFrame(
                autoresizedFrame(subview->frame(), subview->autoresizingMask_, oldSize, newSize));
        }
    }
}

void UIView::setNeedsLayout() {
    needsLayout_ = true;
    markHolders();
}

// Up to the first that knows: so do those around it.
void UIView::markHolders() {
    for (UIView* each = superview_; each && !each->holdsMarked_; each = each->superview_) {
        each->holdsMarked_ = true;
    }
}

void UIView::layoutIfNeeded() {
    if (!awaitsLayout()) {
        return;
    }
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    for (int round = 0; round < mostLayoutRounds && awaitsLayout(); ++round) {
        layOutTree();
    }
}

void UIView::layOutTree() {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    if (std::exchange(needsLayout_, false)) {
        bool isDone = false;
        const Foundation::ScopeExit end([&] {
            if (!isDone) {
                // From where it is by now.
                UIView::setNeedsLayout();
            }
        });
        layoutSubviews();
        isDone = true;
    }
    // By place: whoever is laid out may change the tree.
    for (std::size_t index = 0; index < subviews_.size(); ++index) {
        const std::shared_ptr<UIView> subview = subviews_[index];
        if (subview->awaitsLayout()) {
            subview->layOutTree();
        }
    }
    // Asked at the end: a change of the tree makes the loop above pass over some, and until then those around
    // this view must know of what is left in it.
    holdsMarked_ =
        std::any_of(subviews_.begin(), subviews_.end(),
                    [](const std::shared_ptr<UIView>& subview) { return subview->awaitsLayout(); });
}

UIViewAutoresizing UIView::autoresizingMask() const { return autoresizingMask_; }

void UIView::setAutoresizingMask(UIViewAutoresizing mask) { autoresizingMask_ = mask; }

CGSize UIView::sizeThatFits(const CGSize& /*size*/) const { return geometry_.box().size; }

void UIView::sizeToFit() {
    ViewGeometry geometry = geometry_;
    geometry.setBox({geometry_.box().origin, sizeThatFits(geometry_.box().size)});
    setGeometry(geometry);
}

// The tree

std::shared_ptr<UIView> UIView::superview() const {
    return superview_ ? std::static_pointer_cast<UIView>(superview_->weak_from_this().lock()) : nullptr;
}

std::shared_ptr<UIWindow> UIView::window() const {
    ViewRoot* above = root();
    return above ? above->sharedWindow() : nullptr;
}

Foundation::NSRunLoop& UIView::runLoop() const {
    const ViewRoot* above = root();
    return above ? above->runLoop() : Foundation::NSRunLoop::currentRunLoop();
}

const std::vector<std::shared_ptr<UIView>>& UIView::subviews() const { return subviews_; }

UIView::PlaceRange UIView::placesFor(const UIView& view) const {
    return {0, subviews_.size() - (view.superview_ == this ? 1 : 0)};
}

std::size_t UIView::placeFor(const UIView& view, std::size_t wanted) const {
    const PlaceRange places = placesFor(view);
    return std::clamp(wanted, places.back, places.front);
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
    require(view, "view", "addSubview:");
    insertSubview(view, subviews_.size());
}

void UIView::insertSubview(const std::shared_ptr<UIView>& view, std::size_t index) {
    require(view, "view", "insertSubview:atIndex:");
    if (view->asRoot()) {
        Foundation::fatalError("Adding a window as a subview of '" + isa().name() + "'");
    }
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    const std::shared_ptr<UIView> added = view;
    if (added->superview_ != this) {
        added->removeFromSuperview();
    }
    // Not earlier: whoever hears of the removal may rearrange the tree, and put the view elsewhere again.
    if (isDescendantOfView(*added)) {
        Foundation::fatalError("Adding a view of class '" + added->isa().name() +
                               "' to itself or to one inside it");
    }
    if (added->superview_ == this) {
        moveSubview(added, index);
        return;
    }
    const ViewRoot* oldRoot = added->root();
    added->invalidateExtent();
    added->detach();
    subviews_.insert(subviews_.begin() + static_cast<std::ptrdiff_t>(placeFor(*added, index)), added);
    added->superview_ = this;
    if (added->awaitsLayout()) {
        added->markHolders();
    }
    extentChanged();
    added->invalidateExtent();
    if (oldRoot != root()) {
        added->notifyMovedToWindow();
    }
}

void UIView::bringSubviewToFront(const std::shared_ptr<UIView>& view) { moveSubview(view, subviews_.size()); }

void UIView::sendSubviewToBack(const std::shared_ptr<UIView>& view) { moveSubview(view, 0); }

void UIView::moveSubview(const std::shared_ptr<UIView>& view, std::size_t index) {
    const auto from = std::find(subviews_.begin(), subviews_.end(), view);
    if (from == subviews_.end()) {
        return;
    }
    const auto to = subviews_.begin() + static_cast<std::ptrdiff_t>(placeFor(**from, index));
    if (from == to) {
        return;
    }
    (*from)->invalidateExtent();
    if (from < to) {
        std::rotate(from, from + 1, to + 1);
    } else {
        std::rotate(to, from, from + 1);
    }
}

void UIView::removeFromSuperview() {
    if (!superview_) {
        return;
    }
    const std::shared_ptr<UIView> alive = self(this);
    // While the view is still in its place: a cancellation is handed on to those around it.
    if (const std::shared_ptr<ViewRoot> touched = sharedRoot()) {
        touched->viewWillLeave(*this);
    }
    const std::shared_ptr<ViewRoot> left = sharedRoot();
    const bool wasInWindow = root() != nullptr;
    invalidateExtent();
    detach();
    FirstException exception;
    if (wasInWindow) {
        exception.catchFrom([this] { notifyMovedToWindow(); });
    }
    if (left) {
        exception.catchFrom([&] { left->viewDidLeave(*this); });
    }
    exception.passOn();
}

bool UIView::isDescendantOfView(const UIView& view) const {
    for (const UIView* each = this; each; each = each->superview_) {
        if (each == &view) {
            return true;
        }
    }
    return false;
}

void UIView::detach() {
    if (UIView* parent = std::exchange(superview_, nullptr)) {
        const auto isThis = [this](const std::shared_ptr<UIView>& each) { return each.get() == this; };
        parent->subviews_.erase(std::find_if(parent->subviews_.begin(), parent->subviews_.end(), isThis));
        parent->extentChanged();
    }
}

// What is added or taken out meanwhile hears of it by itself.
void UIView::notifyMovedToWindow() {
    const ViewRoot* newRoot = root();
    const std::vector<std::shared_ptr<UIView>> subviews = subviews_;
    FirstException exception;
    exception.catchFrom([this] { didMoveToWindow(); });
    for (const std::shared_ptr<UIView>& subview : subviews) {
        if (subview->superview_ == this && root() == newRoot) {
            exception.catchFrom([&subview] { subview->notifyMovedToWindow(); });
        }
    }
    exception.passOn();
}

// Nobody's view is a root but one at the top.
ViewRoot* UIView::root() const {
    const UIView* top = this;
    while (top->superview_) {
        top = top->superview_;
    }
    return const_cast<UIView*>(top)->asRoot();
}

std::shared_ptr<ViewRoot> UIView::sharedRoot() const {
    ViewRoot* above = root();
    const std::shared_ptr<UIWindow> alive = above ? above->sharedWindow() : nullptr;
    return alive ? std::shared_ptr<ViewRoot>(alive, above) : nullptr;
}

// Appearance

CGFloat UIView::alpha() const { return alpha_; }

void UIView::setAlpha(CGFloat alpha) {
    if (alpha != alpha_) {
        change(AnimatedProperty::Alpha, [&] { alpha_ = alpha; });
    }
}

bool UIView::isHidden() const { return isHidden_; }

void UIView::setHidden(bool hidden) {
    if (hidden != isHidden_) {
        invalidateExtent();
        isHidden_ = hidden;
        reachChanged();
        invalidateExtent();
    }
}

bool UIView::isOpaque() const { return isOpaque_; }

void UIView::setOpaque(bool opaque) { isOpaque_ = opaque; }

std::shared_ptr<UIColor> UIView::backgroundColor() const { return backgroundColor_; }

void UIView::setBackgroundColor(const std::shared_ptr<UIColor>& color) {
    if (looksLike(color.get(), backgroundColor_.get())) {
        backgroundColor_ = color;
    } else if (isPlain(color.get()) && isPlain(backgroundColor_.get())) {
        change(AnimatedProperty::BackgroundColor, [&] { backgroundColor_ = color; });
    } else {
        animations_.interrupt(AnimatedProperty::BackgroundColor);
        backgroundColor_ = color;
        setNeedsDisplay();
    }
}

bool UIView::clipsToBounds() const { return clipsToBounds_; }

void UIView::setClipsToBounds(bool clips) {
    if (clips != clipsToBounds_) {
        invalidateExtent();
        clipsToBounds_ = clips;
        extentChanged();
        invalidateExtent();
    }
}

bool UIView::isUserInteractionEnabled() const { return isUserInteractionEnabled_; }

void UIView::setUserInteractionEnabled(bool enabled) { isUserInteractionEnabled_ = enabled; }

// Touches

bool UIView::isShownForTouches() const {
    return !isHidden_ && alpha_ >= leastTouchableAlpha && isUserInteractionEnabled_;
}

std::shared_ptr<UIView> UIView::hitTest(const CGPoint& point) {
    if (!isShownForTouches() || !pointInside(point)) {
        return nullptr;
    }
    std::shared_ptr<UIView> alive = self(this);
    for (std::size_t left = subviews_.size(); left > 0;) {
        const std::shared_ptr<UIView> subview = subviews_[left - 1];
        const std::optional<CGPoint> inside = subview->geometry_.pointFromSuperview(point);
        std::shared_ptr<UIView> hit = inside ? subview->hitTest(*inside) : nullptr;
        if (hit) {
            return hit;
        }
        left = placesBehind(subview, left - 1);
    }
    return alive;
}

// How many stand behind `view`, which was at `place`: whoever was asked may have changed the tree.
std::size_t UIView::placesBehind(const std::shared_ptr<UIView>& view, std::size_t place) const {
    if (place < subviews_.size() && subviews_[place] == view) {
        return place;
    }
    const auto found = std::find(subviews_.begin(), subviews_.end(), view);
    return found == subviews_.end() ? std::min(place, subviews_.size())
                                    : static_cast<std::size_t>(found - subviews_.begin());
}

bool UIView::pointInside(const CGPoint& point) const {
    return CGRectContainsPoint(geometry_.bounds(), point);
}

CGAffineTransform UIView::toRoot() const {
    CGAffineTransform transform;
    for (const UIView* each = this; each->superview_; each = each->superview_) {
        transform = CGAffineTransformConcat(transform, each->geometry_.toSuperview());
    }
    return transform;
}

std::optional<CGPoint> UIView::pointFromRoot(const CGPoint& point) const {
    if (!superview_) {
        return point;
    }
    const std::optional<CGPoint> outside = superview_->pointFromRoot(point);
    return outside ? geometry_.pointFromSuperview(*outside) : std::nullopt;
}

CGPoint UIView::convertPointFromWindow(const CGPoint& point) const {
    return root() ? pointFromRoot(point).value_or(CGPoint{}) : CGPoint{};
}

CGPoint UIView::convertPointToView(const CGPoint& point, const UIView& view) const {
    CGPoint inRoot = point;
    for (const UIView* each = this; each->superview_; each = each->superview_) {
        inRoot = each->geometry_.pointToSuperview(inRoot);
    }
    return view.pointFromRoot(inRoot).value_or(CGPoint{});
}

CGRect UIView::convertRectToView(const CGRect& rect, const UIView& view) const {
    const std::optional<CGAffineTransform> inwards = CGAffineTransformInvert(view.toRoot());
    return inwards ? CGRectApplyAffineTransform(rect, CGAffineTransformConcat(toRoot(), *inwards)) : CGRect{};
}

// Focus

std::shared_ptr<UIResponder> UIView::nextResponder() const { return superview(); }

bool UIView::admitsFocus() const { return isShownForTouches(); }

bool UIView::isFocusable() const {
    if (!root() || !canBecomeFocused()) {
        return false;
    }
    const UIView* each = this;
    while (each && each->admitsFocus()) {
        each = each->superview_;
    }
    return !each;
}

bool UIView::isFocused() const {
    const ViewRoot* above = root();
    return above && above->hasFocus(*this);
}

// Drawing

void UIView::drawRect(CGContext& /*context*/, const CGRect& /*rect*/) {}

void UIView::clip(CGContext& context) const { context.clipToRect(presentedBounds()); }

void UIView::setNeedsDisplay() { invalidateRect(presentedGeometry().bounds()); }

void UIView::invalidateExtent() {
    if (isVisible()) {
        invalidateRect(presentedExtent());
    }
}

void UIView::invalidateRect(const CGRect& rect) {
    CGRect area = rect;
    for (UIView* each = this; each->isVisible(); each = each->superview_) {
        const ViewGeometry geometry = each->presentedGeometry();
        if (each->clipsToBounds_) {
            area = CGRectIntersection(area, geometry.bounds());
        }
        if (!each->superview_) {
            if (ViewRoot* above = each->asRoot()) {
                above->damage(area);
            }
            return;
        }
        area = geometry.rectToSuperview(area);
    }
}

// The view, or what is in it, reaches elsewhere than before; so may those around it. One whose extent isn't
// known is not part of what those around it know either.
void UIView::extentChanged() {
    extent_.forget();
    reachChanged();
}

// Where the view is in its superview, or whether it shows there, is another.
void UIView::reachChanged() {
    for (const UIView* each = superview_; each && each->extent_.forget();) {
        each = each->superview_;
    }
}

CGRect UIView::presentedExtent() const {
    const CGRect bounds = presentedBounds();
    if (clipsToBounds_ || subviews_.empty()) {
        return bounds;
    }
    if (!extent_.isKnown()) {
        extent_.keep(extentOfAll(), bounds);
    }
    return extent_.rect(bounds);
}

CGRect UIView::extentOfAll() const {
    CGRect extent = presentedBounds();
    for (const std::shared_ptr<UIView>& subview : subviews_) {
        if (subview->isVisible()) {
            const CGRect inside = subview->presentedGeometry().rectToSuperview(subview->presentedExtent());
            extent = CGRectUnion(extent, inside);
        }
    }
    return extent;
}

bool UIView::reachesInto(const CGRect& area) const {
    return !clipsToBounds_ && !subviews_.empty() && CGRectIntersectsRect(presentedExtent(), area);
}

// Animation

void UIView::animateWithDuration(double duration, double delay, UIViewAnimationOptions options,
                                 const std::function<void()>& animations,
                                 std::function<void(bool)> completion) {
    Animator::animate(duration, delay, options, animations, std::move(completion));
}

template <class Change>
void UIView::change(AnimatedProperty property, Change&& change) {
    if (recordingGroup()) {
        // Nothing that is shown changes before the animation moves on.
        const AnimatedValues from = presentedValues(property);
        change();
        recordChange(property, from, modelValues(property));
    } else {
        invalidateExtent();
        change();
        animations_.interrupt(property);
        if (property == AnimatedProperty::Alpha || property == AnimatedProperty::BackgroundColor) {
            reachChanged();
        } else {
            extentChanged();
        }
        invalidateExtent();
    }
}

std::shared_ptr<AnimationGroup> UIView::recordingGroup() const {
    return Animator::isRecording() ? Animator::recordingGroup(runLoop()) : nullptr;
}

void UIView::recordChange(AnimatedProperty property, const AnimatedValues& from, const AnimatedValues& to) {
    const std::shared_ptr<AnimationGroup> group = recordingGroup();
    const std::shared_ptr<NSObject> present = weak_from_this().lock();
    if (!group || !present) {
        animations_.interrupt(property);
        extentChanged();
    } else if (animations_.start(property, from, to, group)) {
        group->add(std::shared_ptr<AnimatedObject>(present, this));
    }
}

void UIView::presentationMoves(const AnimationGroup& group) {
    if (!animations_.hasAnyOf(group)) {
        return;
    }
    if (animations_.hasGeometryOf(group)) {
        extentChanged();
    } else {
        reachChanged();
    }
    invalidateExtent();
}

void UIView::animationsEnded(const AnimationGroup& group) {
    animations_.finish(group);
    extentChanged();
}

AnimatedValues UIView::modelValues(AnimatedProperty property) const {
    switch (property) {
    case AnimatedProperty::Alpha:
        return {alpha_};
    case AnimatedProperty::Box:
        return valuesOf(geometry_.box());
    case AnimatedProperty::BoundsOrigin:
        return {geometry_.boundsOrigin().x, geometry_.boundsOrigin().y};
    case AnimatedProperty::Transform:
        return valuesOf(geometry_.transform());
    case AnimatedProperty::BackgroundColor:
        return valuesOf(backgroundColor_.get());
    case AnimatedProperty::Value:
        break;
    }
    return {};
}

AnimatedValues UIView::presentedValues(AnimatedProperty property) const {
    const std::optional<AnimatedValues> values = animations_.values(property);
    return values ? *values : modelValues(property);
}

ViewGeometry UIView::animatedGeometry() const {
    ViewGeometry geometry = geometry_;
    if (const std::optional<AnimatedValues> box = animations_.values(AnimatedProperty::Box)) {
        geometry.setBox({{(*box)[0], (*box)[1]}, {(*box)[2], (*box)[3]}});
    }
    if (const std::optional<AnimatedValues> origin = animations_.values(AnimatedProperty::BoundsOrigin)) {
        geometry.setBoundsOrigin({(*origin)[0], (*origin)[1]});
    }
    if (const std::optional<AnimatedValues> to = animations_.values(AnimatedProperty::Transform)) {
        geometry.setTransform({(*to)[0], (*to)[1], (*to)[2], (*to)[3], (*to)[4], (*to)[5]});
    }
    return geometry;
}

CGRect UIView::alignedToPixels(const CGRect& rect) const {
    CGPoint corner = rect.origin;
    const UIView* each = this;
    for (; each->superview_; each = each->superview_) {
        const ViewGeometry& geometry = each->geometry_;
        if (!CGAffineTransformIsIdentity(geometry.transform())) {
            return rect;
        }
        corner.x += geometry.box().origin.x - geometry.boundsOrigin().x;
        corner.y += geometry.box().origin.y - geometry.boundsOrigin().y;
    }
    const ViewRoot* above = root();
    if (!above) {
        return rect;
    }
    const CGFloat scale = above->contentScale();
    const auto toPixel = [scale](CGFloat at) { return std::round(at * scale) / scale - at; };
    return CGRectOffset(rect, toPixel(corner.x), toPixel(corner.y));
}

double UIView::presentedValue(double model) const {
    const std::optional<AnimatedValues> values = animations_.values(AnimatedProperty::Value);
    return values ? (*values)[0] : model;
}

void UIView::willChangeValue(double model, double target) {
    recordChange(AnimatedProperty::Value, {presentedValue(model)}, {target});
}

} // namespace UIKit
