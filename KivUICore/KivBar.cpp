#include "KivUICore/KivBar.h"

#include "KivUICore/UIComponent/SeekBar.h"
#include "KivUICore/UIElement/UIElement.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/ScopeExit.h"
#include "Platform/MediaPlayer/MPVolumeView.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIGraphics.h"
#include "Platform/UIKit/UIImage.h"

#include <functional>

namespace KivUICore {

using namespace CoreGraphics;
using Foundation::make;
using Foundation::NSTimer;
using UIKit::UIColor;
using UIKit::UIImage;
using UIKit::UIView;

namespace {

constexpr double animationDuration = 0.5;
constexpr UIKit::UIViewAnimationOptions animationOptions = UIKit::UIViewAnimationOptionCurveEaseIn;
constexpr CGFloat routeButtonWidth = 44.0;

// The frame of the slot at `index` in a bar of the given size, starting at `x`, which moves on to where the
// next one starts. The second slot is wider than its advance and reaches under its neighbour.
CGRect relaidSlot(std::size_t index, const CGSize& bar, CGFloat& x) {
    const CGFloat start = x;
    if (index == 1) {
        x += bar.width / 12.0 * 6.0;
        return CGRectMake(start, 0.0, bar.width / 10.0 * 6.0, bar.height);
    }
    x += 2.0 * bar.width / 12.0;
    return CGRectMake(start, 0.0, 2.0 * bar.width / 12.0, bar.height);
}

template <class Value>
const Value& required(const std::optional<Value>& value) {
    if (!value) {
        Foundation::stopSilently();
    }
    return *value;
}

void fillSlot(UIView& slot, const UIComponent& component) {
    if (const std::shared_ptr<UIView> control = component.view()) {
        control->setFrame(slot.bounds());
        slot.addSubview(control);
    }
}

void fillSlotWithSeekBar(UIView& slot, const SeekBar& seekBar) {
    const CGFloat sliderWidth = slot.bounds().size.width - routeButtonWidth;
    if (const std::shared_ptr<UIView> slider = seekBar.view()) {
        slider->setFrame(CGRectMake(0.0, 0.0, sliderWidth, slot.bounds().size.height));
    }
    // Read again: a slider may take a new size as the occasion to be replaced.
    if (const std::shared_ptr<UIView> slider = seekBar.view()) {
        slot.addSubview(slider);
    }
    if (const std::shared_ptr<UIView> routeButton = seekBar.airplayButton()) {
        const CGRect frame = routeButton->frame();
        routeButton->setFrame(CGRectMake(sliderWidth, frame.origin.y, frame.size.width, frame.size.height));
        slot.addSubview(routeButton);
    }
}

} // namespace

const Foundation::Class& KivBar::classObject() {
    using View = const std::shared_ptr<UIView>&;
    static const Foundation::Class& object =
        Foundation::ClassBuilder<KivBar, NSObject>("KivUICore.KivBar")
            .property<&KivBar::superview, &KivBar::setSuperview>("superview")
            .property<&KivBar::view, &KivBar::setView>("view")
            .property<&KivBar::autoHideTimer, &KivBar::setAutoHideTimer>("autoHideTimer")
            .property<&KivBar::delay, &KivBar::setDelay>("delay")
            .property<&KivBar::columns>("columns")
            .classProperty<&KivBar::barHeight>("barHeight")
            .initializer<View, const CGRect&>("initWithSuperview:frame:")
            .initializer<View, const CGRect&, const std::shared_ptr<UIColor>&>(
                "initWithSuperview:frame:backgroundColor:")
            .initializer<View, const CGRect&, const std::shared_ptr<UIImage>&>(
                "initWithSuperview:frame:backgroundImage:")
            .initializer<View, View>("initWithSuperview:view:")
            .method<&KivBar::setAutoHide>("setAutoHide:")
            .method<&KivBar::resetAutoHide>("resetAutoHide")
            .method<&KivBar::setBackgroundColor>("setBackgroundColor:")
            .method<&KivBar::setBackgroundImage>("setBackgroundImage:")
            .method<&KivBar::hide>("hide")
            .method<&KivBar::show>("show")
            .method<&KivBar::updateBarFrameWithFrame>("updateBarFrameWithFrame:")
            .method<&KivBar::addElementToView>("addElementToView:size:")
            .method<&KivBar::clean>("clean")
            .build();
    return object;
}

std::shared_ptr<UIView> KivBar::superview() const { return superview_; }

// What a setter lets go ends when its successor is in place: whatever its end calls may look here.
void KivBar::setSuperview(const std::shared_ptr<UIView>& superview) {
    require(superview, "host view", "setSuperview:");
    std::shared_ptr(superview).swap(superview_);
}

std::shared_ptr<UIView> KivBar::view() const { return view_; }

void KivBar::setView(const std::shared_ptr<UIView>& view) {
    require(view, "container view", "setView:");
    std::shared_ptr(view).swap(view_);
}

// A subclass's accessor may have none.
std::shared_ptr<UIView> KivBar::container(std::string_view operation) const {
    std::shared_ptr<UIView> present = view();
    require(present, "container view", operation);
    return present;
}

std::shared_ptr<NSTimer> KivBar::autoHideTimer() const { return autoHideTimer_; }

void KivBar::setAutoHideTimer(const std::shared_ptr<NSTimer>& timer) {
    std::shared_ptr(timer).swap(autoHideTimer_);
}

double KivBar::delay() const { return delay_; }

void KivBar::setDelay(double delay) { delay_ = delay; }

std::optional<KivBar::Elemets> KivBar::elemets() const { return elemets_; }

void KivBar::setElemets(const std::optional<Elemets>& elemets) {
    for (const std::shared_ptr<UIElement>& element : elemets.value_or(Elemets())) {
        require(element, "element", "setElemets");
    }
    std::optional(elemets).swap(elemets_);
}

std::optional<CGFloat> KivBar::columnSize() const { return columnSize_; }

void KivBar::setColumnSize(const std::optional<CGFloat>& columnSize) { columnSize_ = columnSize; }

std::optional<CGRect> KivBar::barFrame() const { return barFrame_; }

void KivBar::setBarFrame(const std::optional<CGRect>& barFrame) { barFrame_ = barFrame; }

// Construction

void KivBar::startEmpty() {
    autoHideTimer_ = nullptr;
    delay_ = 0.0;
    elemets_.reset();
    columnSize_.reset();
    barFrame_.reset();
}

bool KivBar::init(const std::shared_ptr<UIView>& superview, const CGRect& frame) {
    require(superview, "host view", "init(superview:frame:)");
    startEmpty();
    barFrame_ = frame;
    columnSize_ = CGRectGetWidth(frame) / columns_;
    superview_ = superview;
    view_ = make<UIView>(frame);
    superview_->addSubview(view_);
    view_->setBackgroundColor(make<UIColor>(0.0, 0.0, 0.0, 0.65));
    return NSObject::init();
}

bool KivBar::init(const std::shared_ptr<UIView>& superview, const CGRect& frame,
                  const std::shared_ptr<UIColor>& backgroundColor) {
    require(superview, "host view", "init(superview:frame:backgroundColor:)");
    startEmpty();
    superview_ = superview;
    view_ = make<UIView>(frame);
    superview_->addSubview(view_);
    superview_->bringSubviewToFront(view_);
    view_->setBackgroundColor(backgroundColor);
    return NSObject::init();
}

bool KivBar::init(const std::shared_ptr<UIView>& superview, const CGRect& frame,
                  const std::shared_ptr<UIImage>& backgroundImage) {
    require(superview, "host view", "init(superview:frame:backgroundImage:)");
    startEmpty();
    superview_ = superview;
    view_ = make<UIView>(frame);
    superview_->addSubview(view_);
    superview_->bringSubviewToFront(view_);
    view_->setBackgroundColor(make<UIColor>(backgroundImage));
    return NSObject::init();
}

bool KivBar::init(const std::shared_ptr<UIView>& superview, const std::shared_ptr<UIView>& view) {
    require(superview, "host view", "init(superview:view:)");
    require(view, "container view", "init(superview:view:)");
    startEmpty();
    view_ = view;
    superview_ = superview;
    return NSObject::init();
}

bool KivBar::init() { Foundation::unimplementedInitializer("init()", "KivUICore.KivBar"); }

void KivBar::dealloc() {
    clean();
    NSObject::dealloc();
    superview_.reset();
    view_.reset();
    autoHideTimer_.reset();
    std::optional<Elemets>().swap(elemets_);
}

// Background

void KivBar::setBackgroundColor(const std::shared_ptr<UIColor>& color) {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    const std::shared_ptr<UIColor> taken = color;
    container("setBackgroundColor:")->setBackgroundColor(taken);
}

void KivBar::setBackgroundImage(const std::shared_ptr<UIImage>& image) {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    const std::shared_ptr<UIImage> drawn = image;
    UIKit::UIGraphicsBeginImageContext(container("setBackgroundImage:")->frame().size);
    if (!drawn) {
        return;
    }
    std::shared_ptr<UIImage> stretched;
    {
        const Foundation::ScopeExit end(UIKit::UIGraphicsEndImageContext);
        drawn->drawInRect(container("setBackgroundImage:")->bounds());
        stretched = UIKit::UIGraphicsGetImageFromCurrentImageContext();
        if (!stretched) {
            Foundation::stopSilently();
        }
    }
    container("setBackgroundImage:")->setBackgroundColor(make<UIColor>(stretched));
    container("setBackgroundImage:")->setOpaque(true);
}

// Auto-hide and fade

void KivBar::setAutoHide(double delay) {
    static const Foundation::SEL hide("hide");
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    setDelay(delay);
    const Foundation::NSRunLoop::Scope current(view_ ? &view_->runLoop() : nullptr);
    setAutoHideTimer(NSTimer::scheduledTimerWithTimeInterval(delay, alive, hide, nullptr, false));
}

void KivBar::resetAutoHide() {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    if (!(delay() > 0.0)) {
        return;
    }
    if (const std::shared_ptr<NSTimer> timer = autoHideTimer()) {
        timer->invalidate();
    }
    setAutoHideTimer(nullptr);
    setAutoHide(delay());
}

void KivBar::hide() {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    if (container("hide")->alpha() != 0.0) {
        handleAnimationWithAlpha(0.0);
    }
}

void KivBar::show() {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    if (container("show")->alpha() != 1.0) {
        handleAnimationWithAlpha(1.0);
    }
}

void KivBar::handleAnimationWithAlpha(CGFloat alpha) {
    // Nothing in tear-down, where a subclass's `clean` may fade what the bar leaves behind.
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    UIView::animateWithDuration(
        animationDuration, 0.0, animationOptions,
        [this, alive, alpha] {
            const std::shared_ptr<UIView> fading = container("handleAnimationWithAlpha");
            fading->setAlpha(alpha);
            const std::vector<std::shared_ptr<UIView>> subviews = fading->subviews();
            for (const std::shared_ptr<UIView>& subview : subviews) {
                subview->setAlpha(alpha);
            }
        },
        [this, alive](bool /*finished*/) {
            if (alive) {
                resetAutoHide();
            }
        });
}

// Column layout

void KivBar::updateBarFrameWithFrame(const CGRect& frame) {
    const CGFloat y = edge_ == Edge::Bottom ? CGRectGetHeight(frame) - barHeight() : 0.0;
    const CGRect barRect = CGRectMake(0.0, y, CGRectGetWidth(frame), barHeight());
    const auto layOut = [this, alive = weak_from_this().lock(), barRect] {
        container("updateBarFrameWithFrame:")->setFrame(barRect);
        const std::vector<std::shared_ptr<UIView>> slots = container("updateBarFrameWithFrame:")->subviews();
        CGFloat x = 0.0;
        for (std::size_t index = 0; index < slots.size(); ++index) {
            slots[index]->setFrame(relaidSlot(index, barRect.size, x));
        }
    };
    // By reference: it is run at once, and too large to be copied without an allocation.
    UIView::animateWithDuration(animationDuration, 0.0, animationOptions, std::cref(layOut),
                                [](bool /*finished*/) {});
}

CGFloat KivBar::getCurrentWidth() const {
    CGFloat width = 0.0;
    for (const std::shared_ptr<UIElement>& element : placedElemets()) {
        width += static_cast<CGFloat>(element->size()) * required(columnSize());
    }
    return width;
}

void KivBar::addElementToView(const std::shared_ptr<UIComponent>& component, std::int64_t size) {
    require(component, "component", "addElementToView:size:");
    // Taking a control out of where it was may cancel a touch, and whoever hears of that may let both go.
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    const std::shared_ptr<UIComponent> placed = component;
    if (elemets()) {
        placeFurther(placed, size);
    } else {
        placeFirst(placed, size);
    }
}

void KivBar::placeFirst(const std::shared_ptr<UIComponent>& component, std::int64_t size) {
    setElemets(Elemets());
    const CGFloat width = static_cast<CGFloat>(size) * required(columnSize());
    const CGFloat height = required(barFrame()).size.height;
    const std::shared_ptr<UIView> slot = make<UIView>(CGRectMake(0.0, 0.0, width, height));
    fillSlot(*slot, *component);
    finishPlacing(slot, component, size);
}

void KivBar::placeFurther(const std::shared_ptr<UIComponent>& component, std::int64_t size) {
    const CGFloat width = static_cast<CGFloat>(size) * required(columnSize());
    const CGFloat height = CGRectGetHeight(required(barFrame()));
    const std::shared_ptr<UIView> slot = make<UIView>(CGRectMake(getCurrentWidth(), 0.0, width, height));
    if (const std::shared_ptr<SeekBar> seekBar = Foundation::as<SeekBar>(component)) {
        fillSlotWithSeekBar(*slot, *seekBar);
    } else {
        fillSlot(*slot, *component);
    }
    finishPlacing(slot, component, size);
}

void KivBar::finishPlacing(const std::shared_ptr<UIView>& slot, const std::shared_ptr<UIComponent>& component,
                           std::int64_t size) {
    slot->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleRightMargin);
    container("addElementToView:size:")->addSubview(slot);
    Elemets placed = placedElemets();
    placed.push_back(std::make_shared<UIElement>(component, size));
    setElemets(placed);
}

void KivBar::clean() {
    // Nothing in tear-down. Otherwise its timer, or an observer that owns it, may have been what held the
    // bar.
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    if (const std::shared_ptr<NSTimer> timer = autoHideTimer()) {
        timer->invalidate();
    }
    setAutoHideTimer(nullptr);
    const std::optional<Elemets> placed = elemets();
    if (!placed) {
        return;
    }
    for (const std::shared_ptr<UIElement>& element : *placed) {
        const std::shared_ptr<UIComponent>& component = element->view();
        component->setObserver(nullptr);
        if (const std::shared_ptr<UIView> control = component->view()) {
            control->removeFromSuperview();
        }
    }
    setElemets(Elemets());
    setElemets(std::nullopt);
}

} // namespace KivUICore
