#include "Benchmarks/Inputs.h"
#include "Benchmarks/Overlay.h"
#include "Hosts/Headless/VirtualClock.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/Foundation/NSTimer.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <memory>
#include <vector>

namespace {

using namespace Benchmarks;
using Foundation::make;
using Foundation::NSObject;
using Foundation::NSTimer;

constexpr double millisecond = 0.001;

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

void setFireDate(benchmark::State& state) {
    Timers timers(state.range());
    const auto timer = timers.all().front();
    for (auto _ : state) {
        timer->setFireDate(timers.now() + static_cast<double>(middleDelay) * millisecond);
    }
}
BENCHMARK(setFireDate)->Name("timer re-armed/KivUICore")->ArgName("pending")->Arg(10)->Arg(100000);

void setEachFireDate(benchmark::State& state) {
    Timers timers(state.range());
    std::size_t next = 0;
    for (auto _ : state) {
        timers.all()[next]->setFireDate(timers.now() + static_cast<double>(middleDelay) * millisecond);
        next = next + 1 < timers.all().size() ? next + 1 : 0;
    }
}
BENCHMARK(setEachFireDate)
    ->Name("timers re-armed in turn/KivUICore")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

void invalidateAndSchedule(benchmark::State& state) {
    Timers timers(state.range());
    auto timer = timers.all().front();
    for (auto _ : state) {
        timer->invalidate();
        timer = timers.schedule(static_cast<double>(middleDelay) * millisecond);
    }
}
BENCHMARK(invalidateAndSchedule)
    ->Name("timer scheduled anew/KivUICore")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

// What a bar does at every sign of activity.
void resetAutoHide(benchmark::State& state) {
    Timers timers(state.range());
    const Overlay overlay(
        make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, screenWidth, screenHeight)),
        make<KivCore::KivPlayer>());
    overlay.bottomBar()->setDelay(static_cast<double>(middleDelay) * millisecond);
    for (auto _ : state) {
        overlay.bottomBar()->resetAutoHide();
    }
}
BENCHMARK(resetAutoHide)->Name("bar's countdown reset/KivUICore")->ArgName("pending")->Arg(10)->Arg(100000);

} // namespace
