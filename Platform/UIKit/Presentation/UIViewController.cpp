#include "Platform/UIKit/UIViewController.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/NSBundle.h"
#include "Platform/Foundation/NSCoder.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/ScopeExit.h"
#include "Platform/UIKit/Presentation/Presentation.h"
#include "Platform/UIKit/UIPopoverPresentationController.h"
#include "Platform/UIKit/UIWindow.h"

#include <cstdio>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;

namespace {

bool warn(const UIViewController& presented, const UIViewController& presenting, const char* why) {
    const std::string line = "Warning: attempt to present '" + presented.isa().name() + "' over '" +
                             presenting.isa().name() + "' " + why + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return false;
}

void endDismissal(const std::shared_ptr<Presentation>& presentation) {
    if (presentation && presentation->isDismissing()) {
        presentation->end();
    }
}

} // namespace

const Foundation::Class& UIViewController::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIViewController, NSObject>("UIKit.UIViewController")
            .initializer<const std::optional<std::string>&, const std::shared_ptr<Foundation::NSBundle>&>(
                "initWithNibName:bundle:")
            .initializer<const std::shared_ptr<Foundation::NSCoder>&>("initWithCoder:")
            .property<&UIViewController::view, &UIViewController::setView>("view")
            .property<&UIViewController::isViewLoaded>("viewLoaded")
            .method<&UIViewController::loadView>("loadView")
            .method<&UIViewController::viewDidLoad>("viewDidLoad")
            .property<&UIViewController::modalPresentationStyle,
                      &UIViewController::setModalPresentationStyle>("modalPresentationStyle")
            .property<&UIViewController::preferredContentSize, &UIViewController::setPreferredContentSize>(
                "preferredContentSize")
            .property<&UIViewController::popoverPresentationController>("popoverPresentationController")
            .method<&UIViewController::presentViewController>("presentViewController:animated:completion:")
            .method<&UIViewController::dismissViewControllerAnimated>(
                "dismissViewControllerAnimated:completion:")
            .property<&UIViewController::presentedViewController>("presentedViewController")
            .property<&UIViewController::presentingViewController>("presentingViewController")
            .build();
    return object;
}

bool UIViewController::init() { return init(std::nullopt, nullptr); }

bool UIViewController::init(const std::optional<std::string>& /*nibName*/,
                            const std::shared_ptr<Foundation::NSBundle>& /*bundle*/) {
    return NSObject::init();
}

bool UIViewController::init(const std::shared_ptr<Foundation::NSCoder>& /*coder*/) {
    return NSObject::init();
}

void UIViewController::dealloc() {
    if (const std::shared_ptr<Presentation> presentation = std::exchange(presentation_, nullptr)) {
        presentation->end();
    }
    NSObject::dealloc();
}

// The root view

std::shared_ptr<UIView> UIViewController::view() {
    if (!view_ && !isLoadingView_) {
        const std::shared_ptr<UIViewController> alive = self(this);
        loadViewOnce();
        if (view_) {
            viewDidLoad();
        }
    }
    return view_;
}

void UIViewController::loadViewOnce() {
    isLoadingView_ = true;
    const Foundation::ScopeExit end([this] { isLoadingView_ = false; });
    loadView();
}

void UIViewController::setView(const std::shared_ptr<UIView>& view) { std::shared_ptr(view).swap(view_); }

void UIViewController::loadView() { setView(Foundation::make<UIView>()); }

void UIViewController::viewDidLoad() {}

// Presentation

UIModalPresentationStyle UIViewController::modalPresentationStyle() const { return modalPresentationStyle_; }

void UIViewController::setModalPresentationStyle(UIModalPresentationStyle style) {
    modalPresentationStyle_ = style;
}

CGSize UIViewController::preferredContentSize() const { return preferredContentSize_; }

void UIViewController::setPreferredContentSize(const CGSize& size) {
    preferredContentSize_ = size;
    if (const std::shared_ptr<Presentation> own = ownPresentation_.lock()) {
        own->layOut();
    }
}

