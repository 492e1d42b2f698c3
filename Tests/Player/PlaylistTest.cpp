#include "Tests/Player/Films.h"
#include "Tests/Player/PlaybackRun.h"
#include "Tests/Player/PlayerProgram.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <utility>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

struct File {
    std::string name;
    std::string text;
};

struct BadList {
    std::string name;

    /// The first is played.
    std::vector<File> files;
    std::string reason;
};

void PrintTo(const BadList& list, std::ostream* stream) { *stream << list.name; }

constexpr const char* endless = "it leads from one list to the next without end";
constexpr const char* nothing = "there is nothing in it to play";
constexpr const char* noneOfTheFirst = "none of the first 1000 films in it can be played";

class ListThatCannotBePlayed : public testing::TestWithParam<BadList> {};

TEST_P(ListThatCannotBePlayed, IsToldInOneLine) {
    const TemporaryFolder folder;
    for (const File& file : GetParam().files) {
        std::ofstream(folder.path() / file.name) << file.text;
    }
    const std::string list = (folder.path() / GetParam().files.front().name).string();
    const auto player = startPlayer({list, "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(), "kivplayer: cannot play '" + list + "': " + GetParam().reason + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Lists, ListThatCannotBePlayed,
    testing::Values(
        BadList{"Empty", {{"a.m3u", "#EXTM3U\n"}}, nothing},
        BadList{"EmptyPls", {{"a.pls", "[playlist]\nNumberOfEntries=0\n"}}, nothing},
        BadList{"OfItself", {{"a.m3u", "#EXTM3U\na.m3u\n"}}, endless},
        BadList{"OfItselfWithoutAHeader", {{"list.m3u", "././././list.m3u\n"}}, endless},
        BadList{"OfItselfAsShortAsCanBe", {{"a.m3u", "a.m3u"}}, endless},
        BadList{"OfItselfByAnotherName", {{"a.m3u", "#EXTM3U\n./././a.m3u\n"}}, endless},
        BadList{"OfItselfManyTimes", {{"a.m3u", "#EXTM3U\na.m3u\na.m3u\na.m3u\n"}}, endless},
        BadList{"PlsOfItself", {{"a.pls", "[playlist]\nFile1=a.pls\nNumberOfEntries=1\n"}}, endless},
        BadList{"OfEachOther", {{"a.m3u", "#EXTM3U\nb.m3u\n"}, {"b.m3u", "#EXTM3U\na.m3u\n"}}, endless},
        BadList{"OfEmptyLists",
                {{"a.m3u", "#EXTM3U\nb.m3u\nb.m3u\n"}, {"b.m3u", "#EXTM3U\n"}},
                "nothing in it can be played"},
        BadList{
            "OfMissingFilms", {{"a.m3u", "#EXTM3U\nnone1.mkv\nnone2.mkv\n"}}, "nothing in it can be played"}),
    [](const auto& list) { return list.param.name; });

TEST(Playlist, ThatIsAUrlAndHasNothingInItIsTold) {
    const TemporaryFolder folder;
    const auto player =
        startPlayer({"memory://#EXTM3U", "--snapshot", (folder.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_THAT(player->errors(),
                testing::MatchesRegex("kivplayer: cannot play 'memory://#[^\n]+: [^\n]+\n"));
}

class PlaylistOf : public testing::Test {
protected:
    std::string list(const std::vector<std::string>& entries) {
        std::ofstream file(path_);
        file << "#EXTM3U\n";
        for (const std::string& entry : entries) {
            file << entry << "\n";
        }
        return path_.string();
    }

    static std::vector<std::string> missing(int count) {
        std::vector<std::string> result;
        for (int index = 0; index < count; ++index) {
            result.push_back("none" + std::to_string(index) + ".mkv");
        }
        return result;
    }

    bool fails() {
        return run.until([this] { return run.state().error.has_value(); });
    }

    // As each entry takes a turn of its own.
    bool failsWithoutAPause() {
        const auto end = std::chrono::steady_clock::now() + Process::patience;
        while (!run.state().error && std::chrono::steady_clock::now() < end) {
            run.turn();
        }
        return run.state().error.has_value();
    }

    const TemporaryFolder folder_;
    const fs::path path_ = folder_.path() / "list.m3u";
    PlaybackRun run;
};

TEST_F(PlaylistOf, OneFilmNeedsNoHeader) {
    const fs::path folder = path_.parent_path();
    fs::create_symlink(Films::white(), folder / "w.mkv");
    for (const std::string& line : {std::string("w.mkv\n"), std::string("./w.mkv\n"),
                                    std::string("././w.mkv\n"), Films::white().string() + "\n"}) {
        for (const char* name : {"a.m3u", "b.M3U8"}) {
            std::ofstream(folder / name) << line;
            EXPECT_TRUE(run.open((folder / name).string())) << name << ": " << line << run.error();
        }
    }
}

TEST_F(PlaylistOf, OneMissingFilmTellsWhatIsMissing) {
    run.playback.open(list({"none.mkv"}), 0.0);
    ASSERT_TRUE(fails());
    EXPECT_EQ(run.error(), "cannot play '" + (folder_.path() / "none.mkv").string() + "': no such file");
}

TEST_F(PlaylistOf, MissingFilmsAndOneFilmPlaysThatWithoutAWord) {
    std::vector<std::string> entries = missing(50);
    entries.push_back(Films::white().string());
    run.playback.setChangeHandler([this] { EXPECT_FALSE(run.state().error); });
    ASSERT_TRUE(run.open(list(entries)));
    EXPECT_EQ(run.state().title, "white.mkv");
}

TEST_F(PlaylistOf, ThousandsOfMissingFilmsLeavesTimeForOtherThings) {
    run.playback.open(list(missing(5000)), 0.0);
    std::chrono::steady_clock::duration longest{};
    const auto end = std::chrono::steady_clock::now() + Process::patience;
    for (auto now = std::chrono::steady_clock::now(); !run.state().error && now < end;) {
        run.turn();
        const auto start = std::exchange(now, std::chrono::steady_clock::now());
        longest = std::max(longest, now - start);
    }
    EXPECT_EQ(run.error(), "cannot play '" + path_.string() + "': " + noneOfTheFirst);
    EXPECT_LT(longest, std::chrono::seconds(1));
}

TEST_F(PlaylistOf, ThousandMissingFilmsIsTriedToItsEnd) {
    run.playback.open(list(missing(1000)), 0.0);
    ASSERT_TRUE(failsWithoutAPause());
    EXPECT_EQ(run.error(), "cannot play '" + path_.string() + "': nothing in it can be played");
}

TEST_F(PlaylistOf, EndlesslyManyMissingFilmsIsGivenUpAndAnotherFilmPlays) {
    run.playback.open(list(missing(20000)), 0.0);
    ASSERT_TRUE(failsWithoutAPause());
    EXPECT_EQ(run.error(), "cannot play '" + path_.string() + "': " + noneOfTheFirst);
    ASSERT_TRUE(run.open(Films::white().string()));
    EXPECT_FALSE(run.state().error);
}

TEST_F(PlaylistOf, EndlesslyManyMissingFilmsEndsASnapshotBeforeItsTime) {
    const auto player =
        startPlayer({list(missing(20000)), "--snapshot", (folder_.path() / "pictures").string()});
    EXPECT_EQ(player->wait(), 1);
    EXPECT_EQ(player->errors(), "kivplayer: cannot play '" + path_.string() + "': " + noneOfTheFirst + "\n");
}

} // namespace

} // namespace KivUICore::Player
