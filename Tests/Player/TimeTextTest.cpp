#include "Player/Desktop/TimeText.h"

#include <gtest/gtest.h>

namespace KivUICore::Player {

namespace {

TEST(TimeText, SecondsMinutesAndHoursAreRead) {
    EXPECT_EQ(secondsOf("0"), 0.0);
    EXPECT_EQ(secondsOf("90"), 90.0);
    EXPECT_EQ(secondsOf("90.5"), 90.5);
    EXPECT_EQ(secondsOf(".5"), 0.5);
    EXPECT_EQ(secondsOf("5."), 5.0);
    EXPECT_EQ(secondsOf("1:30"), 90.0);
    EXPECT_EQ(secondsOf("90:00"), 5400.0);
    EXPECT_EQ(secondsOf("1:02:03"), 3723.0);
    EXPECT_EQ(secondsOf("01:2:3.25"), 3723.25);
    EXPECT_EQ(secondsOf("100:59:59"), 363599.0);
}

TEST(TimeText, OtherTextsAreNoTime) {
    for (const char* text :
         {"",   ".",     ":",  "1:", ":30", "1:60", "1:60:00", "1:2:3:4", "1.5:30", "-1",
          "+1", "1:-30", " 1", "1 ", "nan", "inf",  "1e3",     "0x10",    "soon",   "1:30\n"}) {
        EXPECT_EQ(secondsOf(text), std::nullopt) << text;
    }
}

} // namespace

} // namespace KivUICore::Player
