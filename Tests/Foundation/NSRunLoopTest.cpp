#include "Platform/Foundation/Foundation.h"
#include "Tests/Foundation/ManualClock.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace Foundation;
using testing::ElementsAre;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

class Pulse : public NSRunLoop::Source {
public:
    explicit Pulse(NSRunLoop& loop) : loop_(loop) {}
    ~Pulse() override {
        if (onDestruction) {
            onDestruction();
        }
    }

    std::optional<double> nextWork() const override { return next; }

    void turn(double now) override {
        turns.push_back(now);
        EXPECT_EQ(now, std::max(loop_.now(), next.value()));
        next.reset();
        if (onTurn) {
            onTurn();
        }
    }

    std::optional<double> next;
    std::vector<double> turns;
    std::function<void()> onTurn;
    std::function<void()> onDestruction;

private:
    NSRunLoop& loop_;
};

class Echo : public Pulse {
public:
    using Pulse::Pulse;
};

class NSRunLoopTest : public testing::Test {
protected:
    std::shared_ptr<NSTimer> schedule(double interval, const std::function<void(NSTimer&)>& block = {},
                                      bool repeats = false) {
        return NSTimer::scheduledTimerWithTimeInterval(interval, repeats, block);
    }

    ManualClock clock;
    NSRunLoop loop{clock};
};

using NSRunLoopDeathTest = NSRunLoopTest;

TEST_F(NSRunLoopTest, WhatIsDueWithinTheToleranceIsDoneAndTimeStaysTheClocks) {
    int fired = 0;
    schedule(1.0, [&fired](NSTimer&) { ++fired; });
    Pulse& pulse = loop.source<Pulse>();
    pulse.next = 1.0;
    clock.time = 1.0 - 2.0 * NSRunLoop::tolerance;
    loop.turn();
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(pulse.turns, std::vector<double>());
    clock.time = 1.0 - 0.5 * NSRunLoop::tolerance;
    loop.turn();
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(pulse.turns, std::vector<double>{1.0});
    EXPECT_EQ(loop.now(), clock.time);
}

TEST_F(NSRunLoopTest, TimeStartsAtZeroAndFollowsTheClock) {
    clock.time = 100.0;
    NSRunLoop later(clock);
    EXPECT_EQ(later.now(), 0.0);
    clock.time = 102.5;
    EXPECT_EQ(later.now(), 2.5);
    EXPECT_EQ(loop.now(), 102.5);
}

TEST_F(NSRunLoopTest, TimeStandsStillDuringATurn) {
    std::vector<double> times;
    schedule(1.0, [&](NSTimer&) {
        times.push_back(loop.now());
        clock.time += 5.0;
        times.push_back(loop.now());
    });
    clock.time = 1.0;
    loop.turn();
    EXPECT_THAT(times, ElementsAre(1.0, 1.0));
    EXPECT_EQ(loop.now(), 6.0);
}

TEST_F(NSRunLoopTest, ATimerThatComesDueDuringATurnWaitsForTheNext) {
    int count = 0;
    schedule(1.0, [&](NSTimer&) { clock.time += 5.0; });
    schedule(2.0, [&](NSTimer&) { ++count; });
    clock.time = 1.0;
    loop.turn();
    EXPECT_EQ(count, 0);
    EXPECT_EQ(loop.timeUntilNextWork(), 0.0);
    loop.turn();
    EXPECT_EQ(count, 1);
}

TEST_F(NSRunLoopTest, TimeNeverGoesBackwards) {
    clock.time = 10.0;
    EXPECT_EQ(loop.now(), 10.0);
    clock.time = 4.0;
    EXPECT_EQ(loop.now(), 10.0);
    clock.time = 5.0;
    EXPECT_EQ(loop.now(), 11.0);
}

TEST_F(NSRunLoopTest, AJumpOfDecadesIsLeftOut) {
    clock.time = 10.0;
    EXPECT_EQ(loop.now(), 10.0);
    for (const double reading : {1e300, -1e300, 1.7e9, std::numeric_limits<double>::max()}) {
        clock.time = reading;
        EXPECT_EQ(loop.now(), 10.0) << reading;
        clock.time = 0.0;
        EXPECT_EQ(loop.now(), 10.0) << reading;
    }
    clock.time = 0.5;
    EXPECT_EQ(loop.now(), 10.5);
}

