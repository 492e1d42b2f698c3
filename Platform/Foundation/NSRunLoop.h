#pragma once

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/TimerQueue.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <typeinfo>
#include <vector>

namespace Foundation {

/// Runs what is due: timers, and sources of work such as animations. A host makes one, which is the current
/// one from then on until it is destroyed (the one before it is current again), and calls `turn` when
/// `timeUntilNextWork` has passed. Where there are several, each is the current one during its turns, and
/// while a Scope says so. Everything happens on the calling thread. Time is the loop's own: it
/// starts at 0 and never goes backwards, whatever the clock does. Readings that are no time are left out, and
/// so are jumps of decades.
class NSRunLoop {
public:
    /// Something besides timers that has work at certain times.
    class Source {
    public:
        virtual ~Source() = default;

        /// Loop time at which the source next has work; nothing while it has none.
        virtual std::optional<double> nextWork() const = 0;

        /// Called once a turn at which the source has work due. `now` is the time of that work where it is
        /// due a little later than the loop's time, and else the loop's. May change anything, the source
        /// itself included.
        virtual void turn(double now) = 0;
    };

    /// What the loop knows of a timer: it is in the queue of one loop, or in none.
    class Timer : protected TimerQueue::Entry {
    protected:
        ~Timer() = default;

        /// `time` is the loop's; one that has passed, or is not a number, means the next turn. The timer
        /// is in no queue.
        void enqueue(NSRunLoop& loop, double time);
        void dequeue(NSRunLoop& loop);

    private:
        friend class NSRunLoop;

        /// The time has come. Leaves the queue, or goes to another place there.
        virtual void fire() = 0;

        /// The loop ends. Leaves the queue.
        virtual void loopEnds() = 0;
    };

    /// Makes a loop the current one for as long as the scope is there. Scopes nest.
    class Scope {
    public:
        /// Changes nothing where there is no loop.
        explicit Scope(NSRunLoop* loop);
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope();

    private:
        friend class NSRunLoop;

        // Cleared when the loop goes first.
        NSRunLoop* loop_;
        Scope* outer_;
        std::uint64_t order_;
    };

    /// What is due in so many seconds is due: times are sums, and rounded. A host that waits until a certain
    /// time thus finds all the work of that time there.
    static constexpr double tolerance = 1e-7;

    /// `clock` outlives the loop.
    explicit NSRunLoop(const Clock& clock);
    NSRunLoop(const NSRunLoop&) = delete;
    NSRunLoop& operator=(const NSRunLoop&) = delete;

    /// Invalidates the timers that are still scheduled. Must not be destroyed from inside a turn.
    ~NSRunLoop();

    /// Of the loops that are alive the one that was made last, or whose scope or turn began last and still
    /// goes on. Without one, a fatal report.
    static NSRunLoop& currentRunLoop();

    /// The same, held weakly; empty without one.
    static std::weak_ptr<NSRunLoop> weakCurrentRunLoop();

    /// Seconds since the loop was made. Stands still during a turn, so that what happens in one turn happens
    /// at one time.
    double now() const;

    /// Seconds until there is something to do, 0 if it is due; nothing while there is no work at all. A host
    /// may block that long.
    std::optional<double> timeUntilNextWork() const;

    /// Fires each timer that is due, in the order of their deadlines and, where these are equal, of their
    /// scheduling; then gives each source its turn. A timer that is scheduled in the meantime waits for the
    /// next turn. Must not be called from inside a turn. An exception that one of them throws passes through;
    /// what was due after it still is.
    void turn();

    /// The loop's one source of type `T`, made with the loop when first asked for.
    template <class T>
    T& source();

private:
    Timer* firstTimer() const { return static_cast<Timer*>(timers_.first()); }
    void fireTimers();
    void turnSources();

    static NSRunLoop* findCurrent();

    const Clock& clock_;
    NSRunLoop* previous_;
    std::uint64_t order_;
    // Owns nothing: what refers to the loop weakly sees by it when the loop goes.
    std::shared_ptr<NSRunLoop> self_;
    // What the clock showed at loop time 0; moved where the clock jumps in a way that time can't.
    mutable double origin_;
    mutable double now_ = 0.0;
    bool isTurning_ = false;
    TimerQueue timers_;
    std::vector<std::unique_ptr<Source>> sources_;
};

template <class T>
T& NSRunLoop::source() {
    for (const std::unique_ptr<Source>& source : sources_) {
        Source& candidate = *source;
        if (typeid(candidate) == typeid(T)) {
            return static_cast<T&>(candidate);
        }
    }
    auto made = std::make_unique<T>(*this);
    T& result = *made;
    sources_.push_back(std::move(made));
    return result;
}

} // namespace Foundation
