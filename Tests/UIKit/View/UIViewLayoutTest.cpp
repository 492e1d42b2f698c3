#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using namespace CoreGraphics;
using Foundation::make;
using UIKit::UIView;

/// Writes down when it is laid out, and does then what a test likes.
class LaidOutView : public UIView {
public:
    std::shared_ptr<Log> log;
    std::string name;
    std::function<void()> onLayout;

    CGSize sizeThatFits(const CGSize& /*size*/) const override { return {33.0, 44.0}; }

    void layoutSubviews() override {
        log->push_back(name);
        if (const auto call = onLayout) {
            call();
        }
    }
};

class UIViewLayoutTest : public testing::Test {
protected:
    std::shared_ptr<LaidOutView> makeLaidOut(const std::string& name,
                                             const CGRect& frame = CGRectMake(0, 0, 20, 20)) {
        auto view = make<LaidOutView>(frame);
        view->log = log;
        view->name = name;
        return view;
    }

    Log taken() { return std::exchange(*log, {}); }

    KivUICore::Headless::HeadlessHost host{{200, 100}};
    std::shared_ptr<Log> log = std::make_shared<Log>();
};

TEST_F(UIViewLayoutTest, NewSizeLeadsToTheNextPassHoweverItCame) {
    const auto view = makeLaidOut("view");
    host.window()->addSubview(view);
    host.draw();
    const std::vector<std::function<void()>> ways{[&] { view->setFrame(CGRectMake(0, 0, 30, 20)); },
                                                  [&] { view->setBounds(CGRectMake(0, 0, 30, 40)); },
                                                  [&] { view->sizeToFit(); },
                                                  [&] {
                                                      view->setTransform(CGAffineTransformMakeScale(2, 2));
                                                      view->setFrame(CGRectMake(0, 0, 10, 10));
                                                  },
                                                  [&] { view->setNeedsLayout(); }};
    for (std::size_t index = 0; index < ways.size(); ++index) {
        ways[index]();
        EXPECT_EQ(taken(), Log{}) << index << ": not before the pass";
        EXPECT_TRUE(host.window()->needsDisplay()) << index;
        host.draw();
        EXPECT_EQ(taken(), Log{"view"}) << index;
        EXPECT_FALSE(host.window()->needsDisplay()) << index;
    }
}

TEST_F(UIViewLayoutTest, NewPlaceOrLookLaysNothingOut) {
    const auto view = makeLaidOut("view");
    host.window()->addSubview(view);
    host.draw();
    view->setCenter({50, 50});
    view->setAlpha(0.5);
    view->setTransform(CGAffineTransformMakeScale(2, 2));
    host.draw();
    EXPECT_EQ(taken(), Log{});
}

TEST_F(UIViewLayoutTest, OuterViewsComeFirstAndEachOnce) {
    const auto outer = makeLaidOut("outer");
    const auto inner = makeLaidOut("inner");
    const auto other = makeLaidOut("other");
    outer->addSubview(inner);
    outer->addSubview(other);
    host.window()->addSubview(outer);
    outer->onLayout = [&] { inner->setFrame(CGRectMake(0, 0, outer->bounds().size.width, 5)); };
    inner->setNeedsLayout();
    outer->setFrame(CGRectMake(0, 0, 60, 60));
    outer->setFrame(CGRectMake(0, 0, 70, 70));
    host.draw();
    EXPECT_EQ(taken(), (Log{"outer", "inner"}));
    EXPECT_EQ(inner->frame(), CGRectMake(0, 0, 70, 5));
}

