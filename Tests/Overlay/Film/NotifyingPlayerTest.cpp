#include "Player/Overlay/Film/NotifyingPlayer.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIKey.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/Overlay/Film/FakePlayback.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KivUICore::Overlay {

namespace {

using Foundation::make;
using KivCore::KivPlayer;
using Story = std::vector<std::string>;

constexpr CoreGraphics::CGPoint trackMiddle{298.0, 340.0};

/// An application's observer: writes down what it is told, and by whom.
class Spectator : public Foundation::Adopting<Foundation::NSObject, KivCore::PlayerEventObserver> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<Spectator, NSObject>("Tests.OverlaySpectator")
                .method<&Spectator::onKivTimeChange>("onKivTimeChange:")
                .method<&Spectator::onKivPlaybackStateChanged>("onKivPlaybackStateChanged:")
                .method<&Spectator::onKivBufferingStateChanged>("onKivBufferingStateChanged:")
                .method<&Spectator::onKivError>("onKivError:error:")
                .method<&Spectator::onKivPlaybackEnded>("onKivPlaybackEnded:")
                .method<&Spectator::onKivPositionChange>("onKivPositionChange:")
                .method<&Spectator::onSeekBegan>("onSeekBegan")
                .method<&Spectator::onSeekEnd>("onSeekEnd")
                .build();
        return object;
    }

    void onKivTimeChange(const std::shared_ptr<NotifyingPlayer>& player) {
        const double hundredths = std::round(100.0 * player->state().position);
        note("time " + std::to_string(static_cast<int>(hundredths)));
    }
    void onKivPlaybackStateChanged(const std::shared_ptr<NotifyingPlayer>& player) {
        const PlaybackState& state = player->state();
        note(state.error       ? "failed"
             : state.isOpening ? "opening"
             : state.hasEnded  ? "at its end"
             : state.isPaused  ? "paused"
                               : "playing");
    }
    void onKivBufferingStateChanged(const std::shared_ptr<NotifyingPlayer>& player) {
        note(player->state().isWaiting ? "waits" : "waits no more");
    }
    void onKivError(const std::shared_ptr<KivPlayer>& /*player*/, const std::string& sentence) {
        note(sentence);
    }
    void onKivPlaybackEnded(const std::shared_ptr<KivPlayer>& /*player*/) { note("ended"); }
    void onKivPositionChange(const std::shared_ptr<KivPlayer>& /*player*/) { note("position"); }
    void onSeekBegan() { note("seek began"); }
    void onSeekEnd() { note("seek ended"); }

    Story takeStory() { return std::exchange(story_, {}); }

    /// Called when anything is told.
    std::function<void()> onNews = [] {};

private:
    void note(const std::string& text) {
        story_.push_back(text);
        const std::function<void()> news = onNews;
        news();
    }

    Story story_;
};

class NotifyingPlayerTest : public testing::Test {
protected:
    NotifyingPlayerTest() {
        playback.now.duration = 100.0;
        playback.now.position = 5.5;
        overlay.emplace(host.window(), playback, window);
        overlay->player()->eventNotifier()->addObserver(spectator);
    }

    Story tell() {
        playback.tell();
        return spectator->takeStory();
    }

    Headless::HeadlessHost host{{640.0, 360.0}};
    FakePlayback playback;
    FakeWindow window;
    std::optional<PlayerOverlay> overlay;
    std::shared_ptr<Spectator> spectator = make<Spectator>();
};

TEST_F(NotifyingPlayerTest, NothingIsToldWhileNothingChanges) {
    EXPECT_EQ(tell(), Story());
    playback.now.title = "Another title";
    playback.now.volume = 0.5;
    EXPECT_EQ(tell(), Story());
}

TEST_F(NotifyingPlayerTest, FilmAtPlayTellsOfEachSecond) {
    Story story;
    for (int frame = 0; frame < 80; ++frame) {
        playback.now.position += 0.025;
        for (const std::string& news : tell()) {
            story.push_back(news);
        }
    }
    EXPECT_EQ(story, (Story{"time 600", "time 700"}));
}

TEST_F(NotifyingPlayerTest, FilmThatDoesNotPlayTellsOfEachPlace) {
    playback.now.isPaused = true;
    tell();
    playback.now.position = 5.53;
    EXPECT_EQ(tell(), Story{"time 553"});
    playback.now.isPaused = false;
    playback.now.isSeeking = true;
    playback.now.position = 5.8;
    EXPECT_EQ(tell(), (Story{"time 580", "playing"}));
    playback.now.isSeeking = false;
    playback.now.position = 5.7;
    EXPECT_EQ(tell(), Story{"time 570"});
}

