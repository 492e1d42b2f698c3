#include "Platform/UIKit/UIWindow.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/TestViews.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class UIWindowTest : public testing::Test {
protected:
    void SetUp() override { host.draw(); }

    /// What needs drawing since it was asked last.
    std::vector<CGRect> damage() {
        const std::vector<CGRect> rects(window.damage().rects().begin(), window.damage().rects().end());
        host.draw();
        return rects;
    }

    void add(const std::shared_ptr<UIView>& added) {
        window.addSubview(added);
        host.draw();
    }

    KivUICore::Headless::HeadlessHost host{{100, 100}};
    UIWindow& window = *host.window();
    std::shared_ptr<UIView> view = makeView(CGRectMake(10, 10, 20, 20));
};

using UIWindowDamageTest = UIWindowTest;
using UIWindowDeathTest = UIWindowTest;

// Damage

TEST(UIWindowInitialTest, NeedsAllOfItsDisplayAtFirst) {
    KivUICore::Headless::HeadlessHost host({100, 50});
    ASSERT_TRUE(host.window()->needsDisplay());
    EXPECT_EQ(host.window()->damage().rects()[0], CGRectMake(0, 0, 100, 50));
    host.draw();
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(UIWindowDamageTest, NothingIsDrawnWhenNothingChanged) {
    add(view);
    const auto inside = makeView(CGRectMake(0, 0, 5, 5));
    view->addSubview(inside);
    host.draw();
    view->setFrame(view->frame());
    view->setCenter(view->center());
    view->setBounds(view->bounds());
    view->setTransform({});
    view->setAlpha(1.0);
    view->setHidden(false);
    view->setOpaque(true);
    view->setClipsToBounds(false);
    view->setBackgroundColor(view->backgroundColor());
    view->setBackgroundColor(make<UIColor>(1.0, 0.0, 0.0, 1.0));
    view->setUserInteractionEnabled(false);
    view->setAutoresizingMask(5);
    window.bringSubviewToFront(view);
    window.sendSubviewToBack(view);
    window.addSubview(view);
    view->insertSubview(inside, 0);
    host.advance(1.0);
    EXPECT_FALSE(window.needsDisplay());
    EXPECT_TRUE(host.draw()->operations().empty());
}

TEST_F(UIWindowDamageTest, MovingDamagesWhereTheViewWasAndIs) {
    add(view);
    view->setFrame(CGRectMake(50, 60, 20, 20));
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 20, 20), CGRectMake(50, 60, 20, 20)));
    view->setCenter({61, 70});
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(50, 60, 21, 20)));
}

TEST_F(UIWindowDamageTest, ComingGoingAndChangingDamageTheView) {
    window.addSubview(view);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 20, 20)));
    view->setNeedsDisplay();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 20, 20)));
    view->setAlpha(0.5);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 20, 20)));
    view->setBackgroundColor(nullptr);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 20, 20)));
    view->setBounds(CGRectMake(0, 0, 10, 10));
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 20, 20)));
    view->setTransform(CGAffineTransformMakeScale(4, 4));
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 40, 40)));
    view->setHidden(true);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 40, 40)));
    view->setHidden(false);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 40, 40)));
    view->removeFromSuperview();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 40, 40)));
}

TEST_F(UIWindowDamageTest, ReorderingDamagesTheViewThatMoves) {
    const auto other = makeView(CGRectMake(20, 20, 20, 20));
    add(view);
    add(other);
    window.bringSubviewToFront(window.subviews()[0]);
    EXPECT_THAT(damage(), UnorderedElementsAre(view->frame()));
    window.sendSubviewToBack(window.subviews()[1]);
    EXPECT_THAT(damage(), UnorderedElementsAre(view->frame()));
    window.addSubview(view);
    EXPECT_THAT(damage(), UnorderedElementsAre(view->frame()));
    window.insertSubview(view, 0);
    EXPECT_THAT(damage(), UnorderedElementsAre(view->frame()));
}

TEST_F(UIWindowDamageTest, SubviewsThatReachOutBelongToTheView) {
    const auto inside = makeView(CGRectMake(15, 15, 20, 20));
    view->addSubview(inside);
    add(view);
    view->setHidden(true);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 35, 35)));
    view->setHidden(false);
    damage();
    inside->setHidden(true);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(25, 25, 20, 20)));
    view->setHidden(true);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 20, 20)));
}

TEST_F(UIWindowDamageTest, WhatIsCutOffOrOutsideIsNoDamage) {
    const auto inside = makeView(CGRectMake(15, 15, 20, 20));
    view->addSubview(inside);
    view->setClipsToBounds(true);
    add(view);
    inside->setNeedsDisplay();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(25, 25, 5, 5)));
    view->setClipsToBounds(false);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 35, 35)));
    view->setFrame(CGRectMake(200, 200, 20, 20));
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 35, 35)));
    view->setNeedsDisplay();
    EXPECT_THAT(damage(), IsEmpty());
}

