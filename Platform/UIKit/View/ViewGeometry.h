#pragma once

#include "Platform/CoreGraphics/CGAffineTransform.h"

#include <optional>

namespace UIKit {

/// Where a view is in its superview, a plain value: a box as it would lie there untransformed, a transform
/// about the box's centre, and the coordinates that the box's corner has inside. Frame, bounds and centre are
/// views of these three and so always agree.
class ViewGeometry {
public:
    friend bool operator==(const ViewGeometry&, const ViewGeometry&) = default;

    /// The smallest upright rectangle around the transformed box. Without a transform it is what was set, to
    /// the bit.
    CoreGraphics::CGRect frame() const;

    /// Moves the centre and sizes the box so that it has that frame once transformed. Under a transform
    /// without an inverse the size stays.
    void setFrame(const CoreGraphics::CGRect& frame);

    CoreGraphics::CGRect bounds() const { return {boundsOrigin_, box_.size}; }

    /// A new size leaves the centre where it is.
    void setBounds(const CoreGraphics::CGRect& bounds);

    CoreGraphics::CGPoint center() const;
    void setCenter(const CoreGraphics::CGPoint& center);

    bool isTransformed() const { return isTransformed_; }
    const CoreGraphics::CGAffineTransform& transform() const { return transform_; }
    void setTransform(const CoreGraphics::CGAffineTransform& transform);

    /// The three values themselves, for animations.
    const CoreGraphics::CGRect& box() const { return box_; }
    void setBox(const CoreGraphics::CGRect& box) { box_ = box; }
    const CoreGraphics::CGPoint& boundsOrigin() const { return boundsOrigin_; }
    void setBoundsOrigin(const CoreGraphics::CGPoint& origin) { boundsOrigin_ = origin; }

    /// From the view's own coordinates to its superview's.
    CoreGraphics::CGAffineTransform toSuperview() const;
    CoreGraphics::CGPoint pointToSuperview(const CoreGraphics::CGPoint& point) const;
    CoreGraphics::CGRect rectToSuperview(const CoreGraphics::CGRect& rect) const;

    /// The way back; nothing when the view is scaled to a line or a point.
    std::optional<CoreGraphics::CGAffineTransform> fromSuperview() const;
    std::optional<CoreGraphics::CGPoint> pointFromSuperview(const CoreGraphics::CGPoint& point) const;
    std::optional<CoreGraphics::CGRect> rectFromSuperview(const CoreGraphics::CGRect& rect) const;

private:
    // From the view's own coordinates to its superview's, where there is no transform.
    CoreGraphics::CGPoint offset() const {
        return {box_.origin.x - boundsOrigin_.x, box_.origin.y - boundsOrigin_.y};
    }

    CoreGraphics::CGRect box_;
    CoreGraphics::CGPoint boundsOrigin_;
    CoreGraphics::CGAffineTransform transform_;

    // Known beforehand: most views aren't, and every step of drawing asks.
    bool isTransformed_ = false;
};

} // namespace UIKit
