#include "Player/Overlay/Film/SeekQueue.h"

#include "Tests/Overlay/Film/FakePlayback.h"

#include <gtest/gtest.h>

namespace KivUICore::Overlay {

namespace {

using Story = std::vector<std::string>;

class SeekQueueTest : public testing::Test {
protected:
    void arrive() {
        playback.arrive();
        queue.playbackDidChange();
    }

    FakePlayback playback;
    SeekQueue queue{playback};
};

TEST_F(SeekQueueTest, FirstSeekGoesAtOnce) {
    queue.seek(5.0, SeekPrecision::KeyFrame);
    EXPECT_EQ(playback.story, (Story{"key frame 5"}));
    EXPECT_EQ(queue.target(), 5.0);
}

TEST_F(SeekQueueTest, OneSeekIsOnItsWayAtATimeAndTheNewestWins) {
    queue.seek(5.0, SeekPrecision::KeyFrame);
    queue.seek(6.0, SeekPrecision::KeyFrame);
    queue.seek(7.0, SeekPrecision::KeyFrame);
    queue.seek(8.0, SeekPrecision::Exact);
    EXPECT_EQ(playback.takeStory(), (Story{"key frame 5"}));
    EXPECT_EQ(queue.target(), 8.0);
    arrive();
    EXPECT_EQ(playback.takeStory(), (Story{"exact 8"}));
    arrive();
    EXPECT_EQ(playback.takeStory(), Story());
    EXPECT_EQ(queue.target(), std::nullopt);
}

TEST_F(SeekQueueTest, OtherChangesWhileASeekIsOnItsWaySendNothing) {
    queue.seek(5.0, SeekPrecision::KeyFrame);
    queue.seek(6.0, SeekPrecision::KeyFrame);
    playback.now.position = 1.0;
    queue.playbackDidChange();
    EXPECT_EQ(playback.story, (Story{"key frame 5"}));
    EXPECT_EQ(queue.target(), 6.0);
}

TEST_F(SeekQueueTest, WhatIsForgottenIsNotSent) {
    queue.seek(5.0, SeekPrecision::KeyFrame);
    queue.seek(6.0, SeekPrecision::Exact);
    queue.forget();
    EXPECT_EQ(queue.target(), std::nullopt);
    arrive();
    EXPECT_EQ(playback.story, (Story{"key frame 5"}));
}

TEST_F(SeekQueueTest, SeekThatSomebodyElseBeganIsWaitedFor) {
    playback.now.isSeeking = true;
    queue.seek(6.0, SeekPrecision::Exact);
    EXPECT_EQ(playback.story, Story());
    arrive();
    EXPECT_EQ(playback.story, (Story{"exact 6"}));
}

} // namespace

} // namespace KivUICore::Overlay
