#include "Hosts/Headless/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

TEST(VirtualClockTest, GoesWhereItIsTold) {
    Headless::VirtualClock clock;
    EXPECT_EQ(clock.now(), 0.0);
    clock.advance(1.5);
    clock.advance(0.25);
    EXPECT_EQ(clock.now(), 1.75);
    clock.set(-3.0);
    EXPECT_EQ(clock.now(), -3.0);
}

} // namespace
