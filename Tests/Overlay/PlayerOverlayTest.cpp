#include "Player/Overlay/PlayerOverlay.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/Bottom/BottomBar.h"
#include "KivUICore/TopBar/TopBar.h"
#include "Platform/UIKit/UIColor.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace Overlay {

namespace {

using namespace CoreGraphics;

/// What is filled with the bars' black, as it is drawn: from the top.
std::vector<CGRect> drawnBars(Headless::HeadlessHost& host) {
    host.window()->setNeedsDisplayEverywhere();
    std::vector<CGRect> bars;
    CGPoint origin;
    const std::shared_ptr<const CGDrawing> drawing = host.draw();
    for (const CGDrawing::Operation& operation : drawing->operations()) {
        if (const auto* step = std::get_if<CGDrawing::Concatenate>(&operation)) {
            origin = {step->transform.tx, step->transform.ty};
        }
        const auto* fill = std::get_if<CGDrawing::FillRect>(&operation);
        if (fill && fill->color == CGColor{0.0, 0.0, 0.0, 0.65}) {
            bars.push_back(CGRectOffset(fill->rect, origin.x, origin.y));
        }
    }
    return bars;
}

class PlayerOverlayTest : public testing::Test {
protected:
    void resize(double width, double height) {
        host.window()->setFrame(CGRectMake(0.0, 0.0, width, height));
        overlay.hostViewWasResized();
    }

    void expectDocked(double width, double height) {
        EXPECT_EQ(drawnBars(host), (std::vector<CGRect>{CGRectMake(0.0, 0.0, width, 40.0),
                                                        CGRectMake(0.0, height - 40.0, width, 40.0)}));
        EXPECT_EQ(overlay.topBar()->view()->frame(), CGRectMake(0.0, 0.0, width, 40.0));
        EXPECT_EQ(overlay.bottomBar()->view()->frame(), CGRectMake(0.0, height - 40.0, width, 40.0));
    }

    Headless::HeadlessHost host{{640.0, 360.0}};
    PlayerOverlay overlay{host.window()};
};

TEST_F(PlayerOverlayTest, BarsLieAlongTheEdgesInBlack) { expectDocked(640.0, 360.0); }

TEST_F(PlayerOverlayTest, BarsAreDockedRightAfterAResizeAndStaySo) {
    resize(800.0, 450.0);
    expectDocked(800.0, 450.0);
    host.advance(0.25);
    expectDocked(800.0, 450.0);
    host.advance(1.0);
    expectDocked(800.0, 450.0);
}

TEST_F(PlayerOverlayTest, BarsKeepToTheEdgesWhileTheWindowIsDragged) {
    for (int step = 0; step < 30; ++step) {
        const double width = 640.0 + 10.0 * step;
        const double height = 360.0 - 5.0 * step;
        resize(width, height);
        host.advance(1.0 / 60.0);
        expectDocked(width, height);
    }
}

TEST_F(PlayerOverlayTest, NothingMovesOnceAResizeIsOver) {
    resize(800.0, 450.0);
    host.advance(1.0);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    host.draw();
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(PlayerOverlayTest, WindowLowerThanTheBarsIsSurvived) {
    resize(10.0, 30.0);
    host.advance(1.0);
    EXPECT_EQ(overlay.bottomBar()->view()->frame(), CGRectMake(0.0, -10.0, 10.0, 40.0));
    resize(640.0, 360.0);
    host.advance(1.0);
    expectDocked(640.0, 360.0);
}

std::optional<CGDrawing::DrawText> drawnText(Headless::HeadlessHost& host) {
    host.window()->setNeedsDisplayEverywhere();
    const std::shared_ptr<const CGDrawing> drawing = host.draw();
    for (const CGDrawing::Operation& operation : drawing->operations()) {
        if (const auto* text = std::get_if<CGDrawing::DrawText>(&operation)) {
            return *text;
        }
    }
    return std::nullopt;
}

TEST_F(PlayerOverlayTest, MessageIsShownAndReplaced) {
    EXPECT_FALSE(drawnText(host).has_value());
    overlay.showMessage("No such film.");
    ASSERT_TRUE(drawnText(host).has_value());
    EXPECT_EQ(drawnText(host)->text, "No such film.");
    overlay.showMessage("It broke off.");
    EXPECT_EQ(drawnText(host)->text, "It broke off.");
}

TEST_F(PlayerOverlayTest, MessageStaysInTheMiddleAndLetsTouchesThrough) {
    overlay.showMessage("No such film.");
    resize(1000.0, 600.0);
    const auto message = overlay.hostView()->subviews().back();
    EXPECT_EQ(message->center(), (CGPoint{500.0, 300.0}));
    EXPECT_EQ(host.window()->hitTest({500.0, 300.0}), overlay.hostView());
}

} // namespace

} // namespace Overlay
