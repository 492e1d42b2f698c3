#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;

/// A window with `outer` in it, and `inner` in the right half of that.
class UIWindowInputTest : public testing::Test {
protected:
    UIWindowInputTest() {
        inner->log = modal->log = modalInner->log = outer->log;
        outer->addSubview(inner);
        modal->addSubview(modalInner);
        window.addSubview(outer);
        log.clear();
    }

    void present() {
        window.addModalView(modal, outer);
        log.clear();
    }

    KivUICore::Headless::HeadlessHost host{{100, 100}};
    UIWindow& window = *host.window();
    std::shared_ptr<ProbeView> outer = makeProbe(CGRectMake(0, 0, 80, 80), "outer ");
    std::shared_ptr<ProbeView> inner = makeProbe(CGRectMake(40, 0, 40, 80), "inner ");
    std::shared_ptr<ProbeView> modal = makeProbe(CGRectMake(0, 0, 60, 100), "modal ");
    std::shared_ptr<ProbeView> modalInner = makeProbe(CGRectMake(0, 0, 20, 20), "modal inner ");
    Log& log = *outer->log;
    const UIKey key{UIKeyboardHIDUsage::None, "m", false};
};

// The wheel

TEST_F(UIWindowInputTest, TheWheelIsOfferedToTheViewThereAndThenToThoseAround) {
    EXPECT_FALSE(window.sendScroll({50, 10}, {0, -3}));
    EXPECT_EQ(log, (Log{"inner scrolled -3", "outer scrolled -3"}));
    log.clear();
    EXPECT_FALSE(window.sendScroll({10, 10}, {0, 4}));
    EXPECT_EQ(log, Log{"outer scrolled 4"});
}

TEST_F(UIWindowInputTest, WhoTakesTheWheelIsTheLastToHearOfIt) {
    CGPoint taken;
    inner->onScroll = [&](const CGPoint& delta) {
        taken = delta;
        return true;
    };
    EXPECT_TRUE(window.sendScroll({50, 10}, {2, -3}));
    EXPECT_EQ(taken, CGPointMake(2, -3));
    EXPECT_EQ(log, Log{"inner scrolled -3"});
}

TEST_F(UIWindowInputTest, TheWheelBesideEveryViewIsTakenByNobody) {
    EXPECT_FALSE(window.sendScroll({90, 90}, {0, 1}));
    EXPECT_FALSE(window.sendScroll({200, 200}, {0, 1}));
    EXPECT_EQ(log, Log());
}

TEST_F(UIWindowInputTest, AViewThatTheWheelTearsOutPassesNothingOn) {
    inner->onScroll = [&](const CGPoint&) {
        inner->removeFromSuperview();
        return false;
    };
    EXPECT_FALSE(window.sendScroll({50, 10}, {0, 1}));
    EXPECT_EQ(log, (Log{"inner scrolled 1", "inner out"}));
}

TEST_F(UIWindowInputTest, AModalViewKeepsTheWheelFromEverythingElse) {
    present();
    EXPECT_TRUE(window.sendScroll({10, 10}, {0, 1}));
    EXPECT_EQ(log, (Log{"modal inner scrolled 1", "modal scrolled 1"}));
    log.clear();
    EXPECT_TRUE(window.sendScroll({70, 10}, {0, 1}));
    EXPECT_TRUE(window.sendScroll({200, 10}, {0, 1}));
    EXPECT_EQ(log, Log());
    modal->removeFromSuperview();
    log.clear();
    EXPECT_FALSE(window.sendScroll({10, 10}, {0, 1}));
    EXPECT_EQ(log, Log{"outer scrolled 1"});
}

TEST_F(UIWindowInputTest, TheWheelInAModalViewIsOfferedUntilSomebodyTakesIt) {
    modalInner->onScroll = [](const CGPoint&) { return true; };
    present();
    EXPECT_TRUE(window.sendScroll({10, 10}, {0, 1}));
    EXPECT_EQ(log, Log{"modal inner scrolled 1"});
}

// Keys

TEST_F(UIWindowInputTest, WithoutAModalViewNobodyIsOfferedAKey) {
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_EQ(log, Log());
}

TEST_F(UIWindowInputTest, AKeyIsOfferedToTheModalViewInnermostViewsFirst) {
    present();
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_EQ(log, (Log{"modal inner key m", "modal key m"}));
    modalInner->onKey = [](const UIKey&) { return true; };
    log.clear();
    EXPECT_TRUE(window.sendKey(key));
    EXPECT_EQ(log, Log{"modal inner key m"});
    modalInner->setHidden(true);
    log.clear();
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_EQ(log, Log{"modal key m"});
}

TEST_F(UIWindowInputTest, AKeyMayTakeTheModalViewOut) {
    present();
    modalInner->onKey = [&](const UIKey&) {
        modal->removeFromSuperview();
        modal = nullptr;
        return true;
    };
    EXPECT_TRUE(window.sendKey(key));
    EXPECT_FALSE(window.sendKey(key));
}

TEST_F(UIWindowInputTest, OfTwoModalViewsTheLaterOneIsInFrontUntilItGoes) {
    present();
    const auto second = makeProbe(CGRectMake(0, 0, 60, 100), "second ");
    second->log = outer->log;
    window.addModalView(second, outer);
    EXPECT_EQ(window.modalView(), second);
    log.clear();
    window.sendKey(key);
    window.sendScroll({10, 10}, {0, 1});
    EXPECT_EQ(log, (Log{"second key m", "second scrolled 1"}));
    second->removeFromSuperview();
    EXPECT_EQ(window.modalView(), modal);
    modal->removeFromSuperview();
    EXPECT_EQ(window.modalView(), nullptr);
}

TEST_F(UIWindowInputTest, AModalViewIsNotHeldByMoreThanTheTree) {
    present();
    const std::weak_ptr<ProbeView> weak = modal;
    modal->removeFromSuperview();
    modal = nullptr;
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(window.modalView(), nullptr);
}

TEST_F(UIWindowInputTest, AModalViewThatTakesNoTouchesIsModalNoLonger) {
    present();
    modal->setUserInteractionEnabled(false);
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_FALSE(window.sendScroll({10, 10}, {0, 1}));
    EXPECT_EQ(log, Log{"outer scrolled 1"});
}

TEST_F(UIWindowInputTest, AModalViewGoesWithItsOwner) {
    const auto owner = makeProbe(CGRectMake(0, 0, 10, 10), "owner ");
    inner->addSubview(owner);
    window.addModalView(modal, owner);
    modalInner->removeFromSuperview();
    EXPECT_EQ(window.modalView(), modal);
    outer->removeFromSuperview();
    EXPECT_EQ(modal->superview(), nullptr);
    EXPECT_EQ(window.modalView(), nullptr);
}

TEST_F(UIWindowInputTest, AModalViewStaysWhenItsOwnerIsMerelyGone) {
    auto owner = makeProbe(CGRectMake(0, 0, 10, 10), "owner ");
    window.addModalView(modal, owner);
    owner = nullptr;
    inner->removeFromSuperview();
    EXPECT_EQ(window.modalView(), modal);
}

TEST_F(UIWindowInputTest, AModalViewThatIsPutElsewhereIsModalNoLonger) {
    present();
    outer->addSubview(modal);
    EXPECT_EQ(window.modalView(), nullptr);
}

} // namespace
