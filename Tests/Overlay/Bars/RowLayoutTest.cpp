#include "Player/Overlay/Bars/RowLayout.h"

#include <gtest/gtest.h>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;

constexpr auto fixed = RowItem::Width::Fixed;
constexpr auto flexible = RowItem::Width::Flexible;

std::vector<CGRect> layOut(const std::vector<RowItem>& items, CGFloat width) {
    return layOutRow(items, CGRectMake(4.0, 0.0, width, 40.0));
}

TEST(RowLayoutTest, FlexibleItemTakesWhatIsLeft) {
    EXPECT_EQ(layOut({{44.0, fixed, 0}, {100.0, flexible, 0}, {50.0, fixed, 0}}, 400.0),
              (std::vector{CGRectMake(4.0, 0.0, 44.0, 40.0), CGRectMake(48.0, 0.0, 306.0, 40.0),
                           CGRectMake(354.0, 0.0, 50.0, 40.0)}));
}

TEST(RowLayoutTest, SeveralFlexibleItemsShareEvenly) {
    EXPECT_EQ(layOut({{10.0, flexible, 0}, {30.0, flexible, 0}}, 100.0),
              (std::vector{CGRectMake(4.0, 0.0, 40.0, 40.0), CGRectMake(44.0, 0.0, 60.0, 40.0)}));
}

TEST(RowLayoutTest, MostDispensableItemIsLeftOutFirst) {
    const std::vector<RowItem> items{{40.0, fixed, 1}, {40.0, fixed, 2}, {20.0, flexible, 0}};
    EXPECT_EQ(layOut(items, 100.0)[1].size.width, 40.0);
    const std::vector<CGRect> narrow = layOut(items, 99.0);
    EXPECT_EQ(narrow[0], CGRectMake(4.0, 0.0, 40.0, 40.0));
    EXPECT_EQ(narrow[1].size.width, 0.0);
    EXPECT_EQ(narrow[2], CGRectMake(44.0, 0.0, 59.0, 40.0));
    EXPECT_EQ(layOut(items, 59.0)[0].size.width, 0.0);
}

TEST(RowLayoutTest, FlexibleItemGetsShorterWhereNothingElseCanBeLeftOut) {
    const std::vector<RowItem> items{{40.0, fixed, 0}, {60.0, flexible, 0, 30.0}, {10.0, fixed, 1}};
    EXPECT_EQ(layOut(items, 110.0)[1].size.width, 60.0);
    EXPECT_EQ(layOut(items, 109.0)[1].size.width, 69.0);
    EXPECT_EQ(layOut(items, 70.0)[1], CGRectMake(44.0, 0.0, 30.0, 40.0));
}

TEST(RowLayoutTest, FlexibleItemThatIsTooShortIsLeftOutAndItsPlaceStaysFree) {
    const std::vector<CGRect> frames =
        layOut({{20.0, fixed, 0}, {60.0, flexible, 0, 30.0}, {20.0, fixed, 0}}, 69.0);
    EXPECT_EQ(frames[1].size.width, 0.0);
    EXPECT_EQ(frames[2], CGRectMake(53.0, 0.0, 20.0, 40.0));
}

TEST(RowLayoutTest, IndispensableItemsReachBeyondARowThatIsTooNarrow) {
    const std::vector<CGRect> frames =
        layOut({{40.0, fixed, 0}, {20.0, flexible, 0}, {20.0, fixed, 0}}, 10.0);
    EXPECT_EQ(frames[0].size.width, 40.0);
    EXPECT_EQ(frames[1].size.width, 0.0);
    EXPECT_EQ(frames[2], CGRectMake(44.0, 0.0, 20.0, 40.0));
}

TEST(RowLayoutTest, NoItemsNeedNoRoom) { EXPECT_TRUE(layOut({}, 100.0).empty()); }

} // namespace

} // namespace KivUICore::Overlay