TEST_F(UIWindowDamageTest, HiddenTransparentAndDetachedViewsDoNoDamage) {
    const auto inside = makeView(CGRectMake(0, 0, 5, 5));
    view->addSubview(inside);
    const auto change = [&] {
        inside->setFrame(CGRectMake(1, 1, 7, 7));
        inside->setNeedsDisplay();
        inside->setBackgroundColor(nullptr);
        inside->setFrame(CGRectMake(0, 0, 5, 5));
        inside->setBackgroundColor(make<UIColor>(1.0, 1.0));
    };
    change();
    EXPECT_THAT(damage(), IsEmpty());
    add(view);
    change();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(10, 10, 8, 8)));
    view->setHidden(true);
    damage();
    change();
    EXPECT_THAT(damage(), IsEmpty());
    view->setHidden(false);
    view->setAlpha(0.0);
    damage();
    change();
    EXPECT_THAT(damage(), IsEmpty());
}

TEST_F(UIWindowDamageTest, TurnedViewsDamageTheRectangleAroundThem) {
    add(view);
    view->setTransform(CGAffineTransformMakeRotation(std::numbers::pi / 4));
    // Half a diagonal of 20√2 about (20, 20), rounded outwards.
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(5, 5, 30, 30)));
}

TEST_F(UIWindowDamageTest, DamageCoversWholePixels) {
    window.setContentScale(1.5);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 100, 100)));
    for (const CGFloat start : {0.0, 0.1, 0.5, 1.0 / 3.0, 2.0 / 3.0, 7.7}) {
        for (const CGFloat length : {0.01, 1.0 / 3.0, 1.0, 12.34}) {
            const auto small = makeView(CGRectMake(start, start, length, length));
            window.addSubview(small);
            const std::vector<CGRect> rects = damage();
            ASSERT_EQ(rects.size(), 1u);
            EXPECT_TRUE(CGRectContainsRect(rects[0], small->frame()));
            for (const CGFloat edge : {CGRectGetMinX(rects[0]), CGRectGetMaxX(rects[0])}) {
                EXPECT_NEAR(edge * 1.5, std::round(edge * 1.5), 1e-9);
            }
            EXPECT_LE(rects[0].size.width, length + 2.0 / 1.5 + 1e-9);
            small->removeFromSuperview();
            damage();
        }
    }
}

TEST_F(UIWindowDamageTest, NewScaleOrLostPixelsNeedEverything) {
    window.setContentScale(1.0);
    EXPECT_THAT(damage(), IsEmpty());
    window.setContentScale(2.0);
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 100, 100)));
    window.setNeedsDisplayEverywhere();
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 100, 100)));
}

TEST_F(UIWindowDamageTest, ResizedWindowNeedsEverythingAndNoMore) {
    window.setFrame(CGRectMake(0, 0, 50, 40));
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 50, 40)));
    window.setFrame(CGRectMake(0, 0, 80, 90));
    EXPECT_THAT(damage(), UnorderedElementsAre(CGRectMake(0, 0, 80, 90)));
}

TEST_F(UIWindowDamageTest, EachDamagedRectangleIsClearedAndDrawnOnce) {
    const auto far = makeView(CGRectMake(80, 80, 10, 10));
    add(view);
    add(far);
    view->setNeedsDisplay();
    view->setNeedsDisplay();
    far->setNeedsDisplay();
    std::vector<CGRect> cleared;
    std::size_t filled = 0;
    const auto drawing = host.draw();
    for (const CGDrawing::Operation& operation : drawing->operations()) {
        if (const auto* clear = std::get_if<CGDrawing::ClearRect>(&operation)) {
            cleared.push_back(clear->rect);
        }
        filled += std::holds_alternative<CGDrawing::FillRect>(operation) ? 1u : 0u;
    }
    EXPECT_THAT(cleared, UnorderedElementsAre(view->frame(), far->frame()));
    EXPECT_EQ(filled, 2u);
}

TEST_F(UIWindowDeathTest, ScaleIsANumberAboveZero) {
    for (const CGFloat scale : {0.0, -1.0, notANumber, infinity}) {
        EXPECT_DEATH(window.setContentScale(scale), "Fatal error: A window's content scale");
    }
}

// Touches

class UIWindowTouchTest : public UIWindowTest {
protected:
    void SetUp() override {
        right->log = left->log;
        window.addSubview(left);
        window.addSubview(right);
        log->clear();
    }

