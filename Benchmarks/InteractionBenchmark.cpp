#include "Benchmarks/Inputs.h"
#include "Benchmarks/SeekObserver.h"
#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"

#include <array>
#include <benchmark/benchmark.h>
#include <charconv>
#include <string_view>

namespace {

using namespace Benchmarks;
using namespace CoreGraphics;
using Foundation::make;

constexpr CGSize screen{screenWidth, screenHeight};

void dragSlider(benchmark::State& state) {
    KivUICore::Headless::HeadlessHost host(screen);
    const auto slider = make<UIKit::UISlider>();
    slider->setMaximumValue(100.0F);
    slider->setValue(50.0F);
    const auto observer = make<SeekObserver>();
    const auto bar = make<KivUICore::BottomBar>(host.window());
    bar->addElementToView(make<KivUICore::SeekBar>(slider, observer, make<KivCore::KivPlayer>()), 12);
    const CGFloat y = screen.height - KivUICore::KivBar::barHeight() / 2.0;
    host.touchDown({screen.width / 2.0, y});
    Alternation alternation;
    for (auto _ : state) {
        host.touchMove({handlePositions[alternation.next() ? 1 : 0], y});
    }
    state.counters["told"] =
        static_cast<double>(observer->changes()) / static_cast<double>(state.iterations());
}
BENCHMARK(dragSlider)->Name("pointer moved on a held slider/KivUICore");

void relayoutBar(benchmark::State& state) {
    KivUICore::Headless::HeadlessHost host(screen);
    const auto bar = make<KivUICore::BottomBar>(host.window());
    for (std::int64_t slot = 0; slot < state.range(); ++slot) {
        bar->view()->addSubview(make<UIKit::UIView>());
    }
    Alternation alternation;
    for (auto _ : state) {
        const CGFloat width = alternation.next() ? screen.width / 2.0 : screen.width;
        bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, width, screen.height));
        host.runLoop().turn();
    }
    state.SetComplexityN(state.range());
}
BENCHMARK(relayoutBar)->Name("bar laid out anew/KivUICore")->ArgName("slots")->Arg(5)->Arg(100)->Arg(10000);

void updateLabel(benchmark::State& state) {
    const KivUICore::Headless::HeadlessHost host(screen);
    const auto view = make<UIKit::UILabel>(CGRectMake(0.0, 0.0, 100.0, 40.0));
    host.window()->addSubview(view);
    const auto label = make<KivUICore::Label>(view, nullptr);
    float time = 0.0F;
    for (auto _ : state) {
        time = nextTime(time);
        label->updateLabelWithTime(time);
    }
}
BENCHMARK(updateLabel)->Name("time text shown/KivUICore");

/// Text for a number of seconds, made by hand.
class TimeText {
public:
    explicit TimeText(float time) {
        const auto seconds = static_cast<std::int64_t>(time);
        if (seconds >= 3600) {
            append(seconds / 3600);
            *end_++ = ':';
        }
        append(seconds % 3600 / 60);
        *end_++ = ':';
        append(seconds % 60);
    }

    std::string_view view() const {
        return {buffer_.data(), static_cast<std::size_t>(end_ - buffer_.data())};
    }

private:
    void append(std::int64_t part) {
        if (part < 10) {
            *end_++ = '0';
        }
        end_ = std::to_chars(end_, buffer_.data() + buffer_.size(), part).ptr;
    }

    std::array<char, 64> buffer_{};
    char* end_ = buffer_.data();
};

void writeTime(benchmark::State& state) {
    float time = 0.0F;
    for (auto _ : state) {
        time = nextTime(time);
        TimeText text(time);
        benchmark::DoNotOptimize(text.view());
    }
}
BENCHMARK(writeTime)->Name("time text shown/to_chars, not shown");

void writeAndShowTime(benchmark::State& state) {
    const KivUICore::Headless::HeadlessHost host(screen);
    const auto view = make<UIKit::UILabel>(CGRectMake(0.0, 0.0, 100.0, 40.0));
    host.window()->addSubview(view);
    float time = 0.0F;
    for (auto _ : state) {
        time = nextTime(time);
        view->setText(std::string(TimeText(time).view()));
    }
}
BENCHMARK(writeAndShowTime)->Name("time text shown/to_chars, setText");

} // namespace
