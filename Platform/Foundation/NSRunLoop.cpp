#include "Platform/Foundation/NSRunLoop.h"

#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/ScopeExit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Foundation {

namespace {

NSRunLoop* current = nullptr;

// In seconds, some thirty years: a longer jump is a mistake of the clock, and would cost time its precision.
constexpr double longestJump = 1e9;

} // namespace

void NSRunLoop::Timer::enqueue(NSRunLoop& loop, double time) {
    loop.timers_.insert(*this, time > loop.now_ ? time : loop.now_);
}

void NSRunLoop::Timer::dequeue(NSRunLoop& loop) { loop.timers_.remove(*this); }

NSRunLoop::NSRunLoop(const Clock& clock) : clock_(clock), previous_(current), origin_(clock.now()) {
    current = this;
}

NSRunLoop::~NSRunLoop() {
    if (isTurning_) {
        fatalError("The run loop is destroyed from inside one of its own turns");
    }
    // While the loop is still the current one: what is let go here may look for it, and may schedule anew.
    while (timers_.first() || !sources_.empty()) {
        if (Timer* timer = firstTimer()) {
            timer->loopEnds();
        } else {
            const std::unique_ptr<Source> source = std::move(sources_.back());
            sources_.pop_back();
        }
    }
    NSRunLoop** link = &current;
    while (*link != this) {
        link = &(*link)->previous_;
    }
    *link = previous_;
}

NSRunLoop& NSRunLoop::currentRunLoop() {
    if (!current) {
        fatalError("There is no run loop: a host makes one before timers and animations are used");
    }
    return *current;
}

double NSRunLoop::now() const {
    if (!isTurning_) {
        const double reading = clock_.now();
        const double time = reading - origin_;
        if (time >= now_ && time - now_ <= longestJump) {
            now_ = time;
        } else if (std::isfinite(reading)) {
            origin_ = reading - now_;
        }
    }
    return now_;
}

std::optional<double> NSRunLoop::timeUntilNextWork() const {
    double next = timers_.first() ? timers_.first()->deadline() : std::numeric_limits<double>::infinity();
    for (const std::unique_ptr<Source>& source : sources_) {
        next = std::min(next, source->nextWork().value_or(next));
    }
    if (std::isinf(next)) {
        return std::nullopt;
    }
    return std::max(0.0, next - now());
}

void NSRunLoop::turn() {
    if (isTurning_) {
        fatalError("The run loop is turned from inside one of its own turns");
    }
    now();
    isTurning_ = true;
    const ScopeExit end([this] { isTurning_ = false; });
    fireTimers();
    turnSources();
}

void NSRunLoop::fireTimers() {
    const std::uint64_t scheduledInThisTurn = timers_.nextOrder();
    for (Timer* timer = firstTimer();
         timer && timer->deadline() <= now_ + tolerance && timer->order() < scheduledInThisTurn;
         timer = firstTimer()) {
        timer->fire();
    }
}

void NSRunLoop::turnSources() {
    // By index: a turn may make a further source.
    for (std::size_t index = 0; index < sources_.size(); ++index) {
        const std::optional<double> due = sources_[index]->nextWork();
        if (due && *due <= now_ + tolerance) {
            sources_[index]->turn(std::max(now_, *due));
        }
    }
}

} // namespace Foundation
