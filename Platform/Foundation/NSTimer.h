#pragma once

#include "Platform/Foundation/Block.h"
#include "Platform/Foundation/NSObject.h"
#include "Platform/Foundation/NSRunLoop.h"

#include <memory>

namespace Foundation {

/// Calls something after an interval, once or repeatedly. While it is scheduled the run loop holds the timer,
/// and the timer holds its target; both are let go when it has fired for the last time or is invalidated. The
/// callback may schedule, invalidate or tear down anything, this timer included.
class NSTimer : public NSObject, private NSRunLoop::Timer {
public:
    static const Class& classObject();

    /// Schedules a timer on the current run loop. `interval` in seconds: zero, negative or not a number fires
    /// on the next turn, an infinite one never. When it fires, `target` is sent `selector`, with the timer as
    /// argument if it takes one.
    static std::shared_ptr<NSTimer>
    scheduledTimerWithTimeInterval(double interval, const std::shared_ptr<NSObject>& target, SEL selector,
                                   const std::shared_ptr<NSObject>& userInfo, bool repeats);

    /// The same with a closure, which is held as a target is.
    static std::shared_ptr<NSTimer> scheduledTimerWithTimeInterval(double interval, bool repeats,
                                                                   Block<void(NSTimer&)>::Closure block);

    /// False once the timer was invalidated or, without repetition, has begun to fire.
    bool isValid() const { return loop_ != nullptr; }

    /// Stops the timer for good. Does nothing to one that isn't valid.
    void invalidate();

    /// As given.
    double timeInterval() const { return interval_; }

    /// The information that the timer was scheduled with; nothing once it is invalidated or has fired for the
    /// last time.
    const std::shared_ptr<NSObject>& userInfo() const { return userInfo_; }

    /// Run loop time at which the timer fires next; not a number once it isn't valid.
    double fireDate() const;

    /// Moves the next firing of a valid timer; a time that has passed, or is not a number, means the next
    /// turn.
    void setFireDate(double time);

private:
    static std::shared_ptr<NSTimer> schedule(double interval, bool repeats);

    void fire() override;
    void loopEnds() override { invalidate(); }
    void scheduleNext();

    double interval_ = 0.0;
    bool repeats_ = false;
    std::shared_ptr<NSObject> target_;
    SEL selector_;
    Block<void(NSTimer&)> block_;
    std::shared_ptr<NSObject> userInfo_;
    NSRunLoop* loop_ = nullptr;

    // The run loop's own reference while the timer is scheduled.
    std::shared_ptr<NSTimer> scheduled_;
};

} // namespace Foundation
