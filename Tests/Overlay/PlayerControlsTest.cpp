#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIKey.h"
#include "Player/Overlay/Bars/TimeBubbleView.h"
#include "Player/Overlay/Messages/SpinnerView.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/Overlay/Film/FakePlayback.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <variant>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;
using UIKit::UIKey;
using UIKit::UIKeyboardHIDUsage;
using Story = std::vector<std::string>;

const PlaybackError unplayable{PlaybackError::Kind::Unplayable, "a.mkv", "no such file"};

// In a window of 640 by 360 points.
constexpr CGPoint picture{320.0, 180.0};
constexpr CGPoint backButton{24.0, 20.0};
constexpr CGPoint playButton{26.0, 340.0};
constexpr CGPoint trackStart{104.0, 340.0};
constexpr CGPoint trackMiddle{298.0, 340.0};
constexpr CGPoint trackEnd{492.0, 340.0};
constexpr CGPoint lengthLabel{524.0, 340.0};
constexpr CGPoint muteButton{570.0, 340.0};
constexpr CGPoint fullScreenButton{614.0, 340.0};

class PlayerControlsTest : public testing::Test {
protected:
    PlayerControlsTest() {
        playback.now.title = "A film";
        playback.now.duration = 100.0;
        playback.tell();
    }

    Story tap(const CGPoint& point) {
        host.tap(point);
        return playback.takeStory();
    }

    Story press(const UIKey& key) {
        EXPECT_TRUE(overlay.handleKey(key));
        return playback.takeStory();
    }
    Story press(const char* character) { return press(UIKey{UIKeyboardHIDUsage::None, character}); }

    bool isVisible() const { return overlay.autoHidePolicy().areBarsVisible(); }
    std::string reason() const { return overlay.autoHidePolicy().reason(); }

    /// All texts that are drawn, from back to front.
    Story texts() {
        host.window()->setNeedsDisplayEverywhere();
        Story texts;
        const std::shared_ptr<const CGDrawing> drawing = host.draw();
        for (const CGDrawing::Operation& operation : drawing->operations()) {
            if (const auto* text = std::get_if<CGDrawing::DrawText>(&operation)) {
                texts.emplace_back(text->text);
            }
        }
        return texts;
    }

    bool isSpinning() const {
        for (const auto& view : overlay.hostView()->subviews()) {
            if (const auto spinner = Foundation::as<SpinnerView>(view)) {
                return spinner->isAnimating();
            }
        }
        return false;
    }

    void open(double start) {
        playback.now.isOpening = true;
        playback.now.position = start;
        playback.now.duration.reset();
        playback.tell();
    }

    void finishOpening() {
        playback.now.isOpening = false;
        playback.now.duration = 100.0;
        playback.tell();
    }

    void play(double seconds) {
        constexpr int framesPerSecond = 25;
        for (int frame = 0; frame < seconds * framesPerSecond; ++frame) {
            host.advance(1.0 / framesPerSecond);
            playback.now.position += 1.0 / framesPerSecond;
            playback.tell();
        }
    }

    Headless::HeadlessHost host{{640.0, 360.0}};
    FakePlayback playback;
    FakeWindow window;
    PlayerOverlay overlay{host.window(), playback, window};
};

TEST_F(PlayerControlsTest, PlayButtonPausesAndGoesOn) {
    EXPECT_EQ(tap(playButton), Story{"pause"});
    EXPECT_EQ(tap(playButton), Story{"play"});
}

TEST_F(PlayerControlsTest, PlayButtonPlaysAnEndedFilmAgain) {
    playback.now.hasEnded = true;
    playback.tell();
    EXPECT_EQ(tap(playButton), Story{"play"});
}

TEST_F(PlayerControlsTest, EndedFilmIsAtItsEndThoughItsLastPictureIsBeforeThat) {
    playback.now.position = 99.97;
    playback.now.hasEnded = true;
    playback.tell();
    EXPECT_EQ(texts()[1], "01:40");
    EXPECT_EQ(overlay.transportControls().scrubTime(), 100.0);
}

TEST_F(PlayerControlsTest, FilmThatBreaksOffIsAtTheBreakAndGoesBackFromThere) {
    playback.now.position = 30.0;
    playback.now.hasEnded = true;
    playback.tell();
    EXPECT_EQ(texts()[1], "00:30");
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::LeftArrow, ""}), Story{"exact 25"});
}

TEST_F(PlayerControlsTest, MuteButtonSwitchesTheSoundOffAndOn) {
    EXPECT_EQ(tap(muteButton), Story{"mute"});
    EXPECT_EQ(tap(muteButton), Story{"unmute"});
}

TEST_F(PlayerControlsTest, BarsShowTitleAndTimes) {
    playback.now.position = 61.9;
    playback.tell();
    EXPECT_EQ(texts(), (Story{"A film", "01:01", "01:40"}));
}

