#include "Benchmarks/Qt/QtOverlay.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace Benchmarks {

namespace {

constexpr int barHeight = 40;
constexpr int column = 1280 / 12;

void place(QWidget* widget, int firstColumn, int columns) {
    widget->setGeometry(firstColumn * column, 0, columns * column, barHeight);
}

} // namespace

QtOverlay::QtOverlay() {
    resize(1280, 720);
    auto* const topBar = new QWidget(this);
    topBar->setGeometry(0, 0, width(), barHeight);
    place(new QPushButton("Back", topBar), 0, 2);
    place(new QLabel("A film", topBar), 2, 6);

    auto* const bottomBar = new QWidget(this);
    bottomBar->setGeometry(0, height() - barHeight, width(), barHeight);
    auto* const slider = new QSlider(Qt::Horizontal, bottomBar);
    slider->setMaximum(100);
    slider->setValue(40);
    place(new QPushButton("Play", bottomBar), 0, 2);
    place(new QLabel("00:00", bottomBar), 2, 1);
    place(slider, 3, 6);
    place(new QLabel("01:40", bottomBar), 9, 1);
    place(new QPushButton("Full", bottomBar), 10, 2);
}

void QtOverlay::prepare() {
    static int argumentCount = 1;
    static char name[] = "benchmarks";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: at the end of the program parts of Qt that it needs may be gone before it.
    [[maybe_unused]] static const auto* const application = new QApplication(argumentCount, arguments);
}

} // namespace Benchmarks
