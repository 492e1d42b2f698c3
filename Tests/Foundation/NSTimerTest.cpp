#include "Platform/Foundation/Foundation.h"
#include "Tests/Foundation/ManualClock.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace Foundation;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

class Target : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<Target, NSObject>("NSTimerTest.Target")
                                         .method<&Target::fired>("fired")
                                         .method<&Target::firedBy>("firedBy:")
                                         .build();
        return object;
    }

    void fired() { ++count; }
    void firedBy(const std::shared_ptr<NSTimer>& timer) {
        ++count;
        lastTimer = timer.get();
        lastUserInfo = timer->userInfo();
    }

    int count = 0;
    NSTimer* lastTimer = nullptr;
    std::shared_ptr<NSObject> lastUserInfo;
};

class NSTimerTest : public testing::Test {
protected:
    std::shared_ptr<NSTimer> schedule(double interval, const std::function<void(NSTimer&)>& block,
                                      bool repeats = false) {
        return NSTimer::scheduledTimerWithTimeInterval(interval, repeats, block);
    }

    std::shared_ptr<NSTimer> scheduleNamed(double interval, const std::string& name, bool repeats = false) {
        return schedule(
            interval, [this, name](NSTimer&) { fired.push_back(name); }, repeats);
    }

    void turnAt(double time) {
        clock.time = time;
        loop.turn();
    }

    ManualClock clock;
    NSRunLoop loop{clock};
    std::vector<std::string> fired;
};

using NSTimerDeathTest = NSTimerTest;

TEST_F(NSTimerTest, AOneShotTimerFiresOnceAtItsTime) {
    const auto timer = scheduleNamed(3.0, "one");
    EXPECT_TRUE(timer->isValid());
    turnAt(2.999);
    EXPECT_THAT(fired, IsEmpty());
    turnAt(3.0);
    EXPECT_THAT(fired, ElementsAre("one"));
    EXPECT_FALSE(timer->isValid());
    turnAt(6.0);
    EXPECT_THAT(fired, ElementsAre("one"));
}

TEST_F(NSTimerTest, ARepeatingTimerFiresUntilItIsInvalidated) {
    const auto timer = scheduleNamed(1.0, "tick", true);
    turnAt(1.0);
    turnAt(1.5);
    turnAt(2.0);
    EXPECT_THAT(fired, ElementsAre("tick", "tick"));
    EXPECT_TRUE(timer->isValid());
    timer->invalidate();
    turnAt(3.0);
    EXPECT_EQ(fired.size(), 2U);
}

TEST_F(NSTimerTest, TheIntervalCountsFromTheMomentOfScheduling) {
    clock.time = 10.0;
    scheduleNamed(3.0, "one");
    turnAt(12.9);
    EXPECT_THAT(fired, IsEmpty());
    turnAt(13.0);
    EXPECT_THAT(fired, ElementsAre("one"));
}

TEST_F(NSTimerTest, ATargetIsSentItsSelectorWithTheTimerIfItTakesOne) {
    const auto target = make<Target>();
    const auto info = make<NSObject>();
    NSTimer::scheduledTimerWithTimeInterval(1.0, target, "fired", nullptr, false);
    const auto timer = NSTimer::scheduledTimerWithTimeInterval(2.0, target, "firedBy:", info, false);
    turnAt(1.0);
    EXPECT_EQ(target->count, 1);
    EXPECT_EQ(target->lastTimer, nullptr);
    turnAt(2.0);
    EXPECT_EQ(target->count, 2);
    EXPECT_EQ(target->lastTimer, timer.get());
}

TEST_F(NSTimerTest, TheUserInfoIsThereForTheCallbackAndLetGoAfterTheLastFiring) {
    const auto target = make<Target>();
    const auto info = make<NSObject>();
    const auto once = NSTimer::scheduledTimerWithTimeInterval(1.0, target, "firedBy:", info, false);
    EXPECT_EQ(once->userInfo(), info);
    turnAt(1.0);
    EXPECT_EQ(target->lastUserInfo, info);
    EXPECT_EQ(once->userInfo(), nullptr);

    target->lastUserInfo = nullptr;
    const auto repeating = NSTimer::scheduledTimerWithTimeInterval(1.0, target, "firedBy:", info, true);
    turnAt(2.0);
    EXPECT_EQ(target->lastUserInfo, info);
    EXPECT_EQ(repeating->userInfo(), info);
    repeating->invalidate();
    EXPECT_EQ(repeating->userInfo(), nullptr);
}

