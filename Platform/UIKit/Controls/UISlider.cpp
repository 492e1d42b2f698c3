#include "Platform/UIKit/UISlider.h"

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/CoreGraphics/ContentLayout.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UIWindow.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr CGFloat trackThickness = 4.0;
constexpr CGFloat thumbDiameter = 14.0;
constexpr CGFloat heldThumbDiameter = 18.0;
constexpr CGFloat leastTargetSide = 44.0;

// What a held thumb and its shadow need beyond a resting one.
constexpr CGFloat margin = (heldThumbDiameter - thumbDiameter) / 2.0 + 2.0;

constexpr double travelTime = 0.25;
constexpr CGFloat leastTravel = 0.5;

constexpr CGColor thumbColor{1.0, 1.0, 1.0, 1.0};
constexpr CGColor disabledThumbColor{0.55, 0.55, 0.55, 1.0};
constexpr CGColor minimumTrackColor{0.31, 0.67, 1.0, 1.0};
constexpr CGColor maximumTrackColor{1.0, 1.0, 1.0, 0.3};
constexpr CGColor shadowColor{0.0, 0.0, 0.0, 0.16};
constexpr CGFloat disabledAlpha = 0.4;

CGColor colorOr(const std::shared_ptr<UIColor>& color, const CGColor& own) {
    return color ? color->cgColor() : own;
}

void fillCircle(CGContext& context, const CGRect& around, CGFloat diameter, const CGColor& color) {
    if (!(diameter > 0.0)) {
        return;
    }
    context.fillRoundedRect(rectCenteredIn(around, {diameter, diameter}), diameter / 2.0, color);
}

// Scaled to the whole track, so that it stays put while the thumb moves over it.
void drawTrackImage(CGContext& context, const UIImage& image, const CGRect& track, CGFloat start,
                    CGFloat end) {
    const CGRect whole = rectCenteredIn(track, {track.size.width, image.size().height});
    context.saveState();
    context.clipToRect({{start, whole.origin.y}, {end - start, whole.size.height}});
    image.drawing()->draw(context, whole);
    context.restoreState();
}

} // namespace

const Foundation::Class& UISlider::classObject() {
    using Foundation::overload;
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UISlider, UIControl>("UIKit.UISlider")
            .property<&UISlider::value, overload<void(float)>(&UISlider::setValue)>("value")
            .method<overload<void(float, bool)>(&UISlider::setValue)>("setValue:animated:")
            .property<&UISlider::minimumValue, &UISlider::setMinimumValue>("minimumValue")
            .property<&UISlider::maximumValue, &UISlider::setMaximumValue>("maximumValue")
            .property<&UISlider::isContinuous, &UISlider::setContinuous>("continuous")
            .method<&UISlider::setThumbImage>("setThumbImage:forState:")
            .method<&UISlider::setMinimumTrackImage>("setMinimumTrackImage:forState:")
            .method<&UISlider::setMaximumTrackImage>("setMaximumTrackImage:forState:")
            .method<&UISlider::thumbImageForState>("thumbImageForState:")
            .method<&UISlider::minimumTrackImageForState>("minimumTrackImageForState:")
            .method<&UISlider::maximumTrackImageForState>("maximumTrackImageForState:")
            .property<&UISlider::thumbTintColor, &UISlider::setThumbTintColor>("thumbTintColor")
            .property<&UISlider::minimumTrackTintColor, &UISlider::setMinimumTrackTintColor>(
                "minimumTrackTintColor")
            .property<&UISlider::maximumTrackTintColor, &UISlider::setMaximumTrackTintColor>(
                "maximumTrackTintColor")
            .method<&UISlider::trackRectForBounds>("trackRectForBounds:")
            .method<&UISlider::thumbRectForBounds>("thumbRectForBounds:trackRect:value:")
            .build();
    return object;
}

// Value and range

float UISlider::value() const { return value_; }

void UISlider::setValue(float value) { setValue(value, false); }

void UISlider::setValue(float value, bool animated) {
    if (std::isnan(value)) {
        return;
    }
    const float inRange = std::clamp(value, minimumValue_, maximumValue_);
    if (!animated) {
        changeValue(inRange);
    } else if (inRange != value_) {
        travelTo(inRange);
    }
}

void UISlider::travelTo(float value) {
    if (window() && isFarEnoughToTravel(value)) {
        animateWithDuration(travelTime, 0.0, UIViewAnimationOptionCurveEaseOut,
                            [this, value] { changeValue(value); });
    } else {
        changeValue(value);
    }
}

void UISlider::changeValue(float value) {
    if (value != value_ || presentedSliderValue() != value_) {
        willChangeValue(value_, value);
        value_ = value;
        setNeedsDisplay();
    }
}

bool UISlider::isFarEnoughToTravel(float value) const {
    const CGRect shown = thumbRect(bounds(), presentedSliderValue());
    const CGRect coming = thumbRect(bounds(), value);
    return std::abs(CGRectGetMidX(coming) - CGRectGetMidX(shown)) >= leastTravel;
}