std::shared_ptr<UIPopoverPresentationController> UIViewController::popoverPresentationController() {
    return modalPresentationStyle() == UIModalPresentationStyle::Popover
               ? Foundation::as<UIPopoverPresentationController>(presentationController())
               : nullptr;
}

// One in use stays, whatever style is set meanwhile.
std::shared_ptr<UIPresentationController> UIViewController::presentationController() {
    const std::shared_ptr<Presentation> own = ownPresentation_.lock();
    if (own && own->isInUse()) {
        return std::static_pointer_cast<UIPresentationController>(own->style());
    }
    const bool isPopover = modalPresentationStyle() == UIModalPresentationStyle::Popover;
    const bool isOfStyle =
        presentationController_ &&
        isPopover ==
            static_cast<bool>(Foundation::as<UIPopoverPresentationController>(presentationController_));
    if (!isOfStyle) {
        presentationController_ = isPopover ? Foundation::make<UIPopoverPresentationController>(self(this))
                                            : Foundation::make<UIPresentationController>(self(this));
    }
    return presentationController_;
}

void UIViewController::presentViewController(const std::shared_ptr<UIViewController>& controller,
                                             bool animated, std::function<void()> completion) {
    require(controller, "view controller", "presentViewController:animated:completion:");
    const std::shared_ptr<UIViewController> alive = self(this);
    const std::shared_ptr<UIViewController> presented = controller;
    endDismissal(presentation_);
    endDismissal(presented->ownPresentation_.lock());
    // All that a subclass may answer comes before what is asked of the two.
    const std::shared_ptr<UIView> owner = view();
    const std::shared_ptr<UIPresentationController> style = presented->presentationController();
    if (!mayPresent(*presented, owner.get())) {
        return;
    }
    const auto presentation = std::make_shared<Presentation>(style, presented, alive);
    presentation_ = presentation;
    presented->ownPresentation_ = presentation;
    presented->presentationController_ = nullptr;
    presentation->begin(animated, std::move(completion));
}

bool UIViewController::mayPresent(const UIViewController& controller, const UIView* owner) const {
    if (isPresentedOver(controller)) {
        Foundation::fatalError("'presentViewController:animated:completion:' of class '" + isa().name() +
                               "' would present a view controller of class '" + controller.isa().name() +
                               "' over itself");
    }
    if (presentedViewController()) {
        return warn(controller, *this, "which is presenting already");
    }
    if (controller.presentingViewController()) {
        return warn(controller, *this, "which is presented already");
    }
    if (!owner || !owner->window()) {
        return warn(controller, *this, "whose view is in no window");
    }
    return true;
}

// True for the controller itself too.
bool UIViewController::isPresentedOver(const UIViewController& controller) const {
    if (this == &controller) {
        return true;
    }
    const std::shared_ptr<UIViewController> presenting = presentingViewController();
    return presenting && presenting->isPresentedOver(controller);
}

std::shared_ptr<UIViewController> UIViewController::presentedViewController() const {
    return presentation_ ? presentation_->presented() : nullptr;
}

std::shared_ptr<UIViewController> UIViewController::presentingViewController() const {
    const std::shared_ptr<Presentation> own = ownPresentation_.lock();
    return own && !own->isOver() ? own->presenting() : nullptr;
}

void UIViewController::dismissViewControllerAnimated(bool animated, std::function<void()> completion) {
    const std::shared_ptr<UIViewController> alive = self(this);
    const std::shared_ptr<Presentation> presentation =
        presentedViewController() ? presentation_ : ownPresentation_.lock();
    if (presentation && !presentation->isOver()) {
        presentation->dismiss(Presentation::Cause::Program, animated, std::move(completion));
    } else if (completion) {
        const Foundation::NSRunLoop::Scope current(view_ ? &view_->runLoop() : nullptr);
        Presentation::callSoon(std::move(completion));
    }
}

} // namespace UIKit