TEST_F(NSTimerTest, ATimerWithoutATargetFiresIntoNothing) {
    const auto timer = NSTimer::scheduledTimerWithTimeInterval(1.0, nullptr, "fired", nullptr, false);
    turnAt(1.0);
    EXPECT_FALSE(timer->isValid());
}

TEST_F(NSTimerDeathTest, ASelectorThatTheTargetDoesNotKnowIsAFatalReport) {
    const auto target = make<Target>();
    NSTimer::scheduledTimerWithTimeInterval(1.0, target, "exploded", nullptr, false);
    EXPECT_DEATH(turnAt(1.0),
                 "Fatal error: Unrecognized selector 'exploded' sent to class 'NSTimerTest.Target'");
}

TEST_F(NSTimerTest, ATimerHoldsItsTargetUntilItHasFired) {
    auto target = make<Target>();
    const std::weak_ptr<Target> observed = target;
    const auto timer = NSTimer::scheduledTimerWithTimeInterval(1.0, target, "fired", nullptr, false);
    target.reset();
    turnAt(0.5);
    EXPECT_FALSE(observed.expired());
    turnAt(1.0);
    EXPECT_TRUE(observed.expired());
}

TEST_F(NSTimerTest, ATimerHoldsItsTargetUntilItIsInvalidated) {
    auto target = make<Target>();
    const std::weak_ptr<Target> observed = target;
    const auto timer = NSTimer::scheduledTimerWithTimeInterval(1.0, target, "fired", nullptr, true);
    target.reset();
    turnAt(1.0);
    EXPECT_EQ(observed.lock()->count, 1);
    timer->invalidate();
    EXPECT_TRUE(observed.expired());
}

TEST_F(NSTimerTest, ATimerHoldsWhatItsBlockCapturedUntilItHasFired) {
    auto captured = std::make_shared<int>(1);
    const std::weak_ptr<int> observed = captured;
    const auto timer = schedule(1.0, [captured](NSTimer&) {});
    captured.reset();
    EXPECT_FALSE(observed.expired());
    turnAt(1.0);
    EXPECT_TRUE(observed.expired());
}

TEST_F(NSTimerTest, TheLoopHoldsATimerWhileItIsScheduled) {
    const std::weak_ptr<NSTimer> once = scheduleNamed(1.0, "one");
    const std::weak_ptr<NSTimer> repeating = scheduleNamed(1.0, "more", true);
    EXPECT_FALSE(once.expired());
    turnAt(1.0);
    EXPECT_TRUE(once.expired());
    repeating.lock()->invalidate();
    EXPECT_TRUE(repeating.expired());
}

TEST_F(NSTimerTest, AnInvalidatedTimerNeverFires) {
    const auto timer = scheduleNamed(1.0, "one");
    timer->invalidate();
    timer->invalidate();
    EXPECT_FALSE(timer->isValid());
    EXPECT_TRUE(std::isnan(timer->fireDate()));
    timer->setFireDate(0.5);
    EXPECT_FALSE(timer->isValid());
    turnAt(10.0);
    EXPECT_THAT(fired, IsEmpty());
}

TEST_F(NSTimerTest, ATimerThatWasNeverScheduledIsNotValid) {
    const auto timer = make<NSTimer>();
    EXPECT_FALSE(timer->isValid());
    timer->invalidate();
    timer->setFireDate(1.0);
    turnAt(2.0);
}

TEST_F(NSTimerTest, TimersFireInTheOrderOfTheirDeadlines) {
    scheduleNamed(3.0, "three");
    scheduleNamed(1.0, "one");
    scheduleNamed(2.0, "two");
    turnAt(5.0);
    EXPECT_THAT(fired, ElementsAre("one", "two", "three"));
}

TEST_F(NSTimerTest, EqualDeadlinesFireInTheOrderOfScheduling) {
    scheduleNamed(2.0, "a");
    scheduleNamed(2.0, "b", true);
    const auto moved = scheduleNamed(2.0, "c");
    clock.time = 1.0;
    scheduleNamed(1.0, "d");
    moved->setFireDate(2.0);
    turnAt(2.0);
    EXPECT_THAT(fired, ElementsAre("a", "b", "d", "c"));
}

