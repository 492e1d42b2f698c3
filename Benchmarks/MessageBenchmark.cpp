#include "Benchmarks/MessageTarget.h"
#include "Benchmarks/ObjectiveCTarget.h"
#include "Benchmarks/QtTarget.h"
#include "Platform/Foundation/Message.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;
using Foundation::make;
using Foundation::SEL;

// Objective-C sends from a loop of its own, so all do.
constexpr long batch = 1024;

template <class Send>
void measureEach(benchmark::State& state, Send send) {
    while (state.KeepRunningBatch(batch)) {
        for (long i = 0; i < batch; ++i) {
            send();
        }
    }
}

void callVirtual(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    MessageTarget* receiver = target.get();
    benchmark::DoNotOptimize(receiver);
    measureEach(state, [receiver] { receiver->hide(); });
}
BENCHMARK(callVirtual)->Name("message by selector/virtual call");

void sendBySelector(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    const SEL hide("hide");
    measureEach(state, [&] { target->send(hide); });
}
BENCHMARK(sendBySelector)->Name("message by selector/KivUICore");

void sendBySelectorInObjectiveC(benchmark::State& state) {
    void* const target = objectiveCTarget();
    while (state.KeepRunningBatch(batch)) {
        sendHide(target, batch);
    }
}
BENCHMARK(sendBySelectorInObjectiveC)->Name("message by selector/libobjc");

void sendByString(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    measureEach(state, [&] { target->send("hide"); });
}
BENCHMARK(sendByString)->Name("message by string/KivUICore");

void sendByStringInQt(benchmark::State& state) {
    QtTarget target;
    measureEach(state, [&] { QMetaObject::invokeMethod(&target, "hide", Qt::DirectConnection); });
}
BENCHMARK(sendByStringInQt)->Name("message by string/Qt invokeMethod");

void sendByStringInObjectiveC(benchmark::State& state) {
    void* const target = objectiveCTarget();
    while (state.KeepRunningBatch(batch)) {
        sendHideByName(target, batch, "hide");
    }
}
BENCHMARK(sendByStringInObjectiveC)->Name("message by string/libobjc");

void sendNumber(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    const SEL seek("seekTo:");
    measureEach(state, [&] { target->send(seek, 1.5); });
}
BENCHMARK(sendNumber)->Name("message with a number/KivUICore");

void sendNumberInObjectiveC(benchmark::State& state) {
    void* const target = objectiveCTarget();
    while (state.KeepRunningBatch(batch)) {
        sendSeek(target, batch, 1.5);
    }
}
BENCHMARK(sendNumberInObjectiveC)->Name("message with a number/libobjc");

void sendNumberInQt(benchmark::State& state) {
    QtTarget target;
    measureEach(
        state, [&] { QMetaObject::invokeMethod(&target, "seek", Qt::DirectConnection, Q_ARG(double, 1.5)); });
}
BENCHMARK(sendNumberInQt)->Name("message with a number/Qt invokeMethod");

void sendObject(benchmark::State& state) {
    const auto target = make<MessageTarget>();
    const auto other = make<MessageTarget>();
    const SEL follow("follow:");
    measureEach(state, [&] { target->send(follow, other); });
}
BENCHMARK(sendObject)->Name("message with an object/KivUICore");

void sendObjectInObjectiveC(benchmark::State& state) {
    void* const target = objectiveCTarget();
    void* const other = objectiveCTarget();
    while (state.KeepRunningBatch(batch)) {
        sendFollow(target, batch, other);
    }
}
BENCHMARK(sendObjectInObjectiveC)->Name("message with an object/libobjc");

void sendObjectInQt(benchmark::State& state) {
    QtTarget target;
    QtTarget other;
    measureEach(state, [&] {
        QMetaObject::invokeMethod(&target, "follow", Qt::DirectConnection,
                                  Q_ARG(Benchmarks::QtTarget*, &other));
    });
}
BENCHMARK(sendObjectInQt)->Name("message with an object/Qt invokeMethod");

} // namespace
