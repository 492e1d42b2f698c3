#include "Player/Overlay/Looks/PlateView.h"

#include "Platform/UIKit/UILabel.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;

class PlateViewTest : public testing::Test {
protected:
    std::shared_ptr<PlateView> plate = Foundation::make<PlateView>(CGRectMake(0.0, 0.0, 200.0, 100.0));
};

TEST_F(PlateViewTest, IsAsWideAsItsTextAndAMarginWhileThereIsRoom) {
    plate->label()->setText("Muted");
    const CGSize size = plate->sizeThatFits({300.0, 100.0});
    EXPECT_GT(size.width, plate->label()->sizeThatFits({}).width);
    EXPECT_LT(size.width, 150.0);
    EXPECT_LT(size.height, 50.0);
}

TEST_F(PlateViewTest, BecomesHigherWhereItMustNotBecomeWider) {
    plate->label()->setText(std::string(60, 'n'));
    const CGSize oneLine = plate->sizeThatFits({1000.0, 100.0});
    const CGSize lines = plate->sizeThatFits({300.0, 100.0});
    EXPECT_EQ(lines.width, 300.0);
    EXPECT_GT(lines.height, oneLine.height);
}

TEST_F(PlateViewTest, IsNeverLargerThanTheRoom) {
    plate->label()->setText(std::string(600, 'n'));
    for (const CGSize& room : {CGSize{284.0, 92.0}, CGSize{20.0, 10.0}, CGSize{0.0, 0.0}}) {
        EXPECT_LE(plate->sizeThatFits(room).width, room.width);
        EXPECT_LE(plate->sizeThatFits(room).height, room.height);
    }
}

TEST_F(PlateViewTest, TextKeepsToTheInsideAndAboveTheFoot) {
    plate->layoutIfNeeded();
    const CGRect whole = plate->label()->frame();
    EXPECT_TRUE(CGRectContainsRect(CGRectMake(10.0, 5.0, 180.0, 90.0), whole));
    plate->setFootHeight(40.0);
    plate->layoutIfNeeded();
    EXPECT_EQ(CGRectGetMaxY(plate->label()->frame()), 60.0);
    plate->setFrame(CGRectMake(0.0, 0.0, 200.0, 120.0));
    plate->layoutIfNeeded();
    EXPECT_EQ(CGRectGetMaxY(plate->label()->frame()), 80.0);
}

TEST_F(PlateViewTest, FootMakesItHigher) {
    plate->label()->setText("Muted");
    const CGFloat height = plate->sizeThatFits({300.0, 100.0}).height;
    plate->setFootHeight(40.0);
    EXPECT_GT(plate->sizeThatFits({300.0, 100.0}).height, height + 20.0);
}

TEST_F(PlateViewTest, TailStaysFreeOfText) {
    plate->label()->setText("No film");
    const CGFloat width = plate->sizeThatFits({300.0, 50.0}).width;
    plate->setTailWidth(60.0);
    plate->layoutIfNeeded();
    EXPECT_LE(CGRectGetMaxX(plate->label()->frame()), 140.0);
    EXPECT_GT(plate->sizeThatFits({300.0, 50.0}).width, width + 40.0);
    EXPECT_LE(plate->sizeThatFits({90.0, 50.0}).width, 90.0);
}

} // namespace

} // namespace KivUICore::Overlay