TEST_F(NotifyingPlayerTest, PauseAndPlayAreToldAfterTheCommandAndNotInsideIt) {
    overlay->handleKey({UIKit::UIKeyboardHIDUsage::None, " "});
    EXPECT_EQ(spectator->takeStory(), Story());
    EXPECT_EQ(tell(), Story{"paused"});
    overlay->handleKey({UIKit::UIKeyboardHIDUsage::None, " "});
    EXPECT_EQ(tell(), Story{"playing"});
    EXPECT_EQ(tell(), Story());
}

TEST_F(NotifyingPlayerTest, EndIsToldOnceAfterItsTime) {
    playback.now.position = 99.97;
    playback.now.hasEnded = true;
    EXPECT_EQ(tell(), (Story{"time 9997", "at its end", "ended"}));
    EXPECT_EQ(tell(), Story());
    playback.now.hasEnded = false;
    playback.now.position = 0.0;
    EXPECT_EQ(tell(), (Story{"time 0", "playing"}));
    playback.now.hasEnded = true;
    EXPECT_EQ(tell(), (Story{"at its end", "ended"}));
}

TEST_F(NotifyingPlayerTest, OpeningIsToldFromItsBeginningToTheFirstPicture) {
    playback.now.isOpening = playback.now.isWaiting = true;
    playback.now.position = 0.0;
    EXPECT_EQ(tell(), (Story{"time 0", "opening", "waits"}));
    playback.now.isOpening = playback.now.isWaiting = false;
    EXPECT_EQ(tell(), (Story{"playing", "waits no more"}));
}

TEST_F(NotifyingPlayerTest, ErrorIsToldAsASentence) {
    playback.now.error = PlaybackError{PlaybackError::Kind::Unplayable, "a.mkv", "no such file"};
    EXPECT_EQ(tell(), (Story{"failed", "Cannot play 'a.mkv': no such file."}));
    EXPECT_EQ(tell(), Story());
    playback.now.error->subject = "b.mkv";
    EXPECT_EQ(tell(), Story{"Cannot play 'b.mkv': no such file."});
    playback.now.error.reset();
    EXPECT_EQ(tell(), Story{"playing"});
}

TEST_F(NotifyingPlayerTest, ScrubIsToldWhenTheHandleIsTakenAndWhenItIsLetGo) {
    host.touchDown(trackMiddle);
    EXPECT_EQ(spectator->takeStory(), Story{"seek began"});
    playback.arrive();
    EXPECT_EQ(spectator->takeStory(), Story{"time 5000"});
    host.touchUp(trackMiddle);
    EXPECT_EQ(spectator->takeStory(), Story{"seek ended"});
}

TEST_F(NotifyingPlayerTest, SeekByAKeyIsNoScrub) {
    overlay->handleKey({UIKit::UIKeyboardHIDUsage::RightArrow, ""});
    playback.arrive();
    EXPECT_EQ(spectator->takeStory(), Story{"time 1050"});
}

TEST_F(NotifyingPlayerTest, OverlayShowsWhatItsObserversHear) {
    spectator->onNews = [&] { EXPECT_EQ(overlay->transportControls().scrubTime(), 50.0); };
    playback.now.isPaused = true;
    playback.now.position = 50.0;
    host.advance(1.0);
    playback.tell();
    EXPECT_EQ(spectator->takeStory(), (Story{"time 5000", "paused"}));
}

TEST_F(NotifyingPlayerTest, ObserverMayEndTheOverlayAndReadTheLastStateAfterwards) {
    const std::shared_ptr<NotifyingPlayer> player = overlay->player();
    spectator->onNews = [&] { overlay.reset(); };
    playback.now.isPaused = true;
    playback.now.position = 60.0;
    playback.tell();
    EXPECT_EQ(spectator->takeStory(), (Story{"time 6000", "paused"}));
    playback.now.position = 70.0;
    playback.tell();
    EXPECT_EQ(spectator->takeStory(), Story());
    EXPECT_EQ(player->state().position, 60.0);
}

TEST_F(NotifyingPlayerTest, ObserverMayBringTheNextState) {
    spectator->onNews = [&] {
        spectator->onNews = [] {};
        playback.now.position = 80.0;
        playback.tell();
    };
    playback.now.isPaused = true;
    EXPECT_EQ(tell(), (Story{"paused", "time 8000"}));
}

TEST_F(NotifyingPlayerTest, SteadyFrameThatIsWatchedAllocatesNothing) {
    playback.now.title = "A film with a title that is longer than what fits into a small string";
    playback.now.chapters = {{0.0, "The opening, which has a name of some length too"}};
    tell();
    host.advance(1.0);
    host.draw();
    const std::size_t before = allocationCount();
    for (int frame = 0; frame < 10; ++frame) {
        playback.now.position += 0.001;
        playback.tell();
    }
    EXPECT_EQ(allocationCount(), before);
    EXPECT_EQ(spectator->takeStory(), Story());
}

} // namespace

} // namespace KivUICore::Overlay
