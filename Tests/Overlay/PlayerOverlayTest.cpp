#include "Player/Overlay/PlayerOverlay.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/Bottom/BottomBar.h"
#include "KivUICore/TopBar/TopBar.h"
#include "Platform/UIKit/UIColor.h"
#include "Tests/Overlay/Film/FakePlayback.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

namespace KivUICore::Overlay {

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
        host.window()->layoutIfNeeded();
    }

    void expectDocked(double width, double height) {
        EXPECT_EQ(drawnBars(host), (std::vector<CGRect>{CGRectMake(0.0, 0.0, width, 40.0),
                                                        CGRectMake(0.0, height - 40.0, width, 40.0)}));
        EXPECT_EQ(overlay.titleControls().bar()->view()->frame(), CGRectMake(0.0, 0.0, width, 40.0));
        EXPECT_EQ(overlay.transportControls().bar()->view()->frame(),
                  CGRectMake(0.0, height - 40.0, width, 40.0));
    }

    Headless::HeadlessHost host{{640.0, 360.0}};
    FakePlayback playback;
    FakeWindow window;
    PlayerOverlay overlay{host.window(), playback, window};
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
    playback.now.isPaused = true;
    playback.tell();
    resize(800.0, 450.0);
    host.advance(1.0);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    host.draw();
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(PlayerOverlayTest, WindowLowerThanTheBarsIsSurvived) {
    resize(10.0, 30.0);
    host.advance(1.0);
    EXPECT_EQ(overlay.transportControls().bar()->view()->frame(), CGRectMake(0.0, -10.0, 10.0, 40.0));
    resize(640.0, 360.0);
    host.advance(1.0);
    expectDocked(640.0, 360.0);
}

TEST_F(PlayerOverlayTest, ResizeTakesOneLayoutPassAndNoAnimation) {
    playback.now.isPaused = true;
    playback.tell();
    host.advance(1.0);
    for (const double width : {700.0, 750.0, 800.0}) {
        host.window()->setFrame(CGRectMake(0.0, 0.0, width, 450.0));
    }
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    host.draw();
    EXPECT_FALSE(host.window()->needsDisplay());
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    expectDocked(800.0, 450.0);
}

TEST_F(PlayerOverlayTest, LivesInTheTimeOfItsOwnHost) {
    playback.now.duration = 100.0;
    playback.tell();
    host.advance(1.0);
    Headless::HeadlessHost later({100.0, 100.0});
    overlay.pointerMoved({320.0, 100.0});
    overlay.showNotice("Muted");
    playback.now.position = 2.0;
    playback.tell();
    EXPECT_EQ(later.runLoop().timeUntilNextWork(), std::nullopt);
    later.advance(10.0);
    EXPECT_EQ(overlay.transportControls().bar()->view()->alpha(), 1.0);
    host.advance(10.0);
    EXPECT_EQ(overlay.transportControls().bar()->view()->alpha(), 0.0);
}

} // namespace

} // namespace KivUICore::Overlay
