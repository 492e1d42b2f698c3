#include "Platform/UIKit/View/ViewGeometry.h"

#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

CGRect ViewGeometry::frame() const {
    if (!isTransformed_) {
        return box_;
    }
    return CGRectApplyAffineTransform(bounds(), toSuperview());
}

void ViewGeometry::setFrame(const CGRect& frame) {
    if (!isTransformed_) {
        box_ = frame;
        return;
    }
    if (const std::optional<CGAffineTransform> inverse = CGAffineTransformInvert(transform_)) {
        const CGSize size =
            CGSizeApplyAffineTransform({CGRectGetWidth(frame), CGRectGetHeight(frame)}, *inverse);
        box_.size = {std::abs(size.width), std::abs(size.height)};
    }
    setCenter({CGRectGetMidX(frame) - transform_.tx, CGRectGetMidY(frame) - transform_.ty});
}

void ViewGeometry::setBounds(const CGRect& bounds) {
    boundsOrigin_ = bounds.origin;
    if (bounds.size != box_.size) {
        const CGPoint middle = center();
        box_.size = bounds.size;
        setCenter(middle);
    }
}

CGPoint ViewGeometry::center() const {
    return {box_.origin.x + box_.size.width / 2.0, box_.origin.y + box_.size.height / 2.0};
}

void ViewGeometry::setCenter(const CGPoint& center) {
    box_.origin = {center.x - box_.size.width / 2.0, center.y - box_.size.height / 2.0};
}

void ViewGeometry::setTransform(const CGAffineTransform& transform) {
    transform_ = transform;
    isTransformed_ = !CGAffineTransformIsIdentity(transform);
}

CGAffineTransform ViewGeometry::toSuperview() const {
    if (!isTransformed_) {
        return CGAffineTransformMakeTranslation(offset().x, offset().y);
    }
    const CGAffineTransform toCenter = CGAffineTransformMakeTranslation(
        -boundsOrigin_.x - box_.size.width / 2.0, -boundsOrigin_.y - box_.size.height / 2.0);
    const CGPoint middle = center();
    return CGAffineTransformConcat(CGAffineTransformConcat(toCenter, transform_),
                                   CGAffineTransformMakeTranslation(middle.x, middle.y));
}

CGPoint ViewGeometry::pointToSuperview(const CGPoint& point) const {
    return isTransformed_ ? CGPointApplyAffineTransform(point, toSuperview())
                          : CGPoint{point.x + offset().x, point.y + offset().y};
}

CGRect ViewGeometry::rectToSuperview(const CGRect& rect) const {
    return isTransformed_ ? CGRectApplyAffineTransform(rect, toSuperview())
                          : CGRectOffset(rect, offset().x, offset().y);
}

std::optional<CGAffineTransform> ViewGeometry::fromSuperview() const {
    return CGAffineTransformInvert(toSuperview());
}

std::optional<CGPoint> ViewGeometry::pointFromSuperview(const CGPoint& point) const {
    if (!isTransformed_) {
        return CGPoint{point.x - offset().x, point.y - offset().y};
    }
    const std::optional<CGAffineTransform> inwards = fromSuperview();
    return inwards ? std::optional(CGPointApplyAffineTransform(point, *inwards)) : std::nullopt;
}

std::optional<CGRect> ViewGeometry::rectFromSuperview(const CGRect& rect) const {
    if (!isTransformed_) {
        return CGRectOffset(rect, -offset().x, -offset().y);
    }
    const std::optional<CGAffineTransform> inwards = fromSuperview();
    return inwards ? std::optional(CGRectApplyAffineTransform(rect, *inwards)) : std::nullopt;
}

} // namespace UIKit
