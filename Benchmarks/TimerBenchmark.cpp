#include "Benchmarks/Overlay.h"
#include "Hosts/Headless/VirtualClock.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/NSTimer.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <deque>
#include <memory>
#include <random>
#include <uv.h>
#include <vector>

namespace {

using Foundation::make;
using Foundation::NSObject;
using Foundation::NSTimer;

// Delays in milliseconds, libuv's unit. What is re-armed goes to the middle of them.
constexpr std::uint64_t longestDelay = 20000;
constexpr std::uint64_t delay = longestDelay / 2;
constexpr double millisecond = 0.001;

std::vector<std::uint64_t> delays(std::int64_t count) {
    std::mt19937 generator(1);
    std::uniform_int_distribution<std::uint64_t> distribution(1, longestDelay);
    std::vector<std::uint64_t> result(static_cast<std::size_t>(count));
    for (std::uint64_t& each : result) {
        each = distribution(generator);
    }
    return result;
}

/// A run loop at a standstill, as libuv's is between its own readings of the clock.
class Timers {
public:
    explicit Timers(std::int64_t count) : target_(make<NSObject>()) {
        for (const std::uint64_t each : delays(count)) {
            timers_.push_back(schedule(static_cast<double>(each) * millisecond));
        }
    }

    const std::vector<std::shared_ptr<NSTimer>>& all() const { return timers_; }
    double now() const { return loop_.now(); }

    std::shared_ptr<NSTimer> schedule(double interval) {
        return NSTimer::scheduledTimerWithTimeInterval(interval, target_, action_, nullptr, false);
    }

private:
    KivUICore::Headless::VirtualClock clock_;
    Foundation::NSRunLoop loop_{clock_};
    std::shared_ptr<NSObject> target_;
    Foundation::SEL action_{"hide"};
    std::vector<std::shared_ptr<NSTimer>> timers_;
};

class LibuvTimers {
public:
    explicit LibuvTimers(std::int64_t count) {
        uv_loop_init(&loop_);
        for (const std::uint64_t each : delays(count)) {
            uv_timer_init(&loop_, &timers_.emplace_back());
            start(timers_.back(), each);
        }
    }
    LibuvTimers(const LibuvTimers&) = delete;
    LibuvTimers& operator=(const LibuvTimers&) = delete;
    ~LibuvTimers() {
        for (uv_timer_t& timer : timers_) {
            uv_close(reinterpret_cast<uv_handle_t*>(&timer), nullptr);
        }
        uv_run(&loop_, UV_RUN_DEFAULT);
        uv_loop_close(&loop_);
    }

    std::deque<uv_timer_t>& all() { return timers_; }

    static void start(uv_timer_t& timer, std::uint64_t timeout) {
        uv_timer_start(
            &timer, [](uv_timer_t*) {}, timeout, delay);
    }

private:
    uv_loop_t loop_{};
    std::deque<uv_timer_t> timers_;
};

void setFireDate(benchmark::State& state) {
    Timers timers(state.range());
    const auto timer = timers.all().front();
    for (auto _ : state) {
        timer->setFireDate(timers.now() + static_cast<double>(delay) * millisecond);
    }
}
BENCHMARK(setFireDate)->Name("timer re-armed/KivUICore")->ArgName("pending")->Arg(10)->Arg(100000);

void timerAgain(benchmark::State& state) {
    LibuvTimers timers(state.range());
    uv_timer_t& timer = timers.all().front();
    for (auto _ : state) {
        uv_timer_again(&timer);
    }
}
BENCHMARK(timerAgain)->Name("timer re-armed/libuv again")->ArgName("pending")->Arg(10)->Arg(100000);

void setEachFireDate(benchmark::State& state) {
    Timers timers(state.range());
    std::size_t next = 0;
    for (auto _ : state) {
        timers.all()[next]->setFireDate(timers.now() + static_cast<double>(delay) * millisecond);
        next = next + 1 < timers.all().size() ? next + 1 : 0;
    }
}
BENCHMARK(setEachFireDate)
    ->Name("timers re-armed in turn/KivUICore")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

void eachTimerAgain(benchmark::State& state) {
    LibuvTimers timers(state.range());
    std::size_t next = 0;
    for (auto _ : state) {
        uv_timer_again(&timers.all()[next]);
        next = next + 1 < timers.all().size() ? next + 1 : 0;
    }
}
BENCHMARK(eachTimerAgain)
    ->Name("timers re-armed in turn/libuv again")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

void invalidateAndSchedule(benchmark::State& state) {
    Timers timers(state.range());
    auto timer = timers.all().front();
    for (auto _ : state) {
        timer->invalidate();
        timer = timers.schedule(static_cast<double>(delay) * millisecond);
    }
}
BENCHMARK(invalidateAndSchedule)
    ->Name("timer scheduled anew/KivUICore")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

void stopAndStart(benchmark::State& state) {
    LibuvTimers timers(state.range());
    uv_timer_t& timer = timers.all().front();
    for (auto _ : state) {
        uv_timer_stop(&timer);
        LibuvTimers::start(timer, delay);
    }
}
BENCHMARK(stopAndStart)
    ->Name("timer scheduled anew/libuv stop, start")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

// What a bar does at every sign of activity.
void resetAutoHide(benchmark::State& state) {
    Timers timers(state.range());
    const Benchmarks::Overlay overlay(
        make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, 1280.0, 720.0)), make<KivCore::KivPlayer>());
    overlay.bottomBar()->setDelay(static_cast<double>(delay) * millisecond);
    for (auto _ : state) {
        overlay.bottomBar()->resetAutoHide();
    }
}
BENCHMARK(resetAutoHide)->Name("bar's countdown reset/KivUICore")->ArgName("pending")->Arg(10)->Arg(100000);
BENCHMARK(stopAndStart)
    ->Name("bar's countdown reset/libuv stop, start")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

} // namespace
