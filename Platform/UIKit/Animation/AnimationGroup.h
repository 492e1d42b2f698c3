#pragma once

#include "Platform/UIKit/Animation/AnimationCurve.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace UIKit {

class AnimatedObject;

/// One call of animateWithDuration: the time that its changes take, and what is called when they have
/// arrived.
class AnimationGroup {
public:
    AnimationGroup(double duration, AnimationCurve curve, std::function<void(bool)> completion);

    /// Its changes travel from `start` on, in the time of the loop that moves it.
    void begin(double start);

    double start() const { return start_; }
    double end() const { return start_ + duration_; }

    /// True when changes show between their beginning and their end.
    bool isRunning(double now) const { return changes_ > 0 && start_ <= now; }
    bool isOver(double now) const { return changes_ == 0 || end() <= now; }

    /// Shows what is due at `now`.
    void moveTo(double now);

    /// How far the changes have come in what is shown: eased, from 0 to 1.
    double progress() const { return progress_; }

    /// One more change, of a property of `view`.
    void add(std::weak_ptr<AnimatedObject> view);

    /// One of the changes ends early: another one took the property over, or its view is gone.
    void interrupt();

    /// True while any change is on its way.
    bool hasChanges() const { return changes_ > 0; }

    /// The views that changes were added for, also where these have ended since. One that had others between
    /// its own comes again: telling takes less than searching.
    const std::vector<std::weak_ptr<AnimatedObject>>& views() const { return views_; }

    /// Calls the completion, the first time only.
    void complete();

private:
    double start_ = 0.0;
    double duration_;
    AnimationCurve curve_;
    std::function<void(bool)> completion_;
    double progress_ = 0.0;
    std::vector<std::weak_ptr<AnimatedObject>> views_;
    std::size_t changes_ = 0;
    bool isInterrupted_ = false;
};

} // namespace UIKit
