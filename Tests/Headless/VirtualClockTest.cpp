#include "Hosts/Headless/VirtualClock.h"

#include <gtest/gtest.h>

namespace {

TEST(VirtualClockTest, GoesWhereItIsTold) {
    KivUICore::Headless::VirtualClock clock;
    EXPECT_EQ(clock.now(), 0.0);
    clock.advance(1.5);
    clock.advance(0.25);
    EXPECT_EQ(clock.now(), 1.75);
    clock.set(-3.0);
    EXPECT_EQ(clock.now(), -3.0);
}

TEST(VirtualClockTest, ManySmallStepsLeadWhereTheirSumDoes) {
    KivUICore::Headless::VirtualClock clock;
    for (int step = 0; step < 1000; ++step) {
        clock.advance(0.1);
    }
    EXPECT_EQ(clock.now(), 100.0);
    clock.set(1e6);
    for (int step = 0; step < 100000; ++step) {
        clock.advance(0.001);
    }
    EXPECT_EQ(clock.now(), 1e6 + 100.0);
}

} // namespace
