#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Bars/TimeBubbleView.h"
#include "Player/Overlay/Bars/TimeLabel.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Tests/Overlay/Film/FakePlayback.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <variant>
#include <vector>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;

constexpr double hour = 3600.0;

class SmallWindowTest : public testing::Test {
protected:
    using Views = std::vector<std::shared_ptr<UIKit::UIView>>;

    void show(const CGSize& size, double duration) {
        playback.now.title = "A film";
        playback.now.duration = duration;
        playback.now.position = duration;
        playback.tell();
        host.window()->setFrame({{}, size});
        host.window()->layoutIfNeeded();
        host.advance(1.0);
    }

    const UIKit::UIView& titleBar() const { return *overlay.titleControls().bar()->view(); }
    const UIKit::UIView& transportBar() const { return *overlay.transportControls().bar()->view(); }

    static Views visibleSlots(const UIKit::UIView& bar) {
        Views slots = bar.subviews();
        slots.erase(
            std::remove_if(slots.begin(), slots.end(), [](const auto& slot) { return slot->isHidden(); }),
            slots.end());
        return slots;
    }

    /// What is in the bar's slots lies beside each other and inside the bar, and has room for its text.
    static void expectWhole(const UIKit::UIView& bar) {
        CGFloat x = 0.0;
        for (const auto& slot : visibleSlots(bar)) {
            EXPECT_GE(CGRectGetMinX(slot->frame()), x);
            x = CGRectGetMaxX(slot->frame());
            EXPECT_GE(CGRectGetWidth(slot->frame()), 40.0);
            if (const auto time = Foundation::as<TimeLabel>(slot->subviews().front())) {
                EXPECT_GE(CGRectGetWidth(time->frame()), time->sizeThatFits({}).width) << *time->text();
            }
        }
        EXPECT_LE(x, CGRectGetWidth(bar.bounds()));
    }

    std::vector<std::string> texts() {
        host.window()->setNeedsDisplayEverywhere();
        std::vector<std::string> texts;
        const std::shared_ptr<const CGDrawing> drawing = host.draw();
        for (const CGDrawing::Operation& operation : drawing->operations()) {
            if (const auto* text = std::get_if<CGDrawing::DrawText>(&operation)) {
                texts.emplace_back(text->text);
            }
        }
        return texts;
    }

    bool isShown(const std::string& text) {
        const std::vector<std::string> all = texts();
        return std::find(all.begin(), all.end(), text) != all.end();
    }

    Headless::HeadlessHost host{{640.0, 360.0}};
    FakePlayback playback;
    FakeWindow window;
    PlayerOverlay overlay{host.window(), playback, window};
};

TEST_F(SmallWindowTest, NothingOverlapsAndNoTimeIsCut) {
    for (const double duration : {20.0, 2.0 * hour, 100.0 * hour, 12345.0 * hour}) {
        for (const CGSize size : {CGSize{64, 64},
                                  {100, 100},
                                  {200, 100},
                                  {320, 180},
                                  {360, 640},
                                  {300, 600},
                                  {480, 480},
                                  {400, 300},
                                  {640, 360},
                                  {1280, 720},
                                  {64, 200},
                                  {90, 300}}) {
            SCOPED_TRACE(testing::Message() << size.width << "x" << size.height << ", " << duration);
            show(size, duration);
            expectWhole(transportBar());
            EXPECT_FALSE(transportBar().isHidden());
            if (!titleBar().isHidden()) {
                expectWhole(titleBar());
                EXPECT_FALSE(CGRectIntersectsRect(titleBar().frame(), transportBar().frame()));
            }
        }
    }
}

