#include "Player/Desktop/SourceRules.h"

#include "Player/Desktop/FilmOpening.h"
#include "Player/Desktop/MpvClient.h"
#include "Tests/Player/Films.h"
#include "Tests/Player/Process.h"
#include "Tests/Player/StubbornServer.h"

#include <atomic>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <thread>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

const std::string scheme = "only files and addresses of http, https, rtsp, rtsps, rtmp and rtmps are played";
const std::string place = "a playlist must not lead to such a place";
const std::string plays = "plays";

std::string kind(const std::string& name) { return "what is of this kind (" + name + ") is not played"; }
std::string address(const std::string& name) {
    return "it leads to an address that is not opened (" + name + ")";
}

/// Whether this process has sockets that anybody could send something to without being asked.
bool hasDatagramSocket() {
    std::string table;
    for (const char* name : {"/proc/net/udp", "/proc/net/udp6"}) {
        std::ifstream file(name);
        std::stringstream text;
        text << file.rdbuf();
        table += text.str();
    }
    for (const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const std::string target = fs::read_symlink(entry.path(), gone).string();
        constexpr std::string_view before = "socket:[";
        if (target.starts_with(before)) {
            const std::string inode = target.substr(before.size(), target.size() - before.size() - 1);
            if (table.find(" " + inode + " ") != std::string::npos) {
                return true;
            }
        }
    }
    return false;
}

class SourceRulesTest : public testing::Test {
protected:
    SourceRulesTest() { fs::create_symlink(Films::sparse(), local()); }

    fs::path local() const { return folder.path() / "film.mkv"; }

    std::string written(const std::string& name, const std::string& text) const {
        std::ofstream(folder.path() / name, std::ios::binary) << text;
        return (folder.path() / name).string();
    }

    /// How it ends to open that: `plays`, or why it doesn't.
    std::string open(const std::string& location) {
        FilmOpening opening;
        opening.begin(client, location, 0.0);
        std::string outcome;
        const bool isOver = eventually([&] {
            client.takeEvents([&](const mpv_event& event) { opening.handle(event, client); });
            opening.conclude(client);
            EXPECT_FALSE(hasDatagramSocket()) << location;
            return opening.failure() || opening.isAtStart();
        });
        subject = opening.failure() ? opening.failure()->subject : "";
        return !isOver ? "nothing" : opening.failure() ? opening.failure()->reason : plays;
    }

    /// How it ends to open a file of this content and name from a server that has nothing else.
    std::string openFromServer(const std::string& name, const std::string& content) {
        const StubbornServer server(httpAnswer("200 OK", content));
        return open(server.url(name));
    }

    TemporaryFolder folder;

    /// What the failure of the last one that was opened is told of.
    std::string subject;
    MpvClient client{{{"vo", "null"}, {"ao", "null"}, {"network-timeout", "2"}}};
};

const std::string session = "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 0.0.0.0\nt=0 0\n"
                            "m=video 40404 RTP/AVP 96\na=rtpmap:96 H264/90000\n";

std::string segments(const std::string& location, const std::string& tag = {}) {
    return "#EXTM3U\n#EXT-X-TARGETDURATION:10\n" + tag + "#EXTINF:6,\n" + location + "\n#EXT-X-ENDLIST\n";
}

