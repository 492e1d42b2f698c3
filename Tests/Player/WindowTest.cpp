#include "Tests/Player/Films.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/VirtualScreen.h"

#include <X11/keysym.h>
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

bool isWhite(const Picture::Pixel& pixel) { return pixel[0] >= 253 && pixel[1] >= 253 && pixel[2] >= 253; }

// White under black at 65 %.
bool isDarkened(const Picture::Pixel& pixel) {
    const auto isInside = [](int part) { return part >= 87 && part <= 91; };
    return isInside(pixel[0]) && isInside(pixel[1]) && isInside(pixel[2]);
}

/// Whether a white film fills the window with 40 darkened rows at the top and at the bottom, to the row. The
/// controls keep clear of the bars' edges.
bool isDocked(const Picture& picture, int width, int height) {
    if (picture.width() != width || picture.height() != height) {
        return false;
    }
    constexpr int bar = 40;
    constexpr int edge = 4;
    for (const int x : {width / 2, width / 3}) {
        for (int y = 0; y < height; ++y) {
            const int fromEdge = std::min(y, height - 1 - y);
            const bool isAsItShouldBe = fromEdge >= bar ? isWhite(picture.at(x, y))
                                        : fromEdge < edge || fromEdge >= bar - edge
                                            ? isDarkened(picture.at(x, y))
                                            : true;
            if (!isAsItShouldBe) {
                return false;
            }
        }
    }
    return true;
}

class PlayerWindow : public testing::TestWithParam<const char*> {
protected:
    std::unique_ptr<Process> play(const std::string& film, std::vector<std::string> options = {}) {
        options.insert(options.end(), {film, "--mute", GetParam(), "--size", "640x360"});
        Environment all = environment;
        all.insert(all.end(), {{"DISPLAY", screen.name()}, {"ASAN_OPTIONS", sanitizerOptions()}});
        return startPlayer(options, all);
    }

    // The graphics driver is unloaded before leaks are looked for, so that its own can't be told from others.
    static std::string sanitizerOptions() {
        const char* given = std::getenv("ASAN_OPTIONS");
        const std::string options = given ? given : "";
        return std::string(GetParam()) == "--opengl" ? options + ":detect_leaks=0" : options;
    }

    /// Bars leave a film that plays, and stay while it is paused.
    std::unique_ptr<Process> playPaused(const std::string& film,
                                        const std::vector<std::string>& options = {}) {
        auto player = play(film, options);
        EXPECT_TRUE(showsWhite()) << player->errors();
        screen.pressKey(XK_space);
        return player;
    }

    bool showsWhite() {
        return eventually([this] {
            const std::optional<Picture> picture = screen.window();
            return picture && isWhite(picture->at(picture->width() / 2, picture->height() / 2));
        });
    }

    bool showsDockedBars(int width, int height) {
        return eventually([&] {
            const std::optional<Picture> picture = screen.window();
            return picture && isDocked(*picture, width, height);
        });
    }

    /// The middle of the film, where no bar is, shows something else than `before`.
    bool showsAnotherFrame(const Picture& before) {
        return eventually([&] {
            const std::optional<Picture> now = screen.window();
            return now && now->width() == before.width() && now->differenceTo(before) > 0.5;
        });
    }

    bool showsWindowOf(int width, int height) {
        return eventually([&] {
            const std::optional<Picture> picture = screen.window();
            return picture && picture->width() == width && picture->height() == height &&
                   isWhite(picture->at(width / 2, height / 2));
        });
    }

    bool showsColors() {
        return eventually([&] {
            const std::optional<Picture> picture = screen.window();
            return picture && picture->width() == 640 && picture->at(60, 180)[0] > 150;
        });
    }

    VirtualScreen screen;
    Environment environment;
};

