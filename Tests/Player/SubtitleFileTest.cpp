#include "Player/Desktop/SubtitleFile.h"

#include <gtest/gtest.h>

namespace KivUICore::Player {

namespace {

TEST(SubtitleFile, IsKnownByItsName) {
    for (const char* name : {"/a/film.srt", "film.en.SRT", "a.ass", "a.vtt", "https://films.example/a.vtt"}) {
        EXPECT_TRUE(SubtitleFile::isNamedSo(name)) << name;
    }
    for (const char* name : {"film.mkv", "srt", ".srt", "/a.srt/film.mkv", "a.srt.mkv", ""}) {
        EXPECT_FALSE(SubtitleFile::isNamedSo(name)) << name;
    }
}

} // namespace

} // namespace KivUICore::Player
