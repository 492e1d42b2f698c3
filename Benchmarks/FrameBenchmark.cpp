#include "Benchmarks/HeapMeter.h"
#include "Benchmarks/ImGuiOverlay.h"
#include "Benchmarks/NullContext.h"
#include "Benchmarks/Overlay.h"
#include "Hosts/Headless/HeadlessHost.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;
using Foundation::make;

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

/// The overlay in a window, drawn once already.
class Screen {
public:
    Screen() { display(); }

    UIKit::UIWindow& window() { return *host_.window(); }
    Overlay& overlay() { return overlay_; }

    void display() { window().display(context_); }

    /// What a host does when it wakes up: it runs what is due, draws what has changed, and asks how long it
    /// may sleep.
    std::optional<double> step() {
        host_.runLoop().turn();
        if (window().needsDisplay()) {
            display();
        }
        return host_.runLoop().timeUntilNextWork();
    }

private:
    KivUICore::Headless::HeadlessHost host_{{1280.0, 720.0}};
    Overlay overlay_{host_.window(), make<KivCore::KivPlayer>()};
    NullContext context_;
};

void everything(benchmark::State& state) {
    Screen screen;
    measureFrames(state, [&] {
        screen.window().setNeedsDisplayEverywhere();
        screen.display();
    });
}
BENCHMARK(everything)->Name("frame, everything drawn/KivUICore");

void oneLabel(benchmark::State& state) {
    Screen screen;
    float seconds = 0.0F;
    measureFrames(state, [&] {
        seconds = seconds < 99.0F ? seconds + 1.0F : 0.0F;
        screen.overlay().elapsedTime()->updateLabelWithTime(seconds);
        benchmark::DoNotOptimize(screen.step());
    });
}
BENCHMARK(oneLabel)->Name("frame, one label changed/KivUICore");

void nothing(benchmark::State& state) {
    Screen screen;
    measureFrames(state, [&] { benchmark::DoNotOptimize(screen.step()); });
}
BENCHMARK(nothing)->Name("frame, nothing changed/KivUICore");

void imGui(benchmark::State& state) {
    ImGuiOverlay overlay;
    overlay.frame(0.0F);
    measureFrames(state, [&] { benchmark::DoNotOptimize(overlay.frame(0.0F)); });
}
// It builds each frame from nothing, whatever has changed.
BENCHMARK(imGui)->Name("frame, everything drawn/Dear ImGui");
BENCHMARK(imGui)->Name("frame, nothing changed/Dear ImGui");

void imGuiWithOneLabel(benchmark::State& state) {
    ImGuiOverlay overlay;
    overlay.frame(0.0F);
    float seconds = 0.0F;
    measureFrames(state, [&] {
        seconds = seconds < 99.0F ? seconds + 1.0F : 0.0F;
        benchmark::DoNotOptimize(overlay.frame(seconds));
    });
}
BENCHMARK(imGuiWithOneLabel)->Name("frame, one label changed/Dear ImGui");

} // namespace
