#pragma once

#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/Animation/AnimationCurve.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace UIKit {

class AnimationGroup;

class AnimationRecording;

/// Runs the animations of a run loop. What is shown moves on at each of the loop's turns and stands still in
/// between. Those that are under way when the loop goes are there at once, and their completions are let go
/// without a call.
class Animator : public Foundation::NSRunLoop::Source {
public:
    explicit Animator(Foundation::NSRunLoop& loop);
    ~Animator() override;

    /// As UIView::animateWithDuration tells.
    static void animate(double duration, double delay, UIViewAnimationOptions options,
                        const std::function<void()>& animations, std::function<void(bool)> completion);

    /// True in an animations closure.
    static bool isRecording();

    /// The group that changes made at this moment belong to, of what `loop` moves; nothing outside an
    /// animations closure, or where the changes take no time.
    static std::shared_ptr<AnimationGroup> recordingGroup(Foundation::NSRunLoop& loop);

    std::optional<double> nextWork() const override;
    void turn(double now) override;

private:
    static Animator& current();

    static constexpr double frameInterval = 1.0 / 60.0;

    friend class AnimationRecording;

    void begin(const std::shared_ptr<AnimationGroup>& group, double wait);
    void moveTo(double now);
    void invalidateRunning(double now);
    void finishOver(double now);
    void completeOver();
    static void finish(const AnimationGroup& group);

    Foundation::NSRunLoop& loop_;
    double presentationTime_ = 0.0;

    // In the order in which they began.
    std::vector<std::shared_ptr<AnimationGroup>> groups_;

    // Whose time has passed, and whose completions are still to be called.
    std::deque<std::shared_ptr<AnimationGroup>> over_;
};

} // namespace UIKit