float UISlider::presentedSliderValue() const {
    return std::clamp(static_cast<float>(presentedValue(value_)), minimumValue_, maximumValue_);
}

float UISlider::minimumValue() const { return minimumValue_; }

void UISlider::setMinimumValue(float value) {
    if (std::isfinite(value)) {
        setRange(value, std::max(value, maximumValue_));
    }
}

float UISlider::maximumValue() const { return maximumValue_; }

void UISlider::setMaximumValue(float value) {
    if (std::isfinite(value)) {
        setRange(std::min(value, minimumValue_), value);
    }
}

void UISlider::setRange(float minimum, float maximum) {
    if (minimum == minimumValue_ && maximum == maximumValue_) {
        return;
    }
    minimumValue_ = minimum;
    maximumValue_ = maximum;
    const float inRange = std::clamp(value_, minimum, maximum);
    if (inRange != value_) {
        changeValue(inRange);
    }
    setNeedsDisplay();
}

bool UISlider::isContinuous() const { return isContinuous_; }

void UISlider::setContinuous(bool continuous) { isContinuous_ = continuous; }

// Appearance

void UISlider::setThumbImage(const std::shared_ptr<UIImage>& image, UIControlState state) {
    thumbImages_.set(state, image);
    setNeedsDisplay();
}

void UISlider::setMinimumTrackImage(const std::shared_ptr<UIImage>& image, UIControlState state) {
    minimumTrackImages_.set(state, image);
    setNeedsDisplay();
}

void UISlider::setMaximumTrackImage(const std::shared_ptr<UIImage>& image, UIControlState state) {
    maximumTrackImages_.set(state, image);
    setNeedsDisplay();
}

std::shared_ptr<UIImage> UISlider::thumbImageForState(UIControlState state) const {
    return thumbImages_[state];
}

std::shared_ptr<UIImage> UISlider::minimumTrackImageForState(UIControlState state) const {
    return minimumTrackImages_[state];
}

std::shared_ptr<UIImage> UISlider::maximumTrackImageForState(UIControlState state) const {
    return maximumTrackImages_[state];
}

std::shared_ptr<UIColor> UISlider::thumbTintColor() const { return thumbTintColor_; }

void UISlider::setThumbTintColor(const std::shared_ptr<UIColor>& color) {
    thumbTintColor_ = color;
    setNeedsDisplay();
}

std::shared_ptr<UIColor> UISlider::minimumTrackTintColor() const { return minimumTrackTintColor_; }

void UISlider::setMinimumTrackTintColor(const std::shared_ptr<UIColor>& color) {
    minimumTrackTintColor_ = color;
    setNeedsDisplay();
}

std::shared_ptr<UIColor> UISlider::maximumTrackTintColor() const { return maximumTrackTintColor_; }

void UISlider::setMaximumTrackTintColor(const std::shared_ptr<UIColor>& color) {
    maximumTrackTintColor_ = color;
    setNeedsDisplay();
}

// Layout

CGRect UISlider::trackRectForBounds(const CGRect& bounds) const {
    const CGRect area = CGRectInset(bounds, margin, 0.0);
    return rectCenteredIn(area, {area.size.width, std::min(trackThickness, area.size.height)});
}

CGRect UISlider::thumbRectForBounds(const CGRect& bounds, const CGRect& trackRect, float value) const {
    const std::shared_ptr<UIImage> image = thumbImages_[UIControlStateNormal];
    const CGSize own{thumbDiameter, thumbDiameter};
    const CGSize size =
        sizeFittedInto(image ? image->size() : own, {CGRectGetWidth(bounds), CGRectGetHeight(bounds)});
    // In a track that is too short to move in, the thumb stays in its middle.
    const CGFloat way = std::max(0.0, CGRectGetWidth(trackRect) - size.width);
    const CGRect inMiddle = rectCenteredIn(trackRect, size);
    return CGRectOffset(inMiddle, (fractionOf(value) - 0.5) * way, 0.0);
}

double UISlider::fractionOf(float value) const {
    const double range = static_cast<double>(maximumValue_) - minimumValue_;
    return range > 0.0 ? std::clamp((static_cast<double>(value) - minimumValue_) / range, 0.0, 1.0) : 0.0;
}

CGRect UISlider::thumbRect(const CGRect& bounds, float value) const {
    return thumbRectForBounds(bounds, trackRectForBounds(bounds), value);
}

CGRect UISlider::thumbTarget() const {
    const CGRect thumb = thumbRect(bounds(), presentedSliderValue());
    return rectCenteredIn(thumb, {std::max(leastTargetSide, CGRectGetWidth(thumb)),
                                  std::max(leastTargetSide, CGRectGetHeight(thumb))});
}