TEST_F(PlayerControlsTest, HandleIsAtItsPlaceAsSoonAsTheLengthIsKnown) {
    playback.now.duration = 200.0;
    playback.now.position = 100.0;
    playback.tell();
    EXPECT_EQ(overlay.transportControls().scrubTime(), 100.0);
    host.draw();
    host.advance(0.1);
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(PlayerControlsTest, LengthShowsWhatRemainsAfterAPressAndBack) {
    playback.now.position = 61.9;
    playback.tell();
    EXPECT_EQ(tap(lengthLabel), Story());
    EXPECT_EQ(texts(), (Story{"A film", "01:01", "-00:39"}));
    tap(lengthLabel);
    EXPECT_EQ(texts(), (Story{"A film", "01:01", "01:40"}));
}

TEST_F(PlayerControlsTest, AllOfAFilmRemainsAtItsStart) {
    tap(lengthLabel);
    EXPECT_EQ(texts(), (Story{"A film", "00:00", "-01:40"}));
}

TEST_F(PlayerControlsTest, TimesOfALongFilmHaveHours) {
    playback.now.duration = 7322.0;
    playback.now.position = 3661.0;
    playback.tell();
    EXPECT_EQ(texts(), (Story{"A film", "01:01:01", "02:02:02"}));
}

TEST_F(PlayerControlsTest, UnknownLengthShowsNoneAndTakesNoSeeks) {
    playback.now.duration.reset();
    playback.now.position = 5.0;
    playback.tell();
    EXPECT_EQ(texts(), (Story{"A film", "00:05"}));
    EXPECT_EQ(overlay.transportControls().scrubTime(), 0.0);
    EXPECT_EQ(tap(trackMiddle), Story());
}

TEST_F(PlayerControlsTest, TapOnTheTrackSeeksThere) {
    EXPECT_EQ(tap(trackMiddle), (Story{"key frame 50"}));
    playback.arrive();
    EXPECT_EQ(playback.takeStory(), (Story{"exact 50"}));
}

TEST_F(PlayerControlsTest, TapAtAnEndOfTheTrackSeeksToThatEnd) {
    EXPECT_EQ(tap({trackEnd.x + 5.0, trackEnd.y}), (Story{"key frame 100"}));
    playback.arrive();
    playback.arrive();
    playback.takeStory();
    EXPECT_EQ(tap({trackStart.x - 5.0, trackStart.y}), (Story{"key frame 0"}));
}

TEST_F(PlayerControlsTest, DragSeeksByKeyFramesOneAtATimeAndExactlyOnRelease) {
    host.touchDown(trackStart);
    EXPECT_EQ(playback.takeStory(), Story());
    host.touchMove({trackStart.x + 10.0, 340.0});
    host.touchMove({trackStart.x + 20.0, 340.0});
    host.touchMove(trackMiddle);
    EXPECT_EQ(playback.takeStory().size(), 1U);
    playback.arrive();
    EXPECT_EQ(playback.takeStory().back().substr(0, 9), "key frame");
    host.touchUp(trackMiddle);
    EXPECT_EQ(playback.takeStory(), Story());
    playback.arrive();
    const Story story = playback.takeStory();
    ASSERT_EQ(story.size(), 1U);
    EXPECT_EQ(story.back().substr(0, 6), "exact ");
}

TEST_F(PlayerControlsTest, PressOnTheHandleAloneLeavesTheFilmWhereItIs) {
    EXPECT_EQ(tap(trackStart), Story());
}

TEST_F(PlayerControlsTest, HandleAndTimeFollowThePointerAndNotTheFilm) {
    host.touchDown(trackMiddle);
    playback.now.position = 3.0;
    playback.tell();
    EXPECT_EQ(overlay.transportControls().scrubTime(), 50.0);
    EXPECT_EQ(texts()[1], "00:50");
    host.touchUp(trackMiddle);
    // The film is still on its way.
    playback.now.position = 4.0;
    playback.tell();
    EXPECT_EQ(overlay.transportControls().scrubTime(), 50.0);
    EXPECT_EQ(texts()[1], "00:50");
}

TEST_F(PlayerControlsTest, HeldHandleStaysWhileTheFilmArrivesAtAKeyFrameAndPlaysOn) {
    host.touchDown(trackMiddle);
    playback.seekTarget = 48.0;
    playback.arrive();
    playback.now.position = 49.0;
    playback.tell();
    host.advance(1.0);
    EXPECT_EQ(overlay.transportControls().scrubTime(), 50.0);
    EXPECT_EQ(texts()[1], "00:50");
    host.touchUp(trackMiddle);
}

TEST_F(PlayerControlsTest, PressOnTheHandleAfterADragLeavesTheFilmAlone) {
    tap(trackMiddle);
    playback.arrive();
    playback.arrive();
    playback.takeStory();
    EXPECT_EQ(tap(trackMiddle), Story());
}

TEST_F(PlayerControlsTest, HandleFollowsTheFilmAgainOnceItArrived) {
    tap(trackMiddle);
    playback.arrive();
    playback.arrive();
    playback.now.position = 60.0;
    playback.tell();
    EXPECT_EQ(overlay.transportControls().scrubTime(), 60.0);
}

TEST_F(PlayerControlsTest, CancelledDragTakesTheFilmBackToWhereItWas) {
    playback.now.position = 20.0;
    playback.tell();
    host.touchDown(trackMiddle);
    playback.arrive();
    host.touchMove(trackEnd);
    playback.arrive();
    playback.takeStory();
    host.touchCancel();
    EXPECT_EQ(playback.takeStory(), (Story{"exact 20"}));
    EXPECT_EQ(overlay.transportControls().scrubTime(), 20.0);
    EXPECT_EQ(reason(), "recent activity");
    EXPECT_FALSE(playback.held);
}

TEST_F(PlayerControlsTest, CancelledDragThatWentNowhereLeavesTheFilmAlone) {
    host.touchDown(trackStart);
    host.touchCancel();
    EXPECT_EQ(playback.takeStory(), Story());
    EXPECT_FALSE(playback.held);
}

TEST_F(PlayerControlsTest, DragAfterACancelledOneSeeks) {
    host.touchDown(trackMiddle);
    host.touchCancel();
    playback.arrive();
    playback.arrive();
    host.advance(1.0);
    playback.takeStory();
    tap(trackMiddle);
    playback.arrive();
    EXPECT_EQ(playback.takeStory(), (Story{"exact 50"}));
}

TEST_F(PlayerControlsTest, EscapeInADragTakesTheFilmBackAndDoesNothingElse) {
    playback.now.position = 20.0;
    playback.tell();
    window.fullScreen = true;
    overlay.windowDidChange();
    host.touchDown(trackMiddle);
    playback.arrive();
    playback.takeStory();
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::Escape, ""}), (Story{"exact 20"}));
    EXPECT_TRUE(window.fullScreen);
    EXPECT_EQ(window.closed, 0);
    EXPECT_FALSE(playback.held);
    playback.arrive();
    host.touchMove(trackEnd);
    host.touchUp(trackEnd);
    EXPECT_EQ(playback.takeStory(), Story()) << "the rest of the touch means nothing";
    EXPECT_EQ(overlay.transportControls().scrubTime(), 20.0);
}

