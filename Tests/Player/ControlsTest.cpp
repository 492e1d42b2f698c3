#include "Hosts/Headless/VirtualClock.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIWindow.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Tests/Overlay/Film/FakePlayback.h"
#include "Tests/Player/Films.h"
#include "Tests/Player/MpvSocket.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/VirtualScreen.h"

#include <X11/keysym.h>
#include <chrono>
#include <cmath>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

using Clock = std::chrono::steady_clock;

constexpr int width = 640;
constexpr int height = 360;
constexpr double length = 12.0;

/// The place on the screen that stands for a time, as the overlay itself lays it out.
int trackPlace(double time) {
    Headless::VirtualClock clock;
    Foundation::NSRunLoop runLoop(clock);
    const auto root = Foundation::make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, width, height));
    Overlay::FakePlayback film;
    film.now.duration = length;
    Overlay::FakeWindow window;
    Overlay::PlayerOverlay overlay(root, film, window);
    root->layoutIfNeeded();
    return static_cast<int>(std::lround(overlay.transportControls().pointOver(time).x));
}

/// The player in a window of 640 by 360 on a screen of its own, with a film of twelve seconds.
class Controls : public testing::Test {
protected:
    Controls() : mpv(folder.path() / "mpv") {}

    void play(const std::string& film = Films::sample().string(), const std::string& drawing = "--software") {
        player =
            startPlayer({film, "--mute", drawing, "--size", "640x360", "--ipc-server", mpv.path().string()},
                        {{"DISPLAY", screen.name()}});
        ASSERT_TRUE(until([this] { return position().value_or(0.0) > 0.1; })) << player->errors();
        ASSERT_TRUE(until([this] {
            const std::optional<Picture> picture = screen.window();
            return picture && picture->width() == width;
        }));
    }

    void playPaused() {
        play();
        ASSERT_TRUE(mpv.command("\"set_property\",\"pause\",true"));
        ASSERT_TRUE(until([this] { return showsBars(); }));
    }

    /// A film that doesn't come to its end, however long the test takes, with the pointer over it.
    void playEndlessly() {
        play();
        ASSERT_TRUE(mpv.command("\"set_property\",\"loop-file\",\"inf\""));
        screen.movePointer(320, 150);
    }

    template <class Condition>
    bool until(Condition condition) {
        return eventually(condition);
    }

    std::optional<double> position() { return mpv.number("time-pos"); }
    bool isPaused() { return mpv.flag("pause").value_or(false); }

    bool hasVolume(double percent) {
        return std::abs(mpv.number("volume").value_or(-100.0) - percent) < 1e-6;
    }

    bool isNear(double time, double tolerance = 0.05) {
        return std::abs(position().value_or(-100.0) - time) < tolerance;
    }

    // The film is bright everywhere along its upper edge, which the bar darkens; no control reaches that far.
    bool showsBars() {
        const std::optional<Picture> picture = screen.window();
        return picture && darkRows(*picture) >= 3;
    }

    bool showsNoBars() {
        const std::optional<Picture> picture = screen.window();
        return picture && darkRows(*picture) == 0;
    }

    static int darkRows(const Picture& picture) {
        int rows = 0;
        for (int y = 0; y < 4; ++y) {
            int brightest = 0;
            for (int x = picture.width() / 3; x < picture.width(); ++x) {
                brightest =
                    std::max({brightest, picture.at(x, y)[0], picture.at(x, y)[1], picture.at(x, y)[2]});
            }
            rows += brightest < 130 ? 1 : 0;
        }
        return rows;
    }

    static constexpr int playX = 27;
    static constexpr int barY = height - 20;

    TemporaryFolder folder;
    MpvSocket mpv;
    VirtualScreen screen;
    std::unique_ptr<Process> player;
};