TEST_F(NSRunLoopTest, ReadingsThatAreNoTimeAreLeftOut) {
    clock.time = 10.0;
    EXPECT_EQ(loop.now(), 10.0);
    for (const double reading : {notANumber, infinity, -infinity, notANumber}) {
        clock.time = reading;
        EXPECT_EQ(loop.now(), 10.0) << reading;
        loop.turn();
    }
    clock.time = 12.0;
    EXPECT_EQ(loop.now(), 12.0);
}

TEST_F(NSRunLoopTest, AClockThatHasNoTimeYetStartsWithItsFirst) {
    for (const double reading : {notANumber, infinity, -infinity}) {
        clock.time = reading;
        NSRunLoop early(clock);
        EXPECT_EQ(early.now(), 0.0);
        clock.time = 50.0;
        EXPECT_EQ(early.now(), 0.0);
        clock.time = 51.0;
        EXPECT_EQ(early.now(), 1.0);
    }
}

TEST_F(NSRunLoopTest, TimersFireAfterReadingsThatAreNoTime) {
    int count = 0;
    schedule(
        1.0, [&](NSTimer&) { ++count; }, true);
    clock.time = notANumber;
    loop.turn();
    clock.time = infinity;
    loop.turn();
    EXPECT_EQ(count, 0);
    clock.time = 1.0;
    loop.turn();
    EXPECT_EQ(count, 1);
}

TEST_F(NSRunLoopTest, WithoutWorkThereIsNoTimeOfTheNext) {
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
    const auto timer = schedule(1.0);
    EXPECT_EQ(loop.timeUntilNextWork(), 1.0);
    timer->invalidate();
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
    loop.source<Pulse>();
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
}

TEST_F(NSRunLoopTest, TheNextWorkIsThatOfTheEarliestTimerOrSource) {
    schedule(3.0);
    const auto soon = schedule(1.0);
    EXPECT_EQ(loop.timeUntilNextWork(), 1.0);
    clock.time = 0.25;
    EXPECT_EQ(loop.timeUntilNextWork(), 0.75);
    loop.source<Pulse>().next = 0.5;
    EXPECT_EQ(loop.timeUntilNextWork(), 0.25);
    loop.source<Pulse>().next = 2.0;
    EXPECT_EQ(loop.timeUntilNextWork(), 0.75);
    soon->invalidate();
    EXPECT_EQ(loop.timeUntilNextWork(), 1.75);
}

TEST_F(NSRunLoopTest, WorkThatIsOverdueIsDueNow) {
    schedule(1.0);
    clock.time = 5.0;
    EXPECT_EQ(loop.timeUntilNextWork(), 0.0);
    loop.turn();
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
}

TEST_F(NSRunLoopTest, AHostThatWaitsAsLongAsItIsToldDoesNothingInVain) {
    std::vector<double> times;
    schedule(
        0.1, [&](NSTimer&) { times.push_back(loop.now()); }, true);
    for (int turn = 1; turn <= 1000; ++turn) {
        clock.time += *loop.timeUntilNextWork();
        loop.turn();
        ASSERT_EQ(times.size(), static_cast<std::size_t>(turn)) << "at " << clock.time;
    }
    EXPECT_NEAR(times.back(), 100.0, 1e-9);
}

TEST_F(NSRunLoopTest, ASourceIsMadeOnceForEachType) {
    Pulse& pulse = loop.source<Pulse>();
    Echo& echo = loop.source<Echo>();
    EXPECT_EQ(&loop.source<Pulse>(), &pulse);
    EXPECT_EQ(&loop.source<Echo>(), &echo);
    EXPECT_NE(static_cast<void*>(&pulse), static_cast<void*>(&echo));
    NSRunLoop nested(clock);
    EXPECT_NE(&nested.source<Pulse>(), &pulse);
}

TEST_F(NSRunLoopTest, ASourceIsItsOwnAlsoWhereADerivedOneWasMadeFirst) {
    Echo& echo = loop.source<Echo>();
    EXPECT_NE(&loop.source<Pulse>(), &echo);
}

