#include "Platform/Foundation/NSTimer.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/ScopeExit.h"

#include <cmath>
#include <limits>
#include <utility>

namespace Foundation {

const Class& NSTimer::classObject() {
    static const Class& object = ClassBuilder<NSTimer, NSObject>("Foundation.NSTimer")
                                     .method<&NSTimer::invalidate>("invalidate")
                                     .property<&NSTimer::isValid>("isValid")
                                     .property<&NSTimer::timeInterval>("timeInterval")
                                     .property<&NSTimer::userInfo>("userInfo")
                                     .property<&NSTimer::fireDate, &NSTimer::setFireDate>("fireDate")
                                     .build();
    return object;
}

std::shared_ptr<NSTimer> NSTimer::scheduledTimerWithTimeInterval(double interval,
                                                                 const std::shared_ptr<NSObject>& target,
                                                                 SEL selector,
                                                                 const std::shared_ptr<NSObject>& userInfo,
                                                                 bool repeats) {
    std::shared_ptr<NSTimer> timer = schedule(interval, repeats);
    timer->target_ = target;
    timer->selector_ = selector;
    timer->userInfo_ = userInfo;
    return timer;
}

std::shared_ptr<NSTimer> NSTimer::scheduledTimerWithTimeInterval(double interval, bool repeats,
                                                                 Block<void(NSTimer&)>::Closure block) {
    std::shared_ptr<NSTimer> timer = schedule(interval, repeats);
    timer->block_ = std::move(block);
    return timer;
}

std::shared_ptr<NSTimer> NSTimer::schedule(double interval, bool repeats) {
    NSRunLoop& loop = NSRunLoop::currentRunLoop();
    std::shared_ptr<NSTimer> timer = make<NSTimer>();
    timer->interval_ = interval;
    timer->repeats_ = repeats;
    timer->loop_ = &loop;
    timer->scheduled_ = timer;
    timer->enqueue(loop, loop.now() + interval);
    return timer;
}

void NSTimer::invalidate() {
    if (!loop_) {
        return;
    }
    dequeue(*std::exchange(loop_, nullptr));
    // They go when all else is settled: any of them may be the last reference, to this timer too.
    const auto target = std::move(target_);
    const auto block = std::exchange(block_, {});
    const auto userInfo = std::move(userInfo_);
    const auto scheduled = std::move(scheduled_);
}

double NSTimer::fireDate() const { return loop_ ? deadline() : std::numeric_limits<double>::quiet_NaN(); }

void NSTimer::setFireDate(double time) {
    if (loop_) {
        dequeue(*loop_);
        enqueue(*loop_, time);
    }
}

void NSTimer::fire() {
    const std::shared_ptr<NSTimer> timer = scheduled_;
    const std::shared_ptr<NSObject> target = target_;
    const auto block = block_;
    const std::shared_ptr<NSObject> userInfo = userInfo_;
    if (repeats_) {
        scheduleNext();
    } else {
        invalidate();
        userInfo_ = userInfo;
    }
    const ScopeExit end([this] {
        if (!isValid()) {
            userInfo_ = nullptr;
        }
    });
    if (block) {
        block(*this);
    } else if (target && selector_.argumentCount() > 0) {
        target->send(selector_, timer);
    } else if (target) {
        target->send(selector_);
    }
}

// The next firing keeps to the grid of the first; those that a slow turn or a jumping clock has missed are
// left out.
void NSTimer::scheduleNext() {
    const double now = loop_->now();
    double next = deadline() + interval_;
    if (next <= now && interval_ > 0.0) {
        next = now + (interval_ - std::fmod(now - deadline(), interval_));
    }
    setFireDate(next);
}

} // namespace Foundation
