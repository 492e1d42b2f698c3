#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/NullContext.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

constexpr CGColor red{1, 0, 0, 1};

class UIViewDrawingTest : public testing::Test {
protected:
    void SetUp() override { host.draw(); }

    /// Adds a view and draws what was there before it.
    void add(const std::shared_ptr<UIView>& view) {
        host.window()->addSubview(view);
        host.draw();
    }

    std::vector<CGDrawing::Operation> drawEverything() {
        host.window()->setNeedsDisplayEverywhere();
        return draw();
    }

    std::vector<CGDrawing::Operation> draw() { return host.draw()->operations(); }

    template <class Operation>
    static std::vector<Operation> all(const std::vector<CGDrawing::Operation>& operations) {
        std::vector<Operation> result;
        for (const CGDrawing::Operation& each : operations) {
            if (const auto* found = std::get_if<Operation>(&each)) {
                result.push_back(*found);
            }
        }
        return result;
    }

    KivUICore::Headless::HeadlessHost host{{100, 100}};
};

TEST_F(UIViewDrawingTest, DrawsBackgroundContentAndSubviewsInThisOrder) {
    class Content : public UIView {
        void drawRect(CGContext& context, const CGRect& rect) override {
            context.fillRect(rect, {0, 1, 0, 1});
        }
    };
    const auto view = make<Content>(CGRectMake(10, 10, 50, 50));
    view->setBackgroundColor(make<UIColor>(1.0, 0.0, 0.0, 1.0));
    const auto inside = make<UIView>(CGRectMake(5, 5, 10, 10));
    inside->setBackgroundColor(make<UIColor>(0.0, 0.0, 1.0, 1.0));
    view->addSubview(inside);
    add(view);

    const CGRect everything = CGRectMake(0, 0, 100, 100);
    const std::vector<CGDrawing::Operation> expected{
        CGDrawing::SaveState{},
        CGDrawing::ClipToRect{everything},
        CGDrawing::ClearRect{everything},
        CGDrawing::SaveState{},
        CGDrawing::Concatenate{CGAffineTransformMakeTranslation(10, 10)},
        CGDrawing::FillRect{CGRectMake(0, 0, 50, 50), red},
        CGDrawing::FillRect{CGRectMake(0, 0, 50, 50), {0, 1, 0, 1}},
        CGDrawing::SaveState{},
        CGDrawing::Concatenate{CGAffineTransformMakeTranslation(5, 5)},
        CGDrawing::FillRect{CGRectMake(0, 0, 10, 10), {0, 0, 1, 1}},
        CGDrawing::RestoreState{},
        CGDrawing::RestoreState{},
        CGDrawing::RestoreState{}};
    EXPECT_EQ(drawEverything(), expected);
}

TEST_F(UIViewDrawingTest, DrawsOnlyWhatMeetsTheDamage) {
    std::vector<std::string> drawn;
    for (const CGFloat x : {0.0, 50.0}) {
        const auto view = makeProbe(CGRectMake(x, 0, 50, 50));
        const auto inside = makeProbe(CGRectMake(0, 0, 10, 10));
        view->onDraw = [&drawn, x](const CGRect&) { drawn.push_back("view " + std::to_string(int(x))); };
        inside->onDraw = [&drawn, x](const CGRect&) { drawn.push_back("inside " + std::to_string(int(x))); };
        view->addSubview(inside);
        host.window()->addSubview(view);
    }
    host.draw();
    drawn.clear();
    host.window()->subviews()[1]->subviews()[0]->setNeedsDisplay();
    const auto operations = draw();
    EXPECT_EQ(drawn, (std::vector<std::string>{"view 50", "inside 50"}));
    EXPECT_EQ(all<CGDrawing::Concatenate>(operations).size(), 2u);
    EXPECT_EQ(all<CGDrawing::ClearRect>(operations),
              std::vector{CGDrawing::ClearRect{CGRectMake(50, 0, 10, 10)}});
}