TEST_F(PlayerControlsTest, FilmStandsStillWhileTheHandleIsHeldAndIsNotPausedByThat) {
    host.touchDown(trackMiddle);
    EXPECT_TRUE(playback.held);
    EXPECT_FALSE(playback.now.isPaused);
    host.touchMove(trackEnd);
    EXPECT_TRUE(playback.held);
    host.touchUp(trackEnd);
    EXPECT_FALSE(playback.held);
    EXPECT_FALSE(playback.now.isPaused);
}

TEST_F(PlayerControlsTest, FilmThatIsExchangedInADragIsLeftAloneByIt) {
    host.touchDown(trackMiddle);
    host.touchMove(trackEnd);
    playback.takeStory();
    playback.now.isSeeking = false;
    open(0.0);
    EXPECT_FALSE(overlay.transportControls().isScrubbing());
    EXPECT_FALSE(playback.held);
    finishOpening();
    host.touchUp(trackEnd);
    playback.tell();
    EXPECT_EQ(playback.takeStory(), Story());
    EXPECT_EQ(overlay.transportControls().scrubTime(), 0.0);
}

TEST_F(PlayerControlsTest, HandleStaysInTheHandWhenTheLengthTurnsOutToBeAnother) {
    host.touchDown(trackMiddle);
    playback.now.duration = 200.0;
    playback.tell();
    EXPECT_EQ(overlay.transportControls().scrubTime(), 50.0);
    host.touchUp(trackMiddle);
}

TEST_F(PlayerControlsTest, OverlayThatGoesInADragLeavesTheFilmAsItWas) {
    playback.now.position = 20.0;
    auto second = std::make_unique<PlayerOverlay>(host.window(), playback, window);
    playback.tell();
    host.touchDown(trackMiddle);
    playback.arrive();
    playback.takeStory();
    second.reset();
    EXPECT_EQ(playback.takeStory(), (Story{"exact 20"}));
    EXPECT_FALSE(playback.held);
}

TEST_F(PlayerControlsTest, FullScreenButtonAndKeyAndDoubleTapToggle) {
    tap(fullScreenButton);
    EXPECT_TRUE(window.fullScreen);
    overlay.windowDidChange();
    press("f");
    EXPECT_FALSE(window.fullScreen);
    host.tap(picture);
    host.advance(0.2);
    host.tap(picture);
    EXPECT_TRUE(window.fullScreen);
}

TEST_F(PlayerControlsTest, SlowOrDistantTapsAreNoDoubleTap) {
    host.tap(picture);
    host.advance(0.6);
    host.tap(picture);
    EXPECT_FALSE(window.fullScreen);
    host.advance(0.6);
    host.tap(picture);
    host.tap({picture.x + 100.0, picture.y});
    EXPECT_FALSE(window.fullScreen);
}

TEST_F(PlayerControlsTest, ThirdTapOfThreeDoesNotToggleBack) {
    host.tap(picture);
    host.tap(picture);
    host.tap(picture);
    EXPECT_TRUE(window.fullScreen);
}

TEST_F(PlayerControlsTest, TapsOnABarBetweenItsControlsAreNoDoubleTap) {
    host.tap({2.0, 340.0});
    host.tap({2.0, 340.0});
    EXPECT_FALSE(window.fullScreen);
}

TEST_F(PlayerControlsTest, BackLeavesFullScreenFirstAndThenThePlayer) {
    window.fullScreen = true;
    overlay.windowDidChange();
    tap(backButton);
    EXPECT_FALSE(window.fullScreen);
    EXPECT_EQ(window.closed, 0);
    tap(backButton);
    EXPECT_EQ(window.closed, 1);
}

