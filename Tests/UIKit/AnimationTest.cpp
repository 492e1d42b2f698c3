#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIView.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

using namespace CoreGraphics;
using Foundation::make;
using Headless::HeadlessHost;
using UIKit::UIView;

CGFloat drawnAlpha(HeadlessHost& host) {
    host.window()->setNeedsDisplayEverywhere();
    const auto drawing = host.draw();
    for (const CGDrawing::Operation& operation : drawing->operations()) {
        if (const auto* group = std::get_if<CGDrawing::BeginGroup>(&operation)) {
            return group->alpha;
        }
    }
    return 1.0;
}

TEST(AnimationTest, TheModelIsThereAtOnceAndThePresentationTravels) {
    HeadlessHost host({100, 100});
    const auto view = make<UIView>(CGRectMake(0, 0, 50, 50));
    host.window()->addSubview(view);
    std::vector<bool> completions;
    UIView::animateWithDuration(
        0.5, 0.0, UIKit::UIViewAnimationOptionCurveLinear, [&] { view->setAlpha(0.5); },
        [&](bool finished) { completions.push_back(finished); });
    EXPECT_EQ(view->alpha(), 0.5);
    EXPECT_NEAR(drawnAlpha(host), 1.0, 1e-9);
    host.advance(0.25);
    EXPECT_NEAR(drawnAlpha(host), 0.75, 1e-9);
    EXPECT_TRUE(completions.empty());
    host.advance(0.25);
    EXPECT_NEAR(drawnAlpha(host), 0.5, 1e-9);
    EXPECT_EQ(completions, std::vector<bool>{true});
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST(AnimationTest, ANewerAnimationTakesOverFromWhereThePresentationStands) {
    HeadlessHost host({100, 100});
    const auto view = make<UIView>(CGRectMake(0, 0, 50, 50));
    host.window()->addSubview(view);
    std::vector<int> log;
    const auto fade = [&](double alpha, int number) {
        UIView::animateWithDuration(
            0.5, 0.0, UIKit::UIViewAnimationOptionCurveLinear, [&view, alpha] { view->setAlpha(alpha); },
            [&log, number](bool finished) { log.push_back(finished ? number : -number); });
    };
    fade(0.0, 1);
    host.advance(0.25);
    fade(1.0, 2);
    host.advance(0.25);
    EXPECT_NEAR(drawnAlpha(host), 0.75, 1e-9);
    EXPECT_EQ(log, std::vector<int>{-1});
    host.advance(0.25);
    EXPECT_EQ(log, (std::vector<int>{-1, 2}));
}

} // namespace