TEST_F(UIViewDrawingTest, SubviewOutsideItsSuperviewIsDrawnWithoutIt) {
    const auto view = makeView(CGRectMake(0, 0, 10, 10));
    const auto outside = makeView(CGRectMake(50, 50, 10, 10));
    view->addSubview(outside);
    add(view);
    outside->setNeedsDisplay();
    EXPECT_EQ(all<CGDrawing::FillRect>(draw()),
              (std::vector{CGDrawing::FillRect{CGRectMake(0, 0, 10, 10), red}}));
}

TEST_F(UIViewDrawingTest, ContentIsAskedForNoMoreThanItsBounds) {
    const auto view = makeProbe(CGRectMake(10, 10, 20, 20));
    std::vector<CGRect> asked;
    view->onDraw = [&](const CGRect& rect) { asked.push_back(rect); };
    host.window()->addSubview(view);
    host.draw();
    EXPECT_EQ(asked, std::vector{CGRectMake(0, 0, 20, 20)});
    asked.clear();
    const auto over = makeView(CGRectMake(25, 25, 10, 10));
    host.window()->addSubview(over);
    host.draw();
    EXPECT_EQ(asked, std::vector{CGRectMake(15, 15, 5, 5)});
}

TEST_F(UIViewDrawingTest, ClippingCutsSubviewsAtTheBounds) {
    const auto view = makeView(CGRectMake(10, 10, 20, 20));
    const auto wide = makeView(CGRectMake(-5, -5, 50, 50));
    const auto outside = makeView(CGRectMake(30, 30, 10, 10));
    view->addSubview(wide);
    view->addSubview(outside);
    view->setClipsToBounds(true);
    add(view);
    const auto operations = drawEverything();
    EXPECT_EQ(all<CGDrawing::ClipToRect>(operations)[1].rect, CGRectMake(0, 0, 20, 20));
    EXPECT_EQ(all<CGDrawing::FillRect>(operations).size(), 2u);
    view->setClipsToBounds(false);
    EXPECT_EQ(all<CGDrawing::FillRect>(drawEverything()).size(), 3u);
}

TEST_F(UIViewDrawingTest, PartlyTransparentViewFadesAsOneGroupWithWhatIsInIt) {
    const auto view = makeView(CGRectMake(10, 10, 20, 20));
    view->addSubview(makeView(CGRectMake(15, 15, 20, 20)));
    view->addSubview(makeView(CGRectMake(0, 0, 5, 5)));
    view->setAlpha(0.5);
    add(view);
    const auto operations = drawEverything();
    EXPECT_EQ(all<CGDrawing::BeginGroup>(operations),
              (std::vector{CGDrawing::BeginGroup{0.5, CGRectMake(0, 0, 35, 35)}}));
    EXPECT_EQ(all<CGDrawing::EndGroup>(operations).size(), 1u);
    EXPECT_EQ(all<CGDrawing::FillRect>(operations).size(), 3u);
}

TEST_F(UIViewDrawingTest, GroupsNestAndOpaqueViewsMakeNone) {
    const auto view = makeView(CGRectMake(10, 10, 20, 20));
    view->addSubview(makeView(CGRectMake(0, 0, 5, 5)));
    add(view);
    EXPECT_TRUE(all<CGDrawing::BeginGroup>(drawEverything()).empty());
    view->setAlpha(0.5);
    view->subviews()[0]->setAlpha(0.25);
    const auto groups = all<CGDrawing::BeginGroup>(drawEverything());
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0].alpha, 0.5);
    EXPECT_EQ(groups[1].alpha, 0.25);
}

TEST_F(UIViewDrawingTest, AlphaIsCutToItsRange) {
    const auto view = makeView(CGRectMake(10, 10, 20, 20));
    add(view);
    view->setAlpha(1.5);
    EXPECT_TRUE(all<CGDrawing::BeginGroup>(drawEverything()).empty());
    EXPECT_EQ(all<CGDrawing::FillRect>(drawEverything()).size(), 1u);
    for (const CGFloat alpha : {-0.5, 0.0, notANumber}) {
        view->setAlpha(alpha);
        EXPECT_TRUE(all<CGDrawing::FillRect>(drawEverything()).empty());
    }
}

