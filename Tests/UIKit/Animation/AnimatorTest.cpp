#include "Platform/UIKit/Animation/Animator.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIImage.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/TestViews.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>
#include <optional>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr UIViewAnimationOptions linear = UIViewAnimationOptionCurveLinear;

class AnimatorTest : public testing::Test {
protected:
    void SetUp() override {
        host.window()->addSubview(view);
        host.draw();
    }

    void animate(double duration, const std::function<void()>& animations, const std::string& name = "") {
        animate(duration, 0.0, animations, name);
    }

    void animate(double duration, double delay, const std::function<void()>& animations,
                 const std::string& name = "") {
        UIView::animateWithDuration(duration, delay, linear, animations, [this, name](bool finished) {
            log.push_back(name + (finished ? "finished" : "interrupted"));
        });
    }

    template <class Operation>
    std::optional<Operation> firstDrawn() {
        host.window()->setNeedsDisplayEverywhere();
        const auto drawing = host.draw();
        for (const CGDrawing::Operation& operation : drawing->operations()) {
            if (const auto* found = std::get_if<Operation>(&operation)) {
                return *found;
            }
        }
        return std::nullopt;
    }

    double shownAlpha() {
        const auto group = firstDrawn<CGDrawing::BeginGroup>();
        return group ? group->alpha : firstDrawn<CGDrawing::FillRect>() ? 1.0 : 0.0;
    }

    CGRect shownFrame() {
        const CGAffineTransform transform = firstDrawn<CGDrawing::Concatenate>()->transform;
        return CGRectApplyAffineTransform(firstDrawn<CGDrawing::FillRect>()->rect, transform);
    }

    CGColor shownColor() { return firstDrawn<CGDrawing::FillRect>()->color; }

    std::optional<double> nextWork() { return host.runLoop().timeUntilNextWork(); }

    std::vector<CGRect> damage() {
        const auto rects = host.window()->damage().rects();
        return {rects.begin(), rects.end()};
    }

    KivUICore::Headless::HeadlessHost host{{100, 100}};
    std::shared_ptr<UIView> view = makeView(CGRectMake(0, 0, 50, 50));
    Log log;
};

void expectNear(const CGRect& actual, const CGRect& expected) {
    EXPECT_NEAR(actual.origin.x, expected.origin.x, 1e-9);
    EXPECT_NEAR(actual.origin.y, expected.origin.y, 1e-9);
    EXPECT_NEAR(actual.size.width, expected.size.width, 1e-9);
    EXPECT_NEAR(actual.size.height, expected.size.height, 1e-9);
}

// Model and presentation

TEST_F(AnimatorTest, WhatIsPresentedIsWhatIsDrawn) {
    view->setTransform(CGAffineTransformMakeScale(2.0, 1.0));
    view->setAlpha(0.75);
    host.advance(0.0);
    EXPECT_EQ(view->presentedFrame(), view->frame());
    EXPECT_EQ(view->presentedAlpha(), 0.75);
    animate(1.0, [this] {
        view->setCenter({100.0, 40.0});
        view->setTransform(CGAffineTransformMakeScale(1.0, 3.0));
        view->setAlpha(0.25);
    });
    for (int quarter = 0; quarter < 4; ++quarter) {
        EXPECT_NEAR(view->presentedAlpha(), 0.75 - 0.125 * quarter, 1e-9);
        EXPECT_EQ(view->presentedAlpha(), shownAlpha());
        expectNear(view->presentedFrame(), shownFrame());
        host.advance(0.25);
    }
    EXPECT_EQ(view->presentedFrame(), view->frame());
    EXPECT_EQ(view->presentedAlpha(), 0.25);
}

TEST_F(AnimatorTest, ModelIsThereAtOnceAndThePresentationTravels) {
    animate(0.5, [&] { view->setAlpha(0.5); });
    EXPECT_EQ(view->alpha(), 0.5);
    EXPECT_NEAR(shownAlpha(), 1.0, 1e-9);
    host.advance(0.25);
    EXPECT_NEAR(shownAlpha(), 0.75, 1e-9);
    EXPECT_EQ(log, Log{});
    host.advance(0.25);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    EXPECT_EQ(log, Log{"finished"});
    EXPECT_EQ(nextWork(), std::nullopt);
}

