#include "Player/Overlay/Film/PlaybackError.h"

#include <gtest/gtest.h>
#include <string>

namespace KivUICore::Overlay {

namespace {

using Kind = PlaybackError::Kind;

std::string toldOfMissing(const std::string& name) {
    return sentenceOf({Kind::Unplayable, name, "no such file"});
}

TEST(PlaybackErrorTest, SubtitlesThatCannotBeShownAreNoFilm) {
    EXPECT_EQ(lineOf({PlaybackError::Kind::NoSubtitles, "a.srt", "no such file"}),
              "cannot show the subtitles 'a.srt': no such file");
}

TEST(PlaybackError, EachReaderHasWordsOfItsOwn) {
    const PlaybackError error{Kind::Unplayable, "a.mkv", "no such file"};
    EXPECT_EQ(lineOf(error), "cannot play 'a.mkv': no such file");
    EXPECT_EQ(sentenceOf(error), "Cannot play 'a.mkv': no such file.");
    EXPECT_EQ(reasonSentenceOf(error), "No such file.");
}

TEST(PlaybackError, WhatIsNotKnownLeavesNoGap) {
    EXPECT_EQ(lineOf({Kind::NoPlayer, {}, "out of memory"}), "cannot start libmpv: out of memory");
    EXPECT_EQ(lineOf({Kind::NoPlayer, {}, {}}), "cannot start libmpv");
    EXPECT_EQ(reasonSentenceOf({Kind::NoPlayer, {}, {}}), "Cannot start libmpv.");
    EXPECT_EQ(lineOf({Kind::Interrupted, "a.mkv", {}}), "cannot go on with 'a.mkv'");
    EXPECT_EQ(lineOf({Kind::Unreachable, {}, "the socket is taken"}),
              "cannot be reached by other programs: the socket is taken");
}

TEST(PlaybackError, LongNameLeavesRoomForWhatWentWrong) {
    EXPECT_EQ(toldOfMissing("https://films.example/2026/mountains/a-long-day.mkv"),
              "Cannot play 'https://films.exampl…s/a-long-day.mkv': no such file.");
    EXPECT_EQ(toldOfMissing(std::string(36, 'a')),
              "Cannot play '" + std::string(36, 'a') + "': no such file.");
    EXPECT_EQ(lineOf({Kind::Unplayable, std::string(60, 'a'), "no such file"}),
              "cannot play '" + std::string(60, 'a') + "': no such file");
}

TEST(PlaybackError, CharactersOfALongNameStayWhole) {
    EXPECT_EQ(toldOfMissing("电影电影电影电影电影电影电影电影"),
              "Cannot play '电影电影电影电…电影电影电影': no such file.");
    EXPECT_EQ(toldOfMissing(std::string(60, '\x80')),
              "Cannot play '" + std::string(60, '\x80') + "': no such file.");
}

TEST(PlaybackError, QuotedNameInAReasonIsNotTakenForTheFilms) {
    const PlaybackError error{Kind::Unplayable, "it's: a film", "the part 'b': is missing"};
    EXPECT_EQ(sentenceOf(error), "Cannot play 'it's: a film': the part 'b': is missing.");
    EXPECT_EQ(reasonSentenceOf(error), "The part 'b': is missing.");
    const std::string reason = "the list names '" + std::string(60, 'b') + "': that is missing";
    EXPECT_EQ(sentenceOf({Kind::Unplayable, "a.m3u", reason}), "Cannot play 'a.m3u': " + reason + ".");
}

} // namespace

} // namespace KivUICore::Overlay
