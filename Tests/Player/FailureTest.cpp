#include "Tests/Player/Films.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/WebServer.h"

#include <array>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string_view>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace Player {

namespace {

namespace fs = std::filesystem;

struct BadFilm {
    std::string name;

    /// Makes it in the folder and returns what to play.
    std::function<std::string(const fs::path& folder)> make;
    std::string reason;
};

void PrintTo(const BadFilm& film, std::ostream* stream) { *stream << film.name; }

std::string written(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

std::string beginning(const fs::path& film, std::uintmax_t bytes, const fs::path& target) {
    fs::copy_file(film, target);
    fs::resize_file(target, bytes);
    return target.string();
}

class FilmThatCannotBePlayed : public testing::TestWithParam<BadFilm> {};

TEST_P(FilmThatCannotBePlayed, IsToldInOneLineAndEndsASnapshot) {
    const TemporaryFolder folder;
    const std::string film = GetParam().make(folder.path());
    const auto player = startPlayer({film, "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(), "kivplayer: cannot play '" + film + "': " + GetParam().reason + "\n");
    EXPECT_EQ(player->output(), "");
}

TEST(FailureTest, AFileNameWithLineBreaksAndTerminalCommandsIsToldInOneLine) {
    const TemporaryFolder folder;
    const auto player = startPlayer({"a\nb\x1b[2Jc", "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(), "kivplayer: cannot play 'a?b?[2Jc': no such file\n");
}

INSTANTIATE_TEST_SUITE_P(
    Films, FilmThatCannotBePlayed,
    testing::Values(
        BadFilm{"Missing", [](const fs::path& folder) { return (folder / "none.mkv").string(); },
                "no such file"},
        BadFilm{"Folder", [](const fs::path& folder) { return folder.string(); }, "it is a directory"},
        BadFilm{"Empty", [](const fs::path& folder) { return written(folder / "empty.mkv", ""); },
                "the file is empty"},
        BadFilm{"Text",
                [](const fs::path& folder) { return written(folder / "text.mkv", "no film at all\n"); },
                "it is no film or sound that can be recognised"},
        BadFilm{
            "Zeros",
            [](const fs::path& folder) { return written(folder / "zeros.mp4", std::string(100000, '\0')); },
            "it is no film or sound that can be recognised"},
        BadFilm{"Subtitles",
                [](const fs::path& folder) {
                    return written(folder / "lines.srt", "1\n00:00:01,000 --> 00:00:02,000\nHello\n");
                },
                "there is neither picture nor sound in it"},
        BadFilm{"CutInItsFirstBytes",
                [](const fs::path& folder) { return beginning(Films::sample(), 300, folder / "cut.mkv"); },
                "there is neither picture nor sound in it"},
        BadFilm{"CutBeforeItsFirstFrame",
                [](const fs::path& folder) { return beginning(Films::sample(), 3000, folder / "cut.mkv"); },
                "nothing in it can be decoded"},
        BadFilm{"SoundCutBeforeItsFirstSample",
                [](const fs::path& folder) { return beginning(Films::sound(), 8600, folder / "cut.flac"); },
                "nothing in it can be decoded"},
        BadFilm{"UnreachableServer", [](const fs::path&) { return "http://127.0.0.1:1/film.mkv"; },
                "Connection refused"},
        BadFilm{"UnknownProtocol", [](const fs::path&) { return "nothing://film"; }, "it cannot be opened"}),
    [](const auto& film) { return film.param.name; });

/// A web server that has nothing.
class EmptyServer {
public:
    EmptyServer() = default;
    EmptyServer(const EmptyServer&) = delete;
    EmptyServer& operator=(const EmptyServer&) = delete;
    ~EmptyServer() {
        server_.stop();
        thread_.join();
    }

    std::string url(const std::string& path) const { return server_.url(path); }

private:
    void serve() const {
        constexpr std::string_view answer =
            "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
        for (int client = server_.nextConnection(); client >= 0; client = server_.nextConnection()) {
            std::array<char, 4096> request{};
            if (recv(client, request.data(), request.size(), 0) > 0) {
                send(client, answer.data(), answer.size(), MSG_NOSIGNAL);
            }
            close(client);
        }
    }

    WebServer server_;
    std::thread thread_{[this] { serve(); }};
};

TEST(FailureTest, WhatAServerAnswersIsTold) {
    const EmptyServer server;
    const TemporaryFolder folder;
    const std::string film = server.url("film.mkv");
    const auto player = startPlayer({film, "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(), "kivplayer: cannot play '" + film + "': HTTP error 404 Not Found\n");
}

class BadCommandLine : public testing::TestWithParam<std::vector<std::string>> {};

TEST_P(BadCommandLine, IsToldInOneLine) {
    const auto player = startPlayer(GetParam());
    EXPECT_EQ(player->wait(), 2);
    EXPECT_THAT(player->errors(), testing::MatchesRegex("kivplayer: [^\n]*\\(see --help\\)\n"));
    EXPECT_EQ(player->output(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadCommandLine,
    testing::Values(std::vector<std::string>{}, std::vector<std::string>{""},
                    std::vector<std::string>{"--bogus", "film.mkv"},
                    std::vector<std::string>{"one.mkv", "two.mkv"},
                    std::vector<std::string>{"film.mkv", "--at", "-1"},
                    std::vector<std::string>{"film.mkv", "--at", "nan"},
                    std::vector<std::string>{"film.mkv", "--at", "inf"},
                    std::vector<std::string>{"film.mkv", "--at", "1e99"},
                    std::vector<std::string>{"film.mkv", "--at", "soon"},
                    std::vector<std::string>{"film.mkv", "--at"},
                    std::vector<std::string>{"film.mkv", "--snapshot"},
                    std::vector<std::string>{"film.mkv", "--size", "640"},
                    std::vector<std::string>{"film.mkv", "--size", "0x0"},
                    std::vector<std::string>{"film.mkv", "--size", "-640x360"},
                    std::vector<std::string>{"film.mkv", "--size", "99999999999999x9"},
                    std::vector<std::string>{"film.mkv", "--size", "8000x8000", "--scale", "8"},
                    std::vector<std::string>{"film.mkv", "--scale", "0"},
                    std::vector<std::string>{"film.mkv", "--scale", "nan"},
                    std::vector<std::string>{"film.mkv", "--ipc-server"},
                    std::vector<std::string>{"film.mkv", "--ipc-server", ""},
                    std::vector<std::string>{"film.mkv", "--ipc-server", KIVPLAYER_PROGRAM},
                    std::vector<std::string>{"film.mkv", "--software", "--opengl"}));

TEST(CommandLine, LinkInPlaceOfASocketIsKept) {
    const TemporaryFolder folder;
    const fs::path link = folder.path() / "link";
    fs::create_symlink("later", link);
    const auto player = startPlayer({"film.mkv", "--ipc-server", link.string()});
    EXPECT_EQ(player->wait(), 2);
    EXPECT_EQ(player->errors(), "kivplayer: --ipc-server: '" + link.string() +
                                    "' is taken by something that is no socket (see --help)\n");
    EXPECT_TRUE(fs::is_symlink(link));
}

TEST(CommandLine, HelpNamesEveryOption) {
    const auto player = startPlayer({"--help"});
    EXPECT_EQ(player->wait(), 0);
    for (const char* option : {"--snapshot DIR", "--at SECONDS", "--size WxH", "--scale N", "--software",
                               "--opengl", "--mute", "--ipc-server PATH", "--version", "--help"}) {
        EXPECT_THAT(player->output(), testing::HasSubstr(option));
    }
    EXPECT_EQ(player->errors(), "");
}

TEST(CommandLine, VersionIsOneLine) {
    const auto player = startPlayer({"--version"});
    EXPECT_EQ(player->wait(), 0);
    EXPECT_THAT(player->output(), testing::MatchesRegex("kivplayer [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(NoDisplay, IsToldInOneLineThatSaysWhatToDo) {
    const auto player = startPlayer({Films::sound().string()});
    EXPECT_EQ(player->wait(), 2);
    EXPECT_THAT(player->errors(),
                testing::MatchesRegex("kivplayer: there is no display [^\n]*--snapshot[^\n]*\n"));
    EXPECT_EQ(player->output(), "");
}

} // namespace

} // namespace Player