TEST_F(Controls, PlayButtonPausesAndGoesOn) {
    play();
    screen.click(playX, barY);
    EXPECT_TRUE(until([this] { return isPaused(); }));
    screen.click(playX, barY);
    EXPECT_TRUE(until([this] { return !isPaused(); }));
    const double before = position().value_or(0.0);
    EXPECT_TRUE(until([&] { return position().value_or(0.0) > before + 0.2; }));
}

TEST_F(Controls, FilmFollowsTheHandleThatIsDraggedAcross) {
    playPaused();
    ASSERT_TRUE(mpv.command("\"seek\",0,\"absolute+exact\""));
    // The handle takes a moment longer than the film.
    ASSERT_TRUE(until([this] {
        const std::optional<Picture> picture = screen.window();
        return picture && picture->at(trackPlace(0.0) - 5, barY)[0] > 200;
    }));
    screen.movePointer(trackPlace(0.0), barY);
    screen.pressButton();
    for (const double time : {2.5, 5.0, 7.5, 10.0, 6.0}) {
        screen.movePointer(trackPlace(time), barY);
        // Key frames are a second apart.
        EXPECT_TRUE(until([&] { return isNear(time, 1.1); })) << time << " " << position().value_or(-1.0);
    }
    screen.releaseButton();
    // Taking hold and letting go are each a pixel's worth of 0.03 seconds, and so is a frame.
    EXPECT_TRUE(until([&] { return isNear(6.0, 0.1); })) << position().value_or(-1.0);
    EXPECT_TRUE(isPaused());
}

TEST_F(Controls, HeldHandleKeepsAFilmThatPlaysStillAndEscapeTakesItBack) {
    play();
    ASSERT_TRUE(mpv.command("\"seek\",2,\"absolute+exact\""));
    ASSERT_TRUE(until([this] { return position().value_or(0.0) > 2.1; }));
    screen.movePointer(trackPlace(8.0), barY);
    screen.pressButton();
    ASSERT_TRUE(until([this] { return isNear(8.0, 1.1) && isPaused() && mpv.flag("seeking") == false; }))
        << position().value_or(-1.0);
    const double held = position().value_or(-1.0);
    EXPECT_FALSE(eventually([&] { return position() != held; }, std::chrono::milliseconds(500)));
    screen.pressKey(XK_Escape);
    EXPECT_TRUE(until([this] { return position().value_or(9.0) < 6.0; })) << position().value_or(-1.0);
    const double before = position().value_or(0.0);
    EXPECT_TRUE(until([&] { return position().value_or(0.0) > before + 0.2; })) << "it does not go on";
    screen.releaseButton();
    EXPECT_FALSE(
        eventually([this] { return position().value_or(0.0) > 7.0; }, std::chrono::milliseconds(500)));
    EXPECT_TRUE(player->isRunning());
}

TEST_F(Controls, ClickOnTheTrackSeeksThere) {
    playPaused();
    for (const double time : {9.0, 3.0}) {
        screen.click(trackPlace(time), barY);
        EXPECT_TRUE(until([&] { return isNear(time, 0.06); })) << time << " " << position().value_or(-1.0);
    }
}

TEST_F(Controls, BarsLeaveAFilmAloneAndComeBackWithThePointer) {
    playEndlessly();
    EXPECT_TRUE(until([this] { return showsNoBars(); }));
    const Clock::time_point moved = Clock::now();
    screen.movePointer(325, 150);
    EXPECT_TRUE(until([this] { return showsBars(); }));
    EXPECT_TRUE(until([this] { return showsNoBars(); }));
    const double seconds = std::chrono::duration<double>(Clock::now() - moved).count();
    EXPECT_GT(seconds, 3.0);
}

TEST_F(Controls, BarsStayWhileTheFilmIsPaused) {
    playEndlessly();
    // Bars that come show that the player knows.
    ASSERT_TRUE(until([this] { return showsNoBars(); }));
    screen.pressKey(XK_space);
    ASSERT_TRUE(until([this] { return showsBars(); }));
    screen.movePointer(325, 150);
    EXPECT_FALSE(eventually([this] { return !showsBars(); }, std::chrono::milliseconds(4500)));
}

