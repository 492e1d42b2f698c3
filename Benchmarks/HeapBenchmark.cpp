#include "Benchmarks/HeapMeter.h"
#include "Benchmarks/ImGuiOverlay.h"
#include "Benchmarks/Overlay.h"
#include "Benchmarks/QtOverlay.h"
#include "Hosts/Headless/HeadlessHost.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;
using Foundation::make;

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

void viewTree(benchmark::State& state) {
    const KivUICore::Headless::HeadlessHost host({1280.0, 720.0});
    const auto player = make<KivCore::KivPlayer>();
    struct Tree {
        std::shared_ptr<UIKit::UIWindow> window;
        Overlay overlay;
    };
    measureOverlay(state, [&] {
        auto window = make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, 1280.0, 720.0));
        return std::make_unique<Tree>(Tree{window, Overlay(window, player)});
    });
}
BENCHMARK(viewTree)->Name("overlay made/KivUICore");

void qtWidgets(benchmark::State& state) {
    QtOverlay::prepare();
    measureOverlay(state, [] { return std::make_unique<QtOverlay>(); });
}
BENCHMARK(qtWidgets)->Name("overlay made/Qt Widgets");

void imGuiContext(benchmark::State& state) {
    measureOverlay(state, [] {
        auto overlay = std::make_unique<ImGuiOverlay>();
        overlay->frame(0.0F);
        return overlay;
    });
}
BENCHMARK(imGuiContext)->Name("overlay made/Dear ImGui");

} // namespace
