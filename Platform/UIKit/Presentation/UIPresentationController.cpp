#include "Platform/UIKit/UIPresentationController.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/NSTimer.h"
#include "Platform/UIKit/Presentation/PresentationView.h"
#include "Platform/UIKit/UIViewController.h"
#include "Platform/UIKit/UIWindow.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr double fadeDuration = 0.2;

std::function<void(bool)> afterAnimation(std::function<void()> call) {
    if (!call) {
        return nullptr;
    }
    return [call = std::move(call)](bool /*finished*/) { call(); };
}

} // namespace

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

void UIPresentationController::callSoon(std::function<void()> call) {
    UIView::animateWithDuration(0.0, 0.0, UIViewAnimationOptionCurveLinear, nullptr,
                                afterAnimation(std::move(call)));
}

void UIPresentationController::present(const std::shared_ptr<UIViewController>& presenting, bool animated,
                                       std::function<void()> completion) {
    const std::shared_ptr<UIPresentationController> alive = self(this);
    presenting_ = presenting;
    state_ = State::Preparing;
    cause_ = Cause::Program;
    // The window may have gone with the last callback.
    if (!tryToShow(presenting) || !isShown()) {
        end();
        return;
    }
    const std::shared_ptr<UIView> faded = fadedView();
    if (animated) {
        faded->setAlpha(0.0);
    }
    UIView::animateWithDuration(
        animated ? fadeDuration : 0.0, 0.0, UIViewAnimationOptionCurveEaseOut,
        [&faded] { faded->setAlpha(1.0); }, afterAnimation(std::move(completion)));
}

std::shared_ptr<UIView> UIPresentationController::fadedView() const { return container_; }

bool UIPresentationController::tryToShow(const std::shared_ptr<UIViewController>& presenting) {
    try {
        return prepareAndShow(presenting);
    } catch (...) {
        end();
        throw;
    }
}

// False when there is nothing to show it on any more, or a callback has ended it.
bool UIPresentationController::prepareAndShow(const std::shared_ptr<UIViewController>& presenting) {
    prepare();
    const std::shared_ptr<UIViewController> presented = presentedViewController();
    const std::shared_ptr<UIView> content =
        presented && state_ == State::Preparing ? presented->view() : nullptr;
    const std::shared_ptr<UIView> owner = presenting->view();
    const std::shared_ptr<UIWindow> window = owner ? owner->window() : nullptr;
    if (!content || !window || state_ != State::Preparing) {
        return false;
    }
    state_ = State::Shown;
    const auto container = Foundation::make<PresentationView>(window->bounds(), self(this));
    container_ = container;
    layOut(content);
    if (state_ != State::Shown || owner->window() != window) {
        return false;
    }
    window->addModalView(container, owner);
    return state_ == State::Shown;
}

void UIPresentationController::layOutContent(UIView& container, const std::shared_ptr<UIView>& content) {
    content->setFrame(container.bounds());
    if (content->superview().get() != &container) {
        container.addSubview(content);
    }
}

void UIPresentationController::layOut() {
    const std::shared_ptr<UIViewController> presented = presentedViewController();
    const std::shared_ptr<UIView> content = presented && isShown() ? presented->view() : nullptr;
    if (content && container_) {
        layOut(content);
    }
}

void UIPresentationController::layOut(const std::shared_ptr<UIView>& content) {
    const std::shared_ptr<UIPresentationController> alive = self(this);
    const std::shared_ptr<UIView> container = container_;
    content_ = content;
    layOutContent(*container, content);
}

void UIPresentationController::containerDidResize() {
    layOut();
    Foundation::NSTimer::scheduledTimerWithTimeInterval(
        0.0, false, [weak = std::weak_ptr(self(this))](Foundation::NSTimer& /*timer*/) {
            if (const std::shared_ptr<UIPresentationController> controller = weak.lock()) {
                controller->layOut();
            }
        });
}

void UIPresentationController::dismiss(Cause cause, bool animated, std::function<void()> completion) {
    const std::shared_ptr<UIPresentationController> alive = self(this);
    const std::shared_ptr<UIViewController> presented = presentedViewController();
    if (state_ == State::Shown) {
        cause_ = cause;
    }
    if (completion) {
        completions_.push_back(std::move(completion));
    }
    if (state_ == State::Dismissing && animated) {
        return;
    }
    if (state_ != State::Shown || !animated) {
        end();
        if (!completions_.empty()) {
            callSoon([alive] { alive->complete(); });
        }
        return;
    }
    state_ = State::Dismissing;
    if (presented) {
        presented->presentationController_ = nullptr;
        presented->dismissedController_ = alive;
    }
    UIView::animateWithDuration(
        fadeDuration, 0.0, UIViewAnimationOptionCurveEaseIn, [faded = fadedView()] { faded->setAlpha(0.0); },
        [alive, presented](bool /*finished*/) {
            alive->end();
            alive->complete();
        });
    stopTouches();
}

// What is down on it would choose something after it was dismissed.
void UIPresentationController::stopTouches() {
    const std::shared_ptr<PresentationView> container = container_;
    container->setUserInteractionEnabled(false);
    if (const std::shared_ptr<UIWindow> window = container->window()) {
        window->cancelTouchesIn(*container);
    }
}

void UIPresentationController::complete() {
    std::deque<std::function<void()>> completions = std::exchange(completions_, {});
    while (!completions.empty()) {
        const std::function<void()> completion = std::move(completions.front());
        completions.pop_front();
        try {
            completion();
        } catch (...) {
            completions_.swap(completions);
            std::move(completions.begin(), completions.end(), std::back_inserter(completions_));
            callSoon([alive = self(this)] { alive->complete(); });
            throw;
        }
    }
}

void UIPresentationController::end() {
    if (std::exchange(state_, State::Idle) == State::Idle) {
        return;
    }
    // None while a controller of the two is torn down, which lets go of this one by itself.
    const std::shared_ptr<UIPresentationController> alive = self(this);
    const std::shared_ptr<UIViewController> presented = presentedViewController();
    const std::shared_ptr<UIViewController> presenting = presentingViewController();
    const std::shared_ptr<PresentationView> container = std::exchange(container_, nullptr);
    if (presented) {
        presented->presentingViewController_.reset();
        if (presented->presentationController_ == alive) {
            presented->presentationController_ = nullptr;
        }
        if (presented->dismissedController_ == alive) {
            presented->dismissedController_ = nullptr;
        }
    }
    if (presenting && presenting->presentedViewController_ == presented) {
        presenting->presentedViewController_ = nullptr;
    }
    if (container) {
        container->removeFromSuperview();
    }
    const std::shared_ptr<UIView> content = content_.lock();
    if (content && container && content->isDescendantOfView(*container)) {
        content->removeFromSuperview();
    }
    if (cause_ == Cause::Outside) {
        didDismissFromOutside();
    }
}

} // namespace UIKit
