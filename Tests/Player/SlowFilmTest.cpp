#include "Tests/Player/Films.h"
#include "Tests/Player/PlaybackRun.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/VirtualScreen.h"
#include "Tests/Player/WebServer.h"

#include <X11/keysym.h>
#include <array>
#include <atomic>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

/// A web server that sends `start` and then the same text again and again, slowly.
class DrippingServer {
public:
    DrippingServer(std::string start, std::string drop) : start_(std::move(start)), drop_(std::move(drop)) {}
    DrippingServer(const DrippingServer&) = delete;
    DrippingServer& operator=(const DrippingServer&) = delete;
    ~DrippingServer() {
        isOver_ = true;
        server_.stop();
        thread_.join();
    }

    std::string url() const { return server_.url("film.mkv"); }

private:
    void serve() const {
        for (int client = server_.nextConnection(); client >= 0; client = server_.nextConnection()) {
            std::array<char, 4096> request{};
            bool isOpen = recv(client, request.data(), request.size(), 0) > 0 && sends(client, start_);
            while (isOpen && !isOver_) {
                isOpen = sends(client, drop_);
                pauseBriefly();
            }
            close(client);
        }
    }

    static bool sends(int client, const std::string& text) {
        return text.empty() || send(client, text.data(), text.size(), MSG_NOSIGNAL) > 0;
    }

    std::string start_;
    std::string drop_;
    std::atomic<bool> isOver_ = false;
    WebServer server_;
    std::thread thread_{[this] { serve(); }};
};

/// A pipe in a folder of its own, that nobody writes into.
class QuietPipe {
public:
    QuietPipe() { EXPECT_EQ(mkfifo(path().c_str(), 0600), 0); }
    std::string path() const { return (folder_.path() / "pipe").string(); }

private:
    TemporaryFolder folder_;
};

void expectSnapshotGivesUp(const std::string& film) {
    const TemporaryFolder folder;
    const auto player =
        startPlayer({film, "--timeout", "1", "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(),
              "kivplayer: cannot play '" + film +
                  "': there was no picture of it within 1 second (--timeout allows more)\n");
}

TEST(SnapshotOfASlowFilm, EndsWhenAServerIsSilent) {
    const WebServer server;
    expectSnapshotGivesUp(server.url("film.mkv"));
}

TEST(SnapshotOfASlowFilm, EndsWhenAServerDripsItsHeader) {
    const DrippingServer server("HTTP/1.1 200 OK\r\n", "X-More: yes\r\n");
    expectSnapshotGivesUp(server.url());
}

TEST(SnapshotOfASlowFilm, EndsWhenAServerDripsTheFilm) {
    const DrippingServer server("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n", "a");
    expectSnapshotGivesUp(server.url());
}

TEST(SnapshotOfASlowFilm, EndsWhenNobodyWritesIntoAPipe) {
    const QuietPipe pipe;
    expectSnapshotGivesUp(pipe.path());
}

class SlowFilm : public testing::Test {
protected:
    bool isToldAsCancelled() {
        return run.until([this] { return run.state().error.has_value(); }) &&
               run.error() == "cannot play '" + pipe.path() + "': opening it was cancelled";
    }

    const QuietPipe pipe;
    PlaybackRun run;
};

TEST_F(SlowFilm, OpeningThatIsCancelledIsAnErrorThatCanBeTriedAgain) {
    run.playback.open(pipe.path(), 0.0);
    run.turn();
    EXPECT_TRUE(run.state().isOpening);
    run.playback.cancelOpening();
    EXPECT_FALSE(run.state().isOpening);
    EXPECT_TRUE(isToldAsCancelled());
    run.playback.retry();
    EXPECT_TRUE(run.state().isOpening);
    EXPECT_FALSE(run.state().error);
    run.playback.cancelOpening();
    EXPECT_TRUE(isToldAsCancelled());
    EXPECT_TRUE(run.open(Films::white().string()));
    EXPECT_FALSE(run.state().error);
}

TEST_F(SlowFilm, FilmThatIsOpenedRightAfterACancelledOneIsNotCancelled) {
    for (int round = 0; round < 10; ++round) {
        run.playback.open(pipe.path(), 0.0);
        run.playback.cancelOpening();
        ASSERT_TRUE(run.open(Films::white().string())) << round;
        EXPECT_EQ(run.state().title, "white.mkv");
        EXPECT_FALSE(run.state().error);
    }
}

TEST_F(SlowFilm, CancelDoesNothingToAFilmThatPlays) {
    ASSERT_TRUE(run.open(Films::white().string()));
    run.playback.cancelOpening();
    run.turn();
    EXPECT_FALSE(run.state().error);
    EXPECT_FALSE(run.state().isOpening);
}

TEST_F(SlowFilm, OneThatIsTriedOutIsGivenUpAndTheOtherGoesOn) {
    ASSERT_TRUE(run.open(Films::white().string()));
    run.playback.exchange(pipe.path());
    EXPECT_TRUE(run.state().nextFilm);
    run.turn();
    run.playback.cancelOpening();
    EXPECT_FALSE(run.state().nextFilm);
    EXPECT_FALSE(run.state().error);
    EXPECT_EQ(run.state().title, "white.mkv");
}

class WindowOfASlowFilm : public testing::Test {
protected:
    /// Where the button of a message is.
    bool showsAMessage() {
        return eventually([this] {
            const std::optional<Picture> picture = screen.window();
            return picture && picture->width() == 640 && picture->at(275, 195)[0] > 50;
        });
    }

    const QuietPipe pipe;
    VirtualScreen screen;
    std::unique_ptr<Process> player =
        startPlayer({pipe.path(), "--mute", "--software", "--size", "640x360"}, {{"DISPLAY", screen.name()}});
};

TEST_F(WindowOfASlowFilm, TellsWhatItWaitsForAndEscapeCancels) {
    ASSERT_TRUE(showsAMessage()) << player->errors();
    screen.pressKey(XK_Escape);
    EXPECT_TRUE(eventually([this] {
        return player->errors() == "kivplayer: cannot play '" + pipe.path() + "': opening it was cancelled\n";
    })) << player->errors();
    screen.pressKey(XK_q);
    EXPECT_EQ(player->wait(), 1);
}

TEST_F(WindowOfASlowFilm, ButtonCancels) {
    ASSERT_TRUE(showsAMessage()) << player->errors();
    screen.click(320, 195);
    EXPECT_TRUE(eventually([this] { return !player->errors().empty(); }));
    player->signal(SIGTERM);
    EXPECT_EQ(player->wait(), 1);
}

TEST_F(WindowOfASlowFilm, EndsWhenItIsTold) {
    ASSERT_TRUE(showsAMessage()) << player->errors();
    player->signal(SIGTERM);
    EXPECT_EQ(player->wait(std::chrono::seconds(20)), 0);
    EXPECT_EQ(player->errors(), "");
}

} // namespace

} // namespace KivUICore::Player
