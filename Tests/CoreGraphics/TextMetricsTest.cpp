#include "Platform/CoreGraphics/TextMetrics.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using namespace CoreGraphics;

constexpr CGFont font{10.0};

TEST(TextMetricsTest, AnEmptyTextNeedsNoWidth) { EXPECT_EQ(estimatedTextWidth("", font), 0.0); }

TEST(TextMetricsTest, WidthGrowsWithTheTextAndTheFont) {
    const CGFloat once = estimatedTextWidth("Play", font);
    EXPECT_NEAR(estimatedTextWidth("PlayPlay", font), 2.0 * once, 1e-9);
    EXPECT_NEAR(estimatedTextWidth("Play", {20.0}), 2.0 * once, 1e-9);
}

TEST(TextMetricsTest, WideLettersNeedMoreThanNarrowOnes) {
    EXPECT_GT(estimatedTextWidth("MWM", font), 2.0 * estimatedTextWidth("ill", font));
}

TEST(TextMetricsTest, FiguresOfEqualWidthNeedEqualRoom) {
    const CGFont monospaced{10.0, CGFontWeight::Regular, CGFigures::Monospaced};
    EXPECT_EQ(estimatedTextWidth("11:11", monospaced), estimatedTextWidth("08:53", monospaced));
    EXPECT_EQ(estimatedTextWidth("11:11", monospaced), estimatedTextWidth("00:00", font));
    EXPECT_LT(estimatedTextWidth("11:11", font), estimatedTextWidth("00:00", font));
}

TEST(TextMetricsTest, CountsCharactersAndNotBytes) {
    EXPECT_NEAR(estimatedTextWidth("播放", font), 20.0, 1e-9);
    EXPECT_LT(estimatedTextWidth("é", font), 10.0);
    EXPECT_GT(estimatedTextWidth("🎬", font), 10.0);
}

TEST(TextMetricsTest, MarksNeedNoWidthOfTheirOwn) {
    EXPECT_EQ(estimatedTextWidth("e\u0301", font), estimatedTextWidth("e", font));
}

TEST(TextMetricsTest, BytesThatAreNoTextCountAsSomething) {
    EXPECT_GT(estimatedTextWidth("\xFF\xFE", font), 0.0);
    EXPECT_GT(estimatedTextWidth("\xE6\x92", font), 0.0);
    EXPECT_GT(estimatedTextWidth("\xF0", font), 0.0);
    EXPECT_GT(estimatedTextWidth("\x80", font), 0.0);
}

TEST(TextMetricsTest, ABrokenCharacterTakesNothingOfWhatFollows) {
    const CGFloat broken = estimatedTextWidth("\xE6", font);
    for (const std::string lead : {"\xC3", "\xE6", "\xE6\x92", "\xF0", "\xF0\x9F\x8E"}) {
        EXPECT_NEAR(estimatedTextWidth(lead + "mmm", font), broken + estimatedTextWidth("mmm", font), 1e-9);
        EXPECT_NEAR(estimatedTextWidth(lead + "放", font), broken + 10.0, 1e-9);
    }
}

TEST(TextMetricsTest, ALineIsHigherThanItsFont) { EXPECT_GT(estimatedLineHeight(font), 10.0); }

} // namespace