TEST_F(SourceRulesTest, FilmsOfFilesAndServersArePlayed) {
    std::ifstream film(local(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(film), {}};
    EXPECT_EQ(open(local().string()), plays);
    EXPECT_EQ(open("file://" + local().string()), plays);
    EXPECT_EQ(openFromServer("film.mkv", bytes), plays);
    for (const fs::path& other : {Films::sound(), Films::manyTracks()}) {
        EXPECT_EQ(open(other.string()), plays);
    }
}

TEST_F(SourceRulesTest, StreamsAreAskedForAtTheirServers) {
    for (const char* start : {"rtsp", "rtmp"}) {
        const WebServer server;
        FilmOpening opening;
        opening.begin(client, start + server.url("live").substr(4), 0.0);
        std::atomic<bool> isAsked = false;
        std::thread thread([&] {
            const int connection = server.nextConnection();
            char byte = 0;
            isAsked = recv(connection, &byte, 1, 0) == 1 && byte == (start == std::string("rtsp") ? 'O' : 3);
            close(connection);
        });
        EXPECT_TRUE(eventually([&] {
            client.takeEvents([&](const mpv_event& event) { opening.handle(event, client); });
            return isAsked.load();
        })) << start;
        server.stop();
        thread.join();
    }
}

TEST_F(SourceRulesTest, OtherPlacesAreRefused) {
    const std::string path = local().string();
    for (const std::string& location : {std::string("udp://127.0.0.1:40408"),
                                        std::string("rtp://127.0.0.1:40408"),
                                        std::string("srt://127.0.0.1:40408?mode=listener"),
                                        std::string("tcp://127.0.0.1:40408?listen=1"),
                                        "edl://" + path,
                                        "memory://#EXTM3U\n" + path,
                                        "lavf://file:" + path,
                                        "ffmpeg://file:" + path,
                                        std::string("av://lavfi:testsrc"),
                                        std::string("avdevice://lavfi:testsrc"),
                                        "appending://" + path,
                                        "slice://0-@" + path,
                                        "mf://" + path,
                                        "archive://" + path + "|/film.mkv",
                                        std::string("fd://0"),
                                        std::string("fdclose://0"),
                                        std::string("cdda://"),
                                        std::string("dvd://"),
                                        std::string("bd://"),
                                        std::string("dvb://"),
                                        std::string("data://text/plain,abc"),
                                        std::string("hex://00"),
                                        std::string("null://"),
                                        std::string("ftp://127.0.0.1:1/"),
                                        std::string("sftp://127.0.0.1:1/"),
                                        std::string("smb://127.0.0.1/"),
                                        std::string("gopher://127.0.0.1:1/"),
                                        std::string("unix:///nowhere"),
                                        std::string("ytdl://x"),
                                        std::string("concat://" + path)}) {
        EXPECT_EQ(open(location), scheme) << location;
    }
}

TEST_F(SourceRulesTest, DescriptionsOfConnectionsAreRefusedUnderAnyName) {
    for (const char* name : {"session.sdp", "session.mkv"}) {
        EXPECT_EQ(open(written(name, session)), kind("sdp"));
        EXPECT_EQ(openFromServer(name, session), kind("sdp"));
    }
    EXPECT_EQ(open(written("list.mkv", "ffconcat version 1.0\nfile film.mkv\n")), kind("concat"));
}

TEST_F(SourceRulesTest, LocalPlaylistLeadsToFilesAndServers) {
    std::ifstream film(local(), std::ios::binary);
    const StubbornServer server(httpAnswer("200 OK", {std::istreambuf_iterator<char>(film), {}}));
    for (const std::string& target :
         {std::string("film.mkv"), local().string(), "file://" + local().string(), server.url("film.mkv")}) {
        EXPECT_EQ(open(written("list.m3u", "#EXTM3U\n" + target + "\n")), plays) << target;
        EXPECT_EQ(open(written("edl.mkv", "# mpv EDL v0\n" + target + "\n")), plays) << target;
    }
    EXPECT_EQ(open(written("list.pls", "[playlist]\nFile1=film.mkv\nNumberOfEntries=1\n")), plays);
    EXPECT_EQ(open(written("list.cue", "FILE \"film.mkv\" WAVE\n TRACK 01 AUDIO\n  INDEX 01 00:00:00\n")),
              plays);
}

TEST_F(SourceRulesTest, LocalPlaylistLeadsNowhereElse) {
    const std::string path = local().string();
    for (const std::string& target :
         {std::string("udp://127.0.0.1:40408"), std::string("rtp://127.0.0.1:40408"),
          std::string("srt://127.0.0.1:40408?mode=listener"), std::string("tcp://127.0.0.1:1"),
          "edl://" + path, std::string("memory://#EXTM3U"), "lavf://file:" + path,
          std::string("av://lavfi:testsrc"), "appending://" + path, "mf://" + path, std::string("fd://0"),
          std::string("fdclose://0"), std::string("cdda://"), std::string("dvd://"),
          std::string("smb://127.0.0.1/"), std::string("unix:///nowhere")}) {
        EXPECT_EQ(open(written("list.m3u", "#EXTM3U\n" + target + "\n")), scheme) << target;
    }
    EXPECT_EQ(open(written("rtp.mkv", "# mpv EDL v0\nrtp://127.0.0.1:40408\n")), address("rtp"));
    EXPECT_EQ(open(written("srt.mkv", "# mpv EDL v0\nsrt://127.0.0.1:40408\n")), address("srt"));
    for (const char* target : {"udp://127.0.0.1:40408", "av://lavfi:testsrc", "lavf://file:film.mkv"}) {
        EXPECT_EQ(open(written("edl.mkv", std::string("# mpv EDL v0\n") + target + "\n")), place) << target;
    }
    EXPECT_EQ(open(written("udp.m3u8", segments("udp://127.0.0.1:40408"))), scheme);
}

TEST_F(SourceRulesTest, NothingFromAServerLeadsToAFile) {
    const std::string path = local().string();
    const std::string url = "file://" + path;
    const std::string tag = "#EXT-X-MAP:URI=\"" + url + "\"\n";
    const std::string mpd =
        "<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" type=\"static\" "
        "mediaPresentationDuration=\"PT2S\" profiles=\"urn:mpeg:dash:profile:isoff-main:2011\"><Period>"
        "<AdaptationSet mimeType=\"video/mp4\"><Representation id=\"1\" bandwidth=\"1000\"><BaseURL>" +
        url + "</BaseURL></Representation></AdaptationSet></Period></MPD>";
    EXPECT_EQ(openFromServer("list.m3u", "#EXTM3U\n" + path + "\n"), place);
    EXPECT_EQ(openFromServer("list.m3u", "#EXTM3U\n" + url + "\n"), place);
    EXPECT_EQ(openFromServer("list.pls", "[playlist]\nFile1=" + path + "\nNumberOfEntries=1\n"), place);
    EXPECT_EQ(openFromServer("edl.mkv", "# mpv EDL v0\n" + path + "\n"), place);
    EXPECT_EQ(openFromServer("list.m3u8", segments(url)), place);
    EXPECT_EQ(openFromServer("list.m3u8", "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\n" + url + "\n"), place);
    EXPECT_NE(openFromServer("list.m3u8", segments("http://127.0.0.1:1/none.ts", tag)), plays);
    EXPECT_NE(openFromServer("list.mpd", mpd), plays);
    for (const char* way :
         {"edl://", "appending://", "lavf://file:", "mf://", "slice://0-@", "ffmpeg://file:"}) {
        EXPECT_EQ(openFromServer("list.m3u", "#EXTM3U\n" + (way + path) + "\n"), scheme) << way;
        EXPECT_NE(openFromServer("edl.mkv", "# mpv EDL v0\n" + (way + path) + "\n"), plays) << way;
    }
    for (const std::string& target : {url, path, std::string("udp://127.0.0.1:40408")}) {
        const StubbornServer server("HTTP/1.1 302 Found\r\nLocation: " + target +
                                    "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
        EXPECT_NE(open(server.url("film.mkv")), plays) << target;
    }
}

TEST_F(SourceRulesTest, ListFromAServerThatNamesAFileIsToldUnderItsOwnName) {
    const std::string url = "file://" + local().string();
    for (const std::string& list : {segments(url), "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=1\n" + url + "\n",
                                    "#EXTM3U\n" + local().string() + "\n"}) {
        const StubbornServer server(httpAnswer("200 OK", list));
        const std::string given = server.url("list.m3u8");
        EXPECT_EQ(open(given), place);
        EXPECT_EQ(subject, given);
    }
}

TEST_F(SourceRulesTest, NothingFromAServerWaitsForOthersToConnect) {
    for (const std::string& target :
         {std::string("rtp://127.0.0.1:40408"), std::string("udp://127.0.0.1:40408"),
          std::string("srt://127.0.0.1:40408?mode=listener")}) {
        EXPECT_EQ(openFromServer("list.m3u", "#EXTM3U\n" + target + "\n"), scheme) << target;
        EXPECT_NE(openFromServer("edl.mkv", "# mpv EDL v0\n" + target + "\n"), plays) << target;
        EXPECT_NE(openFromServer("list.m3u8", segments(target)), plays) << target;
    }
}

} // namespace

} // namespace KivUICore::Player