TEST_F(NSTimerTest, AnIntervalThatIsNoTimeAheadFiresOnTheNextTurn) {
    for (const double interval : {0.0, -0.0, -5.0, notANumber, -infinity}) {
        fired.clear();
        const auto timer = scheduleNamed(interval, "now");
        EXPECT_EQ(loop.timeUntilNextWork(), 0.0) << interval;
        EXPECT_THAT(fired, IsEmpty());
        loop.turn();
        EXPECT_THAT(fired, ElementsAre("now")) << interval;
        EXPECT_FALSE(timer->isValid());
    }
}

TEST_F(NSTimerTest, ARepeatingTimerOfSuchAnIntervalFiresOnceATurn) {
    for (const double interval : {0.0, -5.0, notANumber, -infinity, 5e-324}) {
        fired.clear();
        const auto timer = scheduleNamed(interval, "now", true);
        clock.time += 1.0;
        loop.turn();
        EXPECT_EQ(fired.size(), 1U) << interval;
        loop.turn();
        EXPECT_EQ(fired.size(), 2U) << interval;
        clock.time += 10.0;
        loop.turn();
        EXPECT_EQ(fired.size(), 3U) << interval;
        timer->invalidate();
    }
}

TEST_F(NSTimerTest, IntervalsThatAreNoTimeAheadKeepTheOrderOfScheduling) {
    scheduleNamed(0.0, "zero");
    scheduleNamed(-5.0, "negative");
    scheduleNamed(notANumber, "no number");
    loop.turn();
    EXPECT_THAT(fired, ElementsAre("zero", "negative", "no number"));
}

TEST_F(NSTimerTest, AnInfiniteIntervalNeverFiresAndIsNoWork) {
    const auto once = scheduleNamed(infinity, "never");
    const auto repeating = scheduleNamed(infinity, "never", true);
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
    turnAt(1e8);
    EXPECT_THAT(fired, IsEmpty());
    EXPECT_TRUE(once->isValid());
    once->setFireDate(1e8 + 1.0);
    EXPECT_EQ(loop.timeUntilNextWork(), 1.0);
    turnAt(1e8 + 1.0);
    EXPECT_THAT(fired, ElementsAre("never"));
}

TEST_F(NSTimerTest, TheFireDateIsReadAndMoved) {
    clock.time = 1.0;
    const auto timer = scheduleNamed(3.0, "one");
    EXPECT_EQ(timer->fireDate(), 4.0);
    EXPECT_EQ(timer->timeInterval(), 3.0);
    timer->setFireDate(8.0);
    EXPECT_EQ(timer->fireDate(), 8.0);
    EXPECT_EQ(timer->timeInterval(), 3.0);
    turnAt(4.0);
    EXPECT_THAT(fired, IsEmpty());
    timer->setFireDate(5.0);
    turnAt(5.0);
    EXPECT_THAT(fired, ElementsAre("one"));
}

TEST_F(NSTimerTest, AFireDateThatIsNoTimeAheadIsTheNextTurn) {
    clock.time = 10.0;
    for (const double date : {10.0, 3.0, -infinity, notANumber}) {
        fired.clear();
        scheduleNamed(100.0, "now")->setFireDate(date);
        EXPECT_EQ(loop.timeUntilNextWork(), 0.0) << date;
        loop.turn();
        EXPECT_THAT(fired, ElementsAre("now")) << date;
    }
}

TEST_F(NSTimerTest, ARepeatingTimersGridMovesWithItsFireDate) {
    const auto timer = scheduleNamed(1.0, "tick", true);
    timer->setFireDate(1.5);
    turnAt(1.5);
    EXPECT_EQ(timer->fireDate(), 2.5);
}

TEST_F(NSTimerTest, ALateRepeatingTimerKeepsToAGridBesideTheMultiplesOfItsInterval) {
    const auto timer = scheduleNamed(1.0, "tick", true);
    timer->setFireDate(1.25);
    turnAt(4.0);
    EXPECT_THAT(fired, ElementsAre("tick"));
    EXPECT_EQ(timer->fireDate(), 4.25);
    turnAt(4.25);
    EXPECT_EQ(timer->fireDate(), 5.25);
    turnAt(8.25);
    EXPECT_EQ(timer->fireDate(), 9.25);
    EXPECT_EQ(fired.size(), 3U);
}

