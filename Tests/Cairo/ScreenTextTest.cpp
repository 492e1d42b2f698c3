#include "Hosts/Cairo/ScreenText.h"

#include <gtest/gtest.h>
#include <pango/pango.h>

namespace KivUICore::Cairo {

namespace {

std::string repeated(const std::string& text, std::size_t count) {
    std::string result;
    for (std::size_t index = 0; index < count; ++index) {
        result += text;
    }
    return result;
}

std::size_t codePoints(const std::string& text) {
    return static_cast<std::size_t>(g_utf8_strlen(text.c_str(), -1));
}

TEST(ScreenText, TextThatIsShortEnoughStays) {
    EXPECT_EQ(beginningOf("film", 4), "film");
    EXPECT_EQ(beginningOf("", 4), "");
    EXPECT_EQ(beginningOf("two\nlines", 20), "two\nlines");
}

TEST(ScreenText, TextThatGoesOnEndsWithAnEllipsis) { EXPECT_EQ(beginningOf("films", 4), "film…"); }

class OneCharacter : public testing::TestWithParam<const char*> {};

TEST_P(OneCharacter, IsNeverCutInTwo) {
    const std::string character = GetParam();
    EXPECT_EQ(beginningOf(repeated(character, 3), 3), repeated(character, 3));
    EXPECT_EQ(beginningOf(repeated(character, 4), 3), repeated(character, 3) + "…");
    EXPECT_EQ(oneLine(repeated(character, 501)), repeated(character, 500) + "…");
}

INSTANTIATE_TEST_SUITE_P(Characters, OneCharacter,
                         testing::Values("a", "中", "e\u0301", "o\u0302\u0323", "🇩🇪",
                                         "👩‍👩‍👧‍👦", "👍🏽",
                                         "🏴\U000E0067\U000E0062\U000E0073\U000E0063\U000E0074\U000E007F",
                                         "\u1112\u1161\u11ab", "한", "कि"));

TEST(ScreenText, MarksWithoutEndOnOneLetterAreCut) {
    const std::string marks = "a" + repeated("\u0301", 50000);
    EXPECT_LE(codePoints(beginningOf(marks, 10)), 33U);
    EXPECT_LE(codePoints(oneLine(marks)), 33U);
}

TEST(ScreenText, BytesThatAreNoTextAreReplaced) {
    EXPECT_EQ(beginningOf("a\xff\xc3", 10), "a\uFFFD\uFFFD");
    EXPECT_EQ(beginningOf(std::string("a\0b", 3), 10), "a\uFFFDb");
    EXPECT_EQ(oneLine("a\xff"), "a\uFFFD");
}

TEST(ScreenText, TextBeyondItsBoundIsCutBetweenCharacters) {
    for (std::size_t offset = 0; offset < 4; ++offset) {
        const std::string text = oneLine(std::string(offset, 'a') + repeated("😀", mostTextBytes));
        EXPECT_EQ(text, std::string(offset, 'a') + repeated("😀", 500 - offset) + "…");
        const std::string all =
            beginningOf(std::string(offset, 'a') + repeated("😀", mostTextBytes), mostTextBytes);
        EXPECT_EQ(all.find("\uFFFD"), std::string::npos);
        EXPECT_LE(all.size(), mostTextBytes + std::string("…").size());
    }
}

TEST(ScreenText, WhatBreaksALineBecomesASpace) {
    EXPECT_EQ(oneLine("one\ntwo\r\nthree\tfour\vfive\fsix"), "one two three four five six");
    EXPECT_EQ(oneLine("one\u2028two\u2029three\u0085four"), "one two three four");
    EXPECT_EQ(oneLine("one\x1b[2Jtwo\x7fthree\u009bfour"), "one [2Jtwo three four");
}

TEST(ScreenText, SpacesAreJoinedAndTakenFromTheEnds) { EXPECT_EQ(oneLine("  a \t\t b  "), "a b"); }

TEST(ScreenText, WhatTurnsTheDirectionOfOtherTextIsLeftOut) {
    EXPECT_EQ(oneLine("a\u202Eb\u2066c\u2069d"), "abcd");
    EXPECT_EQ(oneLine("שלום\u200F!"), "שלום\u200F!");
}

TEST(ScreenText, WhatCannotBeSeenIsNoText) {
    EXPECT_EQ(oneLine(""), "");
    EXPECT_EQ(oneLine(" \t\n"), "");
    EXPECT_EQ(oneLine(repeated("\u200B", 9)), "");
    EXPECT_EQ(oneLine("\u202E"), "");
    EXPECT_EQ(oneLine(std::string(60000, '\t')), "");
}

} // namespace

} // namespace KivUICore::Cairo
