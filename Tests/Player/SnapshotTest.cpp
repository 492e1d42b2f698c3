#include "Platform/CoreGraphics/CGGeometry.h"
#include "Tests/Player/Films.h"
#include "Tests/Player/Picture.h"
#include "Tests/Player/PlayerProgram.h"
#include "Tests/Player/StubbornServer.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;
using CoreGraphics::CGSize;

constexpr int barAlpha = 166; // 0.65 of 255

struct Snapshot {
    std::optional<int> exitCode;
    std::string errors;
    Picture film;
    Picture overlay;
    Picture both;
};

Snapshot snapshot(const std::string& film, const std::vector<std::string>& options) {
    const TemporaryFolder folder;
    // A folder that isn't there yet, and neither is the one above it.
    const fs::path pictures = folder.path() / "new" / "pictures";
    std::vector<std::string> arguments{film, "--snapshot", pictures.string()};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const auto player = startPlayer(arguments);
    Snapshot result;
    result.exitCode = player->wait();
    result.errors = player->errors();
    result.film = Picture::fromPng(pictures / "film.png");
    result.overlay = Picture::fromPng(pictures / "overlay.png");
    result.both = Picture::fromPng(pictures / "snapshot.png");
    return result;
}

/// A frame as another program decodes it.
Picture decodedFrame(const fs::path& film, int number) {
    const TemporaryFolder folder;
    const fs::path picture = folder.path() / "frame.png";
    Process process({"ffmpeg", "-nostdin", "-loglevel", "error", "-i", film.string(), "-vf",
                     "select=eq(n\\," + std::to_string(number) + "),scale=in_color_matrix=bt709", "-frames:v",
                     "1", picture.string()});
    EXPECT_EQ(process.wait(), 0) << process.errors();
    return Picture::fromPng(picture);
}

TEST(Snapshot, WritesTheFilmTheOverlayAndBoth) {
    const Snapshot taken = snapshot(Films::sample(), {"--at", "3", "--size", "640x360"});
    EXPECT_EQ(taken.exitCode, 0);
    EXPECT_EQ(taken.errors, "");
    ASSERT_EQ(taken.film.width(), 640);
    ASSERT_EQ(taken.film.height(), 360);
    ASSERT_EQ(taken.overlay.width(), 640);
    ASSERT_EQ(taken.both.width(), 640);
    for (int y = 0; y < 360; ++y) {
        const bool isBar = y < 40 || y >= 320;
        for (int x = 0; x < 640; ++x) {
            const Picture::Pixel over = taken.overlay.at(x, y);
            const int alpha = over[3];
            // Controls stand on the bars alone, and never make them lighter than they are by themselves.
            ASSERT_TRUE(isBar ? alpha >= barAlpha : alpha == 0) << x << ", " << y;
            for (std::size_t part = 0; part < 3; ++part) {
                const double expected = over[part] + taken.film.at(x, y)[part] * (255 - alpha) / 255.0;
                ASSERT_NEAR(taken.both.at(x, y)[part], expected, 1.0) << x << ", " << y;
            }
        }
    }
}

TEST(Snapshot, ControlsShowTheFilmsOwnState) {
    const auto overlayAt = [](const std::string& time) {
        const Snapshot taken = snapshot(Films::sample(), {"--at", time, "--size", "640x360"});
        EXPECT_EQ(taken.exitCode, 0) << taken.errors;
        return taken.overlay;
    };
    // The place of the handle, from the left: the last bright pixel of the track's row that has another
    // above it.
    const auto handle = [](const Picture& overlay) {
        int found = 0;
        for (int x = 100; x < 520; ++x) {
            found = overlay.at(x, 340)[0] > 230 && overlay.at(x, 336)[0] > 230 ? x : found;
        }
        return found;
    };
    const int early = handle(overlayAt("3"));
    const int middle = handle(overlayAt("6"));
    const int late = handle(overlayAt("9"));
    EXPECT_GT(early, 100);
    EXPECT_GT(middle - early, 70);
    EXPECT_NEAR(late - middle, middle - early, 3);
}

TEST(Snapshot, ScaleMakesMorePixelsOfTheSamePoints) {
    const Snapshot taken = snapshot(Films::white(), {"--size", "320x180", "--scale", "1.5"});
    ASSERT_EQ(taken.overlay.width(), 480);
    ASSERT_EQ(taken.overlay.height(), 270);
    for (const int y : {0, 59, 210, 269}) {
        EXPECT_EQ(taken.overlay.at(100, y)[3], barAlpha) << y;
    }
    for (const int y : {60, 209}) {
        EXPECT_EQ(taken.overlay.at(100, y)[3], 0) << y;
        EXPECT_GE(taken.both.at(100, y)[0], 254) << y;
    }
}

