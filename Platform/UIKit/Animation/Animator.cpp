#include "Platform/UIKit/Animation/Animator.h"

#include "Platform/Foundation/ScopeExit.h"
#include "Platform/UIKit/Animation/AnimationGroup.h"
#include "Platform/UIKit/UIView.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace UIKit {

using Foundation::NSObject;

namespace {

// Empty outside every animations closure. One for all loops: closures nest on the one thread, whatever the
// loop.
std::shared_ptr<AnimationGroup> recording;

} // namespace

Animator::Animator(Foundation::NSRunLoop& loop) : loop_(loop), presentationTime_(loop.now()) {}

// A view holds its groups, and a completion often holds a view.
Animator::~Animator() {
    for (const std::shared_ptr<AnimationGroup>& group : groups_) {
        group->moveTo(std::numeric_limits<double>::infinity());
        finish(*group);
    }
}

const std::shared_ptr<AnimationGroup>& Animator::recordingGroup() { return recording; }

void Animator::animate(double duration, double delay, UIViewAnimationOptions options,
                       const std::function<void()>& animations, std::function<void(bool)> completion) {
    // What shows before the changes is what shows now, not what the last turn left.
    moveTo(loop_.now());
    // What would take for ever never begins.
    const double wait = std::isinf(duration) && duration > 0.0 ? duration : delay > 0.0 ? delay : 0.0;
    const bool takesTime = duration > 0.0 || wait > 0.0;
    auto group = std::make_shared<AnimationGroup>(presentationTime_ + wait, duration > 0.0 ? duration : 0.0,
                                                  animationCurve(options), std::move(completion));
    group->moveTo(presentationTime_);
    groups_.push_back(group);
    const std::shared_ptr<AnimationGroup> outer = std::exchange(recording, takesTime ? group : nullptr);
    const Foundation::ScopeExit end([&outer] { recording = outer; });
    if (animations) {
        animations();
    }
}

std::optional<double> Animator::nextWork() const {
    double next = over_.empty() ? std::numeric_limits<double>::infinity() : presentationTime_;
    for (const std::shared_ptr<AnimationGroup>& group : groups_) {
        if (group->isOver(presentationTime_)) {
            next = std::min(next, presentationTime_);
        } else if (group->isRunning(presentationTime_)) {
            next = std::min({next, group->end(), presentationTime_ + frameInterval});
        } else {
            next = std::min(next, group->start());
        }
    }
    return std::isinf(next) ? std::nullopt : std::optional(next);
}

void Animator::turn(double now) {
    moveTo(now);
    finishOver(now);
    completeOver();
}

void Animator::moveTo(double now) {
    if (now == presentationTime_) {
        return;
    }
    invalidateRunning(now);
    presentationTime_ = now;
    for (const std::shared_ptr<AnimationGroup>& group : groups_) {
        group->moveTo(now);
    }
    invalidateRunning(now);
}

// Called before and after the presentation moves: what is left and what is reached must both be drawn again.
void Animator::invalidateRunning(double now) {
    for (const std::shared_ptr<AnimationGroup>& group : groups_) {
        if (!group->isRunning(now)) {
            continue;
        }
        for (const std::weak_ptr<NSObject>& each : group->views()) {
            const auto view = std::static_pointer_cast<UIView>(each.lock());
            if (view && view->animations_.hasAnyOf(*group)) {
                view->invalidateExtent();
            }
        }
    }
}

void Animator::finishOver(double now) {
    const auto isOver = [now](const std::shared_ptr<AnimationGroup>& group) { return group->isOver(now); };
    std::copy_if(groups_.begin(), groups_.end(), std::back_inserter(over_), isOver);
    std::erase_if(groups_, isOver);
    if (over_.size() > 1) {
        std::stable_sort(over_.begin(), over_.end(),
                         [](const auto& a, const auto& b) { return a->end() < b->end(); });
    }
    for (const std::shared_ptr<AnimationGroup>& group : over_) {
        finish(*group);
    }
}

// Completions come last: whatever they start or tear down, this turn touches nothing of it any more. Those
// that an exception keeps from being called have the next turn.
void Animator::completeOver() {
    while (!over_.empty()) {
        const std::shared_ptr<AnimationGroup> group = std::move(over_.front());
        over_.pop_front();
        group->complete();
    }
}

void Animator::finish(const AnimationGroup& group) {
    if (!group.hasChanges()) {
        return;
    }
    for (const std::weak_ptr<NSObject>& each : group.views()) {
        if (const auto view = std::static_pointer_cast<UIView>(each.lock())) {
            view->animations_.finish(group);
        }
    }
}

} // namespace UIKit
