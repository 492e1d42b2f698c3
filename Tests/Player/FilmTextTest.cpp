#include "Player/Desktop/FilmLocation.h"
#include "Tests/Player/Films.h"
#include "Tests/Player/PlaybackRun.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/VirtualScreen.h"

#include <X11/keysym.h>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace KivUICore::Player {

namespace {

constexpr std::size_t longWord = 100000;

TEST(FilmText, NamesOfAnyLengthAreCutBeforeAnybodyShowsThem) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::titled(std::string(longWord, 'a'), "long-word.mkv").string()));
    const std::string shown = std::string(500, 'a') + "…";
    EXPECT_TRUE(run.until([&] { return run.state().title == shown; })) << run.state().title;
    ASSERT_EQ(run.state().chapters.size(), 1U);
    EXPECT_EQ(run.state().chapters.front().name, shown);
    ASSERT_EQ(run.state().tracks.size(), 1U);
    EXPECT_EQ(run.state().tracks.front().name, shown);
}

TEST(FilmText, NamesWithLineBreaksAreOneLine) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::titled("One\n\tTwo", "two-lines.mkv").string()));
    EXPECT_TRUE(run.until([&] { return run.state().title == "One Two"; })) << run.state().title;
    ASSERT_EQ(run.state().chapters.size(), 1U);
    EXPECT_EQ(run.state().chapters.front().name, "One Two");
    ASSERT_EQ(run.state().tracks.size(), 1U);
    EXPECT_EQ(run.state().tracks.front().name, "One Two");
}

TEST(FilmText, TitleOfWhichNothingCanBeSeenGivesWayToTheFilesName) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::titled(" \t\u200B\u200B", "blank.mkv").string()));
    EXPECT_TRUE(run.until([&] { return run.state().title == "blank.mkv"; })) << run.state().title;
    EXPECT_EQ(run.state().chapters.at(0).name, "");
    EXPECT_EQ(run.state().tracks.at(0).name, "Track 1");
}

TEST(FilmText, NameOfAFileIsOneLine) {
    EXPECT_EQ(nameOf("/films/a\nb\x1b[2J.mkv"), "a b [2J.mkv");
    EXPECT_EQ(nameOf("http://films/" + std::string(longWord, 'a')).size(), 500 + std::string("…").size());
}

/// The player in a window, with a film whose names are one word without end.
class WindowWithLongWords : public testing::Test {
protected:
    bool showsWhite(int width, int height) {
        return eventually([&] {
            const std::optional<Picture> picture = screen.window();
            return picture && picture->width() == width && picture->at(width / 2, height / 2)[0] > 250;
        });
    }

    VirtualScreen screen;
    std::unique_ptr<Process> player =
        startPlayer({Films::titled(std::string(longWord, 'a'), "long-word.mkv").string(), "--mute",
                     "--software", "--size", "640x360"},
                    {{"DISPLAY", screen.name()}});
};

TEST_F(WindowWithLongWords, AnswersAtEverySize) {
    ASSERT_TRUE(showsWhite(640, 360)) << player->errors();
    screen.pressKey(XK_space);
    for (int step = 1; step <= 5; ++step) {
        screen.resizeWindow(640 + 40 * step, 360);
        EXPECT_TRUE(showsWhite(640 + 40 * step, 360)) << step;
    }
    EXPECT_THAT(screen.windowTitle(), testing::StartsWith("aaaa"));
    EXPECT_LT(screen.windowTitle().size(), 600U);
    player->signal(SIGTERM);
    EXPECT_EQ(player->wait(), 0) << player->errors();
}

} // namespace

} // namespace KivUICore::Player
