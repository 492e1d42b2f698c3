#include "Player/Overlay/Bars/TrackSlider.h"

#include "Platform/UIKit/UITouch.h"

namespace KivUICore::Overlay {

using namespace CoreGraphics;

CGPoint TrackSlider::thumbCenter(float value) const {
    const CGRect thumb = thumbRectForBounds(bounds(), trackRectForBounds(bounds()), value);
    return {CGRectGetMidX(thumb), CGRectGetMidY(thumb)};
}

bool TrackSlider::beginTrackingWithTouch(const UIKit::UITouch& touch) {
    wasCancelled_ = false;
    jumpedToTouch_ = !UISlider::beginTrackingWithTouch(touch);
    if (!jumpedToTouch_) {
        return true;
    }
    const std::optional<float> touched = valueAt(touch.locationInView(*this).x);
    if (!touched) {
        return false;
    }
    setValue(*touched);
    return UISlider::beginTrackingWithTouch(touch);
}

void TrackSlider::cancelTracking() {
    wasCancelled_ = true;
    UISlider::cancelTracking();
}

} // namespace KivUICore::Overlay
