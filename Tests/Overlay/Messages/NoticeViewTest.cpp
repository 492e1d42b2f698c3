#include "Player/Overlay/Messages/NoticeView.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Looks/PlateView.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;
using Foundation::make;

constexpr CGRect area = CGRectMake(0.0, 40.0, 320.0, 100.0);

class NoticeViewTest : public testing::Test {
protected:
    NoticeViewTest() { host.window()->addSubview(notice); }

    /// The text that is drawn; nothing when none is.
    std::optional<std::string> shownText() {
        host.window()->setNeedsDisplayEverywhere();
        const std::shared_ptr<const CGDrawing> drawing = host.draw();
        for (const CGDrawing::Operation& operation : drawing->operations()) {
            if (const auto* text = std::get_if<CGDrawing::DrawText>(&operation)) {
                return text->text;
            }
        }
        return std::nullopt;
    }

    CGRect plateInWindow() const {
        host.window()->layoutIfNeeded();
        return notice->convertRectToView(notice->plate()->frame(), *host.window());
    }

    mutable Headless::HeadlessHost host{{320.0, 180.0}};
    std::shared_ptr<NoticeView> notice = make<NoticeView>(area);
};

TEST_F(NoticeViewTest, ShowsNothingAtFirst) {
    EXPECT_FALSE(notice->isShowing());
    EXPECT_EQ(shownText(), std::nullopt);
}

TEST_F(NoticeViewTest, ShortTextIsThereForTwoSecondsAndThenFades) {
    notice->show("Muted");
    EXPECT_EQ(shownText(), "Muted");
    host.advance(1.9);
    EXPECT_TRUE(notice->isShowing());
    EXPECT_EQ(notice->plate()->alpha(), 1.0);
    host.advance(0.2);
    EXPECT_TRUE(notice->isShowing());
    EXPECT_EQ(notice->plate()->alpha(), 0.0);
    host.advance(0.3);
    EXPECT_FALSE(notice->isShowing());
    EXPECT_EQ(shownText(), std::nullopt);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(NoticeViewTest, LongTextIsThereForLongerButNotForEver) {
    notice->show(std::string(80, 'n'));
    host.advance(4.0);
    EXPECT_TRUE(notice->isShowing());
    host.advance(1.5);
    EXPECT_FALSE(notice->isShowing());
    notice->show(std::string(5000, 'n'));
    host.advance(9.0);
    EXPECT_FALSE(notice->isShowing());
}

TEST_F(NoticeViewTest, NewerTextTakesThePlaceAtOnceAndHasItsOwnTime) {
    notice->show("Volume 70 %");
    host.advance(1.5);
    notice->show("Volume 75 %");
    EXPECT_EQ(shownText(), "Volume 75 %");
    host.advance(1.5);
    EXPECT_EQ(notice->plate()->alpha(), 1.0);
    host.advance(1.0);
    EXPECT_FALSE(notice->isShowing());
}

TEST_F(NoticeViewTest, TextInMidFadeIsFullyThereAgain) {
    notice->show("Volume 70 %");
    host.advance(2.1);
    notice->show("Volume 75 %");
    host.advance(1.0);
    EXPECT_TRUE(notice->isShowing());
    EXPECT_EQ(notice->plate()->alpha(), 1.0);
    EXPECT_EQ(shownText(), "Volume 75 %");
}

TEST_F(NoticeViewTest, EmptyTextTakesItAway) {
    notice->show("Muted");
    notice->show("");
    EXPECT_FALSE(notice->isShowing());
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(NoticeViewTest, KeptTextStaysUntilItIsTakenBack) {
    notice->keep("Opening a film…");
    EXPECT_EQ(shownText(), "Opening a film…");
    host.advance(60.0);
    EXPECT_EQ(notice->plate()->alpha(), 1.0);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    notice->keep("");
    EXPECT_FALSE(notice->isShowing());
}

TEST_F(NoticeViewTest, KeptTextComesBackAfterAPassingOne) {
    notice->keep("Opening a film…");
    notice->show("Muted");
    EXPECT_EQ(shownText(), "Muted");
    host.advance(2.4);
    EXPECT_EQ(shownText(), "Opening a film…");
    EXPECT_EQ(notice->plate()->alpha(), 1.0);
    notice->show("Muted");
    notice->show("");
    EXPECT_EQ(shownText(), "Opening a film…");
}

TEST_F(NoticeViewTest, PassingTextOutlivesTheKeptOne) {
    notice->keep("Opening a film…");
    notice->show("Cannot play it.");
    notice->keep("");
    EXPECT_EQ(shownText(), "Cannot play it.");
    host.advance(2.4);
    EXPECT_FALSE(notice->isShowing());
}

TEST_F(NoticeViewTest, LiesInTheMiddleNearTheTopOfItsArea) {
    notice->show("Muted");
    EXPECT_NEAR(CGRectGetMidX(plateInWindow()), 160.0, 0.5);
    EXPECT_GE(CGRectGetMinY(plateInWindow()), 40.0);
    EXPECT_LT(CGRectGetMaxY(plateInWindow()), 100.0);
}

TEST_F(NoticeViewTest, BreaksIntoAtMostThreeLinesInsideItsArea) {
    notice->show(std::string(500, 'n'));
    EXPECT_TRUE(CGRectContainsRect(area, plateInWindow()));
    EXPECT_EQ(notice->plate()->label()->numberOfLines(), 3);
}

TEST_F(NoticeViewTest, FollowsItsArea) {
    notice->show("Muted");
    notice->setFrame(CGRectMake(0.0, 40.0, 600.0, 300.0));
    EXPECT_NEAR(CGRectGetMidX(plateInWindow()), 300.0, 0.5);
    notice->setFrame(CGRectMake(0.0, 40.0, 10.0, 5.0));
    EXPECT_LE(CGRectGetWidth(plateInWindow()), 10.0);
}

TEST_F(NoticeViewTest, LetsTouchesThrough) {
    notice->show("Muted");
    EXPECT_EQ(host.window()->hitTest({160.0, 65.0}), host.window());
}

TEST_F(NoticeViewTest, IsNotKeptAliveByItsTimer) {
    notice->show("Muted");
    const std::weak_ptr<NoticeView> weak = notice;
    notice->removeFromSuperview();
    notice.reset();
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

} // namespace

} // namespace KivUICore::Overlay
