#include "Benchmarks/Inputs.h"

#include <benchmark/benchmark.h>
#include <cstddef>
#include <deque>
#include <uv.h>

namespace {

using namespace Benchmarks;

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
            &timer, [](uv_timer_t*) {}, timeout, middleDelay);
    }

private:
    uv_loop_t loop_{};
    std::deque<uv_timer_t> timers_;
};

void timerAgain(benchmark::State& state) {
    LibuvTimers timers(state.range());
    uv_timer_t& timer = timers.all().front();
    for (auto _ : state) {
        uv_timer_again(&timer);
    }
}
BENCHMARK(timerAgain)->Name("timer re-armed/libuv again")->ArgName("pending")->Arg(10)->Arg(100000);

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

void stopAndStart(benchmark::State& state) {
    LibuvTimers timers(state.range());
    uv_timer_t& timer = timers.all().front();
    for (auto _ : state) {
        uv_timer_stop(&timer);
        LibuvTimers::start(timer, middleDelay);
    }
}
BENCHMARK(stopAndStart)
    ->Name("timer scheduled anew/libuv stop, start")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);
BENCHMARK(stopAndStart)
    ->Name("bar's countdown reset/libuv stop, start")
    ->ArgName("pending")
    ->Arg(10)
    ->Arg(100000);

} // namespace