TEST_F(NSRunLoopTest, ASourceHasItsTurnOnceItsWorkIsDue) {
    Pulse& pulse = loop.source<Pulse>();
    loop.turn();
    pulse.next = 2.0;
    clock.time = 1.0;
    loop.turn();
    EXPECT_THAT(pulse.turns, ElementsAre());
    clock.time = 2.5;
    loop.turn();
    loop.turn();
    EXPECT_THAT(pulse.turns, ElementsAre(2.5));
}

TEST_F(NSRunLoopTest, TimersComeBeforeSources) {
    Pulse& pulse = loop.source<Pulse>();
    schedule(1.0, [&](NSTimer&) {
        EXPECT_THAT(pulse.turns, ElementsAre());
        pulse.next = loop.now();
    });
    clock.time = 1.0;
    loop.turn();
    EXPECT_THAT(pulse.turns, ElementsAre(1.0));
}

TEST_F(NSRunLoopTest, ASourceMayMakeFurtherSourcesInItsTurn) {
    class Third : public Pulse {
    public:
        using Pulse::Pulse;
    };
    Pulse& pulse = loop.source<Pulse>();
    pulse.next = 0.0;
    pulse.onTurn = [&] {
        loop.source<Echo>().next = 0.0;
        loop.source<Third>().next = 1.0;
        pulse.next = 1.0;
    };
    loop.turn();
    EXPECT_THAT(loop.source<Echo>().turns, ElementsAre(0.0));
    EXPECT_THAT(loop.source<Third>().turns, ElementsAre());
    clock.time = 1.0;
    loop.turn();
    EXPECT_THAT(pulse.turns, ElementsAre(0.0, 1.0));
    EXPECT_THAT(loop.source<Third>().turns, ElementsAre(1.0));
}

TEST_F(NSRunLoopTest, ASourceThatAlwaysHasWorkHasItsTurnOnceATurn) {
    Pulse& pulse = loop.source<Pulse>();
    pulse.onTurn = [&] { pulse.next = 0.0; };
    pulse.next = 0.0;
    loop.turn();
    loop.turn();
    EXPECT_EQ(pulse.turns.size(), 2U);
    EXPECT_EQ(loop.timeUntilNextWork(), 0.0);
}

TEST_F(NSRunLoopTest, TheLoopMadeLastIsTheCurrentOne) {
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
    {
        NSRunLoop nested(clock);
        EXPECT_EQ(&NSRunLoop::currentRunLoop(), &nested);
    }
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
}

TEST_F(NSRunLoopTest, LoopsMayEndInAnyOrder) {
    auto second = std::make_unique<NSRunLoop>(clock);
    auto third = std::make_unique<NSRunLoop>(clock);
    auto fourth = std::make_unique<NSRunLoop>(clock);
    second.reset();
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), fourth.get());
    fourth.reset();
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), third.get());
    third.reset();
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
}

TEST_F(NSRunLoopTest, ATimerStaysWithTheLoopThatItWasScheduledOn) {
    int outer = 0;
    int inner = 0;
    schedule(
        1.0, [&](NSTimer&) { ++outer; }, true);
    NSRunLoop nested(clock);
    schedule(1.0, [&](NSTimer&) { ++inner; });
    clock.time = 1.0;
    nested.turn();
    EXPECT_EQ(outer, 0);
    EXPECT_EQ(inner, 1);
    loop.turn();
    EXPECT_EQ(outer, 1);
    clock.time = 2.0;
    nested.turn();
    EXPECT_EQ(outer, 1);
    loop.turn();
    EXPECT_EQ(outer, 2);
}

TEST_F(NSRunLoopTest, ANestedLoopMayTurnInsideATurn) {
    int inner = 0;
    schedule(1.0, [&](NSTimer&) {
        NSRunLoop nested(clock);
        schedule(0.0, [&](NSTimer&) { ++inner; });
        nested.turn();
    });
    clock.time = 1.0;
    loop.turn();
    EXPECT_EQ(inner, 1);
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
}

TEST_F(NSRunLoopTest, AnEndingLoopInvalidatesItsTimersAndLetsTheirTargetsGo) {
    auto target = make<NSObject>();
    const std::weak_ptr<NSObject> observed = target;
    std::shared_ptr<NSTimer> timer;
    {
        NSRunLoop nested(clock);
        timer = NSTimer::scheduledTimerWithTimeInterval(1.0, target, "init", nullptr, true);
        NSTimer::scheduledTimerWithTimeInterval(infinity, target, "init", nullptr, false);
        target.reset();
        EXPECT_FALSE(observed.expired());
    }
    EXPECT_TRUE(observed.expired());
    EXPECT_FALSE(timer->isValid());
    timer->invalidate();
    timer->setFireDate(1.0);
}

