#include "Hosts/Headless/HeadlessHost.h"

#include "Platform/Foundation/NSTimer.h"
#include "Platform/UIKit/UIViewController.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using Foundation::NSRunLoop;
using Foundation::NSTimer;
using KivUICore::Headless::HeadlessHost;
using UIKit::UIView;

std::shared_ptr<NSTimer> schedule(double interval, bool repeats, const std::function<void()>& call) {
    return NSTimer::scheduledTimerWithTimeInterval(
        interval, repeats, std::function<void(NSTimer&)>([call](NSTimer&) { call(); }));
}

TEST(HeadlessHostTest, HasAWindowAndTheCurrentRunLoop) {
    HeadlessHost host({640, 360});
    EXPECT_EQ(host.window()->frame(), CGRectMake(0, 0, 640, 360));
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &host.runLoop());
    {
        HeadlessHost inner({1, 1});
        EXPECT_EQ(&NSRunLoop::currentRunLoop(), &inner.runLoop());
    }
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &host.runLoop());
}

TEST(HeadlessHostTest, AdvancingStopsWhereverThereIsWork) {
    HeadlessHost host({10, 10});
    std::vector<double> times;
    const auto note = [&] { times.push_back(host.clock().now()); };
    schedule(0.5, false, note);
    schedule(0.25, false, [&] {
        note();
        schedule(0.5, false, note);
    });
    host.advance(2.0);
    EXPECT_EQ(times, (std::vector<double>{0.25, 0.5, 0.75}));
    EXPECT_EQ(host.clock().now(), 2.0);
    EXPECT_EQ(host.runLoop().now(), 2.0);
}

TEST(HeadlessHostTest, AdvancingLeavesWhatIsLaterForLater) {
    HeadlessHost host({10, 10});
    int fired = 0;
    schedule(1.0, false, [&] { ++fired; });
    host.advance(0.9);
    EXPECT_EQ(fired, 0);
    host.advance(0.1);
    EXPECT_EQ(fired, 1);
}

TEST(HeadlessHostTest, AdvancingLandsOnTheTimeThatWasWantedWhateverThereIsToDo) {
    HeadlessHost host({10, 10});
    const auto view = makeView(CGRectMake(0, 0, 10, 10));
    host.window()->addSubview(view);
    int fired = 0;
    schedule(1.0 / 60.0, true, [&] { ++fired; });
    schedule(0.3, true,
             [&] { UIView::animateWithDuration(0.2, 0.0, 0, [&] { view->setAlpha(1.0 - view->alpha()); }); });
    for (int step = 1; step <= 600; ++step) {
        host.advance(0.1);
        ASSERT_DOUBLE_EQ(host.clock().now(), step * 0.1);
        ASSERT_EQ(host.runLoop().now(), host.clock().now());
        ASSERT_EQ(fired, step * 6);
    }
}

TEST(HeadlessHostTest, WhatIsDueJustAfterTheEndIsDoneWithoutGoingThere) {
    HeadlessHost host({10, 10});
    const auto view = makeView(CGRectMake(0, 0, 10, 10));
    int done = 0;
    schedule(1.0 + 5e-8, false, [&] { ++done; });
    UIView::animateWithDuration(
        1.0 + 5e-8, 0.0, 0, [&] { view->setAlpha(0.0); }, [&](bool) { ++done; });
    schedule(1.0 + 5e-7, false, [&] { ++done; });
    host.advance(1.0);
    EXPECT_EQ(done, 2);
    EXPECT_EQ(host.clock().now(), 1.0);
    host.advance(0.0);
    EXPECT_EQ(done, 2);
    host.advance(1.0);
    EXPECT_EQ(done, 3);
}

TEST(HeadlessHostTest, TimePassesEvenWhereAWaitIsTooShortToAddUp) {
    HeadlessHost host({10, 10});
    host.clock().set(1e12);
    int fired = 0;
    schedule(5e-5, false, [&] { ++fired; });
    host.advance(1.0);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(host.clock().now(), 1e12 + 1.0);
}

TEST(HeadlessHostTest, AdvancingByNothingIsOneTurn) {
    HeadlessHost host({10, 10});
    int fired = 0;
    schedule(0.0, true, [&] { ++fired; });
    host.advance(0.0);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(host.clock().now(), 0.0);
}

