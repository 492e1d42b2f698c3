#include "Player/Overlay/Bars/AutoHidePolicy.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/Bottom/BottomBar.h"
#include "KivUICore/TopBar/TopBar.h"

#include <gtest/gtest.h>

namespace KivUICore::Overlay {

namespace {

using Foundation::make;
using Hold = AutoHidePolicy::Hold;

class AutoHidePolicyTest : public testing::Test {
protected:
    double alpha() const {
        EXPECT_EQ(top->view()->alpha(), bottom->view()->alpha());
        return top->view()->alpha();
    }

    // In no window.
    Headless::HeadlessHost host{{100.0, 100.0}};
    std::shared_ptr<UIKit::UIView> hostView =
        make<UIKit::UIView>(CoreGraphics::CGRectMake(0.0, 0.0, 640.0, 360.0));
    std::shared_ptr<KivUICore::TopBar> top = make<KivUICore::TopBar>(hostView);
    std::shared_ptr<KivUICore::BottomBar> bottom = make<KivUICore::BottomBar>(hostView);
    AutoHidePolicy policy{{top, bottom}, 3.0};
};

TEST_F(AutoHidePolicyTest, BarsHideTogetherAfterTheDelay) {
    host.advance(2.9);
    EXPECT_TRUE(policy.areBarsVisible());
    EXPECT_EQ(policy.reason(), "recent activity");
    host.advance(0.2);
    EXPECT_EQ(alpha(), 0.0);
    EXPECT_FALSE(policy.areBarsVisible());
    EXPECT_EQ(policy.reason(), "");
}

TEST_F(AutoHidePolicyTest, ActivityPutsTheHidingOff) {
    host.advance(2.0);
    policy.noteActivity();
    host.advance(2.9);
    EXPECT_EQ(alpha(), 1.0);
    host.advance(0.2);
    EXPECT_EQ(alpha(), 0.0);
}

TEST_F(AutoHidePolicyTest, ActivityBringsHiddenBarsBackForTheWholeDelay) {
    host.advance(10.0);
    policy.noteActivity();
    EXPECT_EQ(alpha(), 1.0);
    // Half a second of fading comes first.
    host.advance(3.4);
    EXPECT_EQ(alpha(), 1.0);
    host.advance(0.2);
    EXPECT_EQ(alpha(), 0.0);
}

TEST_F(AutoHidePolicyTest, ActivityTurnsAFadeAround) {
    host.advance(3.25);
    EXPECT_EQ(alpha(), 0.0);
    policy.noteActivity();
    EXPECT_EQ(alpha(), 1.0);
    host.advance(3.0);
    EXPECT_EQ(alpha(), 1.0);
}

TEST_F(AutoHidePolicyTest, EachHoldKeepsTheBarsAndSaysSo) {
    const std::vector<std::pair<Hold, std::string>> holds{
        {Hold::Paused, "paused"},
        {Hold::Ended, "ended"},
        {Hold::Error, "error"},
        {Hold::Menu, "menu"},
        {Hold::PointerOnBar, "pointer on a bar"},
        {Hold::Dragging, "dragging"},
    };
    for (const auto& [hold, reason] : holds) {
        policy.setHold(hold, true);
        EXPECT_EQ(policy.reason(), reason);
        host.advance(100.0);
        EXPECT_EQ(alpha(), 1.0) << reason;
        EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt) << reason;
        policy.setHold(hold, false);
        host.advance(2.9);
        EXPECT_EQ(alpha(), 1.0) << reason;
        host.advance(0.2);
        EXPECT_EQ(alpha(), 0.0) << reason;
    }
}

TEST_F(AutoHidePolicyTest, HoldShowsHiddenBars) {
    host.advance(10.0);
    policy.setHold(Hold::Paused, true);
    EXPECT_EQ(alpha(), 1.0);
    host.advance(10.0);
    EXPECT_EQ(alpha(), 1.0);
}

TEST_F(AutoHidePolicyTest, LastOfSeveralHoldsLetsGo) {
    policy.setHold(Hold::Paused, true);
    policy.setHold(Hold::Dragging, true);
    EXPECT_EQ(policy.reason(), "paused, dragging");
    policy.setHold(Hold::Paused, false);
    host.advance(10.0);
    EXPECT_EQ(policy.reason(), "dragging");
    EXPECT_EQ(alpha(), 1.0);
    policy.setHold(Hold::Dragging, false);
    host.advance(3.1);
    EXPECT_EQ(alpha(), 0.0);
}

TEST_F(AutoHidePolicyTest, ActivityDuringAHoldStartsNoCountdown) {
    policy.setHold(Hold::Paused, true);
    policy.noteActivity();
    host.advance(10.0);
    EXPECT_EQ(alpha(), 1.0);
}

TEST_F(AutoHidePolicyTest, SettingAHoldAgainChangesNothing) {
    policy.setHold(Hold::Paused, false);
    host.advance(2.0);
    policy.setHold(Hold::Paused, false);
    host.advance(1.1);
    EXPECT_EQ(alpha(), 0.0);
}

TEST_F(AutoHidePolicyTest, HoldThatComesWhileTheBarsFadeInOutlastsTheFade) {
    host.advance(10.0);
    policy.noteActivity();
    host.advance(0.25);
    policy.setHold(Hold::PointerOnBar, true);
    host.advance(10.0);
    EXPECT_EQ(alpha(), 1.0);
}

} // namespace

} // namespace KivUICore::Overlay
