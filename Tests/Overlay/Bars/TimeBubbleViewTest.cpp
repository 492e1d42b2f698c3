#include "Player/Overlay/Bars/TimeBubbleView.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/UIKit/UILabel.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <variant>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;
using Foundation::make;

constexpr CGRect area = CGRectMake(4.0, 0.0, 312.0, 180.0);

class TimeBubbleViewTest : public testing::Test {
protected:
    TimeBubbleViewTest() {
        host.window()->addSubview(bubble);
        bubble->label()->setText("12:34");
    }

    /// What is drawn around plate and arrow, in the bubble's coordinates.
    CGPath drawnOutline() {
        host.window()->setNeedsDisplayEverywhere();
        const std::shared_ptr<const CGDrawing> drawing = host.draw();
        for (const CGDrawing::Operation& operation : drawing->operations()) {
            if (const auto* fill = std::get_if<CGDrawing::FillPath>(&operation)) {
                return fill->path;
            }
        }
        return {};
    }

    /// The lowest point of what is drawn, in the window's coordinates.
    CGPoint drawnTip() {
        CGPoint lowest;
        const CGPath outline = drawnOutline();
        for (const CGPath::Element& element : outline.elements()) {
            if (element.points[0].y > lowest.y) {
                lowest = element.points[0];
            }
        }
        return bubble->convertPointToView(lowest, *host.window());
    }

    Headless::HeadlessHost host{{320.0, 180.0}};
    std::shared_ptr<TimeBubbleView> bubble = make<TimeBubbleView>();
};

TEST_F(TimeBubbleViewTest, LiesAboveItsTipAndPointsThere) {
    bubble->pointAt({160.0, 138.0}, area);
    EXPECT_EQ(CGRectGetMaxY(bubble->frame()), 138.0);
    EXPECT_EQ(CGRectGetMidX(bubble->frame()), 160.0);
    EXPECT_EQ(drawnTip(), (CGPoint{160.0, 138.0}));
}

TEST_F(TimeBubbleViewTest, ArrowHasTwoEqualHalvesThatBeginAtThePlate) {
    bubble->pointAt({160.0, 138.0}, area);
    const CGSize size = bubble->bounds().size;
    const CGFloat middle = size.width / 2.0;
    CGPath expected;
    expected.addRoundedRect({{0.0, 0.0}, {size.width, 24.0}}, 6.0);
    expected.moveTo({middle - 6.0, 24.0});
    expected.addLine({middle + 6.0, 24.0});
    expected.addLine({middle, 30.0});
    expected.closeSubpath();
    EXPECT_EQ(drawnOutline(), expected);
}

TEST_F(TimeBubbleViewTest, StaysInsideAtBothEndsAndStillPointsAtTheTip) {
    bubble->pointAt({20.0, 138.0}, area);
    EXPECT_EQ(bubble->frame().origin.x, 4.0);
    EXPECT_EQ(drawnTip(), (CGPoint{20.0, 138.0}));
    bubble->pointAt({300.0, 138.0}, area);
    EXPECT_EQ(CGRectGetMaxX(bubble->frame()), 316.0);
    EXPECT_EQ(drawnTip(), (CGPoint{300.0, 138.0}));
}

TEST_F(TimeBubbleViewTest, ArrowStaysOnThePlateWhereTheTipIsBeside) {
    bubble->pointAt({-50.0, 138.0}, area);
    EXPECT_EQ(bubble->frame().origin.x, 4.0);
    EXPECT_GT(drawnTip().x, 4.0 + 6.0);
    bubble->pointAt({400.0, 138.0}, area);
    EXPECT_EQ(CGRectGetMaxX(bubble->frame()), 316.0);
    EXPECT_LT(drawnTip().x, 316.0 - 6.0);
}

TEST_F(TimeBubbleViewTest, BeginsAtTheLeftWhereThereIsNoRoom) {
    bubble->pointAt({10.0, 138.0}, CGRectMake(4.0, 0.0, 10.0, 180.0));
    EXPECT_EQ(bubble->frame().origin.x, 4.0);
}

TEST_F(TimeBubbleViewTest, FitsItsText) {
    bubble->pointAt({160.0, 138.0}, area);
    const CGFloat width = CGRectGetWidth(bubble->frame());
    EXPECT_GE(width, bubble->label()->sizeThatFits({}).width);
    EXPECT_EQ(bubble->label()->bounds().size.width, width);
    bubble->label()->setText("12:34:56");
    bubble->pointAt({160.0, 138.0}, area);
    EXPECT_GT(CGRectGetWidth(bubble->frame()), width);
    bubble->label()->setText(std::nullopt);
    bubble->pointAt({160.0, 138.0}, area);
    EXPECT_GT(CGRectGetWidth(bubble->frame()), 0.0);
}

TEST_F(TimeBubbleViewTest, ArrowThatMovesAloneIsDrawnAnew) {
    bubble->pointAt({20.0, 138.0}, area);
    host.draw();
    bubble->pointAt({21.0, 138.0}, area);
    EXPECT_TRUE(host.window()->needsDisplay());
    host.draw();
    bubble->pointAt({21.0, 138.0}, area);
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(TimeBubbleViewTest, LetsTouchesThrough) {
    bubble->pointAt({160.0, 138.0}, area);
    EXPECT_EQ(host.window()->hitTest({160.0, 120.0}), host.window());
}

} // namespace

} // namespace KivUICore::Overlay
