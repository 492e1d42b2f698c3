#include "Player/Overlay/Looks/Icons.h"

#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/UIKit/UIImage.h"
#include "Tests/Overlay/Looks/DrawingText.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <variant>

namespace KivUICore::Overlay {

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

bool isEven(CGFloat value) { return std::fmod(value, 2.0) == 0.0; }

bool isSharpLine(const CGPoint& from, const CGPoint& to, CGFloat width) {
    return (from.x != to.x || isEven(from.x + width / 2.0)) &&
           (from.y != to.y || isEven(from.y + width / 2.0));
}

/// Whether the lines of a path that run along an axis have their outer edges on even points.
bool hasSharpLines(const CGPath& path, CGFloat width) {
    CGPoint start;
    CGPoint current;
    for (const CGPath::Element& element : path.elements()) {
        const CGPoint from = current;
        switch (element.verb) {
        case CGPath::Verb::Move:
            start = element.points[0];
            current = start;
            continue;
        case CGPath::Verb::Curve:
            current = element.points[2];
            continue;
        case CGPath::Verb::Line:
            current = element.points[0];
            break;
        case CGPath::Verb::Close:
            current = start;
            break;
        }
        if (from != current && !isSharpLine(from, current, width)) {
            return false;
        }
    }
    return true;
}

TEST(SharpLines, AreToldFromBlurredOnes) {
    CGPath sharp;
    sharp.addLine({5.0, 5.0});
    sharp.addLine({5.0, 9.0});
    sharp.addLine({8.0, 12.0});
    EXPECT_TRUE(hasSharpLines(sharp, 2.0));
    CGPath blurred = sharp;
    blurred.addLine({10.0, 12.0});
    EXPECT_FALSE(hasSharpLines(blurred, 2.0));
    CGPath closed;
    closed.addLine({8.0, 5.0});
    closed.addLine({19.0, 12.0});
    closed.addLine({8.0, 19.0});
    EXPECT_TRUE(hasSharpLines(closed, 2.0));
    closed.closeSubpath();
    EXPECT_FALSE(hasSharpLines(closed, 2.0));
}

// At one and a half pixels a point, an even number of points is a whole number of pixels.
TEST_P(AnyIcon, HasItsStraightEdgesOnEvenPoints) {
    for (const CGDrawing::Operation& operation : drawing().operations()) {
        if (const auto* stroke = std::get_if<CGDrawing::StrokePath>(&operation)) {
            EXPECT_TRUE(hasSharpLines(stroke->path, stroke->stroke.width));
        }
        if (const auto* fill = std::get_if<CGDrawing::FillRoundedRect>(&operation)) {
            EXPECT_TRUE(isEven(CGRectGetMinX(fill->rect)) && isEven(CGRectGetMaxX(fill->rect)));
            EXPECT_TRUE(isEven(CGRectGetMinY(fill->rect)) && isEven(CGRectGetMaxY(fill->rect)));
        }
    }
}

const std::vector<NamedIcon> allIcons{
    {"Play", playIcon},
    {"Pause", pauseIcon},
    {"Replay", replayIcon},
    {"Retry", retryIcon},
    {"Cancel", cancelIcon},
    {"Back", backIcon},
    {"Sound", soundIcon},
    {"Muted", mutedIcon},
    {"EnterFullScreen", enterFullScreenIcon},
    {"ExitFullScreen", exitFullScreenIcon},
    {"Menu", menuIcon},
    {"Tick", tickIcon},
    {"Empty", emptyIcon},
};

INSTANTIATE_TEST_SUITE_P(Icons, AnyIcon, testing::ValuesIn(allIcons),
                         [](const auto& tested) { return tested.param.name; });

// Whoever means to change an icon looks at it and then puts its new shape into Icons.txt.
TEST(Icons, HaveTheShapesThatWereLookedAt) {
    std::ifstream file(KIVUICORE_ICON_SHAPES);
    const std::string lookedAt{std::istreambuf_iterator<char>(file), {}};
    std::string shapes;
    for (const NamedIcon& each : allIcons) {
        shapes += each.name + '\n' + describe(*each.icon()->drawing());
    }
    EXPECT_EQ(shapes, lookedAt);
}

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

} // namespace KivUICore::Overlay
