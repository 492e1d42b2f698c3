#include "Hosts/SDL/ScreenScale.h"

#include <gtest/gtest.h>

namespace KivUICore::SDL {

namespace {

TEST(ScreenScale, DesktopThatAsksForNothingLeavesItToTheScreen) {
    EXPECT_EQ(requestedScale(nullptr, nullptr), std::nullopt);
    for (const char* text : {"", "big", "2x", "0", "-2", "nan"}) {
        EXPECT_EQ(requestedScale(text, text), std::nullopt) << text;
    }
}

TEST(ScreenScale, ResourceCountsInDotsOfWhich96AreAnInch) {
    EXPECT_EQ(requestedScale(nullptr, "96"), 1.0);
    EXPECT_EQ(requestedScale(nullptr, "144"), 1.5);
    EXPECT_EQ(requestedScale(nullptr, "192"), 2.0);
    EXPECT_EQ(requestedScale("", "192.0"), 2.0);
}

TEST(ScreenScale, WhatIsSetByHandGoesFirst) {
    EXPECT_EQ(requestedScale("2", nullptr), 2.0);
    EXPECT_EQ(requestedScale("3", "192"), 3.0);
    EXPECT_EQ(requestedScale("1", "192"), 1.0);
}

TEST(ScreenScale, StaysWhereControlsCanBeUsed) {
    EXPECT_EQ(requestedScale(nullptr, "60"), 1.0);
    EXPECT_EQ(requestedScale("100", nullptr), 8.0);
    EXPECT_EQ(requestedScale("inf", nullptr), 8.0);
}

} // namespace

} // namespace KivUICore::SDL
