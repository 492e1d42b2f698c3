#include "Benchmarks/Inputs.h"
#include "Benchmarks/Measures.h"
#include "Benchmarks/Qt/QtMenu.h"
#include "Benchmarks/Qt/QtOverlay.h"
#include "Benchmarks/Qt/QtRowModel.h"
#include "Benchmarks/Qt/QtTarget.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QSlider>
#include <QTime>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <memory>

namespace {

using namespace Benchmarks;

void sendByString(benchmark::State& state) {
    QtTarget target;
    measureMessages(state, [&] { QMetaObject::invokeMethod(&target, "hide", Qt::DirectConnection); });
}
BENCHMARK(sendByString)->Name("message by string/Qt invokeMethod");

void sendNumber(benchmark::State& state) {
    QtTarget target;
    measureMessages(
        state, [&] { QMetaObject::invokeMethod(&target, "seek", Qt::DirectConnection, Q_ARG(double, 1.5)); });
}
BENCHMARK(sendNumber)->Name("message with a number/Qt invokeMethod");

void sendObject(benchmark::State& state) {
    QtTarget target;
    QtTarget other;
    measureMessages(state, [&] {
        QMetaObject::invokeMethod(&target, "follow", Qt::DirectConnection,
                                  Q_ARG(Benchmarks::QtTarget*, &other));
    });
}
BENCHMARK(sendObject)->Name("message with an object/Qt invokeMethod");

void dragSlider(benchmark::State& state) {
    QtOverlay::prepare();
    QSlider slider(Qt::Horizontal);
    slider.setMaximum(1000);
    slider.setValue(500);
    slider.resize(static_cast<int>(screenWidth), 40);
    double changes = 0.0;
    QObject::connect(&slider, &QSlider::valueChanged, [&changes] { changes += 1.0; });
    const auto send = [&slider](QEvent::Type type, double x, Qt::MouseButton button) {
        const QPointF position(x, 20.0);
        QMouseEvent event(type, position, position, button, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&slider, &event);
    };
    send(QEvent::MouseButtonPress, screenWidth / 2.0, Qt::LeftButton);
    Alternation alternation;
    for (auto _ : state) {
        send(QEvent::MouseMove, handlePositions[alternation.next() ? 1 : 0], Qt::NoButton);
    }
    state.counters["told"] = changes / static_cast<double>(state.iterations());
}
BENCHMARK(dragSlider)->Name("pointer moved on a held slider/Qt QSlider");

void relayoutBox(benchmark::State& state) {
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
            {0, 0, static_cast<int>(alternation.next() ? screenWidth / 2.0 : screenWidth), 40});
    }
}
BENCHMARK(relayoutBox)
    ->Name("bar laid out anew/Qt QHBoxLayout")
    ->ArgName("slots")
    ->Arg(5)
    ->Arg(100)
    ->Arg(10000);

void showTime(benchmark::State& state) {
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
BENCHMARK(showTime)->Name("time text shown/Qt QTime, QLabel");

template <int rows>
void showMenu(benchmark::State& state) {
    QtOverlay::prepare();
    QtRowModel model(rows);
    measureMenu(state, [&] { return std::make_unique<QtMenu>(model); });
}

BENCHMARK(showMenu<10>)->Name("menu shown, 10 rows/Qt Widgets");
BENCHMARK(showMenu<10'000>)->Name("menu shown, 10,000 rows/Qt Widgets");
BENCHMARK(showMenu<1'000'000>)->Name("menu shown, 1,000,000 rows/Qt Widgets");

void makeOverlay(benchmark::State& state) {
    QtOverlay::prepare();
    measureOverlay(state, [] { return std::make_unique<QtOverlay>(); });
}
BENCHMARK(makeOverlay)->Name("overlay made/Qt Widgets");

} // namespace