TEST_F(PlayerControlsTest, EscapeLeavesFullScreenAndNeverThePlayer) {
    window.fullScreen = true;
    press(UIKey{UIKeyboardHIDUsage::Escape, ""});
    EXPECT_FALSE(window.fullScreen);
    press(UIKey{UIKeyboardHIDUsage::Escape, ""});
    EXPECT_EQ(window.closed, 0);
}

TEST_F(PlayerControlsTest, KeysControlTheFilm) {
    playback.now.position = 40.0;
    EXPECT_EQ(press(" "), Story{"pause"});
    EXPECT_EQ(press("m"), Story{"mute"});
    EXPECT_EQ(press(","), Story{"step back"});
    EXPECT_EQ(press("."), Story{"step"});
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::RightArrow, ""}), Story{"exact 45"});
    press("q");
    EXPECT_EQ(window.closed, 1);
    EXPECT_FALSE(overlay.handleKey({UIKeyboardHIDUsage::None, "x"}));
}

TEST_F(PlayerControlsTest, SeekKeysInAFilmThatIsBeingOpenedAddUpUntilItIs) {
    open(20.0);
    const UIKey right{UIKeyboardHIDUsage::RightArrow, ""};
    EXPECT_EQ(press(right), Story());
    press(right);
    press(UIKey{UIKeyboardHIDUsage::LeftArrow, ""});
    press(right);
    EXPECT_EQ(texts()[1], "00:30");
    playback.tell();
    EXPECT_EQ(playback.takeStory(), Story());
    finishOpening();
    EXPECT_EQ(playback.takeStory(), Story{"exact 30"});
    playback.arrive();
    playback.tell();
    EXPECT_EQ(playback.takeStory(), Story());
}

TEST_F(PlayerControlsTest, FilmThatIsBeingOpenedGoesWhereTheNewestKeysSay) {
    open(20.0);
    press(UIKey{UIKeyboardHIDUsage::RightArrow, ""});
    press(".");
    press(UIKey{UIKeyboardHIDUsage::End, ""});
    press("5");
    press(UIKey{UIKeyboardHIDUsage::LeftArrow, ""});
    finishOpening();
    EXPECT_EQ(playback.takeStory(), Story{"exact 50"});
    playback.arrive();
    EXPECT_EQ(playback.takeStory(), Story{"exact 45"});
    playback.arrive();
    EXPECT_EQ(playback.takeStory(), Story());
}

TEST_F(PlayerControlsTest, StepsInAFilmThatIsBeingOpenedAreMadeOnceItIs) {
    open(0.0);
    press(".");
    press(".");
    EXPECT_EQ(press("."), Story());
    press(",");
    finishOpening();
    EXPECT_EQ(playback.takeStory(), (Story{"step", "step"}));
}

TEST_F(PlayerControlsTest, StepWaitsForTheSeekBeforeItAndIsForgottenWithTheNext) {
    const UIKey right{UIKeyboardHIDUsage::RightArrow, ""};
    press(right);
    EXPECT_EQ(press("."), Story());
    playback.arrive();
    EXPECT_EQ(playback.takeStory(), Story{"step"});
    EXPECT_EQ(press(right), Story{"exact 10"});
    press(",");
    press(right);
    playback.arrive();
    playback.arrive();
    EXPECT_EQ(playback.takeStory(), Story{"exact 15"});
}

TEST_F(PlayerControlsTest, KeysInAFilmThatTurnsOutToBeNoneAreForgotten) {
    open(0.0);
    press("5");
    press(".");
    playback.now.error = unplayable;
    finishOpening();
    EXPECT_EQ(playback.takeStory(), Story());
    playback.now.error.reset();
    playback.tell();
    EXPECT_EQ(playback.takeStory(), Story());
}

TEST_F(PlayerControlsTest, PartOfAFilmThatTurnsOutToHaveNoEndIsForgotten) {
    open(0.0);
    press("5");
    playback.now.isOpening = false;
    playback.tell();
    EXPECT_EQ(playback.takeStory(), Story());
}

TEST_F(PlayerControlsTest, OpeningThatTakesLongIsToldWithAWayToGiveUp) {
    playback.now.title = "b.mkv";
    playback.now.isWaiting = true;
    open(0.0);
    host.advance(1.4);
    EXPECT_EQ(texts(), (Story{"b.mkv", "00:00"})) << "most are open by then";
    EXPECT_TRUE(isSpinning());
    host.advance(0.2);
    EXPECT_EQ(texts().at(0), "Opening b.mkv…");
    EXPECT_EQ(texts().at(1), "Cancel");
    for (double y = 60.0; y < 300.0 && playback.story.empty(); y += 10.0) {
        host.tap({picture.x, y});
    }
    EXPECT_EQ(playback.takeStory(), Story{"cancel opening"});
    playback.now.isOpening = false;
    playback.now.error = unplayable;
    playback.tell();
    EXPECT_EQ(texts().at(0), "Cannot play 'a.mkv': no such file.");
    EXPECT_EQ(texts().at(1), "Try again");
    playback.now.error.reset();
    open(0.0);
    host.advance(1.4);
    EXPECT_NE(texts().at(0), "Opening b.mkv…") << "another time is counted anew";
    host.advance(0.2);
    EXPECT_EQ(texts().at(0), "Opening b.mkv…");
    playback.now.title = "c.mkv";
    playback.tell();
    EXPECT_EQ(texts().at(0), "Opening c.mkv…");
    finishOpening();
    EXPECT_EQ(texts().at(0), "c.mkv");
}

