#include "Player/Desktop/SeekProgress.h"

#include <gtest/gtest.h>

namespace KivUICore::Player {

namespace {

class SeekProgressTest : public testing::Test {
protected:
    void happens(mpv_event_id kind) {
        mpv_event event{};
        event.event_id = kind;
        seek.handle(event);
    }

    void isAnswered(std::uint64_t identifier, int error = 0) {
        mpv_event event{};
        event.event_id = MPV_EVENT_COMMAND_REPLY;
        event.reply_userdata = identifier;
        event.error = error;
        seek.handle(event);
    }

    void isLogged(const char* text) {
        mpv_event_log_message message{};
        message.prefix = "cplayer";
        message.text = text;
        mpv_event event{};
        event.event_id = MPV_EVENT_LOG_MESSAGE;
        event.data = &message;
        seek.handle(event);
    }

    SeekProgress seek;
};

TEST_F(SeekProgressTest, LastsUntilThePictureIsThere) {
    EXPECT_FALSE(seek.isSeeking());
    const std::uint64_t identifier = seek.begin();
    EXPECT_NE(identifier, 0U);
    EXPECT_TRUE(seek.isSeeking());
    isAnswered(identifier);
    EXPECT_TRUE(seek.isSeeking());
    happens(MPV_EVENT_SEEK);
    EXPECT_TRUE(seek.isSeeking());
    happens(MPV_EVENT_PLAYBACK_RESTART);
    EXPECT_FALSE(seek.isSeeking());
}

TEST_F(SeekProgressTest, PictureOfAnEarlierSeekIsNotThatOfTheNewest) {
    const std::uint64_t first = seek.begin();
    isAnswered(first);
    happens(MPV_EVENT_SEEK);
    const std::uint64_t second = seek.begin();
    happens(MPV_EVENT_PLAYBACK_RESTART);
    EXPECT_TRUE(seek.isSeeking()) << "before the second was accepted";
    isAnswered(second);
    happens(MPV_EVENT_PLAYBACK_RESTART);
    EXPECT_TRUE(seek.isSeeking()) << "before the second set out";
    happens(MPV_EVENT_SEEK);
    happens(MPV_EVENT_PLAYBACK_RESTART);
    EXPECT_FALSE(seek.isSeeking());
}

TEST_F(SeekProgressTest, AnswerToAnEarlierSeekIsNotOneToTheNewest) {
    const std::uint64_t first = seek.begin();
    const std::uint64_t second = seek.begin();
    EXPECT_NE(first, second);
    isAnswered(first, MPV_ERROR_COMMAND);
    EXPECT_TRUE(seek.isSeeking());
    isAnswered(second, MPV_ERROR_COMMAND);
    EXPECT_FALSE(seek.isSeeking());
}

TEST_F(SeekProgressTest, EndsWithTheFilm) {
    isAnswered(seek.begin());
    happens(MPV_EVENT_END_FILE);
    EXPECT_FALSE(seek.isSeeking());
    isAnswered(seek.begin());
    happens(MPV_EVENT_SEEK);
    happens(MPV_EVENT_END_FILE);
    EXPECT_FALSE(seek.isSeeking());
}

TEST_F(SeekProgressTest, SeekInTheNextFilmOutlivesTheOneBefore) {
    const std::uint64_t identifier = seek.begin();
    happens(MPV_EVENT_END_FILE);
    EXPECT_TRUE(seek.isSeeking());
    isAnswered(identifier, MPV_ERROR_COMMAND);
    EXPECT_FALSE(seek.isSeeking());
}

TEST_F(SeekProgressTest, StreamThatCannotBeSoughtInEndsIt) {
    isAnswered(seek.begin());
    isLogged("Something else\n");
    EXPECT_TRUE(seek.isSeeking());
    isLogged("Cannot seek in this stream.\n");
    EXPECT_FALSE(seek.isSeeking());
}

} // namespace

} // namespace KivUICore::Player