TEST_F(AnimatorTest, PresentationFollowsTheCurve) {
    UIView::animateWithDuration(1.0, 0.0, UIViewAnimationOptionCurveEaseIn, [&] { view->setAlpha(0.5); });
    host.advance(0.5);
    EXPECT_NEAR(shownAlpha(), 1.0 - 0.5 * 0.31535681, 1e-8);
}

TEST_F(AnimatorTest, NothingIsDrawnAgainBeforeTheAnimationMoves) {
    host.draw();
    animate(1.0, [&] {
        view->setAlpha(0.25);
        view->setFrame(CGRectMake(50.0, 50.0, 20.0, 20.0));
    });
    host.window()->layoutIfNeeded();
    EXPECT_FALSE(host.window()->needsDisplay());
    host.advance(0.5);
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(AnimatorTest, FramesTravel) {
    animate(1.0, [&] { view->setFrame(CGRectMake(40, 20, 30, 10)); });
    host.advance(0.5);
    expectNear(shownFrame(), CGRectMake(20, 10, 40, 30));
    EXPECT_EQ(view->frame(), CGRectMake(40, 20, 30, 10));
    host.advance(0.5);
    EXPECT_EQ(shownFrame(), CGRectMake(40, 20, 30, 10));
}

TEST_F(AnimatorTest, CentresAndBoundsTravel) {
    animate(1.0, [&] { view->setCenter({75, 75}); });
    host.advance(0.5);
    expectNear(shownFrame(), CGRectMake(25, 25, 50, 50));
    host.advance(0.5);
    animate(1.0, [&] { view->setBounds(CGRectMake(10, 0, 10, 10)); });
    host.advance(0.5);
    expectNear(shownFrame(), CGRectMake(60, 60, 30, 30));
    EXPECT_NEAR(firstDrawn<CGDrawing::FillRect>()->rect.origin.x, 5.0, 1e-9);
}

TEST_F(AnimatorTest, TransformsTravel) {
    animate(1.0, [&] { view->setTransform(CGAffineTransformMakeScale(0.5, 0.0)); });
    host.advance(0.5);
    expectNear(shownFrame(), CGRectMake(6.25, 12.5, 37.5, 25));
}

TEST_F(AnimatorTest, PlainColorsTravelAndPatternsDoNot) {
    animate(1.0, [&] { view->setBackgroundColor(make<UIColor>(0.0, 1.0, 0.0, 1.0)); });
    host.advance(0.5);
    EXPECT_NEAR(shownColor().red, 0.5, 1e-9);
    EXPECT_NEAR(shownColor().green, 0.5, 1e-9);
    EXPECT_EQ(shownColor().alpha, 1.0);
    animate(1.0, [&] { view->setBackgroundColor(nullptr); });
    host.advance(0.5);
    EXPECT_NEAR(shownColor().alpha, 0.5, 1e-9);
    host.advance(1.0);
    EXPECT_EQ(firstDrawn<CGDrawing::FillRect>(), std::nullopt);

    const auto cell =
        std::make_shared<const CGDrawing>(CGSizeMake(4, 4), std::vector<CGDrawing::Operation>{});
    animate(1.0, [&] { view->setBackgroundColor(make<UIColor>(make<UIImage>(cell))); });
    EXPECT_TRUE(firstDrawn<CGDrawing::FillPattern>());
    animate(1.0, [&] { view->setBackgroundColor(make<UIColor>(1.0, 1.0)); });
    EXPECT_EQ(shownColor(), (CGColor{1, 1, 1, 1}));
}

TEST_F(AnimatorTest, AutoresizedSubviewsTravelAlong) {
    const auto inside = makeView(CGRectMake(0, 0, 50, 50));
    inside->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    view->addSubview(inside);
    view->setBackgroundColor(nullptr);
    animate(1.0, [&] { view->setFrame(CGRectMake(0, 0, 100, 50)); });
    EXPECT_EQ(inside->frame(), CGRectMake(0, 0, 100, 50));
    host.advance(0.5);
    expectNear(firstDrawn<CGDrawing::FillRect>()->rect, CGRectMake(0, 0, 75, 50));
    host.advance(0.5);
    EXPECT_EQ(firstDrawn<CGDrawing::FillRect>()->rect, CGRectMake(0, 0, 100, 50));
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, SubclassAnimatesANumberOfItsOwn) {
    class Gauge : public UIView {
    public:
        double value = 0.0;
        void setValue(double target) {
            willChangeValue(value, target);
            value = target;
        }
        double shown() const { return presentedValue(value); }
    };
    const auto gauge = make<Gauge>(CGRectMake(60, 0, 10, 10));
    host.window()->addSubview(gauge);
    gauge->setValue(2.0);
    EXPECT_EQ(gauge->shown(), 2.0);
    animate(1.0, [&] { gauge->setValue(4.0); });
    EXPECT_EQ(gauge->shown(), 2.0);
    host.advance(0.5);
    EXPECT_NEAR(gauge->shown(), 3.0, 1e-9);
    gauge->setValue(0.0);
    EXPECT_EQ(gauge->shown(), 0.0);
    host.advance(0.1);
    EXPECT_EQ(log, Log{"interrupted"});
}

TEST_F(AnimatorTest, SettingTheSameValueDisturbsNothing) {
    animate(1.0, [&] { view->setAlpha(0.0); });
    host.advance(0.5);
    view->setAlpha(0.0);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    host.advance(0.5);
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, SettingOutsideAnAnimationIsThereAtOnce) {
    animate(1.0, [&] {
        view->setAlpha(0.0);
        view->setFrame(CGRectMake(50, 0, 50, 50));
    });
    host.advance(0.5);
    view->setAlpha(0.25);
    EXPECT_EQ(shownAlpha(), 0.25);
    expectNear(shownFrame(), CGRectMake(25, 0, 50, 50));
    host.advance(0.5);
    EXPECT_EQ(shownAlpha(), 0.25);
    EXPECT_EQ(log, Log{"interrupted"});
}

TEST_F(AnimatorTest, ChangingAPropertyTwiceInOneAnimationIsOneChange) {
    animate(1.0, [&] {
        view->setFrame(CGRectMake(90, 90, 10, 10));
        view->setFrame(CGRectMake(20, 0, 50, 50));
    });
    host.advance(0.5);
    expectNear(shownFrame(), CGRectMake(10, 0, 50, 50));
    host.advance(0.5);
    EXPECT_EQ(log, Log{"finished"});
}

// Times

TEST_F(AnimatorTest, DelayHoldsThePresentationWhereItWas) {
    animate(0.5, 1.0, [&] { view->setAlpha(0.0); });
    host.advance(0.9);
    EXPECT_EQ(shownAlpha(), 1.0);
    host.advance(0.35);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    host.advance(0.25);
    EXPECT_EQ(shownAlpha(), 0.0);
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, WithoutDurationAllIsThereAndCompletionComesWithTheNextTurn) {
    for (const double duration : {0.0, -1.0, -infinity, notANumber}) {
        log.clear();
        view->setAlpha(1.0);
        animate(duration, notANumber, [&] { view->setAlpha(0.5); });
        EXPECT_EQ(shownAlpha(), 0.5);
        EXPECT_EQ(log, Log{});
        EXPECT_EQ(nextWork(), 0.0);
        host.runLoop().turn();
        EXPECT_EQ(log, Log{"finished"});
        EXPECT_EQ(nextWork(), std::nullopt);
    }
}

TEST_F(AnimatorTest, WithoutDurationNothingCanInterrupt) {
    animate(0.0, [&] { view->setAlpha(0.5); });
    view->setAlpha(0.25);
    host.runLoop().turn();
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, WithoutDurationButWithADelayItJumpsThen) {
    animate(0.0, 0.5, [&] { view->setFrame(CGRectMake(50, 50, 50, 50)); });
    host.advance(0.25);
    EXPECT_EQ(shownFrame(), CGRectMake(0, 0, 50, 50));
    EXPECT_THAT(damage(), IsEmpty());
    host.advance(0.25);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 50, 50), CGRectMake(50, 50, 50, 50)));
    EXPECT_EQ(shownFrame(), CGRectMake(50, 50, 50, 50));
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, EndlessTimesNeverMoveAndNeverWork) {
    animate(infinity, [&] { view->setAlpha(0.0); });
    const auto other = makeView(CGRectMake(60, 60, 10, 10));
    host.window()->addSubview(other);
    host.draw();
    animate(1.0, infinity, [&] { other->setAlpha(0.0); });
    host.draw();
    EXPECT_EQ(nextWork(), std::nullopt);
    host.advance(1000.0);
    EXPECT_THAT(damage(), IsEmpty());
    EXPECT_EQ(shownAlpha(), 1.0);
    EXPECT_EQ(log, Log{});
    view->setAlpha(0.5);
    other->setAlpha(0.5);
    host.advance(0.0);
    EXPECT_EQ(log, (Log{"interrupted", "interrupted"}));
}

