#include "Platform/UIKit/Animation/AnimationGroup.h"

#include "Platform/UIKit/Animation/AnimatedObject.h"

#include <utility>

namespace UIKit {

namespace {

// A bar and its slots.
constexpr std::size_t usualViews = 8;

} // namespace

AnimationGroup::AnimationGroup(double duration, AnimationCurve curve, std::function<void(bool)> completion)
    : duration_(duration), curve_(curve), completion_(std::move(completion)) {}

void AnimationGroup::begin(double start) {
    start_ = start;
    progress_ = 0.0;
}

void AnimationGroup::moveTo(double now) {
    if (now >= end()) {
        progress_ = 1.0;
    } else if (now > start_) {
        progress_ = easedProgress(curve_, (now - start_) / duration_);
    }
}

void AnimationGroup::add(std::weak_ptr<AnimatedObject> view) {
    ++changes_;
    if (views_.empty()) {
        views_.reserve(usualViews);
    } else if (const std::weak_ptr<AnimatedObject>& last = views_.back();
               !last.owner_before(view) && !view.owner_before(last)) {
        return;
    }
    views_.push_back(std::move(view));
}

void AnimationGroup::interrupt() {
    --changes_;
    isInterrupted_ = true;
}

void AnimationGroup::complete() {
    if (const auto completion = std::exchange(completion_, nullptr)) {
        completion(!isInterrupted_);
    }
}

} // namespace UIKit
