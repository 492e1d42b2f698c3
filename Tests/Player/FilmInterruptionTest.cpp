#include "Player/Desktop/FilmInterruption.h"

#include "Tests/Player/Films.h"
#include "Tests/Player/PlaybackRun.h"
#include "Tests/Player/StubbornServer.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;
using Kind = Overlay::PlaybackError::Kind;

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const fs::path& path, const std::string& bytes) {
    std::fstream(path, std::ios::binary | std::ios::in | std::ios::out) << bytes;
}

class InterruptedFilm : public testing::Test {
protected:
    InterruptedFilm() { fs::copy_file(Films::sample(), film); }

    bool playToTheBreak() {
        run.playback.setSpeed(4.0);
        run.playback.play();
        return run.until([this] { return run.state().error || run.state().hasEnded; });
    }

    void expectTold(const std::string& location, const std::string& reason) {
        EXPECT_EQ(run.error(), "cannot go on with '" + location + "': " + reason);
        EXPECT_FALSE(run.state().hasEnded);
        EXPECT_GT(run.state().position, 3.0);
        EXPECT_LT(run.state().position, 9.0);
    }

    TemporaryFolder folder;
    fs::path film = folder.path() / "film.mkv";
    std::string whole = contents(Films::sample());
    PlaybackRun run;
};

TEST_F(InterruptedFilm, CutOffWhileItPlaysKeepsItsPlaceAndGoesOnFromThere) {
    ASSERT_TRUE(run.open(film.string()));
    fs::resize_file(film, whole.size() / 2);
    ASSERT_TRUE(playToTheBreak());
    expectTold(film.string(), "the file was changed or cut off while it was played");
    const double place = run.state().position;
    write(film, whole);
    run.playback.retry();
    EXPECT_FALSE(run.state().error);
    EXPECT_NEAR(run.state().position, place, 0.1);
    EXPECT_TRUE(run.until([&] { return run.state().position > place + 1.0; }));
    EXPECT_FALSE(run.state().error);
    EXPECT_TRUE(run.until([&] { return run.state().hasEnded; }));
    EXPECT_GT(run.state().position, 11.5);
}

TEST_F(InterruptedFilm, SentBeyondWhereItIsCutOffStaysWhereItWasSent) {
    ASSERT_TRUE(run.open(film.string()));
    fs::resize_file(film, whole.size() / 8);
    run.playback.seek(8.0, Overlay::SeekPrecision::Exact);
    ASSERT_TRUE(run.until([this] { return run.state().error || run.state().hasEnded; }));
    expectTold(film.string(), "the file was changed or cut off while it was played");
    EXPECT_NEAR(run.state().position, 8.0, 0.1);
}

TEST_F(InterruptedFilm, OverwrittenWhileItPlaysIsNotAtItsEnd) {
    ASSERT_TRUE(run.open(film.string()));
    const std::size_t half = whole.size() / 2;
    write(film, whole.substr(0, half) + std::string(whole.size() - half, '\0'));
    ASSERT_TRUE(playToTheBreak());
    expectTold(film.string(), "the file was changed or cut off while it was played");
}

TEST_F(InterruptedFilm, ThatIsMissingTheNextTimeIsTriedFromItsPlaceAgain) {
    ASSERT_TRUE(run.open(film.string()));
    fs::resize_file(film, whole.size() / 2);
    ASSERT_TRUE(playToTheBreak());
    const double place = run.state().position;
    fs::remove(film);
    run.playback.retry();
    EXPECT_EQ(run.error(), "cannot play '" + film.string() + "': no such file");
    EXPECT_NEAR(run.state().position, place, 0.1);
    fs::copy_file(Films::sample(), film);
    run.playback.retry();
    EXPECT_TRUE(run.until([&] { return run.state().position > place + 1.0; }));
}

TEST_F(InterruptedFilm, ThatWasIncompleteBeforeSaysSoAndGoesBack) {
    fs::resize_file(film, whole.size() / 2);
    ASSERT_TRUE(run.open(film.string()));
    ASSERT_TRUE(playToTheBreak());
    expectTold(film.string(), "the file is incomplete");
    run.playback.seek(1.0, Overlay::SeekPrecision::Exact);
    EXPECT_TRUE(run.until([&] { return !run.state().error && run.state().position < 2.0; }));
    EXPECT_TRUE(run.until([&] { return run.state().error.has_value(); }));
}