TEST_F(AnimatorTest, WorkIsDueEachFrameWhileSomethingTravels) {
    EXPECT_EQ(nextWork(), std::nullopt);
    animate(0.025, 1.0, [&] { view->setAlpha(0.0); });
    EXPECT_EQ(nextWork(), 1.0);
    host.clock().advance(0.4);
    EXPECT_NEAR(*nextWork(), 0.6, 1e-12);
    host.runLoop().turn();
    EXPECT_NEAR(*nextWork(), 0.6, 1e-12);
    host.clock().set(1.0);
    host.runLoop().turn();
    EXPECT_NEAR(*nextWork(), 1.0 / 60.0, 1e-12);
    host.clock().advance(1.0 / 60.0);
    host.runLoop().turn();
    EXPECT_NEAR(*nextWork(), 0.025 - 1.0 / 60.0, 1e-12);
    host.clock().set(1.1);
    host.runLoop().turn();
    EXPECT_EQ(nextWork(), std::nullopt);
}

TEST_F(AnimatorTest, LateTurnArrivesAtTheEnd) {
    animate(0.5, 0.5, [&] { view->setFrame(CGRectMake(50, 50, 50, 50)); });
    host.clock().advance(10.0);
    host.runLoop().turn();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 50, 50), CGRectMake(50, 50, 50, 50)));
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, AnimationStartsFromWhatShowsNowNotAtTheLastTurn) {
    animate(1.0, [&] { view->setAlpha(0.0); });
    host.clock().advance(0.5);
    animate(1.0, [&] { view->setAlpha(1.0); });
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
}

