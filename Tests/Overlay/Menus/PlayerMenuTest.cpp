#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/UIComponent/UIComponent.h"
#include "KivUICore/UIElement/UIElement.h"
#include "Platform/MediaPlayer/MPRouteProvider.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIViewController.h"
#include "Player/Overlay/Menus/MenuPresenter.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/Overlay/Film/FakePlayback.h"

#include <gtest/gtest.h>
#include <set>
#include <variant>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;
using UIKit::UIKey;
using UIKit::UIKeyboardHIDUsage;
using Story = std::vector<std::string>;

/// Texts on the screen, which are drawn in no particular order.
using Texts = std::set<std::string>;

// In a window of 640 by 360 points.
constexpr CGPoint menuButton{614.0, 20.0};
constexpr CGPoint routeButton{478.0, 340.0};
constexpr CGPoint outside{40.0, 200.0};

class PlayerMenuTest : public testing::Test {
protected:
    PlayerMenuTest() {
        playback.now.duration = 100.0;
        playback.now.tracks = {{TrackKind::Audio, 1, "English", true},
                               {TrackKind::Audio, 2, "Français", false},
                               {TrackKind::Subtitle, 1, "עברית", false}};
        playback.tell();
    }

    /// All texts that are drawn but the times.
    Texts texts() {
        host.window()->setNeedsDisplayEverywhere();
        Texts texts;
        const std::shared_ptr<const CGDrawing> drawing = host.draw();
        for (const CGDrawing::Operation& operation : drawing->operations()) {
            const auto* text = std::get_if<CGDrawing::DrawText>(&operation);
            if (text && !text->text.empty() && text->text.find(':') == std::string::npos) {
                texts.emplace(text->text);
            }
        }
        return texts;
    }

    void press(UIKeyboardHIDUsage code) { EXPECT_TRUE(host.window()->sendKey({code, ""})); }

    void tap(const CGPoint& point) {
        host.tap(point);
        host.advance(1.0);
    }

    /// Chooses by the keyboard the row of that number.
    void choose(int row) {
        for (int step = 0; step <= row; ++step) {
            press(UIKeyboardHIDUsage::DownArrow);
        }
        press(UIKeyboardHIDUsage::ReturnOrEnter);
        host.advance(1.0);
    }

    std::string reason() const { return overlay.autoHidePolicy().reason(); }

    Headless::HeadlessHost host{{640.0, 360.0}};
    FakePlayback playback;
    FakeWindow window;
    PlayerOverlay overlay{host.window(), playback, window};
};

TEST_F(PlayerMenuTest, MenuButtonOpensTheMainMenu) {
    tap(menuButton);
    EXPECT_EQ(texts(), (Texts{"Speed", "Audio track", "Subtitles"}));
}

TEST_F(PlayerMenuTest, MainMenuLeadsOnAndTheChoiceReachesTheFilm) {
    tap(menuButton);
    choose(1);
    EXPECT_EQ(texts(), (Texts{"English", "Français"}));
    choose(1);
    EXPECT_EQ(playback.takeStory(), Story{"audio 2"});
    EXPECT_EQ(texts(), Texts());
}

TEST_F(PlayerMenuTest, OpenMenuHoldsTheBarsUntilTheChoice) {
    tap(menuButton);
    host.advance(10.0);
    EXPECT_EQ(reason(), "menu");
    choose(0);
    host.advance(10.0);
    EXPECT_EQ(reason(), "menu");
    choose(0);
    EXPECT_EQ(playback.takeStory(), Story{"speed 0.25"});
    EXPECT_EQ(reason(), "recent activity");
    host.advance(3.0);
    EXPECT_EQ(reason(), "");
}

TEST_F(PlayerMenuTest, TouchOutsideClosesTheMenuAndNothingElse) {
    testing::internal::CaptureStdout();
    tap(menuButton);
    tap({26.0, 340.0});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "pop over prepare for presentation\npop did dismiss\n");
    EXPECT_EQ(playback.takeStory(), Story());
    EXPECT_EQ(texts(), Texts());
    EXPECT_EQ(reason(), "recent activity");
    tap({26.0, 340.0});
    EXPECT_EQ(playback.takeStory(), Story{"pause"});
}

TEST_F(PlayerMenuTest, EscapeClosesTheMenuAndNotThePlayer) {
    tap(menuButton);
    press(UIKeyboardHIDUsage::Escape);
    host.advance(1.0);
    EXPECT_EQ(texts(), Texts());
    EXPECT_EQ(window.closed, 0);
    EXPECT_FALSE(host.window()->sendKey({UIKeyboardHIDUsage::Escape, ""}));
}

