#include "Player/Desktop/SocketFile.h"

#include "Tests/Player/Films.h"
#include "Tests/Player/MpvSocket.h"
#include "Tests/Player/PlaybackRun.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/VirtualScreen.h"
#include "Tests/Player/WebServer.h"

#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

/// A socket of another program, as long as it lives.
class ForeignSocket {
public:
    explicit ForeignSocket(const fs::path& path, int type = SOCK_STREAM)
        : descriptor_(socket(AF_UNIX, type, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(bind(descriptor_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        if (type == SOCK_STREAM) {
            EXPECT_EQ(listen(descriptor_, 0), 0);
        }
    }
    ForeignSocket(const ForeignSocket&) = delete;
    ForeignSocket& operator=(const ForeignSocket&) = delete;
    ~ForeignSocket() { close(descriptor_); }

private:
    int descriptor_;
};

class SocketFileTest : public testing::Test {
protected:
    std::string why() const { return SocketFile::whyNotAt(path.string()).value_or("none"); }

    TemporaryFolder folder;
    fs::path path = folder.path() / "socket";
};

TEST_F(SocketFileTest, AnythingMayBeMadeWhereNothingIs) {
    EXPECT_EQ(why(), "none");
    EXPECT_FALSE(SocketFile::whyNotAt("socket-in-the-current-folder"));
}

TEST_F(SocketFileTest, SocketThatAnotherProgramUsesStays) {
    for (const int type : {SOCK_STREAM, SOCK_DGRAM}) {
        const ForeignSocket foreign(path, type);
        EXPECT_EQ(why(), "'" + path.string() + "' is a socket that another program uses");
        const auto player = startPlayer({"film.mkv", "--ipc-server", path.string()});
        EXPECT_EQ(player->wait(), 2);
        EXPECT_THAT(player->errors(), testing::HasSubstr("is a socket that another program uses"));
        EXPECT_TRUE(fs::is_socket(path));
        fs::remove(path);
    }
}

TEST_F(SocketFileTest, SocketThatNobodyUsesGivesWay) {
    { const ForeignSocket foreign(path); }
    ASSERT_TRUE(fs::is_socket(path));
    EXPECT_EQ(why(), "none");
}

TEST_F(SocketFileTest, WhatMakesAPathUselessIsTold) {
    const std::string start = "'" + path.string() + "/socket' ";
    EXPECT_EQ(SocketFile::whyNotAt(path / "socket"), start + "cannot be made: No such file or directory");
    std::ofstream(path) << "precious";
    EXPECT_EQ(SocketFile::whyNotAt(path / "socket"), start + "cannot be made: Not a directory");
    EXPECT_EQ(why(), "'" + path.string() + "' is taken by something that is no socket");
    EXPECT_THAT(*SocketFile::whyNotAt("@name"), testing::HasSubstr("open to everybody"));
    EXPECT_THAT(*SocketFile::whyNotAt("/tmp/" + std::string(200, 'a')), testing::HasSubstr("107 bytes"));
    EXPECT_THAT(*SocketFile::whyNotAt("/tmp/" + std::string(2, 'a') + std::string(300, 'b')),
                testing::Not(testing::HasSubstr("no socket")));
    const fs::path loop = folder.path() / "loop";
    fs::create_symlink(loop, loop);
    EXPECT_EQ(SocketFile::whyNotAt(loop / "socket"),
              "'" + (loop / "socket").string() + "' cannot be examined: Too many levels of symbolic links");
}

TEST_F(SocketFileTest, FolderThatIsMissingIsToldWithPicturesToo) {
    const fs::path missing = folder.path() / "missing" / "socket";
    const auto player =
        startPlayer({Films::white().string(), "--snapshot", (folder.path() / "pictures").string(),
                     "--ipc-server", missing.string()});
    EXPECT_EQ(player->wait(), 2);
    EXPECT_EQ(player->errors(), "kivplayer: --ipc-server: '" + missing.string() +
                                    "' cannot be made: No such file or directory (see --help)\n");
}

TEST_F(SocketFileTest, OnlyItsOwnerCanConnect) {
    PlaybackRun run(MpvPlayback::Settings{.ipcServer = path.string()});
    ASSERT_TRUE(eventually([&] { return MpvSocket(path).flag("pause").has_value(); }));
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SocketFileTest, SignalThatEndsTheProgramWhileItTakesPicturesLeavesNoFile) {
    for (const int number : {SIGHUP, SIGINT, SIGTERM}) {
        const WebServer silent;
        const auto player =
            startPlayer({silent.url("film.mkv"), "--snapshot", (folder.path() / "pictures").string(),
                         "--ipc-server", path.string()});
        ASSERT_TRUE(eventually([&] { return fs::is_socket(path); })) << player->errors();
        player->signal(number);
        EXPECT_EQ(player->wait(), 128 + number);
        EXPECT_FALSE(fs::exists(path));
    }
}

TEST_F(SocketFileTest, IsMadeWhenTheWindowIsThereSoThatNoSignalBeforeItLeavesAFile) {
    constexpr int firstDisplayPort = 6000;
    const WebServer display;
    const std::string url = display.url("");
    const int port = std::stoi(url.substr(url.rfind(':') + 1));
    const auto player = startPlayer(
        {Films::white().string(), "--ipc-server", path.string()},
        {{"DISPLAY", "127.0.0.1:" + std::to_string(port - firstDisplayPort)}, {"SDL_VIDEODRIVER", "x11"}});
    const int connection = display.nextConnection();
    EXPECT_FALSE(fs::exists(path));
    player->signal(SIGHUP);
    EXPECT_EQ(player->wait(), 128 + SIGHUP);
    EXPECT_FALSE(fs::exists(path));
    close(connection);
}

// mpv writes a picture into a pipe that nobody reads.
TEST_F(SocketFileTest, LeavesWithAProgramThatCannotWaitForMpvToEnd) {
    constexpr auto longestWait = std::chrono::seconds(1);
    const fs::path pipe = folder.path() / "pipe.png";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const VirtualScreen screen;
    const auto player =
        startPlayer({Films::white().string(), "--mute", "--software", "--ipc-server", path.string()},
                    {{"DISPLAY", screen.name()}});
    MpvSocket mpv(path);
    ASSERT_TRUE(eventually([&] { return mpv.number("video-out-params/w").has_value(); })) << player->errors();
    ASSERT_TRUE(mpv.begin("\"screenshot-to-file\",\"" + pipe.string() + "\",\"video\""));
    ASSERT_TRUE(mpv.flag("pause"));
    const auto told = std::chrono::steady_clock::now();
    player->signal(SIGTERM);
    EXPECT_EQ(player->wait(), 0) << player->errors();
    EXPECT_GE(std::chrono::steady_clock::now() - told, longestWait) << "mpv was stuck";
    EXPECT_FALSE(fs::exists(path));
}

} // namespace

} // namespace KivUICore::Player
