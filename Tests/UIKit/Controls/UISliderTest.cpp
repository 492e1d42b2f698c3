#include "Platform/UIKit/UISlider.h"

#include "Platform/Foundation/Message.h"
#include "Platform/UIKit/UIColor.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/UIKit/ControlTestSupport.h"
#include "Tests/UIKit/NullContext.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using KivUICore::Headless::HeadlessHost;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

// The thumb's middle goes from 11 to 211 in the slider, so from 31 to 231 in the window, at a height of 50.
class UISliderTest : public testing::Test {
protected:
    UISliderTest() {
        host.window()->addSubview(slider);
        recorder->watch(*slider);
    }

    static CGPoint at(double x, double y = 50.0) { return {x, y}; }
    static CGFloat centerFor(double fraction) { return 31.0 + 200.0 * fraction; }

    CGRect drawnThumb() const { return drawnBy<CGDrawing::FillRoundedRect>(*slider).back().rect; }
    CGFloat drawnCenter() const { return CGRectGetMidX(drawnThumb()) + 20.0; }

    void drag(double from, double to) {
        host.touchDown(at(from));
        host.touchMove(at(to));
        host.touchUp(at(to));
    }

    HeadlessHost host{{300, 100}};
    std::shared_ptr<UISlider> slider = make<UISlider>(CGRectMake(20, 30, 222, 40));
    std::shared_ptr<EventRecorder> recorder = make<EventRecorder>();
};

// Value and range

TEST_F(UISliderTest, StartsAtZeroInARangeFromZeroToOne) {
    EXPECT_EQ(slider->value(), 0.0F);
    EXPECT_EQ(slider->minimumValue(), 0.0F);
    EXPECT_EQ(slider->maximumValue(), 1.0F);
    EXPECT_TRUE(slider->isContinuous());
}

TEST_F(UISliderTest, CutsAValueToItsRange) {
    slider->setMinimumValue(-5.0F);
    slider->setMaximumValue(10.0F);
    slider->setValue(7.0F);
    EXPECT_EQ(slider->value(), 7.0F);
    slider->setValue(11.0F);
    EXPECT_EQ(slider->value(), 10.0F);
    slider->setValue(-6.0F, true);
    EXPECT_EQ(slider->value(), -5.0F);
    slider->setValue(infinity);
    EXPECT_EQ(slider->value(), 10.0F);
    slider->setValue(-infinity);
    EXPECT_EQ(slider->value(), -5.0F);
}

TEST_F(UISliderTest, AValueThatIsNoNumberChangesNothing) {
    slider->setValue(0.5F);
    slider->setValue(notANumber);
    slider->setValue(notANumber, true);
    EXPECT_EQ(slider->value(), 0.5F);
}

TEST_F(UISliderTest, ANewRangeCutsTheValueAndSendsNothing) {
    slider->setMaximumValue(100.0F);
    slider->setValue(80.0F);
    slider->setMaximumValue(60.0F);
    EXPECT_EQ(slider->value(), 60.0F);
    slider->setMaximumValue(100.0F);
    EXPECT_EQ(slider->value(), 60.0F);
    slider->setMinimumValue(70.0F);
    EXPECT_EQ(slider->value(), 70.0F);
    EXPECT_THAT(recorder->events, IsEmpty());
}

TEST_F(UISliderTest, ALimitBeyondTheOtherTakesItAlong) {
    slider->setMinimumValue(5.0F);
    EXPECT_EQ(slider->maximumValue(), 5.0F);
    EXPECT_EQ(slider->value(), 5.0F);
    slider->setMaximumValue(-3.0F);
    EXPECT_EQ(slider->minimumValue(), -3.0F);
    EXPECT_EQ(slider->value(), -3.0F);
}

TEST_F(UISliderTest, ALimitThatIsNotFiniteChangesNothing) {
    for (const float limit : {notANumber, infinity, -infinity}) {
        slider->setMinimumValue(limit);
        slider->setMaximumValue(limit);
    }
    EXPECT_EQ(slider->minimumValue(), 0.0F);
    EXPECT_EQ(slider->maximumValue(), 1.0F);
}