// Take-over

TEST_F(AnimatorTest, NewerAnimationTakesOverFromWhereThePresentationStands) {
    animate(
        0.5, [&] { view->setAlpha(0.0); }, "old ");
    host.advance(0.25);
    animate(
        0.5, [&] { view->setAlpha(1.0); }, "new ");
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    host.advance(0.25);
    EXPECT_NEAR(shownAlpha(), 0.75, 1e-9);
    EXPECT_EQ(log, Log{"old interrupted"});
    host.advance(0.25);
    EXPECT_EQ(log, (Log{"old interrupted", "new finished"}));
}

TEST_F(AnimatorTest, TakeOverIsByViewAndProperty) {
    const auto other = makeView(CGRectMake(60, 60, 10, 10));
    host.window()->addSubview(other);
    animate(
        1.0,
        [&] {
            view->setAlpha(0.0);
            other->setAlpha(0.0);
        },
        "both ");
    host.advance(0.25);
    animate(
        0.25, [&] { view->setFrame(CGRectMake(10, 0, 50, 50)); }, "frame ");
    animate(
        0.25, [&] { other->setAlpha(1.0); }, "other ");
    host.advance(0.25);
    EXPECT_EQ(log, (Log{"frame finished", "other finished"}));
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    host.advance(0.5);
    EXPECT_EQ(log.back(), "both interrupted");
    EXPECT_EQ(log.size(), 3u);
}

TEST_F(AnimatorTest, ViewThatWasTakenOverIsNotDrawnForTheOldAnimation) {
    const auto other = makeView(CGRectMake(60, 60, 10, 10));
    host.window()->addSubview(other);
    animate(1.0, [&] {
        view->setAlpha(0.0);
        other->setAlpha(0.0);
    });
    host.advance(0.25);
    view->setAlpha(0.5);
    host.draw();
    host.advance(0.1);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(60, 60, 10, 10)));
}

TEST_F(AnimatorTest, DelayedAnimationTakesOverAtOnce) {
    animate(
        0.5, [&] { view->setAlpha(0.0); }, "old ");
    host.advance(0.25);
    animate(
        0.5, 1.0, [&] { view->setAlpha(1.0); }, "new ");
    host.advance(0.5);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    EXPECT_EQ(log, Log{"old interrupted"});
}

