#include "Platform/UIKit/UIPopoverPresentationController.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/Presentation/PopoverView.h"
#include "Platform/UIKit/Presentation/Presentation.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIViewController.h"
#include "Platform/UIKit/UIWindow.h"

namespace UIKit {

using namespace CoreGraphics;
using Foundation::SEL;

namespace {

constexpr CGSize defaultSize{320.0, 480.0};

} // namespace

const Foundation::Class& UIPopoverPresentationController::classObject() {
    using Self = UIPopoverPresentationController;
    static const Foundation::Class& object =
        Foundation::ClassBuilder<Self, UIPresentationController>("UIKit.UIPopoverPresentationController")
            .property<&Self::delegate, &Self::setDelegate>("delegate")
            .property<&Self::permittedArrowDirections, &Self::setPermittedArrowDirections>(
                "permittedArrowDirections")
            .property<&Self::sourceView, &Self::setSourceView>("sourceView")
            .property<&Self::sourceRect, &Self::setSourceRect>("sourceRect")
            .property<&Self::backgroundColor, &Self::setBackgroundColor>("backgroundColor")
            .property<&Self::arrowDirection>("arrowDirection")
            .build();
    return object;
}

std::shared_ptr<UIPopoverPresentationControllerDelegate> UIPopoverPresentationController::delegate() const {
    return delegate_.lock();
}

void UIPopoverPresentationController::setDelegate(
    const std::shared_ptr<UIPopoverPresentationControllerDelegate>& delegate) {
    delegate_ = delegate;
}

UIPopoverArrowDirection UIPopoverPresentationController::permittedArrowDirections() const {
    return permittedArrowDirections_;
}

void UIPopoverPresentationController::setPermittedArrowDirections(UIPopoverArrowDirection directions) {
    permittedArrowDirections_ = directions;
    layOut();
}

std::shared_ptr<UIView> UIPopoverPresentationController::sourceView() const { return sourceView_.lock(); }

void UIPopoverPresentationController::setSourceView(const std::shared_ptr<UIView>& view) {
    sourceView_ = view;
    layOut();
}

CGRect UIPopoverPresentationController::sourceRect() const { return sourceRect_; }

void UIPopoverPresentationController::setSourceRect(const CGRect& rect) {
    sourceRect_ = rect;
    layOut();
}

std::shared_ptr<UIColor> UIPopoverPresentationController::backgroundColor() const { return backgroundColor_; }

void UIPopoverPresentationController::setBackgroundColor(const std::shared_ptr<UIColor>& color) {
    backgroundColor_ = color;
    if (popover_) {
        popover_->setFillColor(color);
    }
}

void UIPopoverPresentationController::prepare(const std::shared_ptr<Presentation>& presentation) {
    static const SEL prepareSelector("prepareForPopoverPresentation:");
    UIPresentationController::prepare(presentation);
    popover_ = nullptr;
    arrowDirection_ = UIPopoverArrowDirectionUnknown;
    isFullScreen_ = askForFullScreen();
    const std::shared_ptr<UIPopoverPresentationControllerDelegate> told = delegate();
    if (!isFullScreen_ && presentation->isInUse() && told && told->respondsToSelector(prepareSelector)) {
        told->send(prepareSelector, self(this));
    }
}

bool UIPopoverPresentationController::askForFullScreen() {
    static const SEL styleSelector("adaptivePresentationStyleForPresentationController:");
    const std::shared_ptr<UIPopoverPresentationControllerDelegate> asked = delegate();
    return asked && asked->respondsToSelector(styleSelector) &&
           asked->send<UIModalPresentationStyle>(styleSelector, self(this)) ==
               UIModalPresentationStyle::FullScreen;
}

void UIPopoverPresentationController::layOutContent(UIView& container,
                                                    const std::shared_ptr<UIView>& content) {
    if (isFullScreen_) {
        UIPresentationController::layOutContent(container, content);
        return;
    }
    const PopoverPlacement placement =
        placePopover(container.bounds().size, anchorIn(container), contentSize(), permittedArrowDirections());
    arrowDirection_ = placement.arrowDirection;
    std::shared_ptr<PopoverView> popover = popover_;
    if (popover) {
        popover->setPlacement(placement);
        return;
    }
    popover = popover_ = Foundation::make<PopoverView>();
    popover->setFillColor(backgroundColor());
    popover->setPlacement(placement);
    popover->setContent(content);
    container.addSubview(popover);
}

std::shared_ptr<UIView>
UIPopoverPresentationController::fadedView(const std::shared_ptr<UIView>& container) const {
    return popover_ ? popover_ : UIPresentationController::fadedView(container);
}

std::optional<CGRect> UIPopoverPresentationController::anchorIn(const UIView& container) const {
    const std::shared_ptr<UIView> source = sourceView();
    const std::shared_ptr<UIView> over = owner();
    const std::shared_ptr<UIWindow> window = over ? over->window() : nullptr;
    if (!source || !window || source->window() != window) {
        return std::nullopt;
    }
    const CGRect inWindow = source->convertRectToView(sourceRect(), *window);
    const CGPoint corner = container.frame().origin;
    return CGRectOffset(inWindow, -corner.x, -corner.y);
}

CGSize UIPopoverPresentationController::contentSize() const {
    const std::shared_ptr<UIViewController> presented = presentedViewController();
    const CGSize size = presented ? presented->preferredContentSize() : CGSize{};
    return size.width > 0.0 && size.height > 0.0 ? size : defaultSize;
}

void UIPopoverPresentationController::didDismissFromOutside() {
    static const SEL didDismiss("popoverPresentationControllerDidDismissPopover:");
    const std::shared_ptr<UIPopoverPresentationControllerDelegate> told = delegate();
    if (told && told->respondsToSelector(didDismiss)) {
        told->send(didDismiss, self(this));
    }
}

} // namespace UIKit
