#include "Tests/Player/Films.h"
#include "Tests/Player/FolderServer.h"
#include "Tests/Player/PlaybackRun.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;
using Overlay::SeekPrecision;

TEST(SeekableRange, FilmInAFileCanBeSentAnywhere) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    EXPECT_TRUE(run.state().isSeekable);
    EXPECT_FALSE(run.state().seekableRange);
}

TEST(SeekableRange, FilmThroughAPipeCannotBeSentAnywhere) {
    const TemporaryFolder folder;
    const fs::path pipe = folder.path() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const Process writer({"dd", "if=" + Films::sample().string(), "of=" + pipe.string(), "status=none"});
    PlaybackRun run;
    ASSERT_TRUE(run.open(pipe.string()));
    EXPECT_FALSE(run.state().isSeekable);
    const double place = run.state().position;
    run.playback.seek(5.0, SeekPrecision::Exact);
    EXPECT_FALSE(run.state().isSeeking);
    EXPECT_EQ(run.state().position, place);
}

// A live stream of which the server has six parts so far, of which players begin with the last but two.
std::string liveStream(const fs::path& folder) {
    Process process({"ffmpeg",
                     "-nostdin",
                     "-loglevel",
                     "error",
                     "-i",
                     Films::sample().string(),
                     "-an",
                     "-sn",
                     "-c:v",
                     "libx264",
                     "-preset",
                     "ultrafast",
                     "-g",
                     "30",
                     "-f",
                     "hls",
                     "-hls_time",
                     "2",
                     "-hls_list_size",
                     "0",
                     "-hls_flags",
                     "omit_endlist",
                     (folder / "live.m3u8").string()});
    EXPECT_EQ(process.wait(), 0) << process.errors();
    return "live.m3u8";
}

class LiveStream : public testing::Test {
protected:
    bool open() {
        return run.open(server.url(name)) && run.until([this] {
            const auto& range = run.state().seekableRange;
            return range && range->end > 2.5;
        });
    }

    TemporaryFolder folder;
    std::string name = liveStream(folder.path());
    FolderServer server{folder.path()};
    PlaybackRun run;
};

TEST_F(LiveStream, IsAsLongAsItCanBePlayed) {
    ASSERT_TRUE(open());
    EXPECT_TRUE(run.state().isSeekable);
    ASSERT_TRUE(run.state().duration);
    EXPECT_DOUBLE_EQ(*run.state().duration, std::max(run.state().seekableRange->end, run.state().position));
}

TEST_F(LiveStream, GoesToTheLastPlaceThatIsAtHandInPlaceOfItsEnd) {
    ASSERT_TRUE(open());
    for (const double time : {1000.0, *run.state().duration}) {
        run.playback.seek(0.5, SeekPrecision::Exact);
        ASSERT_TRUE(run.until([&] { return !run.state().isSeeking; }));
        EXPECT_LT(run.state().position, 1.0);
        run.playback.seek(time, SeekPrecision::Exact);
        ASSERT_TRUE(run.until([&] { return !run.state().isSeeking; }));
        EXPECT_NEAR(run.state().position, run.state().seekableRange->end, 0.5);
    }
}

} // namespace

} // namespace KivUICore::Player
