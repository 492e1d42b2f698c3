#include "Tests/Player/Films.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/StubbornServer.h"
#include "Tests/Player/VirtualScreen.h"
#include "Tests/Player/WebServer.h"

#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace KivUICore::Player {

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

void replaceIn(const fs::path& path, const std::string& part, const std::string& other) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    bytes.replace(bytes.find(part), part.size(), other);
    written(path, bytes);
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
    const std::string name = "a\nb\x1b[2Jc\u009B2J\u202Ed\u2028e\xFF"
                             "f";
    const auto player = startPlayer({name, "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(), "kivplayer: cannot play 'a?b?[2Jc?2J?d?e?f': no such file\n");
    const auto misused = startPlayer({"film.mkv", name});
    EXPECT_EQ(misused->wait(), 2);
    EXPECT_THAT(misused->errors(), testing::HasSubstr("a?b?[2Jc?2J?d?e?f"));
}

INSTANTIATE_TEST_SUITE_P(
    Films, FilmThatCannotBePlayed,
    testing::Values(
        BadFilm{"Missing", [](const fs::path& folder) { return (folder / "none.mkv").string(); },
                "no such file"},
        BadFilm{"Folder", [](const fs::path& folder) { return folder.string(); }, "it is a directory"},
        BadFilm{"Empty", [](const fs::path& folder) { return written(folder / "empty.mkv", ""); },
                "the file is empty"},
        BadFilm{"ThatCannotBeRead", [](const fs::path&) { return std::string("/proc/self/mem"); },
                "it cannot be read: Input/output error"},
        BadFilm{"OfNoSizeButNotEmpty", [](const fs::path&) { return std::string("/proc/self/status"); },
                "it is no film or sound that can be recognised"},
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
        BadFilm{"WithoutItsIndex",
                [](const fs::path& folder) {
                    return written(folder / "film.mp4", std::string("\0\0\0\x18"
                                                                    "ftypisom\0\0\2\0isommp41\0\0\0\x80"
                                                                    "mdat",
                                                                    32) +
                                                            std::string(120, 'x'));
                },
                "it is incomplete: its index is missing; was it copied or recorded to its end?"},
        BadFilm{"LeadingBeyondItsOwnEnd",
                [](const fs::path& folder) {
                    // A header of 30 bytes, and a part of no known kind and of endless length.
                    const std::string head("\x30\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\0\xAA\0\x62\xCE\x6C"
                                           "\x36\0\0\0\0\0\0\0\1\0\0\0\1\2",
                                           30);
                    const std::string part("of no known kind\0\0\0\0\0\0\0\x10", 24);
                    return written(folder / "film.wmv", head + part + std::string(2000, '\0'));
                },
                "it is no film or sound that can be recognised"},
        BadFilm{"InAFormNobodyKnows",
                [](const fs::path& folder) {
                    const std::string film =
                        beginning(Films::white(), fs::file_size(Films::white()), folder / "film.mkv");
                    replaceIn(film, "V_MPEG4/ISO/AVC", "V_NOTHING/KNOWN");
                    return film;
                },
                "no decoder fits what is in it: it may be damaged, protected or of a rare kind"},
        BadFilm{"FolderAsAUrl", [](const fs::path& folder) { return "file://" + folder.string(); },
                "it is a directory"},
        BadFilm{"MissingAsAUrlWithEscapes",
                [](const fs::path& folder) { return "file://" + (folder / "no%20film.mkv").string(); },
                "no such file"},
        BadFilm{"PortThatCannotBe", [](const fs::path&) { return "http://127.0.0.1:99999/film.mkv"; },
                "the address has no valid port; ports go from 1 to 65535"},
        BadFilm{"UnknownServer", [](const fs::path&) { return "http://films.invalid/film.mkv"; },
                "there is no server of that name"},
        BadFilm{"StreamOfAnUnreachableServer", [](const fs::path&) { return "rtsp://127.0.0.1:1/film"; },
                "Connection refused"},
        BadFilm{"UnreachableServer", [](const fs::path&) { return "http://127.0.0.1:1/film.mkv"; },
                "Connection refused"},
        BadFilm{"UnknownProtocol", [](const fs::path&) { return "nothing://film"; },
                "only files and addresses of http, https, rtsp, rtsps, rtmp and rtmps are played"}),
    [](const auto& film) { return film.param.name; });

std::string errorsOfASnapshot(const std::string& film) {
    const TemporaryFolder folder;
    const auto player = startPlayer({film, "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    return player->errors();
}

TEST(FailureTest, WhatAServerAnswersIsTold) {
    const StubbornServer server(httpAnswer("404 Not Found", ""));
    const std::string film = server.url("film.mkv");
    EXPECT_EQ(errorsOfASnapshot(film), "kivplayer: cannot play '" + film + "': HTTP error 404 Not Found\n");
}

struct BadAnswer {
    std::string name;
    std::string answer;
    std::string reason;
};

void PrintTo(const BadAnswer& answer, std::ostream* stream) { *stream << answer.name; }

class ServerThatHasNoFilm : public testing::TestWithParam<BadAnswer> {};

TEST_P(ServerThatHasNoFilm, IsToldByWhatItAnswers) {
    const StubbornServer server(GetParam().answer);
    const std::string film = server.url("film.mkv");
    EXPECT_EQ(errorsOfASnapshot(film), "kivplayer: cannot play '" + film + "': " + GetParam().reason + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Answers, ServerThatHasNoFilm,
    testing::Values(
        BadAnswer{
            "Loop",
            "HTTP/1.1 302 Found\r\nLocation: /film.mkv\r\nContent-Length: 0\r\nConnection: close\r\n\r\n",
            "the server leads from one address to the next and to no film"},
        BadAnswer{"ToAFile",
                  "HTTP/1.1 302 Found\r\nLocation: file:///etc/passwd\r\nContent-Length: 0\r\n\r\n",
                  "the server leads to an address that cannot be opened"},
        BadAnswer{"NoHttp", std::string("hello\n") + std::string(2000, 'x') + "\n",
                  "the answer is not that of a web server"},
        BadAnswer{"None", "", "the server hung up without an answer"},
        BadAnswer{"Nothing", httpAnswer("200 OK", ""), "the file is empty"},
        BadAnswer{"Page",
                  "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nConnection: close\r\n\r\n<html><body>" +
                      std::string(3000, 'x'),
                  "it is a web page"},
        BadAnswer{"Password", httpAnswer("401 Unauthorized", ""),
                  "HTTP error 401 Unauthorized; the server wants a name and a password"},
        BadAnswer{"Proxy", httpAnswer("407 Proxy Authentication Required", ""), "HTTP error 407"},
        BadAnswer{"Busy", httpAnswer("503 Service Unavailable", ""),
                  "HTTP error 503 Service Unavailable; it may help to try again later"}),
    [](const auto& answer) { return answer.param.name; });

TEST(FailureTest, WhatAServerAnswersGivesTheTerminalNoCommands) {
    const StubbornServer server(
        httpAnswer("404 \x1b[2J\u009B31m\x9B\u202Eno\u2028" + std::string(300, 'x'), ""));
    const std::string errors = errorsOfASnapshot(server.url("film.mkv"));
    EXPECT_THAT(errors, testing::HasSubstr("HTTP error 404 ?[2J?31m??no?xxx"));
    EXPECT_THAT(errors, testing::MatchesRegex("kivplayer: [ -~]*\n"));
}

TEST(FailureTest, PasswordsAndKeysInAUrlAreNotTold) {
    const StubbornServer server(httpAnswer("404 Not Found", ""));
    std::string film = server.url("film.mkv?key=hidden");
    const std::string shown = server.url("film.mkv?…");
    film.insert(film.find("127"), "user:hidden@");
    EXPECT_EQ(errorsOfASnapshot(film), "kivplayer: cannot play '" + shown + "': HTTP error 404 Not Found\n");
    const auto player = startPlayer({"film.mkv", film});
    EXPECT_EQ(player->wait(), 2);
    EXPECT_THAT(player->errors(), testing::Not(testing::HasSubstr("hidden")));
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
                    std::vector<std::string>{"film.mkv", "--at", "99999999999"},
                    std::vector<std::string>{"film.mkv", "--at", "soon"},
                    std::vector<std::string>{"film.mkv", "--at"},
                    std::vector<std::string>{"film.mkv", "--timeout", "0"},
                    std::vector<std::string>{"film.mkv", "--timeout", "nan"},
                    std::vector<std::string>{"film.mkv", "--timeout", "soon"},
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
    for (const char* option :
         {"--snapshot DIR", "--at TIME", "--size WxH", "--scale N", "--software", "--opengl", "--mute",
          "--ipc-server PATH", "--timeout SECONDS", "--version", "--help"}) {
        EXPECT_THAT(player->output(), testing::HasSubstr(option));
    }
    EXPECT_EQ(player->errors(), "");
}

TEST(CommandLine, VersionIsOneLine) {
    const auto player = startPlayer({"--version"});
    EXPECT_EQ(player->wait(), 0);
    EXPECT_THAT(player->output(), testing::MatchesRegex("kivplayer [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(CommandLine, SaysWhatAValueMayBe) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> lines{
        {{"--size", "8193x100"}, "--size: '8193x100' is not from 16x16 to 8192x8192"},
        {{"--size", "100x15"}, "--size: '100x15' is not from 16x16 to 8192x8192"},
        {{"--size", "640"}, "--size: '640' is no size such as 1280x720"},
        {{"--at", "1:60"}, "--at: '1:60' is no time such as 90, 1:30 or 1:02:03"},
        {{"--at"}, "--at: 1 required TIME missing"}};
    for (const auto& [options, told] : lines) {
        std::vector<std::string> arguments{"film.mkv"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const auto player = startPlayer(arguments);
        EXPECT_EQ(player->wait(), 2);
        EXPECT_EQ(player->errors(), "kivplayer: " + told + " (see --help)\n");
    }
}

TEST(NoOpenGL, SaysToLeaveTheOptionOut) {
    const VirtualScreen screen;
    const auto player =
        startPlayer({Films::sound().string(), "--opengl"},
                    {{"DISPLAY", screen.name()}, {"SDL_OPENGL_LIBRARY", "/nowhere/libGL.so"}});
    EXPECT_EQ(player->wait(), 2);
    EXPECT_EQ(player->errors(),
              "kivplayer: the display offers no OpenGL 3.2; leave --opengl out to draw without it\n");
}

TEST(NoDisplay, IsToldInOneLineThatSaysWhatToDo) {
    const auto player = startPlayer({Films::sound().string()});
    EXPECT_EQ(player->wait(), 2);
    EXPECT_THAT(player->errors(),
                testing::MatchesRegex("kivplayer: there is no display [^\n]*--snapshot[^\n]*\n"));
    EXPECT_EQ(player->output(), "");
}

} // namespace

} // namespace KivUICore::Player