TEST_F(PlayerControlsTest, EscapeCancelsAnOpeningBeforeItLeavesFullScreen) {
    const UIKey escape{UIKeyboardHIDUsage::Escape, ""};
    window.fullScreen = true;
    open(0.0);
    EXPECT_EQ(press(escape), Story{"cancel opening"});
    EXPECT_TRUE(window.fullScreen);
    finishOpening();
    playback.now.nextFilm = "other.mkv";
    playback.tell();
    EXPECT_EQ(press(escape), Story{"cancel opening"});
    EXPECT_TRUE(window.fullScreen);
    playback.now.nextFilm.reset();
    playback.tell();
    EXPECT_EQ(press(escape), Story());
    EXPECT_FALSE(window.fullScreen);
}

TEST_F(PlayerControlsTest, FilmThatIsTriedOutForLongIsNamedUntilThatIsOver) {
    const auto shows = [this](const std::string& text) {
        const Story all = texts();
        return std::find(all.begin(), all.end(), text) != all.end();
    };
    playback.now.nextFilm = "other.mkv";
    playback.tell();
    host.advance(0.4);
    EXPECT_FALSE(shows("Opening other.mkv…")) << "most are known by then";
    host.advance(0.2);
    EXPECT_TRUE(shows("Opening other.mkv…"));
    host.advance(30.0);
    EXPECT_TRUE(shows("Opening other.mkv…"));
    playback.now.nextFilm = "third.mkv";
    playback.tell();
    host.advance(0.6);
    EXPECT_TRUE(shows("Opening third.mkv…"));
    playback.now.nextFilm.reset();
    playback.tell();
    EXPECT_FALSE(shows("Opening third.mkv…"));
}

TEST_F(PlayerControlsTest, NameOfANewerFilmIsNotCoveredByWhatWasSaidOfAnOlderOne) {
    overlay.showProblem({PlaybackError::Kind::Unplayable, "b.mkv", "no such file"});
    playback.now.nextFilm = "c.mkv";
    playback.tell();
    host.advance(0.6);
    EXPECT_EQ(texts().front(), "Opening c.mkv…");
}

TEST_F(PlayerControlsTest, RepeatedSeekKeysAddUpWhileTheFilmIsOnItsWay) {
    playback.now.position = 40.0;
    const UIKey left{UIKeyboardHIDUsage::LeftArrow, ""};
    EXPECT_EQ(press(left), Story{"exact 35"});
    press(left);
    press(left);
    EXPECT_EQ(texts()[1], "00:25");
    playback.arrive();
    EXPECT_EQ(playback.takeStory(), Story{"exact 25"});
}

TEST_F(PlayerControlsTest, KeysDoNotMoveTheFilmAwayFromAHandleThatIsHeld) {
    host.touchDown(trackMiddle);
    playback.arrive();
    playback.takeStory();
    for (const char* key : {"1", "9", ",", "."}) {
        EXPECT_EQ(press(key), Story()) << key;
    }
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::RightArrow, ""}), Story());
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::End, ""}), Story());
    EXPECT_EQ(press("m"), Story{"mute"});
    host.touchUp(trackMiddle);
    playback.arrive();
    playback.takeStory();
    EXPECT_EQ(press("1"), Story{"exact 10"});
}

TEST_F(PlayerControlsTest, SeekKeysStayWithinTheFilm) {
    playback.now.position = 2.0;
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::LeftArrow, ""}), Story{"exact 0"});
    playback.arrive();
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::End, ""}), Story{"exact 100"});
    playback.arrive();
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::RightArrow, ""}), Story{"exact 100"});
    playback.arrive();
    EXPECT_EQ(press("7"), Story{"exact 70"});
    playback.arrive();
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::Home, ""}), Story{"exact 0"});
}

TEST_F(PlayerControlsTest, VolumeKeysAndWheelStayWithinTheRange) {
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::DownArrow, ""}), Story{"volume 0.95"});
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::UpArrow, ""}), Story{"volume 1"});
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::UpArrow, ""}), Story{"volume 1"});
    overlay.scrolled(-2.0);
    EXPECT_EQ(playback.takeStory(), Story{"volume 0.9"});
    overlay.scrolled(-100.0);
    EXPECT_EQ(playback.takeStory(), Story{"volume 0"});
}

TEST_F(PlayerControlsTest, LouderEndsMuting) {
    playback.now.isMuted = true;
    playback.now.volume = 0.5;
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::DownArrow, ""}), Story{"volume 0.45"});
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::UpArrow, ""}), (Story{"volume 0.5", "unmute"}));
}

// Auto-hide

TEST_F(PlayerControlsTest, BarsAndPointerDisappearTogetherWithoutActivity) {
    overlay.pointerMoved(picture);
    play(3.2);
    EXPECT_FALSE(isVisible());
    EXPECT_TRUE(window.pointerHidden);
    overlay.pointerMoved({picture.x + 1.0, picture.y});
    EXPECT_TRUE(isVisible());
    EXPECT_FALSE(window.pointerHidden);
}

