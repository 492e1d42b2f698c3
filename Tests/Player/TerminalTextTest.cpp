#include "Player/Desktop/TerminalText.h"

#include <gtest/gtest.h>
#include <string>

namespace KivUICore::Player {

namespace {

TEST(TerminalText, WhatAReaderSeesStaysAsItIs) {
    for (const char* text :
         {"", "a film.mkv", "Größe, Фильм, 映画, العربية, 🎬, e\u0301", "می\u200Cخواهم", "👨\u200D👩\u200D👧"}) {
        EXPECT_EQ(terminalText(text), text);
    }
}

TEST(TerminalText, CommandsForATerminalBecomeQuestionMarks) {
    EXPECT_EQ(terminalText("a\nb\r\t\x1b[2J\x07\x7F"), "a?b???[2J??");
    EXPECT_EQ(terminalText("\u009B2J\u009D0;title\u009C\u0080"), "?2J?0;title??");
    EXPECT_EQ(terminalText(std::string("a\0b", 3)), "a?b");
}

TEST(TerminalText, SignsThatTurnTheOrderOrBreakTheLineBecomeQuestionMarks) {
    EXPECT_EQ(terminalText("\u202Avkm\u202E.\u202C\u2066\u2067\u2068\u2069"), "?vkm?.?????");
    EXPECT_EQ(terminalText("\u200E\u200F\u061C\u2028\u2029\u200B\uFEFF"), "???????");
}

TEST(TerminalText, BytesThatAreNoTextBecomeQuestionMarks) {
    EXPECT_EQ(terminalText("a\xFF\x9B"
                           "b"),
              "a??b");
    EXPECT_EQ(terminalText("\xC0\x8A, \xED\xA0\x80, \xF4\x90\x80\x80"), "??, ???, ????");
    EXPECT_EQ(terminalText("cut \xE6\x98"), "cut ??");
}

TEST(TerminalText, VeryLongTextKeepsItsBeginningAndItsEnd) {
    for (const std::size_t offset : {0U, 1U, 2U}) {
        std::string text(offset, 'x');
        for (int count = 0; count < 400000; ++count) {
            text += "映";
        }
        const std::string shown = terminalText("begin " + text + " end");
        EXPECT_LT(shown.size(), 1700U);
        EXPECT_TRUE(shown.starts_with("begin ")) << shown;
        EXPECT_TRUE(shown.ends_with(" end")) << shown;
        EXPECT_NE(shown.find("映…映"), std::string::npos) << shown;
        EXPECT_EQ(shown.find('?'), std::string::npos) << shown;
    }
    EXPECT_LT(terminalText(std::string(1000000, '\x9B')).size(), 1700U);
}

} // namespace

} // namespace KivUICore::Player