TEST_F(Controls, KeysMoveTheFilm) {
    playPaused();
    const std::vector<std::pair<unsigned long, double>> keys{
        {XK_5, 6.0}, {XK_Right, 11.0}, {XK_Left, 6.0}, {XK_Home, 0.0}, {XK_3, 3.6}};
    for (const auto& step : keys) {
        const double time = step.second;
        screen.pressKey(step.first);
        // The sound may make the film a little longer than its pictures, and a part of it as well.
        EXPECT_TRUE(until([&] { return isNear(time, 0.06) && !mpv.flag("seeking").value_or(true); }))
            << step.first << " " << position().value_or(-1.0);
    }
    constexpr double frame = 1.0 / 30.0;
    const double before = position().value_or(-1.0);
    screen.pressKey(XK_period);
    EXPECT_TRUE(until([&] { return isNear(before + frame, frame / 4.0); })) << position().value_or(-1.0);
    screen.pressKey(XK_comma);
    EXPECT_TRUE(until([&] { return isNear(before, frame / 4.0); })) << position().value_or(-1.0);
    screen.pressKey(XK_End);
    EXPECT_TRUE(until([&] { return position().value_or(0.0) > 11.8; })) << position().value_or(-1.0);
    EXPECT_TRUE(isPaused());
}

TEST_F(Controls, WheelAndKeysChangeTheVolume) {
    playPaused();
    EXPECT_EQ(mpv.flag("mute"), true);
    screen.pressKey(XK_m);
    EXPECT_TRUE(until([this] { return mpv.flag("mute") == false; }));
    screen.movePointer(320, 150);
    // Each notch and each key is 5 percent.
    screen.turnWheel(-4);
    EXPECT_TRUE(until([this] { return hasVolume(80.0); })) << mpv.number("volume").value_or(-1.0);
    screen.turnWheel(2);
    EXPECT_TRUE(until([this] { return hasVolume(90.0); })) << mpv.number("volume").value_or(-1.0);
    screen.pressKey(XK_Down);
    EXPECT_TRUE(until([this] { return hasVolume(85.0); })) << mpv.number("volume").value_or(-1.0);
}

TEST_F(Controls, FullScreenAndBack) {
    screen.startWindowManager();
    playPaused();
    const auto hasWidth = [this](int pixels) {
        return until([&] {
            const std::optional<Picture> picture = screen.window();
            return picture && picture->width() == pixels;
        });
    };
    screen.pressKey(XK_f);
    EXPECT_TRUE(hasWidth(VirtualScreen::width)) << "f";
    screen.pressKey(XK_Escape);
    EXPECT_TRUE(hasWidth(width)) << "escape";
    EXPECT_TRUE(player->isRunning());
    screen.doubleClick(320, 150);
    EXPECT_TRUE(hasWidth(VirtualScreen::width)) << "double click";
    screen.pressKey(XK_f);
    EXPECT_TRUE(hasWidth(width)) << "f again";
    screen.click(width - 27, barY);
    EXPECT_TRUE(hasWidth(VirtualScreen::width)) << "button";
    EXPECT_TRUE(until([this] { return showsBars(); }));
    screen.pressKey(XK_f);
    EXPECT_TRUE(hasWidth(width));
    screen.giveFullScreen();
    EXPECT_TRUE(hasWidth(VirtualScreen::width)) << "by the window manager";
    screen.pressKey(XK_f);
    EXPECT_TRUE(hasWidth(width)) << "after the window manager";
}