TEST_P(PlayerWindow, ShowsAFilmThatMoves) {
    const auto player = play(Films::sample().string());
    ASSERT_TRUE(showsColors()) << player->errors();
    for (int frame = 0; frame < 3; ++frame) {
        EXPECT_TRUE(showsAnotherFrame(screen.window().value()));
    }
    player->signal(SIGTERM);
    EXPECT_EQ(player->wait(), 0) << player->errors();
    EXPECT_EQ(player->errors(), "");
}

TEST_P(PlayerWindow, BarsDarkenFortyPointsAtTheTopAndTheBottom) {
    const auto player = playPaused(Films::white().string());
    EXPECT_TRUE(showsDockedBars(640, 360)) << player->errors();
}

TEST_P(PlayerWindow, ScaleMakesTheWindowAndItsBarsLarger) {
    const auto player = playPaused(Films::white().string(), {"--scale", "2"});
    EXPECT_TRUE(eventually([&] {
        const std::optional<Picture> picture = screen.window();
        return picture && picture->width() == 1280 && picture->height() == 720 &&
               isDarkened(picture->at(640, 79)) && isWhite(picture->at(640, 80)) &&
               isWhite(picture->at(640, 639)) && isDarkened(picture->at(640, 640));
    })) << player->errors();
}

TEST_P(PlayerWindow, DesktopForFineScreensMakesTheWindowLarger) {
    screen.setResources("Xft.dpi:\t192\n");
    const auto larger = play(Films::white().string());
    EXPECT_TRUE(showsWindowOf(1280, 720)) << larger->errors();
    larger->signal(SIGTERM);
    larger->wait();
    environment = {{"GDK_SCALE", "1"}};
    const auto byHand = play(Films::white().string());
    EXPECT_TRUE(showsWindowOf(640, 360)) << byHand->errors();
    byHand->signal(SIGTERM);
    byHand->wait();
    const auto byOption = play(Films::white().string(), {"--scale", "1.5"});
    EXPECT_TRUE(showsWindowOf(960, 540)) << byOption->errors();
}

TEST_P(PlayerWindow, BarsAreDockedAfterEachResize) {
    const auto player = playPaused(Films::white().string());
    ASSERT_TRUE(showsDockedBars(640, 360)) << player->errors();
    for (const auto& [width, height] : {std::pair(960, 540), std::pair(320, 180), std::pair(1280, 720)}) {
        screen.resizeWindow(width, height);
        EXPECT_TRUE(showsDockedBars(width, height)) << width << "x" << height;
    }
    for (int width = 1280; width > 640; width -= 16) {
        screen.resizeWindow(width, width * 9 / 16);
    }
    screen.resizeWindow(640, 360);
    EXPECT_TRUE(showsDockedBars(640, 360)) << "after many in a row";
    EXPECT_TRUE(player->isRunning());
}

TEST_P(PlayerWindow, SpacePausesAndGoesOnAndAPausedFilmCostsNothing) {
    const auto player = play(Films::sample().string());
    ASSERT_TRUE(showsColors()) << player->errors();
    screen.pressKey(XK_space);

    constexpr std::chrono::milliseconds interval{500};
    constexpr double mostIdleTime = 0.02;
    Picture paused;
    const auto rests = [&] {
        const double before = player->processorTime();
        paused = screen.window().value();
        std::this_thread::sleep_for(interval);
        return player->processorTime() - before <= mostIdleTime && screen.window() == paused;
    };
    // A player that is not given the processor for a while looks the same, but not twice.
    EXPECT_TRUE(eventually([&] { return rests() && rests(); })) << "it does not come to rest";

    screen.pressKey(XK_space);
    EXPECT_TRUE(showsAnotherFrame(paused));
}