TEST_F(SmallWindowTest, TimeThatHasPassedStaysAsLongAsItHasRoom) {
    playback.now.isPaused = true;
    show({640.0, 360.0}, 100.0 * hour);
    EXPECT_EQ(texts(), (std::vector<std::string>{"A film", "100:00:00", "100:00:00"}));
    show({320.0, 180.0}, 20.0);
    EXPECT_EQ(texts(), (std::vector<std::string>{"A film", "00:20", "00:20"}));
    show({320.0, 180.0}, 2.0 * hour);
    EXPECT_EQ(texts(), (std::vector<std::string>{"A film", "02:00:00"}));
    show({200.0, 150.0}, 100.0 * hour);
    EXPECT_EQ(texts(), (std::vector<std::string>{"A film", "100:00:00"}));
    show({100.0, 100.0}, 2.0 * hour);
    EXPECT_EQ(visibleSlots(transportBar()).size(), 2U) << "play and the track";
    show({64.0, 64.0}, 2.0 * hour);
    EXPECT_EQ(visibleSlots(transportBar()).size(), 1U) << "play";
}

TEST_F(SmallWindowTest, FilmOfUnknownLengthGetsRoomForItsHours) {
    show({640.0, 360.0}, 0.0);
    playback.now.duration.reset();
    for (const double position : {59.0 * 60.0, hour, 100.0 * hour}) {
        playback.now.position = position;
        playback.tell();
        expectWhole(transportBar());
    }
}

TEST_F(SmallWindowTest, LowWindowHasNoTitleAndTheLowestNoBars) {
    show({200.0, 120.0}, 20.0);
    EXPECT_TRUE(isShown("A film"));
    show({200.0, 119.0}, 20.0);
    EXPECT_FALSE(isShown("A film"));
    EXPECT_TRUE(isShown("00:20"));
    EXPECT_EQ(host.window()->hitTest({100.0, 10.0}), overlay.hostView());
    playback.takeStory();
    host.tap({24.0, 20.0});
    EXPECT_EQ(window.closed, 0) << "the button that goes back is not there";
    show({200.0, 47.0}, 20.0);
    EXPECT_TRUE(texts().empty());
    show({640.0, 360.0}, 20.0);
    EXPECT_TRUE(isShown("A film"));
}

TEST_F(SmallWindowTest, BarThatIsNotThereIsNotHeldByThePointer) {
    show({200.0, 100.0}, 20.0);
    overlay.pointerMoved({100.0, 10.0});
    host.advance(10.0);
    EXPECT_FALSE(overlay.autoHidePolicy().areBarsVisible());
}

TEST_F(SmallWindowTest, ReasonOfAnErrorCanBeReadAndTriedAgain) {
    const PlaybackError error{PlaybackError::Kind::Unplayable, "a.mkv", "no such file"};
    playback.now.error = error;
    for (const CGSize size : {CGSize{200, 100}, {100, 100}, {320, 180}}) {
        SCOPED_TRACE(testing::Message() << size.width << "x" << size.height);
        show(size, 20.0);
        EXPECT_TRUE(isShown("No such file."));
        playback.takeStory();
        bool isPressed = false;
        for (double y = 0.0; y < size.height - 40.0 && !isPressed; y += 5.0) {
            for (double x = 0.0; x < size.width && !isPressed; x += 5.0) {
                const auto view = host.window()->hitTest({x, y});
                const auto button = Foundation::as<UIKit::UIButton>(view);
                if (button && !button->isDescendantOfView(titleBar())) {
                    host.tap({x, y});
                    isPressed = true;
                }
            }
        }
        EXPECT_EQ(playback.takeStory(), std::vector<std::string>{"retry"});
        playback.now.error = error;
        playback.tell();
    }
    show({64.0, 64.0}, 20.0);
    EXPECT_TRUE(texts().empty()) << "half a line is worse than none";
}

TEST_F(SmallWindowTest, BubbleGoesWhereThereIsNoRoomAboveTheBar) {
    show({200.0, 100.0}, 20.0);
    overlay.pointerMoved({120.0, 80.0});
    EXPECT_FALSE(overlay.scrubBubble().view()->isHidden());
    show({200.0, 64.0}, 20.0);
    overlay.pointerMoved({121.0, 44.0});
    EXPECT_TRUE(overlay.scrubBubble().view()->isHidden());
}

} // namespace

} // namespace KivUICore::Overlay
