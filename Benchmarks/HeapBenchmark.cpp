#include "Benchmarks/Inputs.h"
#include "Benchmarks/Measures.h"
#include "Benchmarks/Overlay.h"
#include "Hosts/Headless/HeadlessHost.h"

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;
using Foundation::make;

void viewTree(benchmark::State& state) {
    const KivUICore::Headless::HeadlessHost host({screenWidth, screenHeight});
    const auto player = make<KivCore::KivPlayer>();
    struct Tree {
        std::shared_ptr<UIKit::UIWindow> window;
        Overlay overlay;
    };
    measureOverlay(state, [&] {
        auto window = make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, screenWidth, screenHeight));
        return std::make_unique<Tree>(Tree{window, Overlay(window, player)});
    });
}
BENCHMARK(viewTree)->Name("overlay made/KivUICore");

} // namespace
