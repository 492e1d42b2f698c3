#include "Platform/UIKit/UIPresentationController.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/Presentation/Presentation.h"
#include "Platform/UIKit/UIViewController.h"

namespace UIKit {

const Foundation::Class& UIPresentationController::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIPresentationController, NSObject>("UIKit.UIPresentationController")
            .initializer<const std::shared_ptr<UIViewController>&>("initWithPresentedViewController:")
            .property<&UIPresentationController::presentedViewController>("presentedViewController")
            .property<&UIPresentationController::presentingViewController>("presentingViewController")
            .build();
    return object;
}

bool UIPresentationController::init(const std::shared_ptr<UIViewController>& presentedViewController) {
    require(presentedViewController, "view controller", "init(presentedViewController:)");
    presented_ = presentedViewController;
    return NSObject::init();
}

std::shared_ptr<UIViewController> UIPresentationController::presentingViewController() const {
    const std::shared_ptr<Presentation> presentation = presentation_.lock();
    return presentation ? presentation->presenting() : nullptr;
}

void UIPresentationController::prepare(const std::shared_ptr<Presentation>& presentation) {
    presentation_ = presentation;
}

std::shared_ptr<UIView> UIPresentationController::content() const {
    const std::shared_ptr<UIViewController> presented = presentedViewController();
    return presented ? presented->view() : nullptr;
}

std::shared_ptr<UIView> UIPresentationController::owner() const {
    const std::shared_ptr<UIViewController> presenting = presentingViewController();
    return presenting ? presenting->view() : nullptr;
}

void UIPresentationController::layOutContent(UIView& container, const std::shared_ptr<UIView>& content) {
    content->setFrame(container.bounds());
    if (content->superview().get() != &container) {
        container.addSubview(content);
    }
}

std::shared_ptr<UIView> UIPresentationController::fadedView(const std::shared_ptr<UIView>& container) const {
    return container;
}

void UIPresentationController::layOut() const {
    if (const std::shared_ptr<Presentation> presentation = presentation_.lock()) {
        presentation->layOut();
    }
}

} // namespace UIKit
