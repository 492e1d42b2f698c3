#include "Platform/UIKit/Presentation/Presentation.h"

#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/Presentation/PresentationStyle.h"
#include "Platform/UIKit/UIWindow.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace UIKit {

namespace {

constexpr double fadeDuration = 0.2;

std::function<void(bool)> afterAnimation(std::function<void()> call) {
    if (!call) {
        return nullptr;
    }
    return [call = std::move(call)](bool /*finished*/) { call(); };
}

} // namespace

Presentation::Presentation(std::shared_ptr<PresentationStyle> style,
                           std::shared_ptr<UIViewController> presented,
                           const std::shared_ptr<UIViewController>& presenting)
    : style_(std::move(style)), presented_(std::move(presented)), presenting_(presenting) {}

void Presentation::callSoon(std::function<void()> call) {
    UIView::animateWithDuration(0.0, 0.0, UIViewAnimationOptionCurveLinear, nullptr,
                                afterAnimation(std::move(call)));
}

void Presentation::begin(bool animated, std::function<void()> completion) {
    const std::shared_ptr<Presentation> alive = shared_from_this();
    // The window may have gone with the last callback.
    if (!tryToShow() || !isShown()) {
        end();
        return;
    }
    const Foundation::NSRunLoop::Scope current(&container_->runLoop());
    const std::shared_ptr<UIView> faded = style_->fadedView(container_);
    if (animated) {
        faded->setAlpha(0.0);
    }
    UIView::animateWithDuration(
        animated ? fadeDuration : 0.0, 0.0, UIViewAnimationOptionCurveEaseOut,
        [&faded] { faded->setAlpha(1.0); }, afterAnimation(std::move(completion)));
}

bool Presentation::tryToShow() {
    try {
        return prepareAndShow();
    } catch (...) {
        end();
        throw;
    }
}

bool Presentation::prepareAndShow() {
    const std::shared_ptr<PresentationStyle> style = style_;
    style->prepare(shared_from_this());
    const std::shared_ptr<UIView> content = state_ == State::Preparing ? style->content() : nullptr;
    const std::shared_ptr<UIView> owner = style->owner();
    const std::shared_ptr<UIWindow> window = owner ? owner->window() : nullptr;
    if (!content || !window || state_ != State::Preparing) {
        return false;
    }
    state_ = State::Shown;
    const auto container = Foundation::make<PresentationView>(
        window->bounds(), std::shared_ptr<PresentationView::Owner>(shared_from_this()));
    container_ = container;
    layOut(content);
    if (state_ != State::Shown || owner->window() != window) {
        return false;
    }
    window->addModalView(container, owner);
    return state_ == State::Shown;
}

void Presentation::layOut() {
    const std::shared_ptr<PresentationStyle> style = style_;
    const std::shared_ptr<UIView> content = isShown() ? style->content() : nullptr;
    if (content && container_) {
        layOut(content);
    }
}

void Presentation::layOut(const std::shared_ptr<UIView>& content) {
    const std::shared_ptr<PresentationStyle> style = style_;
    const std::shared_ptr<UIView> container = container_;
    content_ = content;
    style->layOutContent(*container, content);
    container->layoutIfNeeded();
}

bool Presentation::closeFromOutside() {
    if (!isShown() || !style_->closesFromOutside()) {
        return false;
    }
    dismiss(Cause::Outside, true, nullptr);
    return true;
}

void Presentation::dismiss(Cause cause, bool animated, std::function<void()> completion) {
    const std::shared_ptr<Presentation> alive = shared_from_this();
    const Foundation::NSRunLoop::Scope current(container_ ? &container_->runLoop() : nullptr);
    if (isShown()) {
        cause_ = cause;
    }
    if (completion) {
        completions_.push_back(std::move(completion));
    }
    if (isShown() && animated) {
        fadeOut();
    } else if (!isDismissing() || !animated) {
        end();
        if (!completions_.empty()) {
            callSoon([alive] { alive->complete(); });
        }
    }
}

void Presentation::fadeOut() {
    state_ = State::Dismissing;
    UIView::animateWithDuration(
        fadeDuration, 0.0, UIViewAnimationOptionCurveEaseIn,
        [faded = style_->fadedView(container_)] { faded->setAlpha(0.0); },
        [alive = shared_from_this(), presented = presented_](bool /*finished*/) {
            alive->end();
            alive->complete();
        });
    stopTouches();
}

// What is down on it would choose something after it was dismissed.
void Presentation::stopTouches() {
    const std::shared_ptr<PresentationView> container = container_;
    container->setUserInteractionEnabled(false);
    if (const std::shared_ptr<UIWindow> window = container->window()) {
        window->cancelTouchesIn(*container);
    }
}

void Presentation::complete() {
    std::deque<std::function<void()>> completions = std::exchange(completions_, {});
    while (!completions.empty()) {
        const std::function<void()> completion = std::move(completions.front());
        completions.pop_front();
        try {
            completion();
        } catch (...) {
            completions_.swap(completions);
            std::move(completions.begin(), completions.end(), std::back_inserter(completions_));
            callSoon([alive = shared_from_this()] { alive->complete(); });
            throw;
        }
    }
}

void Presentation::end() {
    if (std::exchange(state_, State::Over) == State::Over) {
        return;
    }
    const std::shared_ptr<Presentation> alive = shared_from_this();
    const std::shared_ptr<UIViewController> presented = std::exchange(presented_, nullptr);
    const std::shared_ptr<PresentationStyle> style = std::exchange(style_, nullptr);
    const std::shared_ptr<PresentationView> container = std::exchange(container_, nullptr);
    if (container) {
        container->removeFromSuperview();
    }
    const std::shared_ptr<UIView> content = content_.lock();
    if (content && container && content->isDescendantOfView(*container)) {
        content->removeFromSuperview();
    }
    if (cause_ == Cause::Outside) {
        style->didDismissFromOutside();
    }
}

} // namespace UIKit
