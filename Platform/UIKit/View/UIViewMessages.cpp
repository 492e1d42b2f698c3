#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIView.h"
#include "Platform/UIKit/UIWindow.h"

// Apart from the rest: a message's types must be known, and a view knows no window.
namespace UIKit {

using CoreGraphics::CGRect;

const Foundation::Class& UIView::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIView, UIResponder>("UIKit.UIView")
            .initializer<const CGRect&>("initWithFrame:")
            .property<&UIView::frame, &UIView::setFrame>("frame")
            .property<&UIView::bounds, &UIView::setBounds>("bounds")
            .property<&UIView::center, &UIView::setCenter>("center")
            .property<&UIView::transform, &UIView::setTransform>("transform")
            .property<&UIView::autoresizingMask, &UIView::setAutoresizingMask>("autoresizingMask")
            .method<&UIView::setNeedsLayout>("setNeedsLayout")
            .method<&UIView::layoutIfNeeded>("layoutIfNeeded")
            .method<&UIView::layoutSubviews>("layoutSubviews")
            .method<&UIView::sizeToFit>("sizeToFit")
            .property<&UIView::superview>("superview")
            .property<&UIView::window>("window")
            .property<&UIView::subviews>("subviews")
            .method<&UIView::addSubview>("addSubview:")
            .method<&UIView::insertSubview>("insertSubview:atIndex:")
            .method<&UIView::bringSubviewToFront>("bringSubviewToFront:")
            .method<&UIView::sendSubviewToBack>("sendSubviewToBack:")
            .method<&UIView::removeFromSuperview>("removeFromSuperview")
            .property<&UIView::alpha, &UIView::setAlpha>("alpha")
            .property<&UIView::isHidden, &UIView::setHidden>("hidden")
            .property<&UIView::isOpaque, &UIView::setOpaque>("opaque")
            .property<&UIView::backgroundColor, &UIView::setBackgroundColor>("backgroundColor")
            .property<&UIView::clipsToBounds, &UIView::setClipsToBounds>("clipsToBounds")
            .property<&UIView::isUserInteractionEnabled, &UIView::setUserInteractionEnabled>(
                "userInteractionEnabled")
            .property<&UIView::canBecomeFocused>("canBecomeFocused")
            .property<&UIView::isFocusable>("focusable")
            .property<&UIView::isFocused>("focused")
            .method<&UIView::setNeedsDisplay>("setNeedsDisplay")
            .build();
    return object;
}

} // namespace UIKit