TEST_F(UISliderTest, TheWidestRangeStillHasAMiddle) {
    slider->setMinimumValue(std::numeric_limits<float>::lowest());
    slider->setMaximumValue(std::numeric_limits<float>::max());
    slider->setValue(0.0F);
    EXPECT_NEAR(drawnCenter(), centerFor(0.5), 1e-9);
    drag(centerFor(0.5), centerFor(2.0));
    EXPECT_EQ(slider->value(), std::numeric_limits<float>::max());
}

TEST_F(UISliderTest, ARangeWithoutALengthKeepsTheThumbAtTheStart) {
    slider->setMaximumValue(0.0F);
    EXPECT_NEAR(drawnCenter(), centerFor(0.0), 1e-9);
    drag(centerFor(0.0), centerFor(0.5));
    EXPECT_EQ(slider->value(), 0.0F);
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
}

// Touches

TEST_F(UISliderTest, OnlyATouchNearTheThumbTakesHold) {
    slider->setValue(0.5F);
    for (const double x : {centerFor(0.5) - 22.5, centerFor(0.5) + 22.5, centerFor(0.0)}) {
        host.touchDown(at(x));
        EXPECT_FALSE(slider->isTracking()) << x;
        host.touchMove(at(centerFor(0.1)));
        host.touchUp(at(centerFor(0.1)));
    }
    EXPECT_EQ(slider->value(), 0.5F);
    EXPECT_THAT(recorder->events, IsEmpty());
    for (const double x : {centerFor(0.5) - 21.5, centerFor(0.5), centerFor(0.5) + 21.5}) {
        host.touchDown(at(x));
        EXPECT_TRUE(slider->isTracking()) << x;
        host.touchUp(at(x));
    }
}

TEST_F(UISliderTest, TheThumbsTargetReachesBeyondALowSlider) {
    slider->setFrame(CGRectMake(20, 45, 222, 10));
    host.touchDown(at(centerFor(0.0), 50.0 - 21.5));
    EXPECT_TRUE(slider->isTracking());
    host.touchUp(at(centerFor(0.0), 50.0 - 21.5));
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
    host.touchDown(at(centerFor(0.0), 50.0 - 22.5));
    EXPECT_FALSE(slider->isTracking());
    host.touchUp(at(centerFor(0.0), 50.0 - 22.5));
    host.touchDown(at(centerFor(0.5), 50.0 - 21.5));
    EXPECT_FALSE(slider->isTracking());
}

TEST_F(UISliderTest, ALargeThumbIsATargetAsAWhole) {
    slider->setThumbImage(makeImage({80, 30}), UIControlStateNormal);
    const CGRect thumb = drawnBy<CGDrawing::ClipToRect>(*slider).back().rect;
    host.touchDown(at(20.0 + CGRectGetMaxX(thumb) - 1.0));
    EXPECT_TRUE(slider->isTracking());
}

TEST_F(UISliderTest, TheThumbStaysUnderTheFingerWhereItWasTaken) {
    slider->setValue(0.5F);
    host.touchDown(at(centerFor(0.5) + 10.0));
    EXPECT_EQ(slider->value(), 0.5F);
    host.touchMove(at(centerFor(0.75) + 10.0));
    EXPECT_FLOAT_EQ(slider->value(), 0.75F);
    EXPECT_NEAR(drawnCenter(), centerFor(0.75), 1e-4);
    host.touchUp(at(centerFor(0.75) + 10.0));
    EXPECT_FLOAT_EQ(slider->value(), 0.75F);
}

TEST_F(UISliderTest, EachChangeByADragIsSentOnce) {
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.25)));
    host.touchMove(at(centerFor(0.5)));
    host.touchUp(at(centerFor(0.5)));
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "value", "up inside"));
}

TEST_F(UISliderTest, ATouchThatDoesNotMoveTheThumbChangesNoValue) {
    slider->setMaximumValue(5400.0F);
    slider->setValue(1234.567F);
    const double x = centerFor(1234.567 / 5400.0) + 3.3;
    host.touchDown(at(x));
    host.touchMove(at(x, 55));
    host.touchMove(at(x, 20));
    host.touchUp(at(x, 50));
    EXPECT_EQ(slider->value(), 1234.567F);
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
}