    std::shared_ptr<ProbeView> left = makeProbe(CGRectMake(0, 0, 50, 100), "left ");
    std::shared_ptr<ProbeView> right = makeProbe(CGRectMake(50, 0, 50, 100), "right ");
    std::shared_ptr<Log> log = left->log;
};

TEST_F(UIWindowTouchTest, TouchIsCapturedByTheViewItBeganOn) {
    host.touchDown({10, 10});
    host.touchMove({90, 10});
    host.touchUp({500, 500});
    host.touchMove({10, 10});
    EXPECT_EQ(*log, (Log{"left began 0", "left moved 0", "left ended 0"}));
}

TEST_F(UIWindowTouchTest, SeveralAtOnceGoTheirOwnWays) {
    host.touchDown({10, 10}, 7);
    host.touchDown({60, 10}, -3);
    host.touchDown({20, 20}, 8);
    host.touchMove({60, 20}, 7);
    host.touchUp({10, 20}, -3);
    host.touchCancel(7);
    host.touchUp({10, 20}, 8);
    EXPECT_EQ(*log, (Log{"left began 7", "right began -3", "left began 8", "left moved 7", "right ended -3",
                         "left cancelled 7", "left ended 8"}));
}

TEST_F(UIWindowTouchTest, StepsOfATouchThatIsNotDownAreIgnored) {
    host.touchMove({10, 10}, 1);
    host.touchUp({10, 10}, 1);
    host.touchCancel(1);
    EXPECT_EQ(*log, Log{});
}

TEST_F(UIWindowTouchTest, BeginningTwiceIsIgnored) {
    host.touchDown({10, 10});
    host.touchDown({60, 10});
    host.touchUp({60, 10});
    EXPECT_EQ(*log, (Log{"left began 0", "left ended 0"}));
    host.touchDown({60, 10});
    EXPECT_EQ(log->back(), "right began 0");
}

TEST_F(UIWindowTouchTest, TouchThatHitsNothingIsNotFollowed) {
    host.touchDown({-5, 10});
    host.touchMove({10, 10});
    host.touchDown({notANumber, 10});
    host.touchUp({10, 10});
    EXPECT_EQ(*log, Log{});
}

TEST_F(UIWindowTouchTest, CancellingTellsEachOnce) {
    host.touchDown({10, 10}, 1);
    host.touchDown({60, 10}, 2);
    log->clear();
    window.cancelTouches();
    host.touchUp({10, 10}, 1);
    window.cancelTouches();
    EXPECT_EQ(*log, (Log{"left cancelled 1", "right cancelled 2"}));
}

TEST_F(UIWindowTouchTest, ViewRemovedInMidTouchHearsItsCancelAndNothingAfter) {
    host.touchDown({10, 10}, 1);
    host.touchDown({60, 10}, 2);
    log->clear();
    left->removeFromSuperview();
    host.touchMove({20, 20}, 1);
    host.touchUp({20, 20}, 1);
    EXPECT_EQ(*log, (Log{"left cancelled 1", "left out"}));
    host.touchUp({60, 10}, 2);
    EXPECT_EQ(log->back(), "right ended 2");
}

TEST_F(UIWindowTouchTest, RemovalOfWhatItIsInCancelsToo) {
    const auto group = make<UIView>(CGRectMake(0, 0, 100, 100));
    window.addSubview(group);
    group->addSubview(left);
    log->clear();
    host.touchDown({10, 10});
    group->removeFromSuperview();
    host.touchUp({10, 10});
    EXPECT_EQ(*log, (Log{"left began 0", "left cancelled 0", "left out"}));
}

TEST_F(UIWindowTouchTest, CancellationOfARemovedViewIsHandedOn) {
    const auto inside = make<UIView>(CGRectMake(0, 0, 50, 100));
    left->addSubview(inside);
    host.touchDown({10, 10});
    inside->removeFromSuperview();
    host.touchUp({10, 10});
    EXPECT_EQ(*log, (Log{"left began 0", "left cancelled 0"}));
}

TEST_F(UIWindowTouchTest, MovingTheViewElsewhereCancels) {
    const auto other = make<UIWindow>(CGRectMake(0, 0, 100, 100));
    host.touchDown({10, 10});
    other->addSubview(left);
    host.touchMove({10, 10});
    EXPECT_EQ(*log, (Log{"left began 0", "left cancelled 0", "left out", "left in"}));
}

TEST_F(UIWindowTouchTest, ReorderingDoesNotCancel) {
    host.touchDown({10, 10});
    window.addSubview(left);
    window.sendSubviewToBack(left);
    host.touchUp({10, 10});
    EXPECT_EQ(*log, (Log{"left began 0", "left ended 0"}));
}

