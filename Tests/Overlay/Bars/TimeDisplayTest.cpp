#include "Player/Overlay/Bars/TimeDisplay.h"

#include "Player/Overlay/Bars/TimeLabel.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace KivUICore::Overlay {

namespace {

TEST(TimeDisplayTest, WritesATimeWithItsSign) {
    TimeDisplay display;
    EXPECT_EQ(display.view()->text(), std::nullopt);
    display.show(61);
    EXPECT_EQ(display.view()->text(), "01:01");
    display.show(61, TimeDisplay::Sign::Minus);
    EXPECT_EQ(display.view()->text(), "-01:01");
    display.show(std::nullopt);
    EXPECT_EQ(display.view()->text(), std::nullopt);
}

TEST(TimeDisplayTest, UnchangedSecondIsNotWrittenAgain) {
    TimeDisplay display;
    display.show(5);
    display.view()->setText("untouched");
    display.show(5);
    EXPECT_EQ(display.view()->text(), "untouched");
    display.show(6);
    EXPECT_EQ(display.view()->text(), "00:06");
}

TEST(TimeDisplayTest, WholeSecondsAreTakenOfAnyTime) {
    EXPECT_EQ(wholeSeconds(1.999), 1);
    EXPECT_EQ(wholeSeconds(-3.0), 0);
    EXPECT_EQ(wholeSeconds(std::nan("")), 0);
    EXPECT_EQ(wholeSeconds(std::numeric_limits<double>::infinity()), 1'000'000'000);
}

TEST(TimeDisplayTest, HoursAreCountedInFigures) {
    EXPECT_EQ(hourFigures(0), 0);
    EXPECT_EQ(hourFigures(3599), 0);
    EXPECT_EQ(hourFigures(3600), 2);
    EXPECT_EQ(hourFigures(359999), 2);
    EXPECT_EQ(hourFigures(360000), 3);
    EXPECT_EQ(hourFigures(3600000), 4);
}

TEST(TimeDisplayTest, WidthHasRoomForTheLongestTime) {
    TimeDisplay display;
    for (const std::int64_t seconds : {0, 3599, 3600, 359999, 360000, 999999999}) {
        for (const auto sign : {TimeDisplay::Sign::None, TimeDisplay::Sign::Minus}) {
            display.show(seconds, sign);
            EXPECT_GE(display.widthFor(hourFigures(seconds), sign), display.view()->sizeThatFits({}).width)
                << *display.view()->text();
        }
    }
}

} // namespace

} // namespace KivUICore::Overlay