TEST_F(UISliderTest, BeyondTheEndNothingChangesAnyMore) {
    slider->setValue(1.0F);
    host.touchDown(at(centerFor(1.0)));
    host.touchMove(at(centerFor(1.1)));
    host.touchMove(at(centerFor(1.3)));
    EXPECT_EQ(slider->value(), 1.0F);
    EXPECT_THAT(recorder->events, ElementsAre("down"));
    host.touchMove(at(centerFor(0.9)));
    EXPECT_FLOAT_EQ(slider->value(), 0.9F);
}

TEST_F(UISliderTest, ADragGoesOnOutsideAndEndsThere) {
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.5), 99));
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    host.touchUp(at(centerFor(0.5), 99));
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "up outside"));
}

TEST_F(UISliderTest, ACancelledDragKeepsTheValue) {
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.5)));
    host.touchCancel();
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "cancel"));
}

TEST_F(UISliderTest, NotContinuousItSendsOneChangeAtTheEnd) {
    slider->setContinuous(false);
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.25)));
    host.touchMove(at(centerFor(0.5)));
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    EXPECT_THAT(recorder->events, ElementsAre("down"));
    host.touchUp(at(centerFor(0.5)));
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "up inside"));
    recorder->events.clear();
    host.tap(at(centerFor(0.5)));
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
}

TEST_F(UISliderTest, NotContinuousACancelledDragSendsItsChangeToo) {
    slider->setContinuous(false);
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.25)));
    host.touchCancel();
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "cancel"));
}

TEST_F(UISliderTest, ASecondFingerIsIgnored) {
    host.touchDown(at(centerFor(0.0)), 1);
    host.touchMove(at(centerFor(0.5)), 1);
    host.touchDown(at(centerFor(0.5)), 2);
    host.touchMove(at(centerFor(1.0)), 2);
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    host.touchUp(at(centerFor(1.0)), 2);
    EXPECT_TRUE(slider->isTracking());
    host.touchMove(at(centerFor(0.25)), 1);
    EXPECT_FLOAT_EQ(slider->value(), 0.25F);
    host.touchUp(at(centerFor(0.25)), 1);
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "value", "up inside"));
}

TEST_F(UISliderTest, ADisabledSliderTakesNoTouches) {
    slider->setEnabled(false);
    drag(centerFor(0.0), centerFor(0.5));
    EXPECT_EQ(slider->value(), 0.0F);
    EXPECT_THAT(recorder->events, IsEmpty());
}

TEST_F(UISliderTest, KeepsItsValueWhenTheTrackHasNoWidth) {
    slider->setValue(0.5F);
    for (const double width : {0.0, 5.0, 22.0}) {
        slider->setFrame(CGRectMake(100, 30, width, 40));
        drag(101.0, 180.0);
        EXPECT_EQ(slider->value(), 0.5F) << width;
    }
    EXPECT_THAT(recorder->events, testing::Not(testing::Contains("value")));
}

TEST_F(UISliderTest, AResizedSliderKeepsItsValueAndMovesItsThumb) {
    slider->setValue(0.5F);
    slider->setFrame(CGRectMake(20, 30, 122, 40));
    EXPECT_EQ(slider->value(), 0.5F);
    EXPECT_NEAR(drawnCenter(), 31.0 + 50.0, 1e-9);
}

// Changes in mid-drag

TEST_F(UISliderTest, AValueSetInMidDragHoldsUntilTheFingerMoves) {
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.5)));
    slider->setValue(0.9F);
    EXPECT_TRUE(slider->isTracking());
    host.touchMove(at(centerFor(0.5), 60));
    EXPECT_EQ(slider->value(), 0.9F);
    host.touchMove(at(centerFor(0.6)));
    EXPECT_FLOAT_EQ(slider->value(), 0.6F);
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "value"));
}

