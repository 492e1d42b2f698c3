#include "Player/Overlay/Film/LatestSeek.h"

#include "Tests/Overlay/Film/FakePlayback.h"

#include <gtest/gtest.h>

namespace KivUICore::Overlay {

namespace {

using Story = std::vector<std::string>;

class LatestSeekTest : public testing::Test {
protected:
    void arrive() {
        playback.arrive();
        latestSeek.playbackDidChange();
    }

    FakePlayback playback;
    LatestSeek latestSeek{playback};
};

TEST_F(LatestSeekTest, FirstSeekGoesAtOnce) {
    latestSeek.seek(5.0, SeekPrecision::KeyFrame);
    EXPECT_EQ(playback.story, (Story{"key frame 5"}));
    EXPECT_EQ(latestSeek.target(), 5.0);
}

TEST_F(LatestSeekTest, OneSeekIsOnItsWayAtATimeAndTheNewestWins) {
    latestSeek.seek(5.0, SeekPrecision::KeyFrame);
    latestSeek.seek(6.0, SeekPrecision::KeyFrame);
    latestSeek.seek(7.0, SeekPrecision::KeyFrame);
    latestSeek.seek(8.0, SeekPrecision::Exact);
    EXPECT_EQ(playback.takeStory(), (Story{"key frame 5"}));
    EXPECT_EQ(latestSeek.target(), 8.0);
    arrive();
    EXPECT_EQ(playback.takeStory(), (Story{"exact 8"}));
    arrive();
    EXPECT_EQ(playback.takeStory(), Story());
    EXPECT_EQ(latestSeek.target(), std::nullopt);
}

TEST_F(LatestSeekTest, OtherChangesWhileASeekIsOnItsWaySendNothing) {
    latestSeek.seek(5.0, SeekPrecision::KeyFrame);
    latestSeek.seek(6.0, SeekPrecision::KeyFrame);
    playback.now.position = 1.0;
    latestSeek.playbackDidChange();
    EXPECT_EQ(playback.story, (Story{"key frame 5"}));
    EXPECT_EQ(latestSeek.target(), 6.0);
}

TEST_F(LatestSeekTest, WhatIsForgottenIsNotSent) {
    latestSeek.seek(5.0, SeekPrecision::KeyFrame);
    latestSeek.seek(6.0, SeekPrecision::Exact);
    latestSeek.forget();
    EXPECT_EQ(latestSeek.target(), std::nullopt);
    arrive();
    EXPECT_EQ(playback.story, (Story{"key frame 5"}));
}

TEST_F(LatestSeekTest, SeekThatSomebodyElseBeganIsWaitedFor) {
    playback.now.isSeeking = true;
    latestSeek.seek(6.0, SeekPrecision::Exact);
    EXPECT_EQ(playback.story, Story());
    arrive();
    EXPECT_EQ(playback.story, (Story{"exact 6"}));
}

} // namespace

} // namespace KivUICore::Overlay
