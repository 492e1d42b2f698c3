#pragma once

#include "Benchmarks/HeapMeter.h"

#include <benchmark/benchmark.h>

// How this project and its peers are measured alike.
namespace Benchmarks {

// Objective-C sends from a loop of its own, so all do.
inline constexpr long messageBatch = 1024;

template <class Send>
void measureMessages(benchmark::State& state, Send send) {
    while (state.KeepRunningBatch(messageBatch)) {
        for (long i = 0; i < messageBatch; ++i) {
            send();
        }
    }
}

/// Measures `frame`, then counts what it does on the heap.
template <class Frame>
void measureFrames(benchmark::State& state, Frame frame) {
    for (auto _ : state) {
        frame();
    }
    constexpr int counted = 1000;
    const HeapMeter meter;
    for (int i = 0; i < counted; ++i) {
        frame();
    }
    state.counters["allocations"] = static_cast<double>(meter.allocations()) / counted;
}

/// Measures `show`, which makes a menu, has it drawn once and gives back what holds it; then what it takes on
/// the heap while it is there.
template <class Show>
void measureMenu(benchmark::State& state, Show show) {
    show();
    for (auto _ : state) {
        benchmark::DoNotOptimize(show());
    }
    const HeapMeter meter;
    const auto shown = show();
    state.counters["bytes"] = static_cast<double>(meter.bytes());
}

/// Measures making the overlay and tearing it down, then what it takes on the heap while it is there. Made
/// for the first time it also fills tables and caches that stay: that one is not counted.
template <class Make>
void measureOverlay(benchmark::State& state, Make makeOverlay) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(makeOverlay());
    }
    const HeapMeter meter;
    const auto overlay = makeOverlay();
    state.counters["bytes"] = static_cast<double>(meter.bytes());
    state.counters["blocks"] = static_cast<double>(meter.blocks());
}

} // namespace Benchmarks
