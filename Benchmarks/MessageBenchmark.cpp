#include "Benchmarks/Measures.h"
#include "Benchmarks/MessageTarget.h"
#include "Platform/Foundation/Message.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;
using Foundation::make;
using Foundation::SEL;

void callVirtual(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    MessageTarget* receiver = target.get();
    benchmark::DoNotOptimize(receiver);
    measureMessages(state, [receiver] { receiver->hide(); });
}
BENCHMARK(callVirtual)->Name("message by selector/virtual call");

void sendBySelector(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    const SEL hide("hide");
    measureMessages(state, [&] { target->send(hide); });
}
BENCHMARK(sendBySelector)->Name("message by selector/KivUICore");

void sendByString(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    measureMessages(state, [&] { target->send("hide"); });
}
BENCHMARK(sendByString)->Name("message by string/KivUICore");

void sendNumber(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    const SEL seek("seekTo:");
    measureMessages(state, [&] { target->send(seek, 1.5); });
}
BENCHMARK(sendNumber)->Name("message with a number/KivUICore");

void sendObject(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    const auto other = make<MessageTarget>();
    const SEL follow("follow:");
    measureMessages(state, [&] { target->send(follow, other); });
}
BENCHMARK(sendObject)->Name("message with an object/KivUICore");

} // namespace