TEST_P(PlayerWindow, FilmThatCannotBePlayedIsToldInTheWindowWhichStaysOpen) {
    const TemporaryFolder folder;
    const fs::path text = folder.path() / "text.mkv";
    std::ofstream(text) << "no film at all\n";
    const auto player = play(text.string());
    EXPECT_TRUE(eventually([&] {
        const std::optional<Picture> picture = screen.window();
        if (!picture || picture->width() != 640) {
            return false;
        }
        int brightPixels = 0;
        for (int x = 100; x < 540; ++x) {
            for (int y = 150; y < 210; ++y) {
                brightPixels += picture->at(x, y)[1] > 200 ? 1 : 0;
            }
        }
        return brightPixels > 200;
    })) << "there is no text in the window";
    EXPECT_TRUE(player->isRunning());
    EXPECT_EQ(player->errors(), "kivplayer: cannot play '" + text.string() +
                                    "': it is no film or sound that can be recognised\n");
    screen.closeWindow();
    EXPECT_EQ(player->wait(), 1);
}

TEST_P(PlayerWindow, SoundAlonePlaysUnderBlack) {
    const auto player = play(Films::sound().string());
    EXPECT_TRUE(eventually([&] {
        const std::optional<Picture> picture = screen.window();
        return picture && picture->width() == 640 && picture->at(320, 180) == Picture::Pixel{0, 0, 0, 255};
    }));
    EXPECT_TRUE(player->isRunning());
    screen.pressKey(XK_q);
    EXPECT_EQ(player->wait(), 0);
    EXPECT_EQ(player->errors(), "");
}

TEST_P(PlayerWindow, EndsCleanlyInEveryWay) {
    const std::vector<std::pair<const char*, std::function<void(const Process&)>>> ways{
        {"SIGINT", [](const Process& player) { player.signal(SIGINT); }},
        {"SIGTERM", [](const Process& player) { player.signal(SIGTERM); }},
        {"SIGHUP", [](const Process& player) { player.signal(SIGHUP); }},
        {"closed", [this](const Process&) { screen.closeWindow(); }},
        {"destroyed", [this](const Process&) { screen.destroyWindow(); }},
        {"q", [this](const Process&) { screen.pressKey(XK_q); }},
    };
    for (const auto& [name, end] : ways) {
        const TemporaryFolder folder;
        const fs::path socket = folder.path() / "socket";
        const auto player = play(Films::white().string(), {"--ipc-server", socket.string()});
        ASSERT_TRUE(showsWhite()) << name << player->errors();
        EXPECT_TRUE(eventually([&] { return fs::exists(socket); })) << name;
        end(*player);
        EXPECT_EQ(player->wait(), 0) << name << player->errors();
        EXPECT_EQ(player->errors(), "") << name;
        EXPECT_FALSE(fs::exists(socket)) << name;
    }
}

// What a window manager says of a window that is gone leaves SDL in doubt about it, but not each time.
TEST_P(PlayerWindow, EndsWhenItsWindowIsDestroyedUnderAWindowManager) {
    screen.startWindowManager();
    for (int run = 0; run < 4; ++run) {
        const auto player = play(Films::white().string());
        ASSERT_TRUE(showsWhite()) << run << player->errors();
        screen.destroyWindow();
        EXPECT_EQ(player->wait(), 0) << run << player->errors();
        EXPECT_EQ(player->errors(), "") << run;
    }
}

TEST_P(PlayerWindow, EndsWithALineWhenItsConnectionIsCut) {
    const TemporaryFolder folder;
    const fs::path socket = folder.path() / "socket";
    const auto player = play(Films::white().string(), {"--ipc-server", socket.string()});
    ASSERT_TRUE(showsWhite()) << player->errors();
    screen.killWindow();
    EXPECT_EQ(player->wait(), 1);
    EXPECT_FALSE(fs::exists(socket));
    EXPECT_EQ(player->errors(), "kivplayer: the connection to the display was cut\n");
}

INSTANTIATE_TEST_SUITE_P(Drawing, PlayerWindow, testing::Values("--software", "--opengl"),
                         [](const auto& way) { return std::string(way.param).substr(2); });

} // namespace

} // namespace KivUICore::Player