// Completion

TEST_F(AnimatorTest, CompletionComesOnceAlsoWhenNothingChanged) {
    animate(
        2.0, 3.0, [&] { view->setAlpha(1.0); }, "same ");
    animate(5.0, nullptr, "none ");
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(nextWork(), 0.0);
    host.advance(0.0);
    EXPECT_EQ(log, (Log{"same finished", "none finished"}));
    host.advance(20.0);
    EXPECT_EQ(log.size(), 2u);
}

TEST_F(AnimatorTest, CompletionComesForAViewThatIsGone) {
    animate(1.0, [&] { view->setAlpha(0.0); });
    host.advance(0.25);
    view->removeFromSuperview();
    view.reset();
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(nextWork(), 0.0);
    host.advance(0.0);
    EXPECT_EQ(log, Log{"interrupted"});
    host.advance(2.0);
    EXPECT_EQ(log.size(), 1u);
}

TEST_F(AnimatorTest, ViewThatIsTakenOutTravelsOn) {
    animate(1.0, [&] { view->setAlpha(0.0); });
    host.advance(0.25);
    view->removeFromSuperview();
    host.draw();
    host.advance(0.25);
    EXPECT_THAT(damage(), IsEmpty());
    host.window()->addSubview(view);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    host.advance(0.5);
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, CompletionsComeInTheOrderOfTheirEnds) {
    const auto other = makeView(CGRectMake(60, 60, 10, 10));
    animate(
        0.5, [&] { view->setAlpha(0.0); }, "late ");
    animate(
        0.25, [&] { other->setAlpha(0.0); }, "early ");
    host.clock().advance(1.0);
    host.runLoop().turn();
    EXPECT_EQ(log, (Log{"early finished", "late finished"}));
}

TEST_F(AnimatorTest, CompletionMayStartTheNextAnimation) {
    UIView::animateWithDuration(
        0.5, 0.0, linear, [&] { view->setAlpha(0.0); },
        [&](bool) { animate(0.5, [&] { view->setAlpha(1.0); }); });
    host.advance(0.75);
    EXPECT_NEAR(shownAlpha(), 0.5, 1e-9);
    host.advance(0.25);
    EXPECT_EQ(log, Log{"finished"});
}

TEST_F(AnimatorTest, CompletionThatStartsAnotherWithoutDurationWaitsForTheNextTurn) {
    int calls = 0;
    std::function<void(bool)> again = [&](bool) {
        ++calls;
        UIView::animateWithDuration(0.0, 0.0, linear, nullptr, again);
    };
    again(true);
    host.runLoop().turn();
    EXPECT_EQ(calls, 2);
    host.runLoop().turn();
    EXPECT_EQ(calls, 3);
}

TEST_F(AnimatorTest, WhatACompletionHoldsIsLetGoWithIt) {
    auto held = make<UIView>();
    const std::weak_ptr<UIView> weak = held;
    UIView::animateWithDuration(
        0.5, 0.0, linear, [&] { view->setAlpha(0.0); }, [held = std::move(held)](bool) {});
    host.advance(0.25);
    EXPECT_FALSE(weak.expired());
    host.advance(0.25);
    EXPECT_TRUE(weak.expired());
}

TEST(AnimatorTeardownTest, LoopThatGoesLetsGoOfItsCompletionsUncalled) {
    int calls = 0;
    auto view = makeView(CGRectMake(0, 0, 10, 10));
    const std::weak_ptr<UIView> weak = view;
    {
        KivUICore::Headless::HeadlessHost host({100, 100});
        UIView::animateWithDuration(
            1.0, 0.0, linear, [&] { view->setAlpha(0.0); }, [view, &calls](bool) { ++calls; });
    }
    KivUICore::Headless::HeadlessHost next({100, 100});
    next.window()->addSubview(view);
    next.advance(2.0);
    EXPECT_TRUE(next.draw()->operations().size() < 5u) << "the view shows its model: nothing";
    view->removeFromSuperview();
    view.reset();
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(calls, 0);
}

// Closures

