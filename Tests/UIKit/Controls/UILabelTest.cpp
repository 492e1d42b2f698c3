#include "Platform/UIKit/UILabel.h"

#include "Platform/Foundation/Message.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIFont.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/UIKit/ControlTestSupport.h"
#include "Tests/UIKit/NullContext.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using KivUICore::Headless::HeadlessHost;

class UILabelTest : public testing::Test {
protected:
    UILabelTest() {
        host.window()->addSubview(label);
        host.draw();
    }

    CGDrawing::DrawText drawn() const {
        const auto texts = drawnBy<CGDrawing::DrawText>(*label);
        return texts.size() == 1 ? texts.front() : CGDrawing::DrawText{"not drawn once", {}, {}};
    }

    HeadlessHost host{{300, 100}};
    std::shared_ptr<UILabel> label = make<UILabel>(CGRectMake(20, 30, 100, 40));
};

TEST_F(UILabelTest, AnAbsentTextStaysAbsentAndAnEmptyOneEmpty) {
    EXPECT_EQ(label->text(), std::nullopt);
    label->setText("");
    EXPECT_EQ(label->text(), "");
    EXPECT_TRUE(drawnBy<CGDrawing::DrawText>(*label).empty());
    label->setText(std::nullopt);
    EXPECT_EQ(label->text(), std::nullopt);
    EXPECT_TRUE(drawnBy<CGDrawing::DrawText>(*label).empty());
}

TEST_F(UILabelTest, NoTextNeedsNoRoom) {
    EXPECT_EQ(label->sizeThatFits({}), CGSize{});
    label->setText("");
    EXPECT_EQ(label->sizeThatFits({}), CGSize{});
    EXPECT_EQ(label->sizeThatFits({100, 100}), CGSize{});
    label->setText("i");
    EXPECT_GT(label->sizeThatFits({}).height, 0.0);
}

TEST_F(UILabelTest, DrawsItsTextInOneWhiteLineFromItsStart) {
    label->setText("01:23");
    EXPECT_EQ(drawn(), (CGDrawing::DrawText{"01:23",
                                            {{17.0, CGFontWeight::Regular, CGFigures::Proportional},
                                             {1.0, 1.0, 1.0, 1.0},
                                             CGTextAlignment::Leading,
                                             1},
                                            CGRectMake(0, 0, 100, 40)}));
}

TEST_F(UILabelTest, DrawsInItsStyle) {
    label->setText("01:23");
    label->setFont(UIFont::monospacedDigitSystemFontOfSize(13, UIFontWeightMedium));
    label->setTextColor(make<UIColor>(1.0, 0.5, 0.0, 0.75));
    label->setTextAlignment(CGTextAlignment::Center);
    label->setNumberOfLines(3);
    EXPECT_EQ(drawn().style, (CGTextStyle{{13.0, CGFontWeight::Medium, CGFigures::Monospaced},
                                          {1.0, 0.5, 0.0, 0.75},
                                          CGTextAlignment::Center,
                                          3}));
    label->setFont(nullptr);
    label->setTextColor(nullptr);
    EXPECT_EQ(drawn().style.font, CGFont{});
    EXPECT_EQ(drawn().style.color, (CGColor{1.0, 1.0, 1.0, 1.0}));
}

TEST_F(UILabelTest, ANegativeNumberOfLinesIsAsManyAsFit) {
    label->setText("text");
    label->setNumberOfLines(-2);
    EXPECT_EQ(label->numberOfLines(), 0);
    EXPECT_EQ(drawn().style.maximumLines, 0);
}

TEST_F(UILabelTest, EachChangeIsDrawn) {
    const auto isDrawnAfter = [this](const std::function<void()>& change) {
        host.draw();
        change();
        return host.window()->needsDisplay() && host.window()->damage().rects()[0] == label->frame();
    };
    EXPECT_TRUE(isDrawnAfter([this] { label->setText("01:23"); }));
    EXPECT_TRUE(isDrawnAfter([this] { label->setFont(UIFont::systemFontOfSize(12)); }));
    EXPECT_TRUE(isDrawnAfter([this] { label->setTextColor(make<UIColor>(1.0, 0.5)); }));
    EXPECT_TRUE(isDrawnAfter([this] { label->setTextAlignment(CGTextAlignment::Trailing); }));
    EXPECT_TRUE(isDrawnAfter([this] { label->setNumberOfLines(0); }));
    EXPECT_TRUE(isDrawnAfter([this] { label->setText(std::nullopt); }));
}

TEST_F(UILabelTest, WhatIsThereAlreadyIsNotDrawnAgain) {
    const auto set = [this] {
        label->setText("01:23");
        label->setFont(UIFont::systemFontOfSize(12));
        label->setTextColor(make<UIColor>(1.0, 0.5));
        label->setTextAlignment(CGTextAlignment::Trailing);
        label->setNumberOfLines(2);
    };
    set();
    host.draw();
    set();
    EXPECT_FALSE(host.window()->needsDisplay());
    label->setText("");
    host.draw();
    label->setText(std::nullopt);
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(UILabelTest, LetsTouchesThroughUnlessToldOtherwise) {
    EXPECT_EQ(host.window()->hitTest({50, 50}), host.window());
    label->setUserInteractionEnabled(true);
    EXPECT_EQ(host.window()->hitTest({50, 50}), label);
    EXPECT_FALSE(make<UILabel>()->isUserInteractionEnabled());
}

TEST_F(UILabelTest, FitsItsTextWithRoomToSpare) {
    EXPECT_EQ(label->sizeThatFits({}), (CGSize{}));
    label->setText("0123456789");
    const CGSize whole = label->sizeThatFits({});
    EXPECT_GT(whole.width, 10 * 0.6 * 17.0);
    EXPECT_LT(whole.width, 10 * 0.9 * 17.0);
    EXPECT_GE(whole.height, 17.0);
    EXPECT_EQ(label->sizeThatFits({50, 0}), (CGSize{50, whole.height}));
    label->setNumberOfLines(0);
    EXPECT_GT(label->sizeThatFits({50, 0}).height, whole.height);
    EXPECT_EQ(label->sizeThatFits({50, 30}).height, 30.0);
}

TEST_F(UILabelTest, FollowsAResizeAsItIsShown) {
    label->setText("01:23");
    UIView::animateWithDuration(1.0, 0.0, UIViewAnimationOptionCurveLinear,
                                [this] { label->setFrame(CGRectMake(20, 30, 200, 40)); });
    host.advance(0.5);
    EXPECT_NEAR(drawn().rect.size.width, 150.0, 1e-6);
}

TEST_F(UILabelTest, DrawingAllocatesNothing) {
    label->setText("A text that is too long for a string to hold in itself");
    NullContext context;
    const std::size_t before = allocationCount();
    label->drawRect(context, label->bounds());
    EXPECT_EQ(allocationCount(), before);
}

TEST_F(UILabelTest, CanBeReachedByName) {
    label->send("setText:", "01:23");
    EXPECT_EQ(label->send<std::optional<std::string>>("text"), "01:23");
    label->send("setText:", std::optional<std::string>());
    EXPECT_EQ(label->send<std::optional<std::string>>("text"), std::nullopt);
    label->send("setNumberOfLines:", 2);
    EXPECT_EQ(label->send<int>("numberOfLines"), 2);
    const auto font = UIFont::systemFontOfSize(12);
    label->send("setFont:", font);
    EXPECT_EQ(label->font(), font);
    label->send("setTextAlignment:", CGTextAlignment::Center);
    EXPECT_EQ(label->textAlignment(), CGTextAlignment::Center);
}

} // namespace