// Looks for its loop while that is ending.
class Heir : public NSObject {
public:
    NSRunLoop* expected = nullptr;
    bool* wasCurrent = nullptr;

protected:
    void dealloc() override {
        *wasCurrent = &NSRunLoop::currentRunLoop() == expected;
        NSTimer::scheduledTimerWithTimeInterval(1.0, make<NSObject>(), "init", nullptr, false);
        NSObject::dealloc();
    }
};

TEST_F(NSRunLoopTest, WhatAnEndingLoopLetsGoStillFindsIt) {
    for (const bool heldByTimer : {true, false}) {
        bool wasCurrent = false;
        {
            NSRunLoop nested(clock);
            auto heir = make<Heir>();
            heir->expected = &nested;
            heir->wasCurrent = &wasCurrent;
            if (heldByTimer) {
                schedule(1.0, [heir](NSTimer&) {});
            } else {
                nested.source<Pulse>().onDestruction = [heir] {};
            }
        }
        EXPECT_TRUE(wasCurrent);
        EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
    }
}

TEST_F(NSRunLoopTest, AnExceptionPassesThroughAndWhatWasDueStillIs) {
    int fired = 0;
    schedule(1.0, [](NSTimer&) { throw std::string("timer"); });
    schedule(1.0, [&fired](NSTimer&) { ++fired; });
    Pulse& pulse = loop.source<Pulse>();
    pulse.next = 1.0;
    pulse.onTurn = [] { throw std::string("source"); };
    clock.time = 1.0;
    EXPECT_THROW(loop.turn(), std::string);
    EXPECT_EQ(fired, 0);
    EXPECT_EQ(loop.timeUntilNextWork(), 0.0);
    EXPECT_THROW(loop.turn(), std::string);
    EXPECT_EQ(fired, 1);
    EXPECT_THAT(pulse.turns, ElementsAre(1.0));
    loop.turn();
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
    clock.time = 2.0;
    EXPECT_EQ(loop.now(), 2.0);
}

TEST_F(NSRunLoopDeathTest, ATurnInsideATurnIsAFatalReport) {
    schedule(1.0, [this](NSTimer&) { loop.turn(); });
    clock.time = 1.0;
    EXPECT_DEATH(loop.turn(), "Fatal error: The run loop is turned from inside one of its own turns");
}

TEST_F(NSRunLoopDeathTest, ALoopThatEndsInsideItsTurnIsAFatalReport) {
    auto nested = std::make_unique<NSRunLoop>(clock);
    schedule(0.0, [&](NSTimer&) { nested.reset(); });
    EXPECT_DEATH(nested->turn(), "Fatal error: The run loop is destroyed from inside one of its own turns");
}

TEST(NSRunLoopAbsenceDeathTest, WithoutALoopSchedulingIsAFatalReport) {
    EXPECT_DEATH(NSTimer::scheduledTimerWithTimeInterval(1.0, false, [](NSTimer&) {}),
                 "Fatal error: There is no run loop");
}

TEST_F(NSRunLoopTest, ScopeMakesALoopTheCurrentOneUntilItEndsOrTheLoopDoes) {
    auto second = std::make_unique<NSRunLoop>(clock);
    {
        const NSRunLoop::Scope outer(&loop);
        EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
        const NSRunLoop::Scope none(nullptr);
        EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
        const NSRunLoop::Scope inner(second.get());
        EXPECT_EQ(NSRunLoop::weakCurrentRunLoop().lock().get(), second.get());
        const std::weak_ptr<NSRunLoop> reference = NSRunLoop::weakCurrentRunLoop();
        second.reset();
        EXPECT_TRUE(reference.expired());
        EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
    }
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &loop);
}

TEST_F(NSRunLoopTest, IsTheCurrentOneInItsTurns) {
    NSRunLoop* current = nullptr;
    schedule(0.0, [&current](NSTimer&) { current = &NSRunLoop::currentRunLoop(); });
    NSRunLoop newer{clock};
    loop.turn();
    EXPECT_EQ(current, &loop);
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &newer);
}

} // namespace
