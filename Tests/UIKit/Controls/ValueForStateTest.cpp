#include "Platform/UIKit/Controls/ValueForState.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using namespace UIKit;

constexpr UIControlState both = UIControlStateHighlighted | UIControlStateSelected;

TEST(ValueForStateTest, IsEmptyUntilSomethingIsSet) {
    const ValueForState<std::string> title;
    EXPECT_EQ(title[UIControlStateNormal], "");
    EXPECT_EQ(title[UIControlStateDisabled], "");
}

TEST(ValueForStateTest, StatesWithoutAValueShowTheNormalOne) {
    ValueForState<std::string> title;
    title.set(UIControlStateSelected, "selected");
    EXPECT_EQ(title[UIControlStateNormal], "");
    EXPECT_EQ(title[both], "");
    title.set(UIControlStateNormal, "normal");
    EXPECT_EQ(title[UIControlStateNormal], "normal");
    EXPECT_EQ(title[UIControlStateHighlighted], "normal");
    EXPECT_EQ(title[UIControlStateSelected], "selected");
    EXPECT_EQ(title[both], "normal");
    title.set(both, "both");
    EXPECT_EQ(title[both], "both");
}

TEST(ValueForStateTest, SettingAgainReplaces) {
    ValueForState<std::string> title;
    title.set(UIControlStateNormal, "one");
    title.set(UIControlStateNormal, "two");
    EXPECT_EQ(title[UIControlStateNormal], "two");
}

} // namespace