TEST(Snapshot, ShowsExactlyTheFrameAskedFor) {
    const Snapshot taken = snapshot(Films::sample(), {"--at", "5.5"});
    ASSERT_EQ(taken.film.width(), 1280);
    const double sameFrame = taken.film.differenceTo(decodedFrame(Films::sample(), 165));
    const double nextFrame = taken.film.differenceTo(decodedFrame(Films::sample(), 166));
    EXPECT_LT(sameFrame, 2.0);
    EXPECT_LT(sameFrame * 1.5, nextFrame);
}

TEST(Snapshot, IsTheSameEachTime) {
    const Snapshot first = snapshot(Films::sample(), {"--at", "7.25", "--size", "320x180"});
    const Snapshot second = snapshot(Films::sample(), {"--at", "7.25", "--size", "320x180"});
    ASSERT_EQ(first.exitCode, 0);
    EXPECT_EQ(first.both, second.both);
}

TEST(Snapshot, FilmFromTheStandardInputIsTheSame) {
    const TemporaryFolder folder;
    const std::string pictures = (folder.path() / "pictures").string();
    Process player({"sh", "-c", "cat \"$1\" | \"$0\" - --size 640x360 --snapshot \"$2\"", KIVPLAYER_PROGRAM,
                    Films::sample().string(), pictures},
                   {{"LSAN_OPTIONS", "print_suppressions=0:suppressions=" KIVPLAYER_LEAK_SUPPRESSIONS}});
    EXPECT_EQ(player.wait(), 0) << player.errors();
    EXPECT_EQ(Picture::fromPng(pictures + "/film.png"),
              snapshot(Films::sample(), {"--size", "640x360"}).film);
}

TEST(Snapshot, TimeIsTakenInMinutesToo) {
    EXPECT_EQ(snapshot(Films::sample(), {"--at", "0:04.5", "--size", "640x360"}).film,
              snapshot(Films::sample(), {"--at", "4.5", "--size", "640x360"}).film);
}

TEST(Snapshot, TimeBeyondTheEndIsTheLastFrame) {
    const Snapshot taken = snapshot(Films::sample(), {"--at", "5000"});
    ASSERT_EQ(taken.exitCode, 0) << taken.errors;
    EXPECT_LT(taken.film.differenceTo(decodedFrame(Films::sample(), 359)), 2.0);
}

TEST(Snapshot, SoundAloneHasABlackPicture) {
    for (const char* time : {"0", "1", "2", "100"}) {
        const Snapshot taken = snapshot(Films::sound(), {"--at", time, "--size", "320x180"});
        ASSERT_EQ(taken.exitCode, 0) << time << taken.errors;
        ASSERT_EQ(taken.film.height(), 180);
        for (const int y : {0, 90, 179}) {
            EXPECT_EQ(taken.film.at(160, y), (Picture::Pixel{0, 0, 0, 255})) << y;
        }
    }
}

/// The lowest row with something bright in it, and the highest.
std::pair<int, int> brightRows(const Picture& picture) {
    int lowest = 0;
    int highest = picture.height();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.at(x, y)[1] > 100) {
                lowest = y;
                highest = std::min(highest, y);
            }
        }
    }
    return {lowest, highest};
}

TEST(Snapshot, SubtitlesStandAboveTheBottomBar) {
    for (const fs::path& film : {Films::subtitled(), Films::styledSubtitles()}) {
        for (const CGSize size : {CGSize{640, 360},
                                  {320, 180},
                                  {360, 640},
                                  {300, 600},
                                  {480, 480},
                                  {400, 300},
                                  {200, 100},
                                  {900, 200}}) {
            const int height = static_cast<int>(size.height);
            const std::string text =
                std::to_string(static_cast<int>(size.width)) + "x" + std::to_string(height);
            const Snapshot taken = snapshot(film, {"--at", "2", "--size", text});
            ASSERT_EQ(taken.film.height(), height) << taken.errors;
            const auto [lowest, highest] = brightRows(taken.film);
            EXPECT_GT(lowest, height / 3) << text << ": there are subtitles";
            EXPECT_LT(lowest, height - 40) << text;
            EXPECT_GT(lowest, height - 40 - height / 10) << text << ": next to the bar";
            EXPECT_LT(lowest - highest, height / 8) << text << ": no larger than the film";
        }
    }
}