TEST_F(UIViewLayoutTest, WhatIsMarkedInThePassIsLaidOutInItToo) {
    const auto outer = makeLaidOut("outer");
    const auto inner = makeLaidOut("inner");
    outer->addSubview(inner);
    host.window()->addSubview(outer);
    int asked = 0;
    inner->onLayout = [&] {
        if (++asked == 1) {
            outer->setNeedsLayout();
        }
    };
    inner->setNeedsLayout();
    host.draw();
    EXPECT_EQ(taken(), (Log{"inner", "outer"}));
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(UIViewLayoutTest, ViewThatMarksItselfEachTimeHoldsUpNoPass) {
    const auto view = makeLaidOut("view");
    host.window()->addSubview(view);
    view->onLayout = [&] { view->setNeedsLayout(); };
    view->setNeedsLayout();
    host.draw();
    EXPECT_LE(taken().size(), 10u);
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(UIViewLayoutTest, ViewThatComesIntoAWindowMarkedIsLaidOutThere) {
    const auto holder = make<UIView>(CGRectMake(0, 0, 50, 50));
    const auto view = makeLaidOut("view");
    holder->addSubview(view);
    view->setNeedsLayout();
    host.window()->addSubview(holder);
    host.draw();
    EXPECT_EQ(taken(), Log{"view"});
}

TEST_F(UIViewLayoutTest, PartOfATreeCanBeLaidOutAtOnce) {
    const auto first = makeLaidOut("first");
    const auto second = makeLaidOut("second");
    first->setNeedsLayout();
    second->setNeedsLayout();
    host.window()->addSubview(first);
    host.window()->addSubview(second);
    first->layoutIfNeeded();
    EXPECT_EQ(taken(), Log{"first"});
    first->layoutIfNeeded();
    EXPECT_EQ(taken(), Log{});
    host.draw();
    EXPECT_EQ(taken(), Log{"second"});
}

TEST_F(UIViewLayoutTest, TouchMeetsWhatIsLaidOut) {
    const auto view = makeLaidOut("view", CGRectMake(0, 0, 200, 100));
    const auto target = makeProbe(CGRectMake(0, 0, 10, 10));
    view->addSubview(target);
    host.window()->addSubview(view);
    view->onLayout = [&] { target->setFrame(CGRectMake(100, 50, 10, 10)); };
    view->setNeedsLayout();
    target->log->clear();
    host.tap({105, 55});
    EXPECT_EQ(*target->log, (Log{"began 0", "ended 0"}));
}

TEST_F(UIViewLayoutTest, ExceptionPassesThroughAndWhatIsLeftStaysMarked) {
    const auto first = makeLaidOut("first");
    const auto second = makeLaidOut("second");
    host.window()->addSubview(first);
    host.window()->addSubview(second);
    first->setNeedsLayout();
    second->setNeedsLayout();
    first->onLayout = [] { throw std::runtime_error("no place"); };
    EXPECT_THROW(host.draw(), std::runtime_error);
    EXPECT_EQ(taken(), Log{"first"});
    first->onLayout = nullptr;
    host.draw();
    EXPECT_EQ(taken(), (Log{"first", "second"}));
}

TEST_F(UIViewLayoutTest, LaidOutInAnAnimationTheSubviewsTravelAlong) {
    const auto view = makeLaidOut("view", CGRectMake(0, 0, 100, 20));
    const auto inner = makeView(CGRectMake(0, 0, 100, 20));
    view->addSubview(inner);
    host.window()->addSubview(view);
    view->onLayout = [&] { inner->setFrame(view->bounds()); };
    UIView::animateWithDuration(1.0, 0.0, UIKit::UIViewAnimationOptionCurveLinear, [&] {
        view->setFrame(CGRectMake(0, 0, 200, 20));
        view->layoutIfNeeded();
    });
    host.advance(0.5);
    EXPECT_EQ(inner->presentedFrame(), CGRectMake(0, 0, 150, 20));
}

TEST_F(UIViewLayoutTest, ViewMayTakeItselfOutWhileItIsLaidOut) {
    auto view = makeLaidOut("view");
    host.window()->addSubview(view);
    view->onLayout = [log = log, raw = view.get()] { raw->removeFromSuperview(); };
    view->setNeedsLayout();
    view.reset();
    host.draw();
    EXPECT_EQ(taken(), Log{"view"});
    EXPECT_TRUE(host.window()->subviews().empty());
}

TEST_F(UIViewLayoutTest, ViewThatLeavesItsPlaceInItsLayoutKeepsNobodyFromTheirs) {
    const std::vector<std::function<void(LaidOutView&)>> ways{
        [&](LaidOutView& view) { host.window()->bringSubviewToFront(view.superview()->subviews()[0]); },
        [](LaidOutView& view) { view.removeFromSuperview(); }};
    for (const auto& leave : ways) {
        const auto first = makeLaidOut("first");
        const auto holder = makeLaidOut("holder");
        const auto inside = makeLaidOut("inside");
        holder->addSubview(inside);
        host.window()->addSubview(first);
        host.window()->addSubview(holder);
        first->onLayout = [&] { leave(*first); };
        first->setNeedsLayout();
        inside->setNeedsLayout();
        host.draw();
        EXPECT_EQ(taken(), (Log{"first", "inside"}));
        EXPECT_FALSE(host.window()->needsDisplay());
        inside->setNeedsLayout();
        host.draw();
        EXPECT_EQ(taken(), Log{"inside"});
        first->removeFromSuperview();
        holder->removeFromSuperview();
    }
}

TEST_F(UIViewLayoutTest, ViewThatMovesAndThrowsStaysMarkedWhereItIs) {
    const auto before = make<UIView>(CGRectMake(0, 0, 50, 50));
    const auto after = make<UIView>(CGRectMake(0, 0, 50, 50));
    const auto view = makeLaidOut("view");
    before->addSubview(view);
    host.window()->addSubview(before);
    host.window()->addSubview(after);
    host.draw();
    view->onLayout = [&] {
        view->onLayout = nullptr;
        after->addSubview(view);
        throw std::runtime_error("no place");
    };
    view->setNeedsLayout();
    EXPECT_THROW(before->layoutIfNeeded(), std::runtime_error);
    host.draw();
    EXPECT_EQ(taken(), (Log{"view", "view"}));
}

TEST_F(UIViewLayoutTest, AskedForInsideAPassItIsDoneAtOnceToo) {
    const auto holder = makeLaidOut("holder");
    const auto first = makeLaidOut("first");
    const auto second = makeLaidOut("second");
    holder->addSubview(first);
    holder->addSubview(second);
    host.window()->addSubview(holder);
    first->onLayout = [&] {
        holder->layoutIfNeeded();
        log->push_back("first is done");
    };
    first->setNeedsLayout();
    second->setNeedsLayout();
    host.draw();
    EXPECT_EQ(taken(), (Log{"first", "second", "first is done"}));
}

TEST_F(UIViewLayoutTest, WindowMayGoInItsLayout) {
    const std::vector<std::function<void(UIKit::UIWindow&)>> ways{
        [](UIKit::UIWindow& window) {
            CGRecordingContext context({50, 50});
            window.display(context);
        },
        [](UIKit::UIWindow& window) {
            window.sendScroll({2, 2}, {0, 1});
        },
        [](UIKit::UIWindow& window) {
            window.sendTouch(0, UIKit::UITouchPhase::Began, {2, 2});
        }};
    for (const auto& use : ways) {
        auto window = make<UIKit::UIWindow>(CGRectMake(0, 0, 50, 50));
        const auto view = makeLaidOut("view");
        window->addSubview(view);
        view->onLayout = [&window] { window.reset(); };
        view->setNeedsLayout();
        UIKit::UIWindow& used = *window;
        use(used);
        EXPECT_EQ(window, nullptr);
        EXPECT_EQ(taken(), Log{"view"});
    }
}

TEST_F(UIViewLayoutTest, DisplayGivesBackWhatItDrewAlsoOfWhatMovedInItsLayout) {
    const auto view = makeLaidOut("view", CGRectMake(0, 0, 10, 10));
    view->setBackgroundColor(make<UIKit::UIColor>(1.0, 0.0, 0.0, 1.0));
    host.window()->addSubview(view);
    host.draw();
    view->onLayout = [&] { view->setFrame(CGRectMake(100, 50, 10, 10)); };
    view->setNeedsLayout();
    CGRecordingContext context({200, 100});
    const DamageRegion drawn = host.window()->display(context);
    EXPECT_TRUE(drawn.contains(CGRectMake(0, 0, 10, 10)));
    EXPECT_TRUE(drawn.contains(CGRectMake(100, 50, 10, 10)));
}

} // namespace