TEST_F(PlayerControlsTest, PointerThatRestsIsNoActivity) {
    overlay.pointerMoved(picture);
    play(3.2);
    overlay.pointerMoved(picture);
    EXPECT_FALSE(isVisible());
}

TEST_F(PlayerControlsTest, PausedFilmHoldsTheBars) {
    press(" ");
    playback.tell();
    host.advance(10.0);
    EXPECT_EQ(reason(), "paused");
    press(" ");
    playback.tell();
    host.advance(3.1);
    EXPECT_FALSE(isVisible());
}

TEST_F(PlayerControlsTest, PointerOnABarHoldsTheBarsUntilItLeaves) {
    overlay.pointerMoved({320.0, 350.0});
    host.advance(10.0);
    EXPECT_EQ(reason(), "pointer on a bar");
    overlay.pointerMoved({320.0, 10.0});
    EXPECT_EQ(reason(), "pointer on a bar");
    overlay.pointerLeft();
    host.advance(3.1);
    EXPECT_FALSE(isVisible());
}

TEST_F(PlayerControlsTest, BarThatMovesAwayFromThePointerLetsGo) {
    overlay.pointerMoved({320.0, 350.0});
    host.window()->setFrame(CGRectMake(0.0, 0.0, 640.0, 480.0));
    host.window()->layoutIfNeeded();
    EXPECT_EQ(reason(), "recent activity");
}

TEST_F(PlayerControlsTest, DraggingHoldsTheBars) {
    host.touchDown(trackMiddle);
    host.advance(10.0);
    EXPECT_EQ(reason(), "dragging");
    host.touchUp(trackMiddle);
    host.advance(3.1);
    EXPECT_FALSE(isVisible());
}

TEST_F(PlayerControlsTest, ErrorAndEndHoldTheBars) {
    playback.now.error = unplayable;
    playback.tell();
    EXPECT_EQ(reason(), "error");
    playback.now.error.reset();
    playback.now.hasEnded = true;
    playback.tell();
    EXPECT_EQ(reason(), "ended");
}

TEST_F(PlayerControlsTest, FirstTouchOnHiddenBarsOnlyRevealsThem) {
    for (const CGPoint& point : {playButton, trackMiddle, muteButton, backButton, lengthLabel, picture}) {
        host.advance(10.0);
        ASSERT_FALSE(isVisible());
        EXPECT_EQ(tap(point), Story());
        EXPECT_TRUE(isVisible());
    }
    EXPECT_EQ(window.closed, 0);
    EXPECT_EQ(tap(playButton), Story{"pause"});
}

TEST_F(PlayerControlsTest, TouchesOnControlsPutTheHidingOff) {
    for (int time = 0; time < 4; ++time) {
        host.advance(2.0);
        tap(muteButton);
    }
    EXPECT_TRUE(isVisible());
}

// What is said

TEST_F(PlayerControlsTest, PointerOverTheTrackShowsTheTimeUnderIt) {
    overlay.pointerMoved(trackMiddle);
    EXPECT_EQ(texts().back(), "00:50");
    const CGRect bubble = overlay.scrubBubble().view()->frame();
    EXPECT_DOUBLE_EQ(CGRectGetMidX(bubble), trackMiddle.x);
    EXPECT_LE(CGRectGetMaxY(bubble), 320.0);
    overlay.pointerMoved(muteButton);
    EXPECT_EQ(texts().back(), "01:40");
    overlay.pointerMoved(trackMiddle);
    overlay.pointerLeft();
    EXPECT_TRUE(overlay.scrubBubble().view()->isHidden());
}

TEST_F(PlayerControlsTest, BubbleStaysInTheWindowAtTheEndsOfTheTrack) {
    host.window()->setFrame(CGRectMake(0.0, 0.0, 320.0, 180.0));
    host.window()->layoutIfNeeded();
    for (double x = 0.0; x < 320.0; x += 1.0) {
        overlay.pointerMoved({x, 170.0});
        const CGRect bubble = overlay.scrubBubble().view()->frame();
        EXPECT_TRUE(overlay.scrubBubble().view()->isHidden() ||
                    (CGRectGetMinX(bubble) >= 0.0 && CGRectGetMaxX(bubble) <= 320.0))
            << x;
    }
}

TEST_F(PlayerControlsTest, BubbleGoesWithTheHandleWhenTheWindowIsResized) {
    host.touchDown(trackMiddle);
    host.window()->setFrame(CGRectMake(0.0, 0.0, 960.0, 540.0));
    host.window()->layoutIfNeeded();
    const CGRect bubble = overlay.scrubBubble().view()->frame();
    const CGPoint handle = overlay.transportControls().pointOver(50.0);
    EXPECT_NE(handle.x, trackMiddle.x);
    EXPECT_DOUBLE_EQ(CGRectGetMidX(bubble), handle.x);
    EXPECT_LE(CGRectGetMaxY(bubble), 500.0);
    EXPECT_GT(CGRectGetMaxY(bubble), 480.0);
}

TEST_F(PlayerControlsTest, BubbleGoesWhenTheTrackIsResizedAwayFromThePointer) {
    overlay.pointerMoved(trackMiddle);
    host.window()->setFrame(CGRectMake(0.0, 0.0, 960.0, 540.0));
    host.window()->layoutIfNeeded();
    EXPECT_TRUE(overlay.scrubBubble().view()->isHidden());
}

