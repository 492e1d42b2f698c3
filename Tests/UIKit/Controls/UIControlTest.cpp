#include "Platform/UIKit/UIControl.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/Foundation/Message.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>
#include <map>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

const std::map<std::string, UIControlEvents> eventsByName{
    {"down", UIControlEventTouchDown},
    {"inside", UIControlEventTouchDragInside},
    {"outside", UIControlEventTouchDragOutside},
    {"enter", UIControlEventTouchDragEnter},
    {"exit", UIControlEventTouchDragExit},
    {"up inside", UIControlEventTouchUpInside},
    {"up outside", UIControlEventTouchUpOutside},
    {"cancel", UIControlEventTouchCancel},
    {"changed", UIControlEventValueChanged},
};

/// A control whose tracking a test decides on.
class TrackingControl : public UIControl {
public:
    std::function<bool()> onBegin = [] { return true; };
    std::function<bool()> onContinue = [] { return true; };
    std::function<void()> onEnd = [] {};
    std::function<void()> onCancel = [] {};

    bool beginTrackingWithTouch(const UITouch& /*touch*/) override { return onBegin(); }
    bool continueTrackingWithTouch(const UITouch& /*touch*/) override { return onContinue(); }
    void endTrackingWithTouch(const UITouch& /*touch*/) override { onEnd(); }
    void cancelTracking() override { onCancel(); }
};

class UIControlTest : public testing::Test {
protected:
    void SetUp() override {
        host.window()->addSubview(control);
        for (const auto& [name, event] : eventsByName) {
            listen(event, name);
        }
    }

    std::shared_ptr<Listener> listen(UIControlEvents events, const std::string& name) {
        listeners.push_back(makeListener([this, name] {
            log.push_back(name);
            if (const auto call = onEvent) {
                call();
            }
        }));
        control->addTarget(listeners.back(), "tell", events);
        return listeners.back();
    }

    void forgetListeners() {
        control->removeTarget(nullptr, {}, UIControlEventAllEvents);
        listeners.clear();
    }

    KivUICore::Headless::HeadlessHost host{{200, 100}};
    std::shared_ptr<TrackingControl> control = make<TrackingControl>(CGRectMake(10, 10, 50, 50));
    std::vector<std::shared_ptr<Listener>> listeners;
    std::function<void()> onEvent;
    Log log;
};

constexpr CGPoint inside{20, 20};
constexpr CGPoint outside{150, 20};

// The events of a touch

TEST_F(UIControlTest, TapIsDownAndUpInside) {
    host.tap(inside);
    EXPECT_EQ(log, (Log{"down", "up inside"}));
}

TEST_F(UIControlTest, DraggingTellsWhereAndWhenItCrossesTheEdge) {
    host.touchDown(inside);
    host.touchMove({30, 30});
    host.touchMove(outside);
    host.touchMove({160, 30});
    host.touchMove(inside);
    host.touchUp({25, 25});
    EXPECT_EQ(log, (Log{"down", "inside", "exit", "outside", "outside", "enter", "inside", "up inside"}));
}

TEST_F(UIControlTest, LiftingOutsideIsUpOutside) {
    host.touchDown(inside);
    host.touchMove(outside);
    host.touchUp(outside);
    EXPECT_EQ(log, (Log{"down", "exit", "outside", "up outside"}));
    log.clear();
    host.touchDown(inside);
    host.touchUp(outside);
    EXPECT_EQ(log, (Log{"down", "up outside"}));
}

TEST_F(UIControlTest, CancelledTouchIsCancelAndNothingAfter) {
    host.touchDown(inside);
    host.touchCancel();
    host.touchMove(inside);
    host.touchUp(inside);
    EXPECT_EQ(log, (Log{"down", "cancel"}));
}

TEST_F(UIControlTest, TracksAndHighlightsWhileTheTouchIsDownAndInside) {
    EXPECT_FALSE(control->isTracking());
    host.touchDown(inside);
    EXPECT_TRUE(control->isTracking());
    EXPECT_TRUE(control->isTouchInside());
    EXPECT_TRUE(control->isHighlighted());
    host.touchMove(outside);
    EXPECT_TRUE(control->isTracking());
    EXPECT_FALSE(control->isTouchInside());
    EXPECT_FALSE(control->isHighlighted());
    host.touchMove(inside);
    EXPECT_TRUE(control->isHighlighted());
    host.touchUp(inside);
    EXPECT_FALSE(control->isTracking());
    EXPECT_FALSE(control->isTouchInside());
    EXPECT_FALSE(control->isHighlighted());
}