TEST_F(Controls, BrokenFileThatIsDroppedLeavesTheFilmAlone) {
    const fs::path text = folder.path() / "text.mkv";
    std::ofstream(text) << "no film at all\n";
    playPaused();
    ASSERT_TRUE(mpv.command("\"seek\",5,\"absolute+exact\""));
    ASSERT_TRUE(until([this] { return isNear(5.0); }));
    const Picture before = screen.window().value();
    ASSERT_TRUE(screen.drop("file://" + text.string() + "\r\n"));
    EXPECT_TRUE(until([this] { return player->errors().ends_with('\n'); }));
    EXPECT_EQ(player->errors(), "kivplayer: cannot play '" + text.string() +
                                    "': it is no film or sound that can be recognised\n");
    EXPECT_TRUE(until([&] { return !(screen.window() == before); })) << "nothing tells the viewer";
    EXPECT_TRUE(isNear(5.0));
    EXPECT_TRUE(isPaused());
    EXPECT_EQ(screen.windowTitle(), "Sample clip");
    screen.pressKey(XK_q);
    EXPECT_EQ(player->wait(), 0);
}

TEST_F(Controls, FileThatIsDroppedIsPlayed) {
    playPaused();
    const std::string other = Films::manyTracks().string();
    ASSERT_TRUE(screen.drop("file://" + other + "\r\nfile:///nowhere/second.mkv\r\n"));
    EXPECT_TRUE(until([this] { return screen.windowTitle() == "Ein schöner Film 映画"; }))
        << screen.windowTitle();
    EXPECT_TRUE(until([this] { return !isPaused() && position().value_or(0.0) > 0.2; }));
    EXPECT_EQ(player->errors(), "");
}

TEST_F(Controls, AddressThatIsDroppedIsPlayed) {
    playPaused();
    const std::string address = "http://127.0.0.1:1/film.mkv";
    const std::string told = "kivplayer: cannot play '" + address + "'";
    for (const char* type : {"text/uri-list", "text/plain"}) {
        const std::string before = player->errors();
        ASSERT_TRUE(screen.drop(address + "\r\n", type)) << type;
        EXPECT_TRUE(until([&] { return player->errors().substr(before.size()).starts_with(told); }))
            << type << player->errors();
    }
}

TEST_F(Controls, SubtitlesThatAreDroppedAreShown) {
    const fs::path subtitles = folder.path() / "lines.SRT";
    std::ofstream(subtitles) << "1\n00:00:00,000 --> 00:00:12,000\nHello\n";
    playPaused();
    EXPECT_EQ(mpv.number("sid"), 0.0);
    ASSERT_TRUE(screen.drop("file://" + subtitles.string() + "\r\n"));
    EXPECT_TRUE(until([this] { return mpv.number("sid").value_or(0.0) > 0.0; }));
    EXPECT_EQ(screen.windowTitle(), "Sample clip");
    EXPECT_EQ(player->errors(), "");
}

TEST_F(Controls, WindowIsNamedAfterTheFilm) {
    play();
    EXPECT_TRUE(until([this] { return screen.windowTitle() == "Sample clip"; })) << screen.windowTitle();
}

TEST_F(Controls, FilmPlaysAgainAfterItsEnd) {
    play();
    ASSERT_TRUE(mpv.command("\"seek\",11.7,\"absolute+exact\""));
    ASSERT_TRUE(until([this] { return mpv.flag("eof-reached").value_or(false); }));
    ASSERT_TRUE(until([this] { return showsBars(); }));
    screen.click(playX, barY);
    EXPECT_TRUE(until([this] {
        return !mpv.flag("eof-reached").value_or(true) && position().value_or(0.0) > 0.2 &&
               position().value_or(9.0) < 5.0;
    }));
}

TEST_F(Controls, ChangesByOtherProgramsShow) {
    playPaused();
    const std::optional<Picture> before = screen.window();
    ASSERT_TRUE(mpv.command("\"seek\",10,\"absolute+exact\""));
    EXPECT_TRUE(until([&] {
        const std::optional<Picture> now = screen.window();
        // The handle has left its place on the track.
        return now && now->at(trackPlace(10.0), barY)[0] > 200;
    }));
    EXPECT_TRUE(mpv.command("\"quit\""));
    EXPECT_EQ(player->wait(), 0);
    EXPECT_EQ(player->errors(), "");
}

} // namespace

} // namespace KivUICore::Player