TEST_F(PlayerControlsTest, DragShowsTheTimeAtTheHandle) {
    host.touchDown(trackMiddle);
    EXPECT_EQ(texts().back(), "00:50");
    host.touchMove({600.0, 100.0});
    EXPECT_EQ(texts().back(), "01:40");
    host.touchUp({600.0, 100.0});
    EXPECT_TRUE(overlay.scrubBubble().view()->isHidden());
}

TEST_F(PlayerControlsTest, ChangeOfVolumeIsShownForAWhileAndLeavesTheBarsHidden) {
    host.advance(10.0);
    overlay.scrolled(-6.0);
    EXPECT_EQ(texts(), Story{"Volume 70 %"});
    EXPECT_FALSE(isVisible());
    host.advance(4.0);
    EXPECT_EQ(texts(), Story());
}

TEST_F(PlayerControlsTest, VolumeOfAMutedFilmSaysThatItIsMuted) {
    playback.now.isMuted = true;
    overlay.scrolled(-1.0);
    EXPECT_EQ(texts().front(), "Volume 95 %, muted");
}

TEST_F(PlayerControlsTest, ProblemThatLeavesTheFilmAloneIsToldInPassing) {
    overlay.showProblem({PlaybackError::Kind::Unplayable, "b.mkv", "no such file"});
    EXPECT_EQ(texts().front(), "Cannot play 'b.mkv': no such file.");
    EXPECT_EQ(reason(), "recent activity");
    host.advance(20.0);
    EXPECT_EQ(texts(), Story());
}

TEST_F(PlayerControlsTest, ErrorIsToldWithAWayToTryAgain) {
    playback.now.error = unplayable;
    playback.tell();
    EXPECT_EQ(texts(),
              (Story{"Cannot play 'a.mkv': no such file.", "Try again", "A film", "00:00", "01:40"}));
    for (double y = 60.0; y < 300.0 && playback.story.empty(); y += 10.0) {
        host.tap({picture.x, y});
    }
    EXPECT_EQ(playback.takeStory(), Story{"retry"});
    playback.finishOpening();
    EXPECT_EQ(texts(), (Story{"A film", "00:00", "01:40"}));
}

TEST_F(PlayerControlsTest, LowWindowTellsOfAnErrorJustWhatWentWrong) {
    playback.now.error = unplayable;
    playback.tell();
    const auto resize = [this](double height) {
        host.window()->setFrame({{0.0, 0.0}, {640.0, height}});
        host.window()->layoutIfNeeded();
        host.advance(1.0);
        return texts().front();
    };
    EXPECT_EQ(resize(239.0), "No such file.");
    EXPECT_EQ(resize(240.0), "Cannot play 'a.mkv': no such file.");
    EXPECT_EQ(resize(180.0), "No such file.");
    playback.now.error = {PlaybackError::Kind::NoPlayer, {}, {}};
    playback.tell();
    EXPECT_EQ(texts().front(), "Cannot start libmpv.");
}

TEST_F(PlayerControlsTest, WhereNothingCanBePlayedKeysAndTouchesChangeNothing) {
    const UIKey right{UIKeyboardHIDUsage::RightArrow, ""};
    playback.now.error = unplayable;
    playback.now.duration.reset();
    playback.tell();
    const Story before = texts();
    for (int time = 0; time < 3; ++time) {
        press(right);
    }
    press("5");
    press(".");
    press(",");
    tap(trackMiddle);
    EXPECT_EQ(tap(playButton), Story());
    EXPECT_EQ(texts(), before);
    EXPECT_EQ(playback.takeStory(), Story());
    // They aren't kept for later either.
    playback.now.error.reset();
    playback.now.duration = 100.0;
    playback.tell();
    EXPECT_EQ(playback.takeStory(), Story());
    EXPECT_EQ(tap(playButton), Story{"pause"});
}

TEST_F(PlayerControlsTest, SpaceTriesAgainWhereNothingCanBePlayed) {
    playback.now.error = unplayable;
    playback.tell();
    EXPECT_EQ(press(" "), Story{"retry"});
}

TEST_F(PlayerControlsTest, InterruptedFilmGoesOnFromItsPlaceOrBackFromThere) {
    playback.now.position = 42.0;
    playback.now.error = {PlaybackError::Kind::Interrupted, "a.mkv", "the connection was lost"};
    playback.tell();
    EXPECT_EQ(texts(), (Story{"Cannot go on with 'a.mkv': the connection was lost.", "Go on", "A film",
                              "00:42", "01:40"}));
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::LeftArrow, ""}), Story{"exact 37"});
    playback.arrive();
    EXPECT_EQ(tap(playButton), Story{"retry"});
}

TEST_F(PlayerControlsTest, FilmThatCannotSeekHasNoTrackToTouch) {
    playback.now.position = 20.0;
    playback.now.isSeekable = false;
    playback.tell();
    EXPECT_EQ(tap(trackMiddle), Story());
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::RightArrow, ""}), Story());
    EXPECT_EQ(press("5"), Story());
    overlay.pointerMoved(trackMiddle);
    EXPECT_TRUE(overlay.scrubBubble().view()->isHidden());
    EXPECT_EQ(texts(), (Story{"A film", "00:20", "01:40"}));
    playback.now.isSeekable = true;
    playback.tell();
    EXPECT_EQ(tap(trackMiddle), Story{"key frame 50"});
}