TEST_F(NSTimerTest, ATimerScheduledInACallbackWaitsForTheNextTurn) {
    schedule(1.0, [this](NSTimer&) {
        fired.push_back("outer");
        scheduleNamed(0.0, "inner");
        scheduleNamed(-3.0, "inner");
    });
    scheduleNamed(1.0, "later");
    turnAt(2.0);
    EXPECT_THAT(fired, ElementsAre("outer", "later"));
    EXPECT_EQ(loop.timeUntilNextWork(), 0.0);
    loop.turn();
    EXPECT_THAT(fired, ElementsAre("outer", "later", "inner", "inner"));
}

TEST_F(NSTimerTest, ACallbackThatSchedulesItselfAnewCausesNoStorm) {
    std::function<void(NSTimer&)> again = [&](NSTimer&) {
        fired.push_back("again");
        schedule(0.0, again);
    };
    schedule(0.0, again);
    for (int turn = 1; turn <= 5; ++turn) {
        loop.turn();
        EXPECT_EQ(fired.size(), static_cast<std::size_t>(turn));
    }
}

TEST_F(NSTimerTest, ACallbackMayInvalidateItsOwnTimer) {
    schedule(
        1.0,
        [this](NSTimer& timer) {
            timer.invalidate();
            fired.push_back("tick");
            EXPECT_FALSE(timer.isValid());
        },
        true);
    turnAt(1.0);
    turnAt(2.0);
    EXPECT_THAT(fired, ElementsAre("tick"));
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
}

TEST_F(NSTimerTest, ACallbackMayInvalidateTimersThatAreDueInTheSameTurn) {
    std::vector<std::shared_ptr<NSTimer>> others;
    schedule(1.0, [&](NSTimer&) {
        fired.push_back("first");
        for (const auto& other : others) {
            other->invalidate();
        }
        others.clear();
    });
    others.push_back(scheduleNamed(1.0, "other"));
    others.push_back(scheduleNamed(1.5, "other", true));
    others.push_back(scheduleNamed(99.0, "other"));
    turnAt(2.0);
    EXPECT_THAT(fired, ElementsAre("first"));
    EXPECT_EQ(loop.timeUntilNextWork(), std::nullopt);
}

TEST_F(NSTimerTest, ACallbackMayMoveTimersThatAreDueInTheSameTurn) {
    std::shared_ptr<NSTimer> other;
    schedule(1.0, [&](NSTimer&) { other->setFireDate(5.0); });
    other = scheduleNamed(1.5, "other");
    turnAt(2.0);
    EXPECT_THAT(fired, IsEmpty());
    turnAt(5.0);
    EXPECT_THAT(fired, ElementsAre("other"));
}

TEST_F(NSTimerTest, ACallbackMayMoveItsOwnRepeatingTimer) {
    const auto timer = schedule(
        1.0, [this](NSTimer& self) { self.setFireDate(loop.now() + 5.0); }, true);
    turnAt(1.0);
    EXPECT_EQ(timer->fireDate(), 6.0);
}

TEST_F(NSTimerTest, ACallbackMayThrowAwayTheLastReferenceToTheTimer) {
    std::shared_ptr<NSTimer> timer;
    timer = schedule(
        1.0,
        [&](NSTimer& self) {
            timer->invalidate();
            timer.reset();
            fired.push_back(self.isValid() ? "valid" : "invalid");
        },
        true);
    const std::weak_ptr<NSTimer> observed = timer;
    turnAt(1.0);
    EXPECT_THAT(fired, ElementsAre("invalid"));
    EXPECT_TRUE(observed.expired());
}

class Owner : public NSObject {
public:
    static const Class& classObject() {
        static const Class& object =
            ClassBuilder<Owner, NSObject>("NSTimerTest.Owner").method<&Owner::fired>("fired").build();
        return object;
    }

    void fired() {
        timer->invalidate();
        timer.reset();
        owner->reset();
        // The timer that calls holds its target.
        ++*count;
    }

    std::shared_ptr<NSTimer> timer;
    std::shared_ptr<Owner>* owner = nullptr;
    int* count = nullptr;
};

TEST_F(NSTimerTest, ACallbackMayThrowAwayTheLastReferenceToTheTarget) {
    int count = 0;
    for (const bool repeats : {false, true}) {
        std::shared_ptr<Owner> owner = make<Owner>();
        const std::weak_ptr<Owner> observed = owner;
        owner->owner = &owner;
        owner->count = &count;
        owner->timer = NSTimer::scheduledTimerWithTimeInterval(1.0, owner, "fired", nullptr, repeats);
        clock.time += 1.0;
        loop.turn();
        EXPECT_EQ(owner, nullptr);
        EXPECT_TRUE(observed.expired());
    }
    EXPECT_EQ(count, 2);
}

