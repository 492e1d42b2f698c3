#pragma once

#include "Platform/UIKit/UISlider.h"

#include <optional>

namespace KivUICore::Overlay {

/// A slider whose whole track can be touched: the thumb jumps under the finger and is held from there.
class TrackSlider : public UIKit::UISlider {
public:
    /// The value that the track shows at `x`, in the slider's coordinates; that of the nearer end beyond it.
    /// Nothing in a track too short for a thumb to move.
    std::optional<float> valueAt(CoreGraphics::CGFloat x) const { return valueForThumbCenter(x); }

    /// The middle of the thumb, in the slider's coordinates.
    CoreGraphics::CGPoint thumbCenter(float value) const;

    /// Whether the last touch that took hold of the thumb moved it by doing so.
    bool jumpedToTouch() const { return jumpedToTouch_; }

    /// Whether the last touch that held the thumb was taken away from it: what it did is not what a viewer
    /// decided on.
    bool wasCancelled() const { return wasCancelled_; }

    bool beginTrackingWithTouch(const UIKit::UITouch& touch) override;
    void cancelTracking() override;

private:
    bool jumpedToTouch_ = false;
    bool wasCancelled_ = false;
};

} // namespace KivUICore::Overlay