TEST_F(UISliderTest, ARangeSetInMidDragCountsFromTheNextMoveOn) {
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.5)));
    slider->setMaximumValue(10.0F);
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    host.touchMove(at(centerFor(0.6)));
    EXPECT_FLOAT_EQ(slider->value(), 6.0F);
}

TEST_F(UISliderTest, DisablingInMidDragCancelsIt) {
    host.touchDown(at(centerFor(0.0)));
    host.touchMove(at(centerFor(0.5)));
    slider->setEnabled(false);
    EXPECT_FALSE(slider->isTracking());
    host.touchMove(at(centerFor(0.75)));
    host.touchUp(at(centerFor(0.75)));
    EXPECT_FLOAT_EQ(slider->value(), 0.5F);
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "cancel"));
}

TEST_F(UISliderTest, ATargetMayDisableTheSliderFromAnyEvent) {
    for (const bool isContinuous : {true, false}) {
        recorder->events.clear();
        slider->setContinuous(isContinuous);
        slider->setValue(0.0F);
        recorder->onEvent = [this](const std::string& event) {
            if (event == "value") {
                slider->setEnabled(false);
            }
        };
        drag(centerFor(0.0), centerFor(0.5));
        EXPECT_THAT(recorder->events, ElementsAre("down", "value", "cancel"));
        slider->setEnabled(true);
    }
}

TEST_F(UISliderTest, ATargetMayDestroyTheSliderFromAnyEvent) {
    for (const std::string last : {"down", "value", "up inside", "cancel"}) {
        recorder->events.clear();
        slider = make<UISlider>(CGRectMake(20, 30, 222, 40));
        host.window()->addSubview(slider);
        recorder->watch(*slider);
        const std::weak_ptr<UISlider> weak = slider;
        recorder->onEvent = [this, &last, &weak](const std::string& event) {
            if (event == last && weak.lock()) {
                slider = nullptr;
                weak.lock()->removeFromSuperview();
            }
        };
        host.touchDown(at(centerFor(0.0)));
        host.touchMove(at(centerFor(0.5)));
        host.touchMove(at(centerFor(0.6)));
        if (last == "cancel") {
            host.touchCancel();
        } else {
            host.touchUp(at(centerFor(0.6)));
        }
        EXPECT_TRUE(weak.expired()) << last;
        EXPECT_TRUE(recorder->events.back() == "cancel" || recorder->events.back() == last);
    }
}

TEST_F(UISliderTest, ATargetMayDestroyTheWindow) {
    auto window = make<UIWindow>(CGRectMake(0, 0, 300, 100));
    slider->removeFromSuperview();
    window->addSubview(slider);
    const std::weak_ptr<UISlider> weak = slider;
    slider = nullptr;
    recorder->onEvent = [&window](const std::string& event) {
        if (event == "value") {
            window = nullptr;
        }
    };
    UIWindow& sender = *window;
    sender.sendTouch(1, UITouchPhase::Began, at(centerFor(0.0)));
    sender.sendTouch(1, UITouchPhase::Moved, at(centerFor(0.5)));
    EXPECT_TRUE(weak.expired());
    EXPECT_THAT(recorder->events, ElementsAre("down", "value", "cancel"));
}

// Overriding

class ReversedSlider : public UISlider {
public:
    CGRect thumbRectForBounds(const CGRect& bounds, const CGRect& trackRect, float value) const override {
        return UISlider::thumbRectForBounds(bounds, trackRect, 1.0F - value);
    }
};

TEST_F(UISliderTest, ADragFollowsAnOverriddenThumbRect) {
    const auto reversed = make<ReversedSlider>(CGRectMake(20, 30, 222, 40));
    slider->removeFromSuperview();
    host.window()->addSubview(reversed);
    drag(centerFor(1.0), centerFor(0.75));
    EXPECT_FLOAT_EQ(reversed->value(), 0.25F);
}

class HalfTrackSlider : public UISlider {
public:
    CGRect trackRectForBounds(const CGRect& bounds) const override {
        const CGRect track = UISlider::trackRectForBounds(bounds);
        return CGRectMake(track.origin.x, track.origin.y, 114.0, track.size.height);
    }
};

