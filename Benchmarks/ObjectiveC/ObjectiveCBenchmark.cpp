#include "Benchmarks/Measures.h"
#include "Benchmarks/ObjectiveC/ObjectiveCTarget.h"

#include <benchmark/benchmark.h>

namespace {

using Benchmarks::messageBatch;

void sendBySelector(benchmark::State& state) {
    void* const target = objectiveCTarget();
    while (state.KeepRunningBatch(messageBatch)) {
        sendHide(target, messageBatch);
    }
}
BENCHMARK(sendBySelector)->Name("message by selector/libobjc");

void sendByString(benchmark::State& state) {
    void* const target = objectiveCTarget();
    while (state.KeepRunningBatch(messageBatch)) {
        sendHideByName(target, messageBatch, "hide");
    }
}
BENCHMARK(sendByString)->Name("message by string/libobjc");

void sendNumber(benchmark::State& state) {
    void* const target = objectiveCTarget();
    while (state.KeepRunningBatch(messageBatch)) {
        sendSeek(target, messageBatch, 1.5);
    }
}
BENCHMARK(sendNumber)->Name("message with a number/libobjc");

void sendObject(benchmark::State& state) {
    void* const target = objectiveCTarget();
    void* const other = objectiveCTarget();
    while (state.KeepRunningBatch(messageBatch)) {
        sendFollow(target, messageBatch, other);
    }
}
BENCHMARK(sendObject)->Name("message with an object/libobjc");

} // namespace