// Its tear-down invalidates a timer, as a bar's does.
class Cleaner : public NSObject {
public:
    std::shared_ptr<NSTimer> timer;

protected:
    void dealloc() override {
        timer->invalidate();
        NSObject::dealloc();
    }
};

TEST_F(NSTimerTest, LettingGoOfATargetMayTearDownOtherTimers) {
    auto cleaner = make<Cleaner>();
    cleaner->timer = scheduleNamed(1.0, "cleaned up");
    const auto holder = schedule(1.0, [cleaner](NSTimer&) {});
    cleaner.reset();
    holder->invalidate();
    turnAt(1.0);
    EXPECT_THAT(fired, IsEmpty());
}

TEST_F(NSTimerTest, AfterAJumpForwardARepeatingTimerFiresOnceAndKeepsItsGrid) {
    const auto timer = scheduleNamed(2.0, "tick", true);
    turnAt(3601.0);
    EXPECT_EQ(fired.size(), 1U);
    EXPECT_EQ(timer->fireDate(), 3602.0);
    loop.turn();
    EXPECT_EQ(fired.size(), 1U);
    turnAt(3602.0);
    EXPECT_EQ(fired.size(), 2U);
    EXPECT_EQ(timer->fireDate(), 3604.0);
}

TEST_F(NSTimerTest, AFiringThatComesExactlyOneOrMoreIntervalsLateIsNotFiredTwice) {
    const auto timer = scheduleNamed(2.0, "tick", true);
    turnAt(4.0);
    loop.turn();
    EXPECT_EQ(fired.size(), 1U);
    EXPECT_EQ(timer->fireDate(), 6.0);
}

TEST_F(NSTimerTest, AfterAJumpBackwardsTimersGoOnAsIfNothingHadHappened) {
    scheduleNamed(2.0, "tick", true);
    turnAt(2.0);
    EXPECT_EQ(fired.size(), 1U);
    turnAt(-3600.0);
    loop.turn();
    EXPECT_EQ(fired.size(), 1U);
    EXPECT_EQ(loop.timeUntilNextWork(), 2.0);
    turnAt(-3599.0);
    EXPECT_EQ(fired.size(), 1U);
    turnAt(-3598.0);
    EXPECT_EQ(fired.size(), 2U);
}

TEST_F(NSTimerTest, TimersAreReachedByName) {
    const auto timer = scheduleNamed(3.0, "one");
    EXPECT_TRUE(timer->send<bool>("isValid"));
    EXPECT_EQ(timer->send<double>("timeInterval"), 3.0);
    timer->send("setFireDate:", 4.0);
    EXPECT_EQ(timer->send<double>("fireDate"), 4.0);
    timer->send("invalidate");
    EXPECT_FALSE(timer->isValid());
}

TEST_F(NSTimerTest, ManyTimersFireInOrder) {
    constexpr int count = 20'000;
    std::vector<int> order;
    for (int index = 0; index < count; ++index) {
        schedule(static_cast<double>((index * 7919LL) % count),
                 [&order, index](NSTimer&) { order.push_back(static_cast<int>((index * 7919LL) % count)); });
    }
    turnAt(count);
    EXPECT_EQ(order.size(), static_cast<std::size_t>(count));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST_F(NSTimerTest, ATimerThatThrewHasFiredAllTheSame) {
    const auto failing = [](NSTimer&) { throw std::string("timer"); };
    const auto repeating = schedule(1.0, failing, true);
    EXPECT_THROW(turnAt(1.0), std::string);
    EXPECT_EQ(repeating->fireDate(), 2.0);
    repeating->invalidate();

    class Failing : public Target {
    public:
        static const Class& classObject() {
            static const Class& object =
                ClassBuilder<Failing, Target>("NSTimerTest.Failing").method<&Failing::fail>("fail").build();
            return object;
        }
        void fail() { throw std::string("target"); }
    };
    const auto userInfo = make<NSObject>();
    const auto once = NSTimer::scheduledTimerWithTimeInterval(1.0, make<Failing>(), "fail", userInfo, false);
    EXPECT_THROW(turnAt(3.0), std::string);
    EXPECT_FALSE(once->isValid());
    EXPECT_EQ(once->userInfo(), nullptr);
    EXPECT_EQ(userInfo.use_count(), 1);
    turnAt(4.0);
}

} // namespace
