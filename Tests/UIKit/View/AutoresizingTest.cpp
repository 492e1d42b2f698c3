#include "Platform/UIKit/View/Autoresizing.h"

#include "Platform/UIKit/UIView.h"
#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;

// Across a superview that grows from 100 to 200, a view from 10 to 40: 10 before, 30 long, 60 after.
CGRect grownAcross(UIViewAutoresizing mask) {
    return autoresizedFrame(CGRectMake(10, 7, 30, 5), mask, {100, 50}, {200, 50});
}

CGRect grownDown(UIViewAutoresizing mask) {
    return autoresizedFrame(CGRectMake(7, 10, 5, 30), mask, {50, 100}, {50, 200});
}

constexpr UIViewAutoresizing left = UIViewAutoresizingFlexibleLeftMargin;
constexpr UIViewAutoresizing width = UIViewAutoresizingFlexibleWidth;
constexpr UIViewAutoresizing right = UIViewAutoresizingFlexibleRightMargin;
constexpr UIViewAutoresizing top = UIViewAutoresizingFlexibleTopMargin;
constexpr UIViewAutoresizing height = UIViewAutoresizingFlexibleHeight;
constexpr UIViewAutoresizing bottom = UIViewAutoresizingFlexibleBottomMargin;

TEST(AutoresizingTest, WithNothingFlexibleTheViewStays) {
    EXPECT_EQ(grownAcross(UIViewAutoresizingNone), CGRectMake(10, 7, 30, 5));
    EXPECT_EQ(grownAcross(top | height | bottom), CGRectMake(10, 7, 30, 5));
}

TEST(AutoresizingTest, OneFlexibleDistanceTakesAllOfTheDifference) {
    EXPECT_EQ(grownAcross(left), CGRectMake(110, 7, 30, 5));
    EXPECT_EQ(grownAcross(width), CGRectMake(10, 7, 130, 5));
    EXPECT_EQ(grownAcross(right), CGRectMake(10, 7, 30, 5));
}

TEST(AutoresizingTest, SeveralShareInProportion) {
    EXPECT_EQ(grownAcross(left | width), CGRectMake(35, 7, 105, 5));
    EXPECT_EQ(grownAcross(left | right), CGRectMake(10 + 100.0 * (10.0 / 70.0), 7, 30, 5));
    EXPECT_EQ(grownAcross(width | right), CGRectMake(10, 7, 30 + 100.0 * (30.0 / 90.0), 5));
    EXPECT_EQ(grownAcross(left | width | right), CGRectMake(20, 7, 60, 5));
}

TEST(AutoresizingTest, UprightIsTheSame) {
    EXPECT_EQ(grownDown(top), CGRectMake(7, 110, 5, 30));
    EXPECT_EQ(grownDown(height), CGRectMake(7, 10, 5, 130));
    EXPECT_EQ(grownDown(bottom), CGRectMake(7, 10, 5, 30));
    EXPECT_EQ(grownDown(top | height), CGRectMake(7, 35, 5, 105));
    EXPECT_EQ(grownDown(top | height | bottom), CGRectMake(7, 20, 5, 60));
    EXPECT_EQ(grownDown(left | width | right), CGRectMake(7, 10, 5, 30));
}

TEST(AutoresizingTest, AxesAreIndependent) {
    EXPECT_EQ(autoresizedFrame(CGRectMake(10, 10, 80, 20), width | top, {100, 40}, {150, 100}),
              CGRectMake(10, 70, 130, 20));
}

TEST(AutoresizingTest, WhereTheDistancesWereNothingTheyShareEvenly) {
    EXPECT_EQ(autoresizedFrame({}, width | height, {0, 0}, {300, 40}), CGRectMake(0, 0, 300, 40));
    EXPECT_EQ(autoresizedFrame({}, left | right, {0, 0}, {300, 40}), CGRectMake(150, 0, 0, 0));
    EXPECT_EQ(autoresizedFrame({}, left | width | right, {0, 0}, {300, 40}), CGRectMake(100, 0, 100, 0));
}

TEST(AutoresizingTest, ViewsInsideAViewFollowItsFrameAndItsBounds) {
    const auto outer = Foundation::make<UIView>(CGRectMake(0, 0, 100, 100));
    const auto middle = Foundation::make<UIView>(CGRectMake(0, 60, 100, 40));
    const auto inner = Foundation::make<UIView>(CGRectMake(10, 10, 20, 20));
    middle->setAutoresizingMask(width | top);
    inner->setAutoresizingMask(left | bottom);
    outer->addSubview(middle);
    middle->addSubview(inner);

    outer->setFrame(CGRectMake(5, 5, 200, 300));
    EXPECT_EQ(middle->frame(), CGRectMake(0, 260, 200, 40));
    EXPECT_EQ(inner->frame(), CGRectMake(110, 10, 20, 20));

    outer->setBounds(CGRectMake(7, 7, 100, 100));
    EXPECT_EQ(middle->frame(), CGRectMake(0, 60, 100, 40));
    EXPECT_EQ(inner->frame(), CGRectMake(10, 10, 20, 20));
}

TEST(AutoresizingTest, MovingAViewLeavesItsSubviews) {
    const auto outer = Foundation::make<UIView>(CGRectMake(0, 0, 100, 100));
    const auto inner = Foundation::make<UIView>(CGRectMake(10, 10, 20, 20));
    inner->setAutoresizingMask(left | width | right | top | height | bottom);
    outer->addSubview(inner);
    outer->setFrame(CGRectMake(50, 60, 100, 100));
    outer->setCenter({0, 0});
    outer->setBounds(CGRectMake(9, 9, 100, 100));
    outer->setTransform(CGAffineTransformMakeScale(2, 2));
    EXPECT_EQ(inner->frame(), CGRectMake(10, 10, 20, 20));
}

TEST(AutoresizingTest, ScaledSubviewTakesTheFrame) {
    const auto outer = Foundation::make<UIView>(CGRectMake(0, 0, 100, 100));
    const auto inner = Foundation::make<UIView>(CGRectMake(0, 0, 100, 100));
    inner->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    inner->setAutoresizingMask(width | height);
    outer->addSubview(inner);
    EXPECT_EQ(inner->frame(), CGRectMake(25, 25, 50, 50));
    outer->setFrame(CGRectMake(0, 0, 200, 100));
    EXPECT_EQ(inner->frame(), CGRectMake(25, 25, 150, 50));
    EXPECT_EQ(inner->bounds(), CGRectMake(0, 0, 300, 100));
}

TEST(AutoresizingTest, SubviewThatAnotherOneTakesOutMeanwhileIsLeftAlone) {
    class Remover : public UIView {
    public:
        std::shared_ptr<UIView> victim;
        void setFrame(const CGRect& frame) override {
            UIView::setFrame(frame);
            victim->removeFromSuperview();
        }
    };
    const auto outer = Foundation::make<UIView>(CGRectMake(0, 0, 100, 100));
    const auto remover = Foundation::make<Remover>(CGRectMake(0, 0, 10, 10));
    remover->victim = Foundation::make<UIView>(CGRectMake(0, 0, 10, 10));
    remover->setAutoresizingMask(width);
    remover->victim->setAutoresizingMask(width);
    outer->addSubview(remover);
    outer->addSubview(remover->victim);
    outer->setFrame(CGRectMake(0, 0, 200, 100));
    EXPECT_EQ(remover->frame(), CGRectMake(0, 0, 110, 10));
    EXPECT_EQ(remover->victim->frame(), CGRectMake(0, 0, 10, 10));
}

} // namespace