TEST(HeadlessHostTest, WorkThatIsAlwaysDueDoesNotHoldTimeUp) {
    HeadlessHost host({10, 10});
    int fired = 0;
    schedule(0.0, true, [&] { ++fired; });
    host.advance(1.0);
    EXPECT_NEAR(fired, 1000, 2);
    EXPECT_NEAR(host.clock().now(), 1.0, 1e-6);
}

TEST(HeadlessHostTest, ChainsOfAnyTimesEndInTime) {
    HeadlessHost host({10, 10});
    const auto view = makeView(CGRectMake(0, 0, 10, 10));
    host.window()->addSubview(view);
    for (int tenths = 1; tenths <= 30; ++tenths) {
        const double duration = tenths * 0.1;
        int completions = 0;
        const auto animate = [&](double alpha, std::function<void(bool)> completion) {
            UIView::animateWithDuration(
                duration, 0.0, 0, [&view, alpha] { view->setAlpha(alpha); }, std::move(completion));
        };
        animate(0.5, [&](bool) {
            ++completions;
            animate(1.0, [&](bool) {
                ++completions;
                schedule(duration, false, [&] { ++completions; });
            });
        });
        host.advance(duration);
        EXPECT_EQ(completions, 1) << duration;
        host.advance(duration);
        EXPECT_EQ(completions, 2) << duration;
        host.advance(duration);
        EXPECT_EQ(completions, 3) << duration;
    }
}

TEST(HeadlessHostTest, TouchesReachTheViewsOfItsWindow) {
    HeadlessHost host({100, 100});
    const auto view = makeProbe(CGRectMake(0, 0, 50, 50));
    host.window()->addSubview(view);
    view->log->clear();
    host.touchDown({10, 10}, 4);
    host.touchMove({20, 10}, 4);
    host.touchUp({20, 10}, 4);
    host.touchDown({10, 10});
    host.touchCancel();
    host.tap({10, 10});
    host.tap({90, 90});
    EXPECT_EQ(*view->log,
              (Log{"began 4", "moved 4", "ended 4", "began 0", "cancelled 0", "began 0", "ended 0"}));
}

TEST(HeadlessHostTest, DrawsWhatNeedsIt) {
    HeadlessHost host({100, 50});
    EXPECT_EQ(host.draw()->size(), CGSizeMake(100, 50));
    EXPECT_TRUE(host.draw()->operations().empty());
    host.window()->addSubview(makeView(CGRectMake(0, 0, 10, 10)));
    EXPECT_FALSE(host.draw()->operations().empty());
    EXPECT_TRUE(host.draw()->operations().empty());
}

TEST(HeadlessHostTest, ViewsTravelInTheTimeOfTheHostWhoseWindowTheyAreIn) {
    HeadlessHost first({100, 100});
    HeadlessHost second({100, 100});
    const auto inFirst = makeView(CGRectMake(0, 0, 10, 10));
    const auto inSecond = makeView(CGRectMake(0, 0, 10, 10));
    first.window()->addSubview(inFirst);
    second.window()->addSubview(inSecond);
    int completions = 0;
    UIView::animateWithDuration(
        1.0, 0.0, UIKit::UIViewAnimationOptionCurveLinear,
        [&] {
            inFirst->setAlpha(0.0);
            inSecond->setAlpha(0.0);
        },
        [&](bool finished) { completions += finished ? 1 : 0; });
    second.advance(0.5);
    EXPECT_EQ(inFirst->presentedAlpha(), 1.0);
    EXPECT_EQ(inSecond->presentedAlpha(), 0.5);
    second.advance(0.5);
    EXPECT_EQ(completions, 0) << "the view changed first is still on its way";
    first.advance(1.0);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(inFirst->presentedAlpha(), 0.0);
}