TEST_F(UIViewDrawingTest, HiddenAndFlatViewsAreNotDrawn) {
    const auto view = makeView(CGRectMake(10, 10, 20, 20));
    view->addSubview(makeView(CGRectMake(0, 0, 5, 5)));
    add(view);
    view->setHidden(true);
    EXPECT_TRUE(all<CGDrawing::FillRect>(drawEverything()).empty());
    view->setHidden(false);
    view->setTransform(CGAffineTransformMakeScale(1, 0));
    EXPECT_TRUE(all<CGDrawing::FillRect>(drawEverything()).empty());
}

TEST_F(UIViewDrawingTest, WindowItselfMayBeHiddenOrFade) {
    add(makeView(CGRectMake(0, 0, 20, 20)));
    host.window()->setAlpha(0.5);
    auto operations = drawEverything();
    EXPECT_EQ(all<CGDrawing::BeginGroup>(operations).size(), 1u);
    EXPECT_EQ(all<CGDrawing::FillRect>(operations).size(), 1u);
    host.window()->setHidden(true);
    operations = draw();
    EXPECT_EQ(all<CGDrawing::ClearRect>(operations).size(), 1u);
    EXPECT_TRUE(all<CGDrawing::FillRect>(operations).empty());
}

TEST_F(UIViewDrawingTest, PatternFillsTheBackground) {
    const auto cell =
        std::make_shared<const CGDrawing>(CGSizeMake(4, 4), std::vector<CGDrawing::Operation>{});
    const auto view = make<UIView>(CGRectMake(10, 10, 20, 20));
    view->setBackgroundColor(make<UIColor>(make<UIImage>(cell)));
    add(view);
    EXPECT_EQ(all<CGDrawing::FillPattern>(drawEverything()),
              (std::vector{CGDrawing::FillPattern{cell, CGRectMake(0, 0, 20, 20)}}));
    view->setBackgroundColor(nullptr);
    EXPECT_TRUE(all<CGDrawing::FillPattern>(drawEverything()).empty());
}

TEST_F(UIViewDrawingTest, ClearBackgroundsDrawNothing) {
    const auto view = make<UIView>(CGRectMake(10, 10, 20, 20));
    view->setBackgroundColor(make<UIColor>(1.0, 1.0, 1.0, 0.0));
    add(view);
    EXPECT_TRUE(all<CGDrawing::FillRect>(drawEverything()).empty());
}

TEST_F(UIViewDrawingTest, TransformedViewIsDrawnInItsOwnCoordinates) {
    const auto view = makeView(CGRectMake(10, 10, 20, 20));
    view->setTransform(CGAffineTransformMakeRotation(std::numbers::pi / 2));
    view->setBounds(CGRectMake(100, 100, 20, 20));
    add(view);
    const auto operations = drawEverything();
    const CGRect filled = all<CGDrawing::FillRect>(operations)[0].rect;
    EXPECT_EQ(filled, CGRectMake(100, 100, 20, 20));
    const CGRect onScreen =
        CGRectApplyAffineTransform(filled, all<CGDrawing::Concatenate>(operations)[0].transform);
    EXPECT_NEAR(onScreen.origin.x, 10, 1e-9);
    EXPECT_NEAR(onScreen.origin.y, 10, 1e-9);
    EXPECT_NEAR(onScreen.size.width, 20, 1e-9);
}