TEST_F(UISliderTest, ADragFollowsAnOverriddenTrackRect) {
    const auto half = make<HalfTrackSlider>(CGRectMake(20, 30, 222, 40));
    slider->removeFromSuperview();
    host.window()->addSubview(half);
    drag(centerFor(0.0), centerFor(0.25));
    EXPECT_FLOAT_EQ(half->value(), 0.5F);
}

class StubbornSlider : public UISlider {
public:
    bool continueTrackingWithTouch(const UITouch& touch) override {
        return UISlider::continueTrackingWithTouch(touch) && value() < 0.5F;
    }
    void endTrackingWithTouch(const UITouch& touch) override {
        UISlider::endTrackingWithTouch(touch);
        ++ends;
    }
    int ends = 0;
};

TEST_F(UISliderTest, TrackingCanBeOverridden) {
    const auto stubborn = make<StubbornSlider>(CGRectMake(20, 30, 222, 40));
    slider->removeFromSuperview();
    host.window()->addSubview(stubborn);
    drag(centerFor(0.0), centerFor(0.25));
    EXPECT_EQ(stubborn->ends, 1);
    host.touchDown(at(centerFor(0.25)));
    host.touchMove(at(centerFor(0.75)));
    EXPECT_FALSE(stubborn->isTracking());
}

// Setting

TEST_F(UISliderTest, SettingSendsNothing) {
    slider->setValue(0.5F);
    slider->setValue(1.0F, true);
    host.advance(1.0);
    EXPECT_THAT(recorder->events, IsEmpty());
}