TEST_F(PlayerControlsTest, SeeksStayInThePartOfTheFilmThatIsAtHand) {
    playback.now.position = 60.0;
    playback.now.seekableRange = {30.0, 80.0};
    playback.tell();
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::End, ""}), Story{"exact 80"});
    playback.arrive();
    EXPECT_EQ(press(UIKey{UIKeyboardHIDUsage::Home, ""}), Story{"exact 30"});
    playback.arrive();
    EXPECT_EQ(tap(trackEnd).front(), "key frame 80");
}

TEST_F(PlayerControlsTest, SpinnerShowsAfterHalfASecondOfWaiting) {
    playback.now.isWaiting = true;
    playback.tell();
    host.advance(0.4);
    EXPECT_FALSE(isSpinning());
    host.advance(0.2);
    EXPECT_TRUE(isSpinning());
    playback.now.isWaiting = false;
    playback.tell();
    EXPECT_FALSE(isSpinning());
    playback.now.isSeeking = true;
    playback.tell();
    host.advance(0.6);
    EXPECT_TRUE(isSpinning());
    playback.now.error = unplayable;
    playback.tell();
    EXPECT_FALSE(isSpinning());
}

TEST_F(PlayerControlsTest, ShortWaitsOneAfterTheOtherShowNoSpinner) {
    for (int wait = 0; wait < 5; ++wait) {
        playback.now.isWaiting = true;
        playback.tell();
        host.advance(0.3);
        EXPECT_FALSE(isSpinning());
        playback.now.isWaiting = false;
        playback.tell();
        host.advance(0.1);
    }
}

// Work

TEST_F(PlayerControlsTest, FilmAtPlayDrawsNothingUntilThereIsSomethingToSee) {
    playback.now.duration = 10000.0;
    playback.tell();
    host.draw();
    int drawn = 0;
    for (int frame = 0; frame < 50; ++frame) {
        playback.now.position += 0.04;
        playback.tell();
        drawn += host.window()->needsDisplay() ? 1 : 0;
        host.draw();
    }
    // Two seconds, two times to write.
    EXPECT_EQ(drawn, 2);
}

TEST_F(PlayerControlsTest, SteadyFrameAllocatesNothing) {
    playback.now.title = "A film with a title that is longer than what fits into a small string";
    playback.now.chapters = {{0.0, "Opening"}};
    playback.tell();
    host.advance(1.0);
    host.draw();
    const std::size_t before = allocationCount();
    for (int frame = 0; frame < 10; ++frame) {
        playback.now.position += 0.001;
        playback.tell();
    }
    EXPECT_EQ(allocationCount(), before);
}

TEST_F(PlayerControlsTest, OverlayGoesAwayInTheMiddleOfEverything) {
    auto second = std::make_unique<PlayerOverlay>(host.window(), playback, window);
    host.touchDown(trackMiddle);
    host.advance(0.1);
    second.reset();
    EXPECT_EQ(playback.onChange, nullptr);
    host.touchMove(trackStart);
    host.touchUp(trackStart);
    host.advance(10.0);
    SUCCEED();
}

TEST_F(PlayerControlsTest, ControlsKeepTheirTargetsAtEverySize) {
    for (const CGSize size : {CGSize{320.0, 180.0}, CGSize{640.0, 360.0}, CGSize{3840.0, 2160.0}}) {
        for (const double duration : {100.0, 100000.0}) {
            playback.now.duration = duration;
            playback.tell();
            host.window()->setFrame(CGRect{{}, size});
            host.window()->layoutIfNeeded();
            for (const auto& slot : overlay.transportControls().bar()->view()->subviews()) {
                const CGRect frame = slot->frame();
                EXPECT_TRUE(slot->isHidden() || (frame.size.width >= 40.0 && frame.size.height >= 40.0));
                EXPECT_LE(CGRectGetMaxX(frame), size.width);
            }
        }
    }
}

TEST_F(PlayerControlsTest, NarrowestWindowKeepsPlayAndTrackAndMoreRoomBringsTheTimePassedFirst) {
    const auto widths = [this](double width) {
        host.window()->setFrame(CGRectMake(0.0, 0.0, width, 180.0));
        host.window()->layoutIfNeeded();
        std::vector<bool> isThere;
        for (const auto& slot : overlay.transportControls().bar()->view()->subviews()) {
            isThere.push_back(!slot->isHidden() && CGRectGetWidth(slot->frame()) > 0.0);
        }
        return isThere;
    };
    // Play, the time passed, the track, the length, mute, full screen.
    EXPECT_EQ(widths(130.0), (std::vector<bool>{true, false, true, false, false, false}));
    EXPECT_EQ(widths(180.0), (std::vector<bool>{true, true, true, false, false, false}));
    EXPECT_EQ(widths(220.0), (std::vector<bool>{true, true, true, false, false, true}));
    EXPECT_EQ(widths(260.0), (std::vector<bool>{true, true, true, false, true, true}));
    EXPECT_EQ(widths(300.0), (std::vector<bool>{true, true, true, true, true, true}));
}

} // namespace

} // namespace KivUICore::Overlay
