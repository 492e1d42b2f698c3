#include "Platform/UIKit/Animation/AnimationGroup.h"

#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>

namespace {

using UIKit::AnimationCurve;
using UIKit::AnimationGroup;

TEST(AnimationGroupTest, ProgressGoesFromItsStartToItsEnd) {
    AnimationGroup group(2.0, AnimationCurve::Linear, nullptr);
    group.begin(1.0);
    EXPECT_EQ(group.end(), 3.0);
    const std::vector<std::pair<double, double>> expected{{0.0, 0.0}, {1.0, 0.0},  {2.0, 0.5},
                                                          {3.0, 1.0}, {10.0, 1.0}, {infinity, 1.0}};
    for (const auto& [now, progress] : expected) {
        group.moveTo(now);
        EXPECT_EQ(group.progress(), progress) << now;
    }
}

TEST(AnimationGroupTest, WithoutADurationProgressJumps) {
    AnimationGroup group(0.0, AnimationCurve::EaseIn, nullptr);
    group.begin(1.0);
    group.moveTo(0.999);
    EXPECT_EQ(group.progress(), 0.0);
    group.moveTo(1.0);
    EXPECT_EQ(group.progress(), 1.0);
}

TEST(AnimationGroupTest, RunsWhileItHasChanges) {
    AnimationGroup group(2.0, AnimationCurve::Linear, nullptr);
    group.begin(1.0);
    EXPECT_TRUE(group.isOver(0.0));
    const auto view = makeView({});
    group.add(view);
    group.add(view);
    EXPECT_EQ(group.views().size(), 1u);
    EXPECT_FALSE(group.isRunning(0.5));
    EXPECT_TRUE(group.isRunning(1.0));
    EXPECT_FALSE(group.isOver(2.9));
    EXPECT_TRUE(group.isOver(3.0));
    group.interrupt();
    EXPECT_TRUE(group.isRunning(1.0));
    group.interrupt();
    EXPECT_FALSE(group.isRunning(1.0));
    EXPECT_TRUE(group.isOver(0.0));
}

TEST(AnimationGroupTest, KnowsEachOfItsViews) {
    AnimationGroup group(1.0, AnimationCurve::Linear, nullptr);
    EXPECT_FALSE(group.hasChanges());
    const auto first = makeView({});
    const auto second = makeView({});
    group.add(first);
    group.add(second);
    group.add(first);
    EXPECT_TRUE(group.hasChanges());
    ASSERT_GE(group.views().size(), 2u);
    EXPECT_EQ(group.views()[0].lock(), first);
    EXPECT_EQ(group.views()[1].lock(), second);
}

TEST(AnimationGroupTest, CompletesOnceAndSaysWhetherItWasInterrupted) {
    Log log;
    const auto note = [&](bool finished) { log.push_back(finished ? "finished" : "interrupted"); };
    AnimationGroup whole(1.0, AnimationCurve::Linear, note);
    whole.complete();
    whole.complete();
    EXPECT_EQ(log, Log{"finished"});
    AnimationGroup broken(1.0, AnimationCurve::Linear, note);
    broken.add(makeView({}));
    broken.interrupt();
    broken.complete();
    EXPECT_EQ(log, (Log{"finished", "interrupted"}));
    AnimationGroup(1.0, AnimationCurve::Linear, nullptr).complete();
}

} // namespace