TEST_F(AnimatorTest, NestedAnimationsKeepTheirOwnTimes) {
    const auto other = makeView(CGRectMake(60, 60, 10, 10));
    animate(
        1.0,
        [&] {
            animate(
                0.25, [&] { other->setAlpha(0.0); }, "inner ");
            view->setAlpha(0.0);
        },
        "outer ");
    host.advance(0.25);
    EXPECT_EQ(log, Log{"inner finished"});
    EXPECT_NEAR(shownAlpha(), 0.75, 1e-9);
    host.advance(0.75);
    EXPECT_EQ(log, (Log{"inner finished", "outer finished"}));
}

TEST_F(AnimatorTest, NestedAnimationWithoutDurationIsThereAtOnce) {
    animate(1.0, [&] { animate(0.0, [&] { view->setAlpha(0.5); }); });
    EXPECT_EQ(shownAlpha(), 0.5);
}

TEST_F(AnimatorTest, ClosureMayTearDownWhatItAnimates) {
    animate(1.0, [&] {
        view->setAlpha(0.0);
        view->removeFromSuperview();
        view.reset();
    });
    host.advance(0.0);
    EXPECT_EQ(log, Log{"interrupted"});
}

TEST_F(AnimatorTest, ClosureMayDestroyTheHost) {
    auto other = std::make_unique<KivUICore::Headless::HeadlessHost>(CGSizeMake(10, 10));
    int calls = 0;
    UIView::animateWithDuration(
        1.0, 0.0, linear,
        [&] {
            view->setAlpha(0.5);
            other.reset();
            view->setFrame(CGRectMake(0, 0, 5, 5));
        },
        [&](bool) { ++calls; });
    host.advance(2.0);
    EXPECT_EQ(shownAlpha(), 0.5);
    EXPECT_EQ(shownFrame(), CGRectMake(0, 0, 5, 5));
    EXPECT_EQ(calls, 1) << "the loop of the view's host calls, not the one that was current";
}

TEST_F(AnimatorTest, ClosureMayDestroyTheCurrentHostBeforeAnythingChanges) {
    auto other = std::make_unique<KivUICore::Headless::HeadlessHost>(CGSizeMake(10, 10));
    int calls = 0;
    UIView::animateWithDuration(
        1.0, 0.0, linear,
        [&] {
            other.reset();
            view->setAlpha(0.5);
        },
        [&](bool) { ++calls; });
    host.advance(2.0);
    EXPECT_EQ(shownAlpha(), 0.5);
    EXPECT_EQ(calls, 1);
}

TEST_F(AnimatorTest, HostThatGoesInTheClosureTakesTheChangesOfItsViewsAlong) {
    auto other = std::make_unique<KivUICore::Headless::HeadlessHost>(CGSizeMake(10, 10));
    const auto inOther = makeView(CGRectMake(0, 0, 5, 5));
    other->window()->addSubview(inOther);
    UIView::animateWithDuration(1.0, 0.0, linear, [&] {
        view->setAlpha(0.5);
        inOther->setAlpha(0.5);
        other.reset();
        view->setFrame(CGRectMake(0, 0, 5, 5));
    });
    EXPECT_EQ(inOther->presentedAlpha(), 0.5);
    host.advance(1.0);
    EXPECT_EQ(shownFrame(), CGRectMake(0, 0, 5, 5));
}

TEST_F(AnimatorTest, ChangesAfterTheClosureAreNotPartOfIt) {
    animate(1.0, [&] { view->setAlpha(0.5); });
    view->setFrame(CGRectMake(10, 10, 5, 5));
    EXPECT_EQ(shownFrame(), CGRectMake(10, 10, 5, 5));
}

// Damage

TEST_F(AnimatorTest, EachFrameDamagesWhereTheViewWasAndIs) {
    view->setFrame(CGRectMake(0, 0, 10, 10));
    host.draw();
    animate(1.0, [&] { view->setFrame(CGRectMake(80, 0, 10, 10)); });
    host.draw();
    host.clock().advance(0.25);
    host.runLoop().turn();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 10, 10), CGRectMake(20, 0, 10, 10)));
    host.draw();
    host.clock().advance(0.75);
    host.runLoop().turn();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(20, 0, 10, 10), CGRectMake(80, 0, 10, 10)));
}

} // namespace