TEST_F(PlayerMenuTest, MenuCanBeOpenedAgainAndAgain) {
    for (int time = 0; time < 3; ++time) {
        tap(menuButton);
        EXPECT_EQ(texts().size(), 3U);
        tap(outside);
        EXPECT_EQ(texts(), Texts());
    }
}

TEST_F(PlayerMenuTest, OpenMenuFollowsTheFilm) {
    tap(menuButton);
    choose(1);
    playback.now.tracks.push_back({TrackKind::Audio, 3, "Deutsch", false});
    playback.tell();
    EXPECT_EQ(texts(), (Texts{"English", "Français", "Deutsch"}));
    choose(2);
    EXPECT_EQ(playback.takeStory(), Story{"audio 3"});
}

TEST_F(PlayerMenuTest, ChangeOfAnotherListLeavesAnOpenMenuAsItIsDrawn) {
    tap(menuButton);
    choose(1);
    host.draw();
    playback.now.chapters = {{0.0, "Opening"}};
    playback.tell();
    EXPECT_FALSE(host.window()->needsDisplay());
    playback.now.tracks[0].name = "Deutsch";
    playback.tell();
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(PlayerMenuTest, OpenMenuOverAFilmAtPlayAllocatesNothing) {
    playback.now.tracks[0].name = "English, with what the director and the two writers say about it";
    playback.now.chapters = {{0.0, "Opening"}, {50.0, "End"}};
    playback.tell();
    tap(menuButton);
    choose(1);
    const std::size_t before = allocationCount();
    for (int frame = 0; frame < 10; ++frame) {
        playback.now.position += 0.001;
        playback.tell();
    }
    EXPECT_EQ(allocationCount(), before);
    EXPECT_EQ(texts().size(), 2U);
}

TEST_F(PlayerMenuTest, MenuOfWhatTheFilmNoLongerHasCloses) {
    tap(menuButton);
    choose(1);
    playback.now.tracks.clear();
    playback.tell();
    host.advance(1.0);
    EXPECT_EQ(host.window()->modalView(), nullptr);
    EXPECT_EQ(reason(), "recent activity");
}

TEST_F(PlayerMenuTest, MenuOfWhatGoesBeforeItIsShownIsNotShown) {
    tap(menuButton);
    press(UIKeyboardHIDUsage::DownArrow);
    press(UIKeyboardHIDUsage::DownArrow);
    press(UIKeyboardHIDUsage::ReturnOrEnter);
    playback.now.tracks.clear();
    playback.tell();
    host.advance(1.0);
    EXPECT_EQ(host.window()->modalView(), nullptr);
    EXPECT_EQ(reason(), "recent activity");
}

TEST_F(PlayerMenuTest, MenuWorksWithVeryManyAndVeryLongNames) {
    const std::string longName(300, 'x');
    playback.now.tracks.clear();
    for (int track = 1; track <= 200; ++track) {
        playback.now.tracks.push_back({TrackKind::Audio, track, longName + std::to_string(track), false});
    }
    playback.tell();
    tap(menuButton);
    choose(1);
    EXPECT_TRUE(texts().contains(longName + "1"));
    EXPECT_LT(texts().size(), 20U);
    choose(199);
    EXPECT_EQ(playback.takeStory(), Story{"audio 200"});
}

TEST_F(PlayerMenuTest, LongMenuOpensWhereItsCurrentEntryIs) {
    playback.now.tracks.clear();
    for (int track = 1; track <= 200; ++track) {
        playback.now.tracks.push_back({TrackKind::Audio, track, std::to_string(track), track == 150});
    }
    playback.tell();
    tap(menuButton);
    choose(1);
    const Texts shown = texts();
    EXPECT_TRUE(shown.contains("150"));
    // As many before it as behind it.
    EXPECT_TRUE(shown.contains("148"));
    EXPECT_TRUE(shown.contains("152"));
    EXPECT_FALSE(shown.contains("144"));
    EXPECT_FALSE(shown.contains("156"));
}

TEST_F(PlayerMenuTest, MenuWhoseFirstEntryIsCurrentOpensAtItsTop) {
    for (int track = 3; track <= 30; ++track) {
        playback.now.tracks.push_back({TrackKind::Audio, track, std::to_string(track), false});
    }
    playback.tell();
    tap(menuButton);
    choose(1);
    EXPECT_TRUE(texts().contains("English"));
    EXPECT_FALSE(texts().contains("30"));
}

TEST_F(PlayerMenuTest, RouteButtonIsThereOnlyWhenThereIsAChoice) {
    tap(routeButton);
    playback.takeStory();
    EXPECT_EQ(texts(), Texts());
    playback.now.audioDevices = {{"auto", "System default", true}, {"alsa/hdmi", "HDMI", false}};
    playback.tell();
    playback.arrive();
    tap(routeButton);
    EXPECT_EQ(texts(), (Texts{"System default", "HDMI"}));
    choose(1);
    EXPECT_EQ(playback.takeStory().back(), "device alsa/hdmi");
}

TEST_F(PlayerMenuTest, RouteButtonOfEachOfTwoOverlaysOpensItsOwnMenu) {
    host.window()->setFrame(CGRectMake(0.0, 0.0, 640.0, 720.0));
    host.window()->layoutIfNeeded();
    const auto above = Foundation::make<UIKit::UIView>(CGRectMake(0.0, 0.0, 640.0, 360.0));
    host.window()->addSubview(above);
    FakePlayback other;
    other.now.duration = 100.0;
    const PlayerOverlay second(above, other, window);
    playback.now.audioDevices = {{"auto", "System default", true}, {"alsa/hdmi", "HDMI", false}};
    playback.tell();
    tap(routeButton);
    EXPECT_EQ(texts(), Texts()) << "there is no choice in this one";
    other.now.audioDevices = {{"auto", "System default", true}, {"alsa/usb", "Headphones", false}};
    other.tell();
    playback.takeStory();
    tap({routeButton.x, 700.0});
    EXPECT_EQ(texts(), (Texts{"System default", "HDMI"}));
    tap({5.0, 400.0});
    // The other bars have hidden meanwhile.
    tap(outside);
    tap(routeButton);
    EXPECT_EQ(texts(), (Texts{"System default", "Headphones"}));
}

TEST_F(PlayerMenuTest, RouteButtonTakesItsRoomFromTheTrackAndLeavesEnough) {
    playback.now.audioDevices = {{"auto", "System default", true}, {"alsa/hdmi", "HDMI", false}};
    playback.tell();
    host.window()->setFrame(CGRectMake(0.0, 0.0, 320.0, 180.0));
    host.window()->layoutIfNeeded();
    const auto elements = overlay.transportControls().bar()->elemets().value();
    const CGRect track = elements[2]->view()->view()->frame();
    EXPECT_GE(track.size.width, 80.0);
    const auto slot = elements[2]->view()->view()->superview();
    EXPECT_DOUBLE_EQ(track.size.width, slot->bounds().size.width - 44.0);
    EXPECT_DOUBLE_EQ(slot->subviews().back()->frame().origin.x, track.size.width);
}

TEST_F(PlayerMenuTest, SecondMenuIsNotOpenedOverTheFirst) {
    FilmCommands film(playback);
    const FilmMenus menus(playback, film);
    const auto controller = Foundation::make<UIKit::UIViewController>();
    controller->setView(overlay.hostView());
    const auto presenter = Foundation::make<MenuPresenter>(controller, menus, [] {});
    presenter->open(MenuKind::Main, overlay.hostView());
    host.advance(1.0);
    testing::internal::CaptureStderr();
    presenter->open(MenuKind::Speed, overlay.hostView());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_TRUE(texts().contains("Audio track"));
    presenter->close();
}

TEST_F(PlayerMenuTest, OverlayGoesAwayWithAnOpenMenu) {
    auto second = std::make_unique<PlayerOverlay>(host.window(), playback, window);
    tap(menuButton);
    EXPECT_TRUE(texts().contains("Subtitles"));
    second.reset();
    host.advance(1.0);
    EXPECT_EQ(texts(), Texts());
    tap(menuButton);
}

TEST_F(PlayerMenuTest, MenuFitsIntoTheSmallestWindow) {
    host.window()->setFrame(CGRectMake(0.0, 0.0, 320.0, 180.0));
    host.window()->layoutIfNeeded();
    tap({294.0, 20.0});
    EXPECT_FALSE(texts().empty());
    choose(1);
    choose(1);
    EXPECT_EQ(playback.takeStory(), Story{"audio 2"});
}

} // namespace

} // namespace KivUICore::Overlay
