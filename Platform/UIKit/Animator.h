#pragma once

#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/AnimationCurve.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace UIKit {

class UIView;

/// What can travel. `Value` is a number that a subclass of a view animates for itself.
enum class AnimatedProperty { Alpha, Box, BoundsOrigin, Transform, BackgroundColor, Value };

/// A property's value as numbers; the unused ones are 0.
using AnimatedValues = std::array<double, 6>;

/// One call of animateWithDuration: the time that its changes take, and what is called when they have
/// arrived.
class AnimationGroup {
public:
    AnimationGroup(double start, double duration, AnimationCurve curve, std::function<void(bool)> completion);

    double start() const { return start_; }
    double end() const { return start_ + duration_; }

    /// How far the changes have come in what is shown: eased, from 0 to 1.
    double progress() const { return progress_; }

    void add(const std::shared_ptr<UIView>& view);

    /// One of the changes ends early: another animation took the property over, or its view is gone.
    void interrupt();

private:
    friend class Animator;

    bool isRunning(double now) const { return changes_ > 0 && start_ <= now; }
    bool isOver(double now) const { return changes_ == 0 || end() <= now; }
    void moveTo(double now);

    double start_;
    double duration_;
    AnimationCurve curve_;
    std::function<void(bool)> completion_;
    double progress_ = 0.0;
    std::vector<std::weak_ptr<UIView>> views_;
    std::size_t changes_ = 0;
    bool isInterrupted_ = false;
};

/// One property of one view on its way.
struct PropertyAnimation {
    AnimatedProperty property;
    AnimatedValues from;
    AnimatedValues to;
    std::shared_ptr<AnimationGroup> group;

    /// What is shown.
    AnimatedValues values() const;
};

/// Runs the animations of a run loop. What is shown moves on at each of the loop's turns and stands still in
/// between. Those that are under way when the loop goes are there at once, and their completions are let go
/// without a call.
class Animator : public Foundation::NSRunLoop::Source {
public:
    explicit Animator(Foundation::NSRunLoop& loop);
    ~Animator() override;

    void animate(double duration, double delay, UIViewAnimationOptions options,
                 const std::function<void()>& animations, std::function<void(bool)> completion);

    /// The group that changes made at this moment belong to; nothing outside an animations closure, or where
    /// the changes take no time.
    static const std::shared_ptr<AnimationGroup>& recordingGroup();

    std::optional<double> nextWork() const override;
    void turn(double now) override;

private:
    static constexpr double frameInterval = 1.0 / 60.0;

    void moveTo(double now);
    void invalidateRunning(double now);
    void finishOver(double now);
    static void drop(const AnimationGroup& group);

    Foundation::NSRunLoop& loop_;
    double presentationTime_ = 0.0;

    // In the order in which they began.
    std::vector<std::shared_ptr<AnimationGroup>> groups_;
};

} // namespace UIKit