TEST(Snapshot, FilmThatIsCutOffPlaysAsFarAsItGoes) {
    const fs::path whole = Films::sample();
    const fs::path half = Films::cut(whole, fs::file_size(whole) / 2, "half.mkv");
    const Snapshot inside = snapshot(half, {"--at", "2"});
    ASSERT_EQ(inside.exitCode, 0) << inside.errors;
    EXPECT_LT(inside.film.differenceTo(decodedFrame(whole, 60)), 2.0);
    const Snapshot beyond = snapshot(half, {"--at", "11"});
    EXPECT_EQ(beyond.exitCode, 0) << beyond.errors;
    EXPECT_EQ(beyond.film.width(), 1280);
}

TEST(Snapshot, PlaceBeyondWhereAConnectionBreaksOffIsToldInOneLine) {
    std::ifstream film(Films::sample(), std::ios::binary);
    const std::string whole{std::istreambuf_iterator<char>(film), {}};
    const StubbornServer server("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(whole.size()) +
                                "\r\nConnection: close\r\n\r\n" + whole.substr(0, whole.size() / 2));
    const std::string url = server.url("film.mkv");
    for (const char* time : {"9", "5000"}) {
        const Snapshot beyond = snapshot(url, {"--at", time});
        EXPECT_EQ(beyond.exitCode, 1);
        EXPECT_EQ(beyond.errors,
                  "kivplayer: cannot play '" + url + "': the place asked for could not be reached\n");
        EXPECT_EQ(beyond.film.width(), 0);
    }
    const Snapshot inside = snapshot(url, {"--at", "2"});
    EXPECT_EQ(inside.exitCode, 0) << inside.errors;
    EXPECT_EQ(inside.errors, "");
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::vector<std::string> result;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        result.push_back(entry.path().filename().string());
    }
    return result;
}

TEST(Snapshot, PictureThatFindsNoRoomLeavesTheOneBeforeIt) {
    const TemporaryFolder folder;
    const fs::path old = folder.path() / "film.png";
    std::ofstream(old) << "an older picture";
    // A limit of eight blocks, which the shell of another system may count by the kilobyte.
    const auto player =
        startPlayer({Films::sample().string(), "--snapshot", folder.path().string()}, {}, "ulimit -f 8");
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(), "kivplayer: cannot write '" + old.string() + "': File too large\n");
    EXPECT_THAT(namesIn(folder.path()), testing::ElementsAre("film.png"));
    EXPECT_EQ(fs::file_size(old), 16U);
}

TEST(Snapshot, PictureTakesThePlaceOfALinkAndLeavesWhatItLeadsTo) {
    const TemporaryFolder folder;
    const TemporaryFolder elsewhere;
    const fs::path precious = elsewhere.path() / "precious";
    std::ofstream(precious) << "precious";
    for (const char* name : {"film.png", "overlay.png", "snapshot.png"}) {
        fs::create_symlink(precious, folder.path() / name);
    }
    const auto player = startPlayer({Films::white().string(), "--snapshot", folder.path().string()});
    EXPECT_EQ(player->wait(), 0) << player->errors();
    EXPECT_EQ(fs::file_size(precious), 8U);
    EXPECT_THAT(namesIn(folder.path()),
                testing::UnorderedElementsAre("film.png", "overlay.png", "snapshot.png"));
    EXPECT_FALSE(fs::is_symlink(folder.path() / "film.png"));
    EXPECT_EQ(Picture::fromPng(folder.path() / "film.png").width(), 1280);
}

TEST(Snapshot, FolderThatCannotBeWrittenIsToldInOneLine) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "file";
    fs::copy_file(Films::sound(), file);
    fs::create_directories(folder.path() / "taken" / "film.png");
    for (const fs::path& target : {file, file / "below", folder.path() / "taken"}) {
        const auto player = startPlayer({Films::sound().string(), "--snapshot", target.string()});
        EXPECT_EQ(player->wait(), 1);
        EXPECT_THAT(player->errors(), testing::MatchesRegex("kivplayer: cannot [^\n]*\n"));
    }
    EXPECT_THAT(namesIn(folder.path() / "taken"), testing::ElementsAre("film.png"));
}

} // namespace

} // namespace KivUICore::Player
