#include "Player/Overlay/TimeDisplay.h"

#include "Player/Overlay/TimeLabel.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace Overlay {

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

} // namespace

} // namespace Overlay