TEST_F(UIControlTest, TargetsFindTheTouchOverWhenItWasLiftedOrCancelled) {
    std::vector<bool> tracking;
    onEvent = [&] { tracking.push_back(control->isTracking() || control->isHighlighted()); };
    host.tap(inside);
    host.touchDown(inside);
    host.touchCancel();
    EXPECT_EQ(tracking, (std::vector<bool>{true, false, true, false}));
}

TEST_F(UIControlTest, SecondFingerIsIgnored) {
    host.touchDown(inside, 1);
    host.touchDown({30, 30}, 2);
    host.touchMove(outside, 2);
    host.touchUp(outside, 2);
    EXPECT_EQ(log, Log{"down"});
    host.touchUp(inside, 1);
    EXPECT_EQ(log, (Log{"down", "up inside"}));
}

TEST_F(UIControlTest, SecondFingerStaysIgnoredAfterTheFirstIsLifted) {
    host.touchDown(inside, 1);
    host.touchDown({30, 30}, 2);
    host.touchUp(inside, 1);
    log.clear();
    host.touchMove(inside, 2);
    host.touchUp(inside, 2);
    EXPECT_EQ(log, Log{});
}

TEST_F(UIControlTest, TouchOnAPlainViewInsideBelongsToTheControl) {
    const auto decoration = make<UIView>(CGRectMake(0, 0, 50, 50));
    control->addSubview(decoration);
    host.tap(inside);
    EXPECT_EQ(log, (Log{"down", "up inside"}));
    log.clear();
    host.touchDown(inside);
    decoration->removeFromSuperview();
    EXPECT_EQ(log, (Log{"down", "cancel"}));
    EXPECT_FALSE(control->isTracking());
    host.touchUp(inside);
    log.clear();
    host.tap(inside);
    EXPECT_EQ(log, (Log{"down", "up inside"}));
}

// Disabled, removed, torn down

TEST_F(UIControlTest, DisabledControlSwallowsTouches) {
    const auto below = makeProbe(CGRectMake(0, 0, 200, 100));
    host.window()->insertSubview(below, 0);
    below->log->clear();
    control->setEnabled(false);
    host.tap(inside);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(*below->log, Log{});
}

TEST_F(UIControlTest, DisablingInMidTouchCancelsIt) {
    host.touchDown(inside);
    control->setEnabled(false);
    EXPECT_EQ(log, (Log{"down", "cancel"}));
    EXPECT_FALSE(control->isHighlighted());
    control->setEnabled(true);
    host.touchMove(inside);
    host.touchUp(inside);
    EXPECT_EQ(log, (Log{"down", "cancel"}));
}

TEST_F(UIControlTest, RemovalInMidTouchCancelsIt) {
    host.touchDown(inside);
    control->removeFromSuperview();
    host.touchUp(inside);
    EXPECT_EQ(log, (Log{"down", "cancel"}));
    host.window()->addSubview(control);
    host.tap(inside);
    EXPECT_EQ(log, (Log{"down", "cancel", "down", "up inside"}));
}

TEST_F(UIControlTest, DisabledOrRemovedByItsTargetHearsItsCancel) {
    for (const bool disables : {true, false}) {
        host.touchDown(inside);
        log.clear();
        onEvent = [&] {
            onEvent = nullptr;
            disables ? control->setEnabled(false) : control->removeFromSuperview();
        };
        host.touchMove(inside);
        host.touchUp(inside);
        EXPECT_EQ(log, (Log{"inside", "cancel"}));
        control->setEnabled(true);
    }
}

TEST_F(UIControlTest, ExitThatDisablesIsNotFollowedByTheDrag) {
    host.touchDown(inside);
    onEvent = [&] {
        onEvent = nullptr;
        control->setEnabled(false);
    };
    host.touchMove(outside);
    EXPECT_EQ(log, (Log{"down", "exit", "cancel"}));
}

// Overridden tracking

TEST_F(UIControlTest, RefusedTouchIsNotTracked) {
    control->onBegin = [] { return false; };
    host.touchDown(inside);
    EXPECT_FALSE(control->isTracking());
    EXPECT_FALSE(control->isHighlighted());
    host.touchMove(inside);
    host.touchUp(inside);
    EXPECT_EQ(log, Log{});
}