TEST_F(UISliderTest, AnAnimatedSetTravelsAndSlowsDown) {
    slider->setValue(1.0F, true);
    EXPECT_EQ(slider->value(), 1.0F);
    EXPECT_NEAR(drawnCenter(), centerFor(0.0), 1e-9);
    host.advance(0.125);
    EXPECT_GT(drawnCenter(), centerFor(0.55));
    EXPECT_LT(drawnCenter(), centerFor(0.95));
    host.advance(0.125);
    EXPECT_NEAR(drawnCenter(), centerFor(1.0), 1e-9);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(UISliderTest, AnAnimatedSetOfLessThanHalfAPointJumps) {
    slider->setMaximumValue(1000.0F);
    slider->setValue(2.4F, true);
    EXPECT_NEAR(drawnCenter(), centerFor(0.0024), 1e-6);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    slider->setValue(5.0F, true);
    EXPECT_NEAR(drawnCenter(), centerFor(0.0024), 1e-6);
    EXPECT_NE(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(UISliderTest, SmallAnimatedStepsNeverKeepTheAnimatorRunning) {
    slider->setMaximumValue(7200.0F);
    for (int step = 0; step < 400; ++step) {
        slider->setValue(static_cast<float>(step) * 0.25F, true);
        ASSERT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
        ASSERT_NEAR(drawnCenter(), centerFor(step * 0.25 / 7200.0), 1e-4);
    }
}

TEST_F(UISliderTest, APlainSetEndsTheTravel) {
    slider->setValue(1.0F, true);
    host.advance(0.1);
    slider->setValue(1.0F);
    EXPECT_NEAR(drawnCenter(), centerFor(1.0), 1e-9);
    host.advance(0.05);
    EXPECT_NEAR(drawnCenter(), centerFor(1.0), 1e-9);
}

TEST_F(UISliderTest, TheSameAnimatedSetAgainDoesNotStartTheTravelAnew) {
    slider->setValue(1.0F, true);
    host.advance(0.2);
    slider->setValue(1.0F, true);
    host.advance(0.05);
    EXPECT_NEAR(drawnCenter(), centerFor(1.0), 1e-9);
}

TEST_F(UISliderTest, ANewAnimatedSetTakesOverWhereTheThumbIs) {
    slider->setValue(1.0F, true);
    host.advance(6.0 / 60.0);
    const CGFloat middle = drawnCenter();
    EXPECT_GT(middle, centerFor(0.4));
    slider->setValue(0.0F, true);
    EXPECT_NEAR(drawnCenter(), middle, 1.0);
    host.advance(0.25);
    EXPECT_NEAR(drawnCenter(), centerFor(0.0), 1e-9);
}

TEST_F(UISliderTest, OutsideAWindowAnAnimatedSetJumps) {
    slider->removeFromSuperview();
    slider->setValue(1.0F, true);
    EXPECT_NEAR(drawnCenter(), centerFor(1.0), 1e-9);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(UISliderTest, ATravellingThumbIsTakenWhereItIsSeen) {
    slider->setValue(1.0F, true);
    host.touchDown(at(centerFor(0.0)));
    EXPECT_TRUE(slider->isTracking());
    host.touchMove(at(centerFor(0.1)));
    EXPECT_FLOAT_EQ(slider->value(), 0.1F);
    host.advance(0.3);
    EXPECT_NEAR(drawnCenter(), centerFor(0.1), 1e-4);
}

class WatchedSlider : public UISlider {
public:
    CGRect thumbRectForBounds(const CGRect& bounds, const CGRect& trackRect, float value) const override {
        largestAsked = std::max(largestAsked, value);
        return UISlider::thumbRectForBounds(bounds, trackRect, value);
    }
    mutable float largestAsked = 0.0F;
};

TEST_F(UISliderTest, ATravellingThumbStaysInANarrowerRange) {
    const auto watched = make<WatchedSlider>(CGRectMake(20, 30, 222, 40));
    host.window()->addSubview(watched);
    watched->setMaximumValue(10.0F);
    watched->setValue(10.0F);
    watched->setValue(0.0F, true);
    watched->setMaximumValue(1.0F);
    watched->largestAsked = 0.0F;
    NullContext context;
    watched->drawRect(context, watched->bounds());
    EXPECT_EQ(watched->largestAsked, 1.0F);
}

// Drawing

TEST_F(UISliderTest, StaysWithinThePixelsOfItsBoundsWhateverTheirSize) {
    for (const CGSize size : {CGSize{0, 0}, CGSize{5, 40}, CGSize{17.3, 40}, CGSize{200, 3},
                              CGSize{200, 15.5}, CGSize{200, 40}}) {
        slider->setFrame({{20.3, 30.4}, size});
        const CGRect pixels = CGRectOffset(CGRectIntegral(slider->frame()), -20.3, -30.4);
        const CGRect allowed = CGRectInset(pixels, -1e-9, -1e-9);
        for (const float value : {0.0F, 0.5F, 1.0F}) {
            slider->setValue(value);
            for (const auto& [rect, radius, color] : drawnBy<CGDrawing::FillRoundedRect>(*slider)) {
                EXPECT_TRUE(CGRectIsEmpty(rect) || CGRectContainsRect(allowed, rect))
                    << size.width << " by " << size.height << " at " << value;
            }
        }
    }
}

TEST_F(UISliderTest, TheHeldThumbIsLargerWhereverTheFingerIs) {
    const CGFloat resting = drawnThumb().size.width;
    host.touchDown(at(centerFor(0.0)));
    host.draw();
    EXPECT_GT(drawnThumb().size.width, resting);
    host.touchMove(at(centerFor(0.5), 99));
    EXPECT_GT(drawnThumb().size.width, resting);
    host.draw();
    host.touchUp(at(centerFor(0.5), 99));
    EXPECT_EQ(drawnThumb().size.width, resting);
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(UISliderTest, TakingHoldOfAHighlightedSliderIsDrawnToo) {
    slider->setHighlighted(true);
    host.draw();
    host.touchDown(at(centerFor(0.0)));
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(UISliderTest, ADisabledSliderLooksFaded) {
    const auto enabled = drawnBy<CGDrawing::FillRoundedRect>(*slider);
    host.draw();
    slider->setEnabled(false);
    EXPECT_TRUE(host.window()->needsDisplay());
    const auto disabled = drawnBy<CGDrawing::FillRoundedRect>(*slider);
    EXPECT_LT(disabled.front().color.alpha, enabled.front().color.alpha);
    EXPECT_LT(disabled.back().color.red, enabled.back().color.red);
    EXPECT_EQ(disabled.back().color.alpha, 1.0);
}

TEST_F(UISliderTest, TakesTints) {
    slider->setMaximumTrackTintColor(make<UIColor>(1.0, 0.0, 0.0, 1.0));
    slider->setMinimumTrackTintColor(make<UIColor>(0.0, 1.0, 0.0, 1.0));
    slider->setThumbTintColor(make<UIColor>(0.0, 0.0, 1.0, 1.0));
    const auto drawn = drawnBy<CGDrawing::FillRoundedRect>(*slider);
    EXPECT_EQ(drawn[0].color, (CGColor{1.0, 0.0, 0.0, 1.0}));
    EXPECT_EQ(drawn[1].color, (CGColor{0.0, 1.0, 0.0, 1.0}));
    EXPECT_EQ(drawn.back().color, (CGColor{0.0, 0.0, 1.0, 1.0}));
}

TEST_F(UISliderTest, TheTrackLiesOnWholePixels) {
    slider->setFrame(CGRectMake(20.3, 30.4, 222, 41));
    const CGFloat top = 30.4 + drawnBy<CGDrawing::FillRoundedRect>(*slider).front().rect.origin.y;
    EXPECT_NEAR(top, std::round(top), 1e-9);
    host.window()->setContentScale(1.5);
    const CGFloat scaled = 1.5 * (30.4 + drawnBy<CGDrawing::FillRoundedRect>(*slider).front().rect.origin.y);
    EXPECT_NEAR(scaled, std::round(scaled), 1e-9);
}

TEST_F(UISliderTest, ShowsTheThumbImageOfItsState) {
    const auto normal = makeImage({20, 20}, {1.0, 0.0, 0.0, 1.0});
    const auto held = makeImage({30, 30}, {0.0, 1.0, 0.0, 1.0});
    const auto disabled = makeImage({10, 10}, {0.0, 0.0, 1.0, 1.0});
    slider->setThumbImage(normal, UIControlStateNormal);
    slider->setThumbImage(held, UIControlStateHighlighted);
    slider->setThumbImage(disabled, UIControlStateDisabled);
    const auto shown = [this] { return drawnBy<CGDrawing::FillRect>(*slider).back().color; };
    EXPECT_EQ(shown(), (CGColor{1.0, 0.0, 0.0, 1.0}));
    host.touchDown(at(centerFor(0.0)));
    EXPECT_EQ(shown(), (CGColor{0.0, 1.0, 0.0, 1.0}));
    host.touchMove(at(centerFor(0.1), 99));
    EXPECT_EQ(shown(), (CGColor{0.0, 1.0, 0.0, 1.0}));
    slider->setEnabled(false);
    EXPECT_EQ(shown(), (CGColor{0.0, 0.0, 1.0, 1.0}));
    EXPECT_EQ(slider->thumbImageForState(UIControlStateSelected), normal);
    slider->setThumbImage(nullptr, UIControlStateDisabled);
    EXPECT_EQ(shown(), (CGColor{1.0, 0.0, 0.0, 1.0}));
}

TEST_F(UISliderTest, AHeldThumbImageOfAnotherSizeMovesNoValue) {
    slider->setThumbImage(makeImage({10, 10}), UIControlStateNormal);
    slider->setThumbImage(makeImage({38, 38}), UIControlStateHighlighted);
    slider->setValue(0.25F);
    const CGFloat x = 20.0 + CGRectGetMidX(drawnBy<CGDrawing::ClipToRect>(*slider).back().rect);
    host.touchDown(at(x));
    host.touchMove(at(x + 1.0));
    EXPECT_NEAR(slider->value(), 0.25F + 1.0 / 204.0, 1e-5);
}

TEST_F(UISliderTest, AThumbImageTooLargeIsShrunkInItsShape) {
    slider->setThumbImage(makeImage({40, 80}), UIControlStateNormal);
    const CGRect drawn = drawnBy<CGDrawing::ClipToRect>(*slider).back().rect;
    EXPECT_EQ(drawn.size, (CGSize{20, 40}));
}

TEST_F(UISliderTest, ANewImageIsDrawn) {
    const auto isDrawnAfter = [this](const std::function<void()>& change) {
        host.draw();
        change();
        return host.window()->needsDisplay();
    };
    EXPECT_TRUE(isDrawnAfter([this] { slider->setThumbImage(makeImage({20, 20}), UIControlStateNormal); }));
    EXPECT_TRUE(isDrawnAfter([this] {
        slider->setMinimumTrackImage(makeImage({10, 6}), UIControlStateNormal);
    }));
    EXPECT_TRUE(isDrawnAfter([this] {
        slider->setMaximumTrackImage(makeImage({10, 6}), UIControlStateNormal);
    }));
}

TEST_F(UISliderTest, TrackImagesFillTheTrackAndAreCutAtTheThumb) {
    slider->setMinimumTrackImage(makeImage({10, 6}), UIControlStateNormal);
    slider->setMaximumTrackImage(makeImage({10, 8}), UIControlStateNormal);
    slider->setValue(0.5F);
    const auto clips = drawnBy<CGDrawing::ClipToRect>(*slider);
    ASSERT_EQ(clips.size(), 4U);
    EXPECT_EQ(clips[0].rect, CGRectMake(111, 16, 107, 8));
    EXPECT_EQ(clips[1].rect, CGRectMake(4, 16, 214, 8));
    EXPECT_EQ(clips[2].rect, CGRectMake(4, 17, 107, 6));
    EXPECT_EQ(clips[3].rect, CGRectMake(4, 17, 214, 6));
    EXPECT_EQ(drawnBy<CGDrawing::FillRoundedRect>(*slider).size(), 3U);
}

TEST_F(UISliderTest, OnlyAChangeIsDrawn) {
    slider->setValue(0.5F);
    host.draw();
    slider->setValue(0.5F);
    slider->setValue(0.5F, true);
    slider->setMaximumValue(1.0F);
    slider->setEnabled(true);
    EXPECT_FALSE(host.window()->needsDisplay());
    slider->setValue(0.6F);
    ASSERT_EQ(host.window()->damage().rects().size(), 1U);
    EXPECT_EQ(host.window()->damage().rects()[0], slider->frame());
}

TEST_F(UISliderTest, DrawingAllocatesNothing) {
    slider->setValue(0.5F);
    slider->setThumbImage(makeImage({20, 20}), UIControlStateDisabled);
    NullContext context;
    const std::size_t before = allocationCount();
    slider->drawRect(context, slider->bounds());
    EXPECT_EQ(allocationCount(), before);
}

// By name

TEST_F(UISliderTest, CanBeReachedByName) {
    const std::shared_ptr<UIImage> image = makeImage({10, 10});
    slider->send("setMinimumValue:", 1.0F);
    slider->send("setMaximumValue:", 9.0F);
    slider->send("setValue:", 4.0F);
    slider->send("setValue:animated:", 5.0F, true);
    slider->send("setEnabled:", false);
    slider->send("setContinuous:", false);
    slider->send("setThumbImage:forState:", image, UIControlStateNormal);
    slider->send("setMinimumTrackImage:forState:", image, UIControlStateSelected);
    slider->send("setMaximumTrackImage:forState:", image, UIControlStateDisabled);
    EXPECT_EQ(slider->send<float>("value"), 5.0F);
    EXPECT_EQ(slider->send<float>("minimumValue"), 1.0F);
    EXPECT_EQ(slider->send<float>("maximumValue"), 9.0F);
    EXPECT_FALSE(slider->send<bool>("continuous"));
    EXPECT_FALSE(slider->isEnabled());
    EXPECT_EQ(slider->thumbImageForState(UIControlStateNormal), image);
    EXPECT_EQ(slider->minimumTrackImageForState(UIControlStateSelected), image);
    EXPECT_EQ(slider->maximumTrackImageForState(UIControlStateDisabled), image);
    EXPECT_EQ(slider->maximumTrackImageForState(UIControlStateNormal), nullptr);
}

} // namespace
