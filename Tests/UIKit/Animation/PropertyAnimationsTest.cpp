#include "Platform/UIKit/Animation/PropertyAnimations.h"

#include "Platform/UIKit/Animation/AnimationGroup.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>

namespace {

using namespace UIKit;

class PropertyAnimationsTest : public testing::Test {
protected:
    /// A group of one change that lasts a second, not yet begun.
    std::shared_ptr<AnimationGroup> makeGroup() {
        auto made = std::make_shared<AnimationGroup>(1.0, AnimationCurve::Linear, nullptr);
        made->add(view);
        return made;
    }

    std::shared_ptr<UIView> view = makeView({});
    std::shared_ptr<AnimationGroup> group = makeGroup();
    PropertyAnimations animations;
};

TEST_F(PropertyAnimationsTest, ValuesTravelWithTheirGroup) {
    EXPECT_TRUE(animations.isEmpty());
    EXPECT_EQ(animations.values(AnimatedProperty::Box), std::nullopt);
    EXPECT_TRUE(animations.start(AnimatedProperty::Box, {0, 10}, {4, 0, 2}, group));
    EXPECT_FALSE(animations.isEmpty());
    EXPECT_TRUE(animations.hasAnyOf(*group));
    EXPECT_EQ(animations.values(AnimatedProperty::Box), (AnimatedValues{0, 10}));
    group->moveTo(0.25);
    EXPECT_EQ(animations.values(AnimatedProperty::Box), (AnimatedValues{1, 7.5, 0.5}));
    group->moveTo(1.0);
    EXPECT_EQ(animations.values(AnimatedProperty::Box), (AnimatedValues{4, 0, 2}));
    EXPECT_EQ(animations.values(AnimatedProperty::Alpha), std::nullopt);
}

TEST_F(PropertyAnimationsTest, EndIsReachedToTheBit) {
    const AnimatedValues from{0.1, 1e300};
    const AnimatedValues to{0.7, 1.0};
    animations.start(AnimatedProperty::Box, from, to, group);
    group->moveTo(1.0);
    EXPECT_EQ(animations.values(AnimatedProperty::Box), to);
}

TEST_F(PropertyAnimationsTest, SameGroupGoesOnToTheNewEnd) {
    animations.start(AnimatedProperty::Alpha, {1}, {0}, group);
    EXPECT_FALSE(animations.start(AnimatedProperty::Alpha, {1}, {0.5}, group));
    EXPECT_FALSE(group->isOver(0.5));
    group->moveTo(0.5);
    EXPECT_EQ(animations.values(AnimatedProperty::Alpha), (AnimatedValues{0.75}));
}

TEST_F(PropertyAnimationsTest, AnotherGroupInterruptsTheFirst) {
    const auto other = makeGroup();
    animations.start(AnimatedProperty::Alpha, {1}, {0}, group);
    EXPECT_TRUE(animations.start(AnimatedProperty::Alpha, {0.5}, {1}, other));
    EXPECT_TRUE(group->isOver(0.5));
    EXPECT_FALSE(animations.hasAnyOf(*group));
    EXPECT_TRUE(animations.hasAnyOf(*other));
    EXPECT_EQ(animations.values(AnimatedProperty::Alpha), (AnimatedValues{0.5}));
}

TEST_F(PropertyAnimationsTest, InterruptionEndsOnePropertyOrAll) {
    const auto other = makeGroup();
    animations.start(AnimatedProperty::Alpha, {1}, {0}, group);
    animations.start(AnimatedProperty::Box, {1}, {0}, other);
    animations.interrupt(AnimatedProperty::Transform);
    animations.interrupt(AnimatedProperty::Alpha);
    EXPECT_TRUE(group->isOver(0.0));
    EXPECT_FALSE(other->isOver(0.0));
    EXPECT_EQ(animations.values(AnimatedProperty::Alpha), std::nullopt);
    animations.interruptAll();
    EXPECT_TRUE(other->isOver(0.0));
    EXPECT_TRUE(animations.isEmpty());
}

TEST_F(PropertyAnimationsTest, FinishingEndsWhatIsOfTheGroupWithoutInterruption) {
    const auto other = makeGroup();
    animations.start(AnimatedProperty::Alpha, {1}, {0}, group);
    animations.start(AnimatedProperty::Box, {1}, {0}, other);
    animations.finish(*group);
    EXPECT_EQ(animations.values(AnimatedProperty::Alpha), std::nullopt);
    EXPECT_NE(animations.values(AnimatedProperty::Box), std::nullopt);
    EXPECT_FALSE(group->isOver(0.5));
}

} // namespace
