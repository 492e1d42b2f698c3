#include "Benchmarks/QtOverlay.h"
#include "Benchmarks/SeekObserver.h"
#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QSlider>
#include <QTime>
#include <array>
#include <benchmark/benchmark.h>
#include <charconv>
#include <string_view>

namespace {

using namespace Benchmarks;
using namespace CoreGraphics;
using Foundation::make;

constexpr CGSize screen{1280.0, 720.0};

// Both handles stand in the middle, and each move takes them to the other of these.
constexpr std::array positions{700.0, 800.0};

/// True every other time.
class Alternation {
public:
    bool next() { return isSecond_ = !isSecond_; }

private:
    bool isSecond_ = false;
};

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
        host.touchMove({positions[alternation.next() ? 1 : 0], y});
    }
    state.counters["told"] =
        static_cast<double>(observer->changes()) / static_cast<double>(state.iterations());
}
BENCHMARK(dragSlider)->Name("pointer moved on a held slider/KivUICore");

void dragQtSlider(benchmark::State& state) {
    QtOverlay::prepare();
    QSlider slider(Qt::Horizontal);
    slider.setMaximum(1000);
    slider.setValue(500);
    slider.resize(static_cast<int>(screen.width), 40);
    double changes = 0.0;
    QObject::connect(&slider, &QSlider::valueChanged, [&changes] { changes += 1.0; });
    const auto send = [&slider](QEvent::Type type, double x, Qt::MouseButton button) {
        const QPointF position(x, 20.0);
        QMouseEvent event(type, position, position, button, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&slider, &event);
    };
    send(QEvent::MouseButtonPress, screen.width / 2.0, Qt::LeftButton);
    Alternation alternation;
    for (auto _ : state) {
        send(QEvent::MouseMove, positions[alternation.next() ? 1 : 0], Qt::NoButton);
    }
    state.counters["told"] = changes / static_cast<double>(state.iterations());
}
BENCHMARK(dragQtSlider)->Name("pointer moved on a held slider/Qt QSlider");

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

void relayoutQtBox(benchmark::State& state) {
    QtOverlay::prepare();
    QWidget bar;
    QHBoxLayout layout(&bar);
    layout.setContentsMargins(0, 0, 0, 0);
    layout.setSpacing(0);
    for (std::int64_t slot = 0; slot < state.range(); ++slot) {
        layout.addWidget(new QWidget(&bar), 1);
    }
    layout.activate();
    Alternation alternation;
    for (auto _ : state) {
        layout.setGeometry(
            {0, 0, static_cast<int>(alternation.next() ? screen.width / 2.0 : screen.width), 40});
    }
}
BENCHMARK(relayoutQtBox)
    ->Name("bar laid out anew/Qt QHBoxLayout")
    ->ArgName("slots")
    ->Arg(5)
    ->Arg(100)
    ->Arg(10000);

// Another second each time, with hours every other.
float nextTime(float time) { return time < 7200.0F ? time + 1.0F : 0.0F; }

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

void showTimeInQt(benchmark::State& state) {
    QtOverlay::prepare();
    QLabel label;
    label.resize(100, 40);
    float time = 0.0F;
    for (auto _ : state) {
        time = nextTime(time);
        const QTime text = QTime(0, 0).addSecs(static_cast<int>(time));
        label.setText(text.toString(time < 3600.0F ? "mm:ss" : "hh:mm:ss"));
    }
}
BENCHMARK(showTimeInQt)->Name("time text shown/Qt QTime, QLabel");

} // namespace
