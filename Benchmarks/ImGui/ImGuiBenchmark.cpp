#include "Benchmarks/ImGui/ImGuiOverlay.h"
#include "Benchmarks/Measures.h"

#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace Benchmarks;

void sameFrame(benchmark::State& state) {
    ImGuiOverlay overlay;
    overlay.frame(0.0F);
    measureFrames(state, [&] { benchmark::DoNotOptimize(overlay.frame(0.0F)); });
}
// It builds each frame from nothing, whatever has changed.
BENCHMARK(sameFrame)->Name("frame, everything drawn/Dear ImGui");
BENCHMARK(sameFrame)->Name("frame, nothing changed/Dear ImGui");

void oneLabel(benchmark::State& state) {
    ImGuiOverlay overlay;
    overlay.frame(0.0F);
    float seconds = 0.0F;
    measureFrames(state, [&] {
        seconds = seconds < 99.0F ? seconds + 1.0F : 0.0F;
        benchmark::DoNotOptimize(overlay.frame(seconds));
    });
}
BENCHMARK(oneLabel)->Name("frame, one label changed/Dear ImGui");

void overlayMade(benchmark::State& state) {
    measureOverlay(state, [] {
        auto overlay = std::make_unique<ImGuiOverlay>();
        overlay->frame(0.0F);
        return overlay;
    });
}
BENCHMARK(overlayMade)->Name("overlay made/Dear ImGui");

} // namespace
