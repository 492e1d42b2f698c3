#include "Platform/Foundation/NSRunLoop.h"

#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/ScopeExit.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Foundation {

namespace {

NSRunLoop* newest = nullptr;
NSRunLoop::Scope* innermost = nullptr;

// Of all that makes a loop the current one: the later goes before.
std::uint64_t newestOrder = 0;

// In seconds, some thirty years: a longer jump is a mistake of the clock, and would cost time its precision.
constexpr double longestJump = 1e9;

} // namespace

void NSRunLoop::Timer::enqueue(NSRunLoop& loop, double time) {
    loop.timers_.insert(*this, time > loop.now_ ? time : loop.now_);
}

void NSRunLoop::Timer::dequeue(NSRunLoop& loop) { loop.timers_.remove(*this); }

NSRunLoop::Scope::Scope(NSRunLoop* loop) : loop_(loop), outer_(innermost), order_(++newestOrder) {
    innermost = this;
}

NSRunLoop::Scope::~Scope() { innermost = outer_; }

NSRunLoop::NSRunLoop(const Clock& clock)
    : clock_(clock), previous_(newest), order_(++newestOrder), self_(this, [](NSRunLoop* /*loop*/) {}),
      origin_(clock.now()) {
    newest = this;
}

NSRunLoop::~NSRunLoop() {
    if (isTurning_) {
        fatalError("The run loop is destroyed from inside one of its own turns");
    }
    // What is let go here may look for the loop, and may schedule anew.
    const Scope current(this);
    while (timers_.first() || !sources_.empty()) {
        if (Timer* timer = firstTimer()) {
            timer->loopEnds();
        } else {
            const std::unique_ptr<Source> source = std::move(sources_.back());
            sources_.pop_back();
        }
    }
    self_.reset();
    for (Scope* scope = innermost; scope; scope = scope->outer_) {
        scope->loop_ = scope->loop_ == this ? nullptr : scope->loop_;
    }
    NSRunLoop** link = &newest;
    while (*link != this) {
        link = &(*link)->previous_;
    }
    *link = previous_;
}

NSRunLoop* NSRunLoop::findCurrent() {
    const Scope* scope = innermost;
    while (scope && !scope->loop_) {
        scope = scope->outer_;
    }
    return scope && scope->order_ > newest->order_ ? scope->loop_ : newest;
}

NSRunLoop& NSRunLoop::currentRunLoop() {
    NSRunLoop* current = findCurrent();
    if (!current) {
        fatalError("There is no run loop: a host makes one before timers and animations are used");
    }
    return *current;
}

std::weak_ptr<NSRunLoop> NSRunLoop::weakCurrentRunLoop() {
    const NSRunLoop* current = findCurrent();
    return current ? current->self_ : std::weak_ptr<NSRunLoop>();
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
    const Scope current(this);
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