std::optional<float> UISlider::valueForThumbCenter(CGFloat x) const {
    const CGRect within = bounds();
    const CGRect track = trackRectForBounds(within);
    const CGFloat start = CGRectGetMidX(thumbRectForBounds(within, track, minimumValue_));
    const CGFloat way = CGRectGetMidX(thumbRectForBounds(within, track, maximumValue_)) - start;
    if (way == 0.0 || !std::isfinite(way) || !std::isfinite(x)) {
        return std::nullopt;
    }
    const double fraction = (x - start) / way;
    const double range = static_cast<double>(maximumValue_) - minimumValue_;
    return static_cast<float>(minimumValue_ + std::clamp(fraction, 0.0, 1.0) * range);
}

bool UISlider::pointInside(const CGPoint& point) const {
    return UIControl::pointInside(point) || CGRectContainsPoint(thumbTarget(), point);
}

CGSize UISlider::sizeThatFits(const CGSize& size) const { return {size.width, leastTargetSide}; }

// Tracking

bool UISlider::beginTrackingWithTouch(const UITouch& touch) {
    const CGPoint finger = touch.locationInView(*this);
    if (!CGRectContainsPoint(thumbTarget(), finger)) {
        return false;
    }
    fingerX_ = finger.x;
    fingerOffset_ = finger.x - CGRectGetMidX(thumbRect(bounds(), presentedSliderValue()));
    hasPendingChange_ = false;
    setNeedsDisplay();
    return true;
}

bool UISlider::continueTrackingWithTouch(const UITouch& touch) {
    // A finger that moves up or down only must not bring back a value that was set meanwhile.
    const CGFloat x = touch.locationInView(*this).x;
    if (std::exchange(fingerX_, x) == x) {
        return true;
    }
    const std::optional<float> value = valueForThumbCenter(x - fingerOffset_);
    if (value && *value != value_) {
        changeValue(*value);
        hasPendingChange_ = true;
        if (isContinuous_) {
            sendPendingChange();
        }
    }
    return true;
}

void UISlider::endTrackingWithTouch(const UITouch& /*touch*/) {
    setNeedsDisplay();
    sendPendingChange();
}

void UISlider::cancelTracking() {
    setNeedsDisplay();
    sendPendingChange();
}

void UISlider::sendPendingChange() {
    if (std::exchange(hasPendingChange_, false)) {
        sendActionsForControlEvents(UIControlEventValueChanged);
    }
}

// Drawing

void UISlider::drawRect(CGContext& context, const CGRect& /*rect*/) {
    const CGRect bounds = CGRectStandardize(presentedBounds());
    CGRect track = trackRectForBounds(bounds);
    track.origin.y = alignedToPixels(track).origin.y;
    const CGRect thumb = thumbRectForBounds(bounds, track, presentedSliderValue());
    const CGFloat split = CGRectGetMidX(thumb);
    // Held wherever the finger is, also outside.
    const UIControlState shown = state() | (isTracking() ? UIControlStateHighlighted : UIControlStateNormal);

    if (const std::shared_ptr<UIImage> image = maximumTrackImageForState(shown)) {
        drawTrackImage(context, *image, track, split, CGRectGetMaxX(track));
    } else {
        // Begins under the round end of the other part.
        drawTrack(context, track, split - track.size.height / 2.0, CGRectGetMaxX(track),
                  colorOr(maximumTrackTintColor_, maximumTrackColor));
    }
    if (const std::shared_ptr<UIImage> image = minimumTrackImageForState(shown)) {
        drawTrackImage(context, *image, track, CGRectGetMinX(track), split);
    } else {
        drawTrack(context, track, CGRectGetMinX(track), split,
                  colorOr(minimumTrackTintColor_, minimumTrackColor));
    }
    if (const std::shared_ptr<UIImage> image = thumbImageForState(shown)) {
        const CGSize size = sizeFittedInto(image->size(), bounds.size);
        image->drawing()->draw(context, alignedToPixels(rectCenteredIn(thumb, size)));
    } else {
        drawThumb(context, thumb, bounds);
    }
}

void UISlider::drawTrack(CGContext& context, const CGRect& track, CGFloat start, CGFloat end,
                         CGColor color) const {
    if (!isEnabled()) {
        color.alpha *= disabledAlpha;
    }
    context.fillRoundedRect({{start, track.origin.y}, {end - start, track.size.height}},
                            track.size.height / 2.0, color);
}

void UISlider::drawThumb(CGContext& context, const CGRect& rect, const CGRect& bounds) const {
    const CGFloat room =
        2.0 *
        std::min({CGRectGetMidX(rect) - CGRectGetMinX(bounds), CGRectGetMaxX(bounds) - CGRectGetMidX(rect),
                  CGRectGetMidY(rect) - CGRectGetMinY(bounds), CGRectGetMaxY(bounds) - CGRectGetMidY(rect)});
    const CGFloat diameter = isTracking() ? heldThumbDiameter : thumbDiameter;
    for (const CGFloat blur : {2.0, 1.0}) {
        fillCircle(context, rect, std::min(diameter + 2.0 * blur, room), shadowColor);
    }
    fillCircle(context, rect, std::min(diameter, room),
               isEnabled() ? colorOr(thumbTintColor_, thumbColor) : disabledThumbColor);
}

} // namespace UIKit
