#include "Player/Overlay/Messages/SpinnerView.h"

#include "Hosts/Headless/HeadlessHost.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <variant>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;
using Foundation::make;

class SpinnerViewTest : public testing::Test {
protected:
    /// The spoke that is drawn brightest, from the first that is drawn; nothing when no spoke is.
    std::optional<int> brightestSpoke() {
        std::optional<int> brightest;
        CGFloat most = 0.0;
        int index = 0;
        host.window()->setNeedsDisplayEverywhere();
        const std::shared_ptr<const CGDrawing> drawing = host.draw();
        for (const CGDrawing::Operation& operation : drawing->operations()) {
            const auto* fill = std::get_if<CGDrawing::FillRoundedRect>(&operation);
            if (fill && fill->color.red == 1.0) {
                if (fill->color.alpha > most) {
                    most = fill->color.alpha;
                    brightest = index;
                }
                ++index;
            }
        }
        EXPECT_TRUE(index == 0 || index == 12);
        return brightest;
    }

    Headless::HeadlessHost host{{320.0, 180.0}};
    std::shared_ptr<SpinnerView> spinner = make<SpinnerView>(CGRectMake(136.0, 66.0, 48.0, 48.0));
};

TEST_F(SpinnerViewTest, ShowsNothingAndDoesNothingUntilItIsStarted) {
    host.window()->addSubview(spinner);
    EXPECT_FALSE(spinner->isAnimating());
    EXPECT_EQ(brightestSpoke(), std::nullopt);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(SpinnerViewTest, GoesRoundOnceASecondSpokeBySpoke) {
    host.window()->addSubview(spinner);
    spinner->startAnimating();
    EXPECT_TRUE(spinner->isAnimating());
    EXPECT_EQ(brightestSpoke(), 0);
    for (int step = 1; step <= 12; ++step) {
        host.advance(1.0 / 12.0);
        EXPECT_EQ(brightestSpoke(), step % 12);
    }
}

TEST_F(SpinnerViewTest, DrawsNothingBetweenTwoSteps) {
    host.window()->addSubview(spinner);
    spinner->startAnimating();
    host.draw();
    host.advance(0.05);
    EXPECT_FALSE(host.window()->needsDisplay());
    host.advance(0.05);
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(SpinnerViewTest, StopsAtOnceAndLeavesNoWork) {
    host.window()->addSubview(spinner);
    spinner->startAnimating();
    spinner->stopAnimating();
    EXPECT_FALSE(spinner->isAnimating());
    EXPECT_EQ(brightestSpoke(), std::nullopt);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(SpinnerViewTest, StartingTwiceTurnsNoFaster) {
    host.window()->addSubview(spinner);
    spinner->startAnimating();
    spinner->startAnimating();
    host.advance(1.0 / 12.0);
    EXPECT_EQ(brightestSpoke(), 1);
    spinner->stopAnimating();
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(SpinnerViewTest, TurnsOnlyWhileItIsInAWindow) {
    spinner->startAnimating();
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    host.window()->addSubview(spinner);
    EXPECT_NE(host.runLoop().timeUntilNextWork(), std::nullopt);
    spinner->removeFromSuperview();
    EXPECT_TRUE(spinner->isAnimating());
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(SpinnerViewTest, IsNotKeptAliveByItsTimer) {
    host.window()->addSubview(spinner);
    spinner->startAnimating();
    const std::weak_ptr<SpinnerView> weak = spinner;
    spinner->removeFromSuperview();
    spinner.reset();
    EXPECT_TRUE(weak.expired());
    host.advance(1.0);
}

TEST_F(SpinnerViewTest, EndsWithTheWindowInMidTurn) {
    auto window = make<UIKit::UIWindow>(CGRectMake(0.0, 0.0, 320.0, 180.0));
    window->addSubview(spinner);
    spinner->startAnimating();
    spinner.reset();
    window.reset();
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    host.advance(1.0);
}

TEST_F(SpinnerViewTest, LetsTouchesThrough) {
    host.window()->addSubview(spinner);
    spinner->startAnimating();
    EXPECT_EQ(host.window()->hitTest({160.0, 90.0}), host.window());
}

} // namespace

} // namespace KivUICore::Overlay
