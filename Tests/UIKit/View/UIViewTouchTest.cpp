#include "Platform/UIKit/UIView.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>
#include <numbers>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

class UIViewHitTest : public testing::Test {
protected:
    void SetUp() override {
        root->addSubview(back);
        root->addSubview(front);
    }

    std::shared_ptr<UIView> root = make<UIView>(CGRectMake(0, 0, 100, 100));
    std::shared_ptr<UIView> back = make<UIView>(CGRectMake(0, 0, 50, 50));
    std::shared_ptr<UIView> front = make<UIView>(CGRectMake(20, 20, 50, 50));
};

TEST_F(UIViewHitTest, FrontmostAndInnermostIsHit) {
    const auto inside = make<UIView>(CGRectMake(10, 10, 10, 10));
    front->addSubview(inside);
    EXPECT_EQ(root->hitTest({10, 10}), back);
    EXPECT_EQ(root->hitTest({25, 25}), front);
    EXPECT_EQ(root->hitTest({35, 35}), inside);
    EXPECT_EQ(root->hitTest({90, 90}), root);
    EXPECT_EQ(root->hitTest({100, 100}), nullptr);
    EXPECT_EQ(root->hitTest({-1, 50}), nullptr);
    root->bringSubviewToFront(back);
    EXPECT_EQ(root->hitTest({35, 35}), back);
}

TEST_F(UIViewHitTest, HiddenNearlyTransparentAndDisabledViewsAreSkipped) {
    front->setHidden(true);
    EXPECT_EQ(root->hitTest({30, 30}), back);
    front->setHidden(false);
    front->setUserInteractionEnabled(false);
    EXPECT_EQ(root->hitTest({30, 30}), back);
    front->setUserInteractionEnabled(true);
    for (const CGFloat alpha : {0.0099999, 0.0, -1.0, notANumber}) {
        front->setAlpha(alpha);
        EXPECT_EQ(root->hitTest({30, 30}), back) << alpha;
    }
    front->setAlpha(0.01);
    EXPECT_EQ(root->hitTest({30, 30}), front);
}

TEST_F(UIViewHitTest, NoneIsPassedOverWhenTheViewThatIsAskedPutsAnotherBehindAll) {
    class ProlificView : public UIView {
    public:
        std::shared_ptr<UIView> hitTest(const CGPoint& /*point*/) override {
            superview()->insertSubview(make<UIView>(CGRectMake(0, 0, 100, 100)), 0);
            return nullptr;
        }
    };
    front->removeFromSuperview();
    root->addSubview(make<ProlificView>());
    EXPECT_EQ(root->hitTest({10, 10}), back);
}

TEST_F(UIViewHitTest, WhatIsInASkippedViewIsSkipped) {
    const auto inside = make<UIView>(CGRectMake(0, 0, 50, 50));
    front->addSubview(inside);
    EXPECT_EQ(root->hitTest({30, 30}), inside);
    front->setUserInteractionEnabled(false);
    EXPECT_EQ(root->hitTest({30, 30}), back);
    root->setHidden(true);
    EXPECT_EQ(root->hitTest({30, 30}), nullptr);
}

TEST_F(UIViewHitTest, WhatReachesOutOfItsSuperviewIsHitInsideOnly) {
    const auto wide = make<UIView>(CGRectMake(-10, -10, 80, 80));
    front->addSubview(wide);
    EXPECT_EQ(root->hitTest({69, 69}), wide);
    EXPECT_EQ(root->hitTest({75, 75}), root);
    front->setClipsToBounds(true);
    EXPECT_EQ(root->hitTest({69, 69}), wide);
    EXPECT_EQ(root->hitTest({15, 15}), back);
}

TEST_F(UIViewHitTest, PointsThatAreNoNumbersHitNothing) {
    EXPECT_EQ(root->hitTest({notANumber, 10}), nullptr);
    EXPECT_EQ(root->hitTest({10, notANumber}), nullptr);
    EXPECT_EQ(root->hitTest({infinity, 10}), nullptr);
}

TEST_F(UIViewHitTest, TransformsAreFollowed) {
    back->removeFromSuperview();
    front->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    EXPECT_EQ(root->hitTest({30, 30}), root);
    EXPECT_EQ(root->hitTest({33, 33}), front);
    // A square turned by an eighth stands on its corner.
    front->setTransform(CGAffineTransformMakeRotation(std::numbers::pi / 4));
    EXPECT_EQ(root->hitTest({22, 22}), root);
    EXPECT_EQ(root->hitTest({45, 12}), front);
    front->setTransform(CGAffineTransformMakeScale(0, 1));
    EXPECT_EQ(root->hitTest({45, 45}), root);
}