TEST_F(UIWindowTouchTest, CancelledViewMayEndOtherTouches) {
    host.touchDown({10, 10}, 1);
    host.touchDown({20, 10}, 2);
    log->clear();
    left->onTouch = [&](const UITouch&) { host.touchUp({20, 10}, 2); };
    left->removeFromSuperview();
    EXPECT_EQ(*log, (Log{"left cancelled 1", "left ended 2", "left out"}));
}

TEST_F(UIWindowTouchTest, ViewsOfATornDownWindowHearTheirCancel) {
    auto gone = make<UIWindow>(CGRectMake(0, 0, 100, 100));
    gone->addSubview(left);
    log->clear();
    gone->sendTouch(5, UITouchPhase::Began, {10, 10});
    const std::weak_ptr<UIWindow> weak = gone;
    gone.reset();
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(*log, (Log{"left began 5", "left cancelled 5", "left out"}));
}

TEST_F(UIWindowTouchTest, TouchOnTheWindowItselfDoesNotHoldIt) {
    auto gone = make<UIWindow>(CGRectMake(0, 0, 100, 100));
    gone->sendTouch(5, UITouchPhase::Began, {10, 10});
    const std::weak_ptr<UIWindow> weak = gone;
    gone.reset();
    EXPECT_TRUE(weak.expired());
}

TEST_F(UIWindowTouchTest, HitTestThatTouchesIsNoSurprise) {
    class Restless : public UIView {
    public:
        std::function<void()> onHitTest;
        std::shared_ptr<UIView> hitTest(const CGPoint& point) override {
            onHitTest();
            return UIView::hitTest(point);
        }
    };
    const auto restless = make<Restless>(CGRectMake(0, 0, 100, 100));
    host.touchDown({10, 10}, 1);
    restless->onHitTest = [&] { host.touchUp({10, 10}, 1); };
    window.addSubview(restless);
    host.touchDown({10, 10}, 2);
    host.touchUp({10, 10}, 2);
    EXPECT_EQ(*log, (Log{"left began 1", "left ended 1"}));
}

// Modal views

class UIWindowOrderTest : public UIWindowTest {
protected:
    UIWindowOrderTest() {
        window.addSubview(owner);
        window.addSubview(view);
        window.addModalView(modal, owner);
    }

    std::vector<std::shared_ptr<UIView>> order() const { return window.subviews(); }

    std::shared_ptr<UIView> owner = makeView(CGRectMake(0, 0, 100, 100));
    std::shared_ptr<UIView> modal = makeView(CGRectMake(0, 0, 100, 100));
    std::shared_ptr<UIView> other = makeView(CGRectMake(0, 0, 50, 50));
};

TEST_F(UIWindowOrderTest, WhatIsAddedOrRaisedStaysBehindAModalView) {
    window.addSubview(other);
    EXPECT_EQ(order(), (std::vector{owner, view, other, modal}));
    window.bringSubviewToFront(view);
    EXPECT_EQ(order(), (std::vector{owner, other, view, modal}));
    window.addSubview(owner);
    EXPECT_EQ(order(), (std::vector{other, view, owner, modal}));
    window.insertSubview(other, 3);
    EXPECT_EQ(order(), (std::vector{view, owner, other, modal}));
    EXPECT_EQ(window.hitTest({10, 10}), modal);
}

TEST_F(UIWindowOrderTest, PlacesBehindAModalViewAreTakenAsGiven) {
    window.insertSubview(other, 1);
    EXPECT_EQ(order(), (std::vector{owner, other, view, modal}));
    window.sendSubviewToBack(view);
    EXPECT_EQ(order(), (std::vector{view, owner, other, modal}));
}

TEST_F(UIWindowOrderTest, AModalViewIsNotSentBehindTheOthers) {
    window.sendSubviewToBack(modal);
    EXPECT_EQ(order(), (std::vector{owner, view, modal}));
    const auto second = makeView(CGRectMake(0, 0, 100, 100));
    window.addModalView(second, modal);
    EXPECT_EQ(order(), (std::vector{owner, view, modal, second}));
    window.bringSubviewToFront(modal);
    EXPECT_EQ(order(), (std::vector{owner, view, second, modal}));
}

TEST_F(UIWindowOrderTest, OverOneThatTakesNoTouchesAnyMoreOthersAreRaised) {
    modal->setUserInteractionEnabled(false);
    window.addSubview(other);
    EXPECT_EQ(order(), (std::vector{owner, view, modal, other}));
}

TEST_F(UIWindowOrderTest, WithoutViewOrOwnerThereIsNoModalView) {
    EXPECT_DEATH(window.addModalView(nullptr, owner),
                 "Fatal error: No view for 'addModalView' of class 'UIKit.UIWindow'");
    EXPECT_DEATH(window.addModalView(other, nullptr),
                 "Fatal error: No owner for 'addModalView' of class 'UIKit.UIWindow'");
}

} // namespace
