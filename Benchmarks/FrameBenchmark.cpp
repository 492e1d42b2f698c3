#include "Benchmarks/Inputs.h"
#include "Benchmarks/Measures.h"
#include "Benchmarks/NullContext.h"
#include "Benchmarks/Overlay.h"
#include "Hosts/Headless/HeadlessHost.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;
using Foundation::make;

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
    KivUICore::Headless::HeadlessHost host_{{screenWidth, screenHeight}};
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

} // namespace
