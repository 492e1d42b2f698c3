#include "Platform/UIKit/Animation/Animator.h"

#include "Platform/Foundation/ScopeExit.h"
#include "Platform/UIKit/Animation/AnimatedObject.h"
#include "Platform/UIKit/Animation/AnimationGroup.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace UIKit {

// One animations closure that is running. They nest on the one thread, whatever the loop.
class AnimationRecording {
public:
    AnimationRecording(double duration, double delay, UIViewAnimationOptions options,
                       std::function<void(bool)> completion, AnimationRecording* outer)
        // What would take for ever never begins.
        : outer_(outer), wait_(std::isinf(duration) && duration > 0.0 ? duration
                               : delay > 0.0                          ? delay
                                                                      : 0.0),
          duration_(duration > 0.0 ? duration : 0.0),
          curve_(animationCurve(options)), first_{&Animator::current(), makeGroup(std::move(completion))} {
        first_.animator->begin(first_.group, wait_);
    }

    AnimationRecording* outer() const { return outer_; }

    bool takesTime() const { return duration_ > 0.0 || wait_ > 0.0; }

    // The completion goes with the first view: its loop is the one that the caller's clock turns.
    const std::shared_ptr<AnimationGroup>& groupFor(Animator& animator) {
        if (!std::exchange(hasChanges_, true) && first_.animator != &animator) {
            giveFirstTo(animator);
        }
        if (first_.animator == &animator) {
            return first_.group;
        }
        const auto found = std::find_if(others_.begin(), others_.end(), [&animator](const Entry& each) {
            return each.animator == &animator;
        });
        if (found != others_.end()) {
            return found->group;
        }
        others_.push_back({&animator, makeGroup(nullptr)});
        animator.begin(others_.back().group, wait_);
        return others_.back().group;
    }

    // Its loop is destroyed from inside the closure.
    void forget(const Animator& animator) {
        first_.animator = first_.animator == &animator ? nullptr : first_.animator;
        std::erase_if(others_, [&animator](const Entry& each) { return each.animator == &animator; });
    }

private:
    struct Entry {
        Animator* animator;
        std::shared_ptr<AnimationGroup> group;
    };

    std::shared_ptr<AnimationGroup> makeGroup(std::function<void(bool)> completion) const {
        return std::make_shared<AnimationGroup>(duration_, curve_, std::move(completion));
    }

    void giveFirstTo(Animator& animator) {
        if (first_.animator) {
            std::erase(first_.animator->groups_, first_.group);
        }
        first_.animator = &animator;
        animator.begin(first_.group, wait_);
    }

    AnimationRecording* outer_;
    double wait_;
    double duration_;
    AnimationCurve curve_;
    Entry first_;
    std::vector<Entry> others_;
    bool hasChanges_ = false;
};

namespace {

// Nothing outside every animations closure.
AnimationRecording* recording = nullptr;

} // namespace

Animator::Animator(Foundation::NSRunLoop& loop) : loop_(loop), presentationTime_(loop.now()) {}

// A view holds its groups, and a completion often holds a view.
Animator::~Animator() {
    moveTo(std::numeric_limits<double>::infinity());
    for (const std::shared_ptr<AnimationGroup>& group : groups_) {
        finish(*group);
    }
    for (AnimationRecording* each = recording; each; each = each->outer()) {
        each->forget(*this);
    }
}

Animator& Animator::current() { return Foundation::NSRunLoop::currentRunLoop().source<Animator>(); }

bool Animator::isRecording() { return recording != nullptr; }

std::shared_ptr<AnimationGroup> Animator::recordingGroup(Foundation::NSRunLoop& loop) {
    const std::shared_ptr<AnimationGroup>& group = recording->groupFor(loop.source<Animator>());
    return recording->takesTime() ? group : nullptr;
}

void Animator::animate(double duration, double delay, UIViewAnimationOptions options,
                       const std::function<void()>& animations, std::function<void(bool)> completion) {
    AnimationRecording own(duration, delay, options, std::move(completion), recording);
    recording = &own;
    const Foundation::ScopeExit end([&own] { recording = own.outer(); });
    if (animations) {
        animations();
    }
}

void Animator::begin(const std::shared_ptr<AnimationGroup>& group, double wait) {
    // What shows before the changes is what shows now, not what the last turn left.
    moveTo(loop_.now());
    group->begin(presentationTime_ + wait);
    group->moveTo(presentationTime_);
    groups_.push_back(group);
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
        for (const std::weak_ptr<AnimatedObject>& each : group->views()) {
            if (const std::shared_ptr<AnimatedObject> view = each.lock()) {
                view->presentationMoves(*group);
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
    for (const std::weak_ptr<AnimatedObject>& each : group.views()) {
        if (const std::shared_ptr<AnimatedObject> view = each.lock()) {
            view->animationsEnded(group);
        }
    }
}

} // namespace UIKit