TEST(HeadlessHostTest, CompletionOfAChangeWithoutDurationComesWithTheTimeOfItsView) {
    HeadlessHost first({100, 100});
    const auto view = makeView(CGRectMake(0, 0, 10, 10));
    first.window()->addSubview(view);
    HeadlessHost second({100, 100});
    int completions = 0;
    UIView::animateWithDuration(
        0.0, 0.0, UIKit::UIViewAnimationOptionCurveLinear, [&] { view->setAlpha(0.5); },
        [&](bool /*finished*/) { ++completions; });
    EXPECT_EQ(view->presentedAlpha(), 0.5);
    second.advance(1.0);
    EXPECT_EQ(completions, 0);
    first.advance(0.0);
    EXPECT_EQ(completions, 1);
}

TEST(HeadlessHostTest, WhatAHostHandsInAndWhatItsLoopTurnsIsInItsTime) {
    HeadlessHost first({100, 100});
    const auto view = makeProbe(CGRectMake(0, 0, 100, 100));
    std::vector<NSRunLoop*> loops;
    const auto note = [&loops] { loops.push_back(&NSRunLoop::currentRunLoop()); };
    view->onTouch = [&note](const UIKit::UITouch& /*touch*/) { note(); };
    view->onScroll = [&note](const CGPoint& /*delta*/) {
        note();
        return true;
    };
    first.window()->addSubview(view);
    schedule(1.0, false, note);
    HeadlessHost second({100, 100});
    EXPECT_EQ(&view->runLoop(), &first.runLoop());
    first.tap({10, 10});
    first.window()->sendScroll({10, 10}, {0, 1});
    first.advance(1.0);
    EXPECT_EQ(loops, (std::vector<NSRunLoop*>(4, &first.runLoop())));
    EXPECT_EQ(&NSRunLoop::currentRunLoop(), &second.runLoop());
    view->removeFromSuperview();
    EXPECT_EQ(&view->runLoop(), &second.runLoop());
}

/// Tells whose time it is when it is laid out.
class TimedView : public UIView {
public:
    NSRunLoop* loop = nullptr;
    void layoutSubviews() override { loop = &NSRunLoop::currentRunLoop(); }
};

TEST(HeadlessHostTest, LayoutIsInTheTimeOfTheHost) {
    HeadlessHost first({100, 100});
    HeadlessHost second({100, 100});
    const auto view = Foundation::make<TimedView>(CGRectMake(0, 0, 10, 10));
    first.window()->addSubview(view);
    view->setNeedsLayout();
    first.advance(0.0);
    EXPECT_EQ(view->loop, &first.runLoop());
    view->loop = nullptr;
    view->setNeedsLayout();
    first.draw();
    EXPECT_EQ(view->loop, &first.runLoop());
}

TEST(HeadlessHostTest, PresentationsAreOverInTheTimeOfTheirHost) {
    HeadlessHost first({100, 100});
    HeadlessHost second({100, 100});
    const auto presenting = Foundation::make<UIKit::UIViewController>();
    const auto presented = Foundation::make<UIKit::UIViewController>();
    first.window()->addSubview(presenting->view());
    int calls = 0;
    const auto count = [&calls] { ++calls; };
    presenting->presentViewController(presented, false, count);
    first.advance(1.0);
    EXPECT_EQ(calls, 1);
    presenting->dismissViewControllerAnimated(false, count);
    first.advance(1.0);
    EXPECT_EQ(calls, 2);
    presenting->dismissViewControllerAnimated(false, count);
    first.advance(1.0);
    EXPECT_EQ(calls, 3);
}

TEST(HeadlessHostTest, ViewsOfALoopThatGoesAreDrawnWhereTheyEndUp) {
    const HeadlessHost other({10, 10});
    auto host = std::make_unique<HeadlessHost>(CGSize{200, 100});
    const auto window = host->window();
    const auto view = makeView(CGRectMake(0, 0, 10, 10));
    window->addSubview(view);
    UIView::animateWithDuration(1.0, 0.0, UIKit::UIViewAnimationOptionCurveLinear,
                                [&] { view->setFrame(CGRectMake(100, 0, 10, 10)); });
    host->advance(0.1);
    host->draw();
    ASSERT_FALSE(window->needsDisplay());
    host.reset();
    EXPECT_EQ(view->presentedFrame(), CGRectMake(100, 0, 10, 10));
    EXPECT_TRUE(window->damage().contains(CGRectMake(100, 0, 10, 10)));
}

} // namespace