TEST_F(UIControlTest, TrackingThatDoesNotContinueIsCancelled) {
    int cancels = 0;
    control->onContinue = [] { return false; };
    control->onCancel = [&] { ++cancels; };
    host.touchDown(inside);
    host.touchMove(inside);
    EXPECT_EQ(log, (Log{"down", "cancel"}));
    EXPECT_EQ(cancels, 1);
    EXPECT_FALSE(control->isTracking());
    host.touchUp(inside);
    EXPECT_EQ(log, (Log{"down", "cancel"}));
}

TEST_F(UIControlTest, TrackingOperationsComeBeforeTheEvents) {
    control->onBegin = [&] { return log.push_back("begin"), true; };
    control->onContinue = [&] { return log.push_back("continue"), true; };
    control->onEnd = [&] { log.push_back("end"); };
    control->onCancel = [&] { log.push_back("cancel tracking"); };
    host.touchDown(inside);
    host.touchMove(inside);
    host.touchUp(inside);
    EXPECT_EQ(log, (Log{"begin", "down", "continue", "inside", "end", "up inside"}));
    log.clear();
    host.touchDown(inside);
    host.touchCancel();
    EXPECT_EQ(log, (Log{"begin", "down", "cancel tracking", "cancel"}));
}

TEST_F(UIControlTest, TrackingOperationsMayTakeTheControlOut) {
    const auto remove = [&] { control->removeFromSuperview(); };
    control->onBegin = [&] { return remove(), true; };
    host.tap(inside);
    EXPECT_EQ(log, Log{"cancel"});

    log.clear();
    control->onBegin = [] { return true; };
    control->onContinue = [&] { return remove(), true; };
    host.window()->addSubview(control);
    host.touchDown(inside);
    host.touchMove(inside);
    host.touchUp(inside);
    EXPECT_EQ(log, (Log{"down", "cancel"}));

    log.clear();
    control->onEnd = remove;
    host.window()->addSubview(control);
    host.tap(inside);
    EXPECT_EQ(log, (Log{"down", "up inside"}));
    EXPECT_FALSE(control->isTracking());
}

// Targets

TEST_F(UIControlTest, TargetsAreToldInTheOrderOfTheirRegistration) {
    forgetListeners();
    listen(UIControlEventValueChanged, "a");
    listen(UIControlEventTouchDown, "b");
    listen(UIControlEventAllEvents, "c");
    listen(UIControlEventValueChanged | UIControlEventTouchDown, "d");
    control->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(log, (Log{"a", "c", "d"}));
    log.clear();
    control->sendActionsForControlEvents(UIControlEventValueChanged | UIControlEventTouchDown);
    EXPECT_EQ(log, (Log{"a", "b", "c", "d"}));
}

TEST_F(UIControlTest, SameTargetAndActionAreMerged) {
    forgetListeners();
    const auto first = listen(UIControlEventTouchDown, "first");
    listen(UIControlEventTouchDown | UIControlEventValueChanged, "second");
    control->addTarget(first, "tell", UIControlEventValueChanged);
    control->sendActionsForControlEvents(UIControlEventValueChanged | UIControlEventTouchDown);
    EXPECT_EQ(log, (Log{"first", "second"}));
    log.clear();
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(log, (Log{"first", "second"}));
    control->addTarget(first, "tell:", UIControlEventValueChanged);
    log.clear();
    control->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(log, (Log{"first", "second", "first"}));
}

TEST_F(UIControlTest, ActionWithAnArgumentGetsTheSender) {
    const auto listener = makeListener([] {});
    control->addTarget(listener, "tell:", UIControlEventTouchDown);
    host.touchDown(inside);
    EXPECT_EQ(listener->sender, control);
}

TEST_F(UIControlTest, TargetsAreWeak) {
    forgetListeners();
    const std::weak_ptr<Listener> first = listen(UIControlEventTouchDown, "first");
    listen(UIControlEventTouchDown, "second");
    listeners.erase(listeners.begin());
    EXPECT_TRUE(first.expired());
    host.touchDown(inside);
    EXPECT_EQ(log, Log{"second"});
}