TEST_F(InterruptedFilm, TriedAgainAtABreakThatIsStillThereIsInterruptedAgain) {
    fs::resize_file(film, whole.size() / 2);
    ASSERT_TRUE(run.open(film.string()));
    ASSERT_TRUE(playToTheBreak());
    const double place = run.state().position;
    run.playback.retry();
    ASSERT_TRUE(run.until([&] { return run.state().error.has_value(); }));
    expectTold(film.string(), "the file is incomplete");
    EXPECT_NEAR(run.state().position, place, 0.5);
}

TEST_F(InterruptedFilm, WhoseConnectionIsLostIsNotAtItsEnd) {
    const StubbornServer server("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(whole.size()) +
                                "\r\nConnection: close\r\n\r\n" + whole.substr(0, whole.size() / 2));
    const std::string url = server.url("film.mkv");
    ASSERT_TRUE(run.open(url));
    ASSERT_TRUE(playToTheBreak());
    expectTold(url, "the connection was lost");
}

class FilmInterruptionTest : public testing::Test {
protected:
    void log(const char* prefix, const char* text) {
        mpv_event_log_message message{prefix, "error", text, MPV_LOG_LEVEL_ERROR};
        interruption.noteLog(message);
    }

    std::optional<std::string> reasonAt(double place, const std::optional<double>& duration) {
        interruption.sendTo(place);
        return interruption.reason(duration);
    }

    FilmInterruption interruption;
};

TEST_F(FilmInterruptionTest, EndThatNothingElseSpeaksAgainstIsTheEnd) {
    interruption.begin(Films::sample().string());
    EXPECT_FALSE(reasonAt(12.0, 12.0));
    // The length may have been an estimate.
    EXPECT_FALSE(reasonAt(5.0, 12.0));
    EXPECT_FALSE(reasonAt(5.0, std::nullopt));
}

TEST_F(FilmInterruptionTest, ConnectionThatCameBackIsForgiven) {
    log("ffmpeg", "http: Stream ends prematurely at 5, should be 10\n");
    EXPECT_FALSE(reasonAt(11.0, 12.0));
    EXPECT_EQ(reasonAt(5.0, 12.0), "the connection was lost");
    EXPECT_EQ(reasonAt(5.0, std::nullopt), "the connection was lost");
    interruption.begin("http://127.0.0.1/film.mkv");
    EXPECT_FALSE(reasonAt(5.0, 12.0));
}

TEST_F(FilmInterruptionTest, FileWhoseLengthTheServerDidNotTellEndsWhereItEnds) {
    log("ffmpeg", "http: Stream ends prematurely at 5, should be 18446744073709551615\n");
    EXPECT_FALSE(reasonAt(5.0, std::nullopt));
}

TEST_F(FilmInterruptionTest, PlaceIsWhereItWasSentWhenItIsCarriedToTheEndFromThere) {
    interruption.sendTo(8.0);
    interruption.follow(12.0, 12.0);
    EXPECT_EQ(interruption.place(), 8.0);
    interruption.follow(5.0, 12.0);
    EXPECT_EQ(interruption.place(), 5.0);
    interruption.follow(9.9, 12.0);
    interruption.follow(10.1, 12.0);
    interruption.follow(12.0, 12.0);
    EXPECT_EQ(interruption.place(), 12.0);
    interruption.sendTo(0.0);
    interruption.follow(12.0, std::nullopt);
    EXPECT_EQ(interruption.place(), 12.0);
}

TEST_F(FilmInterruptionTest, LiveStreamThatGoesAwayHasNoLengthToCompareWith) {
    log("ffmpeg/demuxer", "hls: Failed to reload playlist 0\n");
    EXPECT_EQ(reasonAt(10.0, 10.0), "the server sends no more of it");
}

} // namespace

} // namespace KivUICore::Player
