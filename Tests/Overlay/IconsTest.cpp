#include "Player/Overlay/Icons.h"

#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/UIKit/UIImage.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <variant>

namespace Overlay {

namespace {

using namespace CoreGraphics;

struct NamedIcon {
    std::string name;
    std::shared_ptr<UIKit::UIImage> (*icon)();
};

class AnyIcon : public testing::TestWithParam<NamedIcon> {
protected:
    const CGDrawing& drawing() const { return *GetParam().icon()->drawing(); }
};

/// What an operation covers, the line's width included.
CGRect coveredArea(const CGDrawing::Operation& operation) {
    if (const auto* stroke = std::get_if<CGDrawing::StrokePath>(&operation)) {
        const CGFloat reach = stroke->stroke.width / 2.0;
        return CGRectInset(stroke->path.boundingBox(), -reach, -reach);
    }
    if (const auto* fill = std::get_if<CGDrawing::FillPath>(&operation)) {
        return fill->path.boundingBox();
    }
    if (const auto* fill = std::get_if<CGDrawing::FillRoundedRect>(&operation)) {
        return fill->rect;
    }
    return {};
}

TEST_P(AnyIcon, IsTwentyFourPointsLargeAndMadeOnce) {
    EXPECT_EQ(GetParam().icon()->size(), (CGSize{24.0, 24.0}));
    EXPECT_EQ(GetParam().icon(), GetParam().icon());
}

TEST_P(AnyIcon, KeepsAwayFromItsEdges) {
    const CGRect inside = CGRectMake(1.0, 1.0, 22.0, 22.0);
    for (const CGDrawing::Operation& operation : drawing().operations()) {
        const CGRect area = coveredArea(operation);
        EXPECT_TRUE(CGRectIsEmpty(area) || CGRectContainsRect(inside, area));
    }
}

TEST_P(AnyIcon, DrawsLinesOfTheSameWidth) {
    for (const CGDrawing::Operation& operation : drawing().operations()) {
        if (const auto* stroke = std::get_if<CGDrawing::StrokePath>(&operation)) {
            EXPECT_EQ(stroke->stroke, (CGStroke{2.0, CGLineCap::Round, CGLineJoin::Round}));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Icons, AnyIcon,
                         testing::Values(NamedIcon{"Play", playIcon}, NamedIcon{"Pause", pauseIcon},
                                         NamedIcon{"Replay", replayIcon}, NamedIcon{"Retry", retryIcon},
                                         NamedIcon{"Back", backIcon}, NamedIcon{"Sound", soundIcon},
                                         NamedIcon{"Muted", mutedIcon},
                                         NamedIcon{"EnterFullScreen", enterFullScreenIcon},
                                         NamedIcon{"ExitFullScreen", exitFullScreenIcon},
                                         NamedIcon{"Menu", menuIcon}, NamedIcon{"Tick", tickIcon},
                                         NamedIcon{"Empty", emptyIcon}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Icons, ThatStandForDifferentThingsDiffer) {
    EXPECT_NE(*playIcon()->drawing(), *pauseIcon()->drawing());
    EXPECT_NE(*replayIcon()->drawing(), *retryIcon()->drawing());
    EXPECT_NE(*soundIcon()->drawing(), *mutedIcon()->drawing());
    EXPECT_NE(*enterFullScreenIcon()->drawing(), *exitFullScreenIcon()->drawing());
}

TEST(Icons, OnlyTheEmptyOneShowsNothing) {
    EXPECT_TRUE(emptyIcon()->drawing()->operations().empty());
    EXPECT_FALSE(tickIcon()->drawing()->operations().empty());
}

} // namespace

} // namespace Overlay
