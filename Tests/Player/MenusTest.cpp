#include "Tests/Player/Films.h"
#include "Tests/Player/MpvSocket.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/VirtualScreen.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace KivUICore::Player {

namespace {

constexpr const char* prepared = "pop over prepare for presentation\n";
constexpr const char* dismissed = "pop did dismiss\n";

/// The player in a window, with a film of three sounds and three subtitles that is paused.
class Menus : public testing::Test {
protected:
    Menus() : mpv(folder.path() / "mpv") {}

    void play(int windowWidth, int windowHeight) {
        width = windowWidth;
        height = windowHeight;
        player = startPlayer({Films::manyTracks().string(), "--mute", "--software", "--size",
                              std::to_string(width) + "x" + std::to_string(height), "--ipc-server",
                              mpv.path().string()},
                             {{"DISPLAY", screen.name()}});
        ASSERT_TRUE(eventually([this] { return mpv.number("time-pos").value_or(0.0) > 0.1; }));
        ASSERT_TRUE(mpv.command("\"set_property\",\"pause\",true"));
        ASSERT_TRUE(eventually([this] {
            const std::optional<Picture> picture = screen.window();
            return picture && picture->width() == width;
        }));
    }

    /// Clicks the button of the menu and waits for what it says. Menus fade in, and take touches at once.
    void openMenu() {
        const std::size_t before = player->output().size();
        screen.click(width - 26, 20);
        ASSERT_TRUE(eventually([&] { return player->output().size() > before; }));
    }

    /// Chooses a row by the keyboard; one that leads to another menu opens that.
    void choose(int row) const {
        for (int step = 0; step <= row; ++step) {
            screen.pressKey(XK_Down);
        }
        screen.pressKey(XK_Return);
    }

    void chooseFromMenu(int menu, int row) {
        openMenu();
        const std::size_t before = player->output().size();
        choose(menu);
        ASSERT_TRUE(eventually([&] { return player->output().size() > before; }));
        choose(row);
    }

    // A menu is light, whatever the film shows.
    bool showsMenu(int x, int y) const {
        const std::optional<Picture> picture = screen.window();
        return picture && picture->at(x, y)[0] > 215 && picture->at(x, y)[1] > 215 &&
               picture->at(x, y)[2] > 215;
    }

    TemporaryFolder folder;
    MpvSocket mpv;
    VirtualScreen screen;
    std::unique_ptr<Process> player;
    int width = 0;
    int height = 0;
};

TEST_F(Menus, ChoosesTheSoundByMouse) {
    play(640, 360);
    EXPECT_EQ(mpv.number("aid"), 1.0);
    openMenu();
    // The rows are 44 points high; the second leads to the sounds, of which the third is chosen.
    const int x = width - 100;
    ASSERT_TRUE(eventually([&] { return showsMenu(x, 60); }));
    screen.click(x, 52 + 44 + 22);
    ASSERT_TRUE(eventually([&] { return player->output() == std::string(prepared) + prepared; }));
    ASSERT_TRUE(eventually([&] { return showsMenu(x, 60); }));
    screen.click(x, 52 + 2 * 44 + 22);
    EXPECT_TRUE(eventually([this] { return mpv.number("aid") == 3.0; }));
    EXPECT_TRUE(eventually([&] { return !showsMenu(x, 60); }));
    EXPECT_EQ(player->output(), std::string(prepared) + prepared);
}

TEST_F(Menus, ChoosesSubtitlesAndSwitchesThemOffByKeyboard) {
    play(640, 360);
    chooseFromMenu(2, 3);
    EXPECT_TRUE(eventually([this] { return mpv.number("sid") == 3.0; }));
    chooseFromMenu(2, 0);
    EXPECT_TRUE(eventually([this] { return mpv.flag("sid") == false; }));
}

TEST_F(Menus, ChoosesSpeedAndChapter) {
    play(640, 360);
    chooseFromMenu(0, 7);
    EXPECT_TRUE(eventually([this] { return mpv.number("speed") == 2.0; }));
    chooseFromMenu(3, 1);
    EXPECT_TRUE(eventually([this] { return mpv.number("time-pos") == 2.5; }));
}

TEST_F(Menus, ClickOutsideClosesTheMenuAndLeavesTheFilmAlone) {
    play(640, 360);
    openMenu();
    ASSERT_TRUE(eventually([this] { return showsMenu(width - 100, 60); }));
    // On the button that would let the film go on.
    screen.click(27, height - 20);
    EXPECT_TRUE(eventually([this] { return player->output() == std::string(prepared) + dismissed; }))
        << player->output();
    EXPECT_TRUE(eventually([this] { return !showsMenu(width - 100, 60); }));
    EXPECT_EQ(mpv.flag("pause"), true);
    screen.click(27, height - 20);
    EXPECT_TRUE(eventually([this] { return mpv.flag("pause") == false; }));
}

TEST_F(Menus, SmallestWindowHasRoomForAMenuThatScrolls) {
    play(320, 180);
    openMenu();
    ASSERT_TRUE(eventually([this] { return showsMenu(width - 60, 60); }));
    const Picture top = screen.window().value();
    for (int x = 0; x < width; ++x) {
        EXPECT_LT(top.at(x, height - 5)[0], 215) << "the menu leaves the window at " << x;
    }
    screen.movePointer(width - 60, 100);
    screen.turnWheel(-1);
    EXPECT_TRUE(eventually([&] { return !(screen.window() == top); }));
    screen.pressKey(XK_Escape);
    EXPECT_TRUE(eventually([this] { return player->output() == std::string(prepared) + dismissed; }));
    EXPECT_TRUE(player->isRunning());
}

} // namespace

} // namespace KivUICore::Player