TEST_F(UIViewDrawingTest, AllocatesNothing) {
    for (int row = 0; row < 4; ++row) {
        const auto bar = makeView(CGRectMake(0, row * 25.0, 100, 20));
        for (int column = 0; column < 4; ++column) {
            const auto view = makeView(CGRectMake(column * 25.0, 0, 20, 20));
            view->addSubview(makeView(CGRectMake(5, 5, 50, 5)));
            bar->addSubview(view);
        }
        bar->setAlpha(0.5);
        host.window()->addSubview(bar);
    }
    NullContext context;
    UIView::animateWithDuration(1.0, 0.0, UIViewAnimationOptionCurveLinear, [&] {
        host.window()->subviews()[0]->setFrame(CGRectMake(0, 50, 100, 20));
        host.window()->subviews()[0]->setAlpha(0.0);
    });
    host.advance(0.5);
    host.window()->setNeedsDisplayEverywhere();
    const std::size_t before = allocationCount();
    host.window()->display(context);
    host.window()->subviews()[1]->setNeedsDisplay();
    host.window()->subviews()[2]->setAlpha(0.25);
    host.window()->subviews()[3]->setCenter({3, 3});
    host.window()->display(context);
    EXPECT_EQ(allocationCount(), before);
    EXPECT_FALSE(host.window()->needsDisplay());

    host.clock().advance(0.1);
    const std::size_t beforeFrame = allocationCount();
    host.runLoop().turn();
    host.window()->display(context);
    EXPECT_EQ(allocationCount(), beforeFrame);
}

/// Where a view and what is in it reach, looked at anew.
CGRect reach(const UIView& view) {
    CGRect extent = view.bounds();
    for (const std::shared_ptr<UIView>& each : view.subviews()) {
        if (!view.clipsToBounds() && !each->isHidden() && each->alpha() > 0.0) {
            extent = CGRectUnion(extent, each->convertRectToView(reach(*each), view));
        }
    }
    return extent;
}

TEST_F(UIViewDrawingTest, ExtentIsRightWhateverHasChanged) {
    std::mt19937 random(20261122);
    const auto below = [&random](int bound) {
        return static_cast<int>(random() % static_cast<unsigned>(bound));
    };
    const auto rect = [&below] {
        return CGRectMake(below(80) - 20, below(80) - 20, below(40) + 1, below(40) + 1);
    };
    const auto top = makeView(CGRectMake(20, 20, 50, 50));
    top->setAlpha(0.5);
    add(top);
    std::vector<std::shared_ptr<UIView>> views{top};
    for (int index = 0; index < 12; ++index) {
        views.push_back(makeView(rect()));
        views[static_cast<std::size_t>(below(index + 1))]->addSubview(views.back());
    }
    for (int step = 0; step < 3000; ++step) {
        const auto& view = views[1 + static_cast<std::size_t>(below(12))];
        const auto& other = views[static_cast<std::size_t>(below(13))];
        switch (below(9)) {
        case 0:
            view->setFrame(rect());
            break;
        case 1:
            view->setBounds(rect());
            break;
        case 2:
            view->setTransform(CGAffineTransformMakeScale(1 + below(3), 1 + below(2)));
            break;
        case 3:
            view->setAlpha(below(2));
            break;
        case 4:
            view->setHidden(below(2) == 0);
            break;
        case 5:
            view->setClipsToBounds(below(2) == 0);
            break;
        case 6:
            if (!other->isDescendantOfView(*view)) {
                other->addSubview(view);
            }
            break;
        case 7:
            UIView::animateWithDuration(0.5, 0.0, UIKit::UIViewAnimationOptionCurveLinear, [&] {
                view->setFrame(rect());
                other->setAlpha(other == top ? 0.5 : below(2));
            });
            host.advance(0.25);
            host.advance(0.25);
            break;
        default:
            view->removeFromSuperview();
            break;
        }
        const auto groups = all<CGDrawing::BeginGroup>(drawEverything());
        ASSERT_FALSE(groups.empty());
        const CGRect expected = reach(*top);
        const CGRect extent = groups[0].bounds;
        ASSERT_NEAR(CGRectGetMinX(extent), CGRectGetMinX(expected), 1e-6) << step;
        ASSERT_NEAR(CGRectGetMinY(extent), CGRectGetMinY(expected), 1e-6) << step;
        ASSERT_NEAR(CGRectGetMaxX(extent), CGRectGetMaxX(expected), 1e-6) << step;
        ASSERT_NEAR(CGRectGetMaxY(extent), CGRectGetMaxY(expected), 1e-6) << step;
    }
}

} // namespace
