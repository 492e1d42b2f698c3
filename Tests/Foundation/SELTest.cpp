#include "Platform/Foundation/SEL.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace Foundation;

TEST(SELTest, EqualNamesAreOneSelectorWhereverTheTextLies) {
    const std::string text = "setValue:animated:";
    const SEL fromLiteral = "setValue:animated:";
    const SEL fromString = text;
    const SEL fromView = std::string_view("xsetValue:animated:x").substr(1, text.size());
    EXPECT_EQ(fromLiteral, fromString);
    EXPECT_EQ(fromLiteral, fromView);
    EXPECT_EQ(fromLiteral.name().data(), fromView.name().data());
    EXPECT_NE(fromLiteral, SEL("setValue:"));
}

TEST(SELTest, ASelectorOutlivesTheTextItWasMadeOf) {
    SEL selector;
    {
        std::string text = "madeOfAShortLivedText:";
        selector = text;
        text.assign(text.size(), 'x');
    }
    EXPECT_EQ(selector.name(), "madeOfAShortLivedText:");
}

TEST(SELTest, NamesThatDifferInOneLetterOnlyAreDifferentSelectors) {
    const std::string name = "initWithSuperview:frame:backgroundColor:andTheRest:";
    for (std::size_t length = 1; length <= name.size(); ++length) {
        const std::string whole = name.substr(0, length);
        const SEL selector = whole;
        for (std::size_t position = 0; position < length; ++position) {
            std::string other = whole;
            other[position] = '#';
            EXPECT_NE(SEL(other), selector) << other;
            EXPECT_EQ(SEL(other).name(), other);
        }
    }
}

TEST(SELTest, ColonsCountTheArguments) {
    EXPECT_EQ(SEL("hide").argumentCount(), 0U);
    EXPECT_EQ(SEL("setView:").argumentCount(), 1U);
    EXPECT_EQ(SEL("initWithSuperview:frame:").argumentCount(), 2U);
    EXPECT_EQ(SEL(":::").argumentCount(), 3U);
}

TEST(SELTest, NoSelectorIsNotTheOneWithTheEmptyName) {
    EXPECT_FALSE(SEL());
    EXPECT_EQ(SEL(), SEL());
    EXPECT_EQ(SEL().name(), "");
    EXPECT_EQ(SEL().argumentCount(), 0U);

    EXPECT_TRUE(SEL(""));
    EXPECT_EQ(SEL(""), SEL(std::string()));
    EXPECT_EQ(SEL(""), SEL(std::string_view()));
    EXPECT_EQ(SEL("").name(), "");
    EXPECT_NE(SEL(""), SEL());
}

TEST(SELTest, SelectorsStayTheSameWhileTheTableGrows) {
    std::vector<SEL> selectors;
    std::set<std::size_t> hashes;
    for (int number = 0; number < 5000; ++number) {
        selectors.emplace_back("numbered" + std::to_string(number) + ":");
        hashes.insert(selectors.back().hash());
    }
    EXPECT_EQ(hashes.size(), selectors.size());
    for (int number = 0; number < 5000; ++number) {
        const std::string name = "numbered" + std::to_string(number) + ":";
        EXPECT_EQ(SEL(name), selectors[static_cast<std::size_t>(number)]);
        EXPECT_EQ(selectors[static_cast<std::size_t>(number)].name(), name);
    }
}

} // namespace