TEST_F(UIControlTest, RemovalTakesEventsFromWhatMatches) {
    forgetListeners();
    const auto a = listen(UIControlEventTouchDown | UIControlEventValueChanged, "a");
    const auto b = listen(UIControlEventTouchDown | UIControlEventValueChanged, "b");
    control->addTarget(a, "tell:", UIControlEventTouchDown);
    const auto told = [&](UIControlEvents events) {
        log.clear();
        control->sendActionsForControlEvents(events);
        return log;
    };
    control->removeTarget(a, "tell", UIControlEventTouchDown);
    EXPECT_EQ(told(UIControlEventTouchDown), (Log{"b", "a"}));
    EXPECT_EQ(told(UIControlEventValueChanged), (Log{"a", "b"}));
    control->removeTarget(a, {}, UIControlEventAllEvents);
    EXPECT_EQ(told(UIControlEventAllEvents), Log{"b"});
    control->removeTarget(nullptr, "tell:", UIControlEventAllEvents);
    EXPECT_EQ(told(UIControlEventAllEvents), Log{"b"});
    control->removeTarget(nullptr, {}, UIControlEventTouchDown);
    EXPECT_EQ(told(UIControlEventAllEvents), Log{"b"});
    control->removeTarget(nullptr, "tell", UIControlEventAllEvents);
    EXPECT_EQ(told(UIControlEventAllEvents), Log{});
}

TEST_F(UIControlTest, WhoIsAddedWhileTargetsAreToldWaitsForTheNextTime) {
    forgetListeners();
    listen(UIControlEventTouchDown, "first");
    onEvent = [&] {
        onEvent = nullptr;
        listen(UIControlEventTouchDown, "added");
    };
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(log, Log{"first"});
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(log, (Log{"first", "first", "added"}));
}

TEST_F(UIControlTest, EventsAddedWhileTargetsAreToldWaitForTheNextTime) {
    forgetListeners();
    const auto first = listen(UIControlEventTouchDown, "first");
    const auto second = listen(UIControlEventValueChanged, "second");
    onEvent = [&] { control->addTarget(second, "tell", UIControlEventTouchDown); };
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(log, Log{"first"});
}

TEST_F(UIControlTest, WhoIsTakenAwayWhileTargetsAreToldHearsNothing) {
    forgetListeners();
    listen(UIControlEventTouchDown, "first");
    const auto second = listen(UIControlEventTouchDown | UIControlEventValueChanged, "second");
    listen(UIControlEventTouchDown, "third");
    onEvent = [&] { control->removeTarget(second, {}, UIControlEventTouchDown); };
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(log, (Log{"first", "third"}));
}

TEST_F(UIControlTest, WhoIsTornDownWhileTargetsAreToldHearsNothing) {
    forgetListeners();
    listen(UIControlEventTouchDown, "first");
    listen(UIControlEventTouchDown, "second");
    onEvent = [&] { listeners.pop_back(); };
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(log, Log{"first"});
}

// State

TEST_F(UIControlTest, StateIsAllOfItsBits) {
    EXPECT_EQ(control->state(), UIControlStateNormal);
    control->setHighlighted(true);
    EXPECT_EQ(control->state(), UIControlStateHighlighted);
    control->setSelected(true);
    control->setEnabled(false);
    EXPECT_EQ(control->state(), UIControlStateHighlighted | UIControlStateSelected | UIControlStateDisabled);
}

TEST_F(UIControlTest, NewStateIsDrawnAndTheSameIsNot) {
    host.draw();
    control->setHighlighted(false);
    control->setSelected(false);
    control->setEnabled(true);
    EXPECT_FALSE(host.window()->needsDisplay());
    control->setHighlighted(true);
    EXPECT_TRUE(host.window()->needsDisplay());
    host.draw();
    control->setSelected(true);
    EXPECT_TRUE(host.window()->needsDisplay());
    host.draw();
    control->setEnabled(false);
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(UIControlTest, OperationsAreReachedByName) {
    forgetListeners();
    const auto listener = makeListener([&] { log.push_back("told"); });
    const std::shared_ptr<Foundation::NSObject> target = listener;
    control->send("addTarget:action:forControlEvents:", target, Foundation::SEL("tell"),
                  UIControlEventTouchDown);
    control->send("sendActionsForControlEvents:", UIControlEventTouchDown);
    control->send("setEnabled:", false);
    EXPECT_EQ(log, Log{"told"});
    EXPECT_FALSE(control->send<bool>("enabled"));
}

TEST(UIControlDeathTest, ATargetThatIsNoneIsReported) {
    EXPECT_DEATH(
        make<UIControl>()->addTarget(nullptr, "tell", UIControlEventTouchDown),
        "Fatal error: No target for 'addTarget:action:forControlEvents:' of class 'UIKit.UIControl'");
}

} // namespace