TEST_F(UIViewHitTest, BoundsOriginMovesWhatIsInside) {
    const auto inside = make<UIView>(CGRectMake(10, 10, 10, 10));
    front->addSubview(inside);
    front->setBounds(CGRectMake(10, 10, 50, 50));
    EXPECT_EQ(root->hitTest({21, 21}), inside);
    EXPECT_EQ(root->hitTest({31, 31}), front);
}

TEST_F(UIViewHitTest, WhatATestTakesOutMeanwhileIsNotHit) {
    class Sweeper : public UIView {
    public:
        std::shared_ptr<UIView> hitTest(const CGPoint& /*point*/) override {
            const std::shared_ptr<UIView> from = superview();
            while (!from->subviews().empty()) {
                from->subviews()[0]->removeFromSuperview();
            }
            return nullptr;
        }
    };
    root->addSubview(make<Sweeper>(CGRectMake(0, 0, 100, 100)));
    const std::weak_ptr<UIView> dropped = back;
    back.reset();
    EXPECT_EQ(root->hitTest({10, 10}), root);
    EXPECT_TRUE(dropped.expired());
}

// Points and rectangles from view to view

TEST(UIViewConversionTest, GoesBothWaysThroughTransforms) {
    const auto root = make<UIView>(CGRectMake(500, 500, 100, 100));
    const auto scaled = make<UIView>(CGRectMake(10, 10, 40, 40));
    const auto inner = make<UIView>(CGRectMake(5, 5, 10, 10));
    const auto other = make<UIView>(CGRectMake(60, 70, 10, 10));
    root->addSubview(scaled);
    scaled->addSubview(inner);
    root->addSubview(other);
    scaled->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    scaled->setBounds(CGRectMake(2, 2, 40, 40));

    EXPECT_EQ(inner->convertPointToView({0, 0}, *root), CGPointMake(21.5, 21.5));
    EXPECT_EQ(root->convertPointToView({21.5, 21.5}, *inner), CGPointMake(0, 0));
    EXPECT_EQ(inner->convertPointToView({1, 2}, *inner), CGPointMake(1, 2));
    EXPECT_EQ(inner->convertPointToView({0, 0}, *other), CGPointMake(-38.5, -48.5));
    EXPECT_EQ(inner->convertRectToView(CGRectMake(0, 0, 10, 20), *root), CGRectMake(21.5, 21.5, 5, 10));
    EXPECT_EQ(root->convertRectToView(CGRectMake(21.5, 21.5, 5, 10), *inner), CGRectMake(0, 0, 10, 20));
}

TEST(UIViewConversionTest, NothingComesBackThroughASingularView) {
    const auto root = make<UIView>(CGRectMake(0, 0, 100, 100));
    const auto flat = make<UIView>(CGRectMake(10, 10, 40, 40));
    const auto inner = make<UIView>(CGRectMake(5, 5, 10, 10));
    root->addSubview(flat);
    flat->addSubview(inner);
    flat->setTransform(CGAffineTransformMakeScale(0, 0));
    EXPECT_EQ(root->convertPointToView({30, 30}, *inner), CGPointMake(0, 0));
    EXPECT_EQ(root->convertRectToView(CGRectMake(30, 30, 5, 5), *inner), CGRect{});
    EXPECT_EQ(inner->convertPointToView({3, 4}, *root), CGPointMake(30, 30));
}

// Touches are handed on

TEST(UIViewTouchTest, StepsAreHandedToTheSuperview) {
    const auto outer = makeProbe(CGRectMake(0, 0, 10, 10));
    const auto middle = make<UIView>(CGRectMake(0, 0, 10, 10));
    const auto inner = make<UIView>(CGRectMake(0, 0, 10, 10));
    outer->addSubview(middle);
    middle->addSubview(inner);
    UITouch touch;
    touch.identifier = 3;
    touch.view = inner;
    inner->touchesBegan(touch);
    inner->touchesMoved(touch);
    inner->touchesEnded(touch);
    inner->touchesCancelled(touch);
    EXPECT_EQ(*outer->log, (Log{"began 3", "moved 3", "ended 3", "cancelled 3"}));
}

} // namespace
