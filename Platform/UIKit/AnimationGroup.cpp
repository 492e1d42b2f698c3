#include "Platform/UIKit/AnimationGroup.h"

#include "Platform/UIKit/UIView.h"

#include <algorithm>
#include <utility>

namespace UIKit {

AnimationGroup::AnimationGroup(double start, double duration, AnimationCurve curve,
                               std::function<void(bool)> completion)
    : start_(start), duration_(duration), curve_(curve), completion_(std::move(completion)) {}

void AnimationGroup::moveTo(double now) {
    if (now >= end()) {
        progress_ = 1.0;
    } else if (now > start_) {
        progress_ = easedProgress(curve_, (now - start_) / duration_);
    }
}

void AnimationGroup::add(const std::shared_ptr<UIView>& view) {
    ++changes_;
    const bool isKnown =
        std::any_of(views_.begin(), views_.end(), [&view](const std::weak_ptr<UIView>& each) {
            return !each.owner_before(view) && !view.owner_before(each);
        });
    if (!isKnown) {
        views_.push_back(view);
    }
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
