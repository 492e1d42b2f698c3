#include "Platform/UIKit/UIView.h"

#include "Platform/Foundation/Message.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

using Views = std::vector<std::shared_ptr<UIView>>;

std::shared_ptr<UIView> plain() { return make<UIView>(CGRectMake(0, 0, 10, 10)); }

class UIViewTest : public testing::Test {
protected:
    KivUICore::Headless::VirtualClock clock;
    Foundation::NSRunLoop loop{clock};
    std::shared_ptr<UIWindow> window = make<UIWindow>(CGRectMake(0, 0, 100, 100));
    std::shared_ptr<UIView> parent = make<UIView>(CGRectMake(0, 0, 100, 100));
};

using UIViewDeathTest = UIViewTest;

// What a view starts as

TEST_F(UIViewTest, StartsVisibleAndBare) {
    const auto view = make<UIView>();
    EXPECT_EQ(view->frame(), CGRect{});
    EXPECT_EQ(view->alpha(), 1.0);
    EXPECT_FALSE(view->isHidden());
    EXPECT_FALSE(view->isOpaque());
    EXPECT_FALSE(view->clipsToBounds());
    EXPECT_TRUE(view->isUserInteractionEnabled());
    EXPECT_EQ(view->backgroundColor(), nullptr);
    EXPECT_EQ(view->autoresizingMask(), UIViewAutoresizingNone);
    EXPECT_EQ(view->superview(), nullptr);
    EXPECT_EQ(view->window(), nullptr);
    EXPECT_TRUE(view->subviews().empty());
}

TEST_F(UIViewTest, PropertiesAreReadAsTheyWereSet) {
    const auto view = plain();
    const auto color = make<UIColor>(0.5, 0.5);
    view->setAlpha(1.5);
    view->setHidden(true);
    view->setOpaque(true);
    view->setClipsToBounds(true);
    view->setUserInteractionEnabled(false);
    view->setBackgroundColor(color);
    view->setAutoresizingMask(63);
    EXPECT_EQ(view->alpha(), 1.5);
    EXPECT_TRUE(view->isHidden());
    EXPECT_TRUE(view->isOpaque());
    EXPECT_TRUE(view->clipsToBounds());
    EXPECT_FALSE(view->isUserInteractionEnabled());
    EXPECT_EQ(view->backgroundColor(), color);
    EXPECT_EQ(view->autoresizingMask(), 63u);
    view->setBackgroundColor(make<UIColor>(0.5, 0.5));
    EXPECT_NE(view->backgroundColor(), color);
    view->setBackgroundColor(nullptr);
    EXPECT_EQ(view->backgroundColor(), nullptr);
}

TEST_F(UIViewTest, PropertiesAreReachedByName) {
    const std::shared_ptr<UIView> view = plain();
    view->send("setFrame:", CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(view->send<CGRect>("frame"), CGRectMake(1, 2, 3, 4));
    view->send("setAlpha:", 0.25);
    EXPECT_EQ(view->alpha(), 0.25);
    view->send("addSubview:", plain());
    EXPECT_EQ(view->subviews().size(), 1u);
    EXPECT_EQ(view->subviews()[0]->send<std::shared_ptr<UIView>>("superview"), view);
    view->subviews()[0]->send("removeFromSuperview");
    EXPECT_TRUE(view->subviews().empty());
}

// Geometry

TEST_F(UIViewTest, FrameBoundsCentreAndTransformAgree) {
    const auto view = make<UIView>(CGRectMake(10, 20, 30, 40));
    view->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    EXPECT_EQ(view->frame(), CGRectMake(17.5, 30, 15, 20));
    EXPECT_EQ(view->center(), CGPointMake(25, 40));
    view->setFrame(CGRectMake(0, 0, 30, 40));
    EXPECT_EQ(view->center(), CGPointMake(15, 20));
    EXPECT_EQ(view->bounds(), CGRectMake(0, 0, 60, 80));
    view->setCenter({0, 0});
    EXPECT_EQ(view->frame(), CGRectMake(-15, -20, 30, 40));
    view->setBounds(CGRectMake(0, 0, 20, 20));
    EXPECT_EQ(view->frame(), CGRectMake(-5, -5, 10, 10));
}

TEST_F(UIViewTest, SizeToFitKeepsTheCorner) {
    class Fitting : public UIView {
    public:
        CGSize sizeThatFits(const CGSize& /*size*/) const override { return {44, 22}; }
    };
    const auto view = make<Fitting>(CGRectMake(10, 20, 0, 0));
    view->sizeToFit();
    EXPECT_EQ(view->frame(), CGRectMake(10, 20, 44, 22));
    const auto indifferent = make<UIView>(CGRectMake(10, 20, 30, 40));
    indifferent->sizeToFit();
    EXPECT_EQ(indifferent->frame(), CGRectMake(10, 20, 30, 40));
}

// The tree

TEST_F(UIViewTest, SubviewsAreOrderedFromBackToFront) {
    const auto a = plain();
    const auto b = plain();
    const auto c = plain();
    parent->addSubview(a);
    parent->addSubview(b);
    parent->insertSubview(c, 1);
    EXPECT_EQ(parent->subviews(), (Views{a, c, b}));
    EXPECT_EQ(a->superview(), parent);
    parent->insertSubview(b, 0);
    EXPECT_EQ(parent->subviews(), (Views{b, a, c}));
    parent->insertSubview(b, 99);
    EXPECT_EQ(parent->subviews(), (Views{a, c, b}));
}

TEST_F(UIViewTest, AddingAgainMovesToTheTop) {
    const auto a = plain();
    const auto b = plain();
    parent->addSubview(a);
    parent->addSubview(b);
    parent->addSubview(a);
    EXPECT_EQ(parent->subviews(), (Views{b, a}));
    parent->addSubview(parent->subviews()[0]);
    EXPECT_EQ(parent->subviews(), (Views{a, b}));
}

TEST_F(UIViewTest, AddingElsewhereTakesOut) {
    const auto other = plain();
    const auto view = plain();
    parent->addSubview(view);
    other->addSubview(view);
    EXPECT_TRUE(parent->subviews().empty());
    EXPECT_EQ(other->subviews(), Views{view});
    EXPECT_EQ(view->superview(), other);
}

TEST_F(UIViewTest, BringingToTheFrontAndSendingToTheBackReorder) {
    const auto a = plain();
    const auto b = plain();
    const auto c = plain();
    for (const auto& view : {a, b, c}) {
        parent->addSubview(view);
    }
    parent->bringSubviewToFront(a);
    EXPECT_EQ(parent->subviews(), (Views{b, c, a}));
    parent->sendSubviewToBack(c);
    EXPECT_EQ(parent->subviews(), (Views{c, b, a}));
    parent->bringSubviewToFront(plain());
    parent->sendSubviewToBack(nullptr);
    EXPECT_EQ(parent->subviews(), (Views{c, b, a}));
}

TEST_F(UIViewTest, RemovalEndsTheRelation) {
    const auto view = plain();
    parent->addSubview(view);
    view->removeFromSuperview();
    EXPECT_EQ(view->superview(), nullptr);
    EXPECT_TRUE(parent->subviews().empty());
    view->removeFromSuperview();
}

TEST_F(UIViewTest, RemovingTheLastReferenceTearsDown) {
    parent->addSubview(plain());
    const std::weak_ptr<UIView> view = parent->subviews()[0];
    parent->subviews()[0]->removeFromSuperview();
    EXPECT_TRUE(view.expired());
}

TEST_F(UIViewTest, SuperviewIsWeak) {
    const auto view = plain();
    parent->addSubview(view);
    const std::weak_ptr<UIView> superview = parent;
    parent.reset();
    EXPECT_TRUE(superview.expired());
    EXPECT_EQ(view->superview(), nullptr);
    view->removeFromSuperview();
}

TEST_F(UIViewTest, SuperviewThatIsBeingTornDownIsNone) {
    const auto view = plain();
    auto probe = makeProbe({});
    probe->addSubview(view);
    bool hadNone = false;
    probe->onTearDown = [&] { hadNone = view->superview() == nullptr && view->window() == nullptr; };
    probe.reset();
    EXPECT_TRUE(hadNone);
}

TEST_F(UIViewTest, KnowsItsWindowAndWhatItIsIn) {
    const auto view = plain();
    parent->addSubview(view);
    EXPECT_EQ(view->window(), nullptr);
    window->addSubview(parent);
    EXPECT_EQ(view->window(), window);
    EXPECT_EQ(window->window(), window);
    EXPECT_TRUE(view->isDescendantOfView(*view));
    EXPECT_TRUE(view->isDescendantOfView(*window));
    EXPECT_FALSE(parent->isDescendantOfView(*view));
}

TEST_F(UIViewDeathTest, ThereAreNoCycles) {
    const auto view = plain();
    parent->addSubview(view);
    EXPECT_DEATH(parent->addSubview(parent), "Fatal error: Adding a view of class 'UIKit.UIView' to itself");
    EXPECT_DEATH(view->addSubview(parent), "Fatal error: Adding a view of class 'UIKit.UIView' to itself");
    EXPECT_DEATH(parent->addSubview(nullptr),
                 "Fatal error: No view for 'addSubview:' of class 'UIKit.UIView'");
    EXPECT_DEATH(parent->insertSubview(nullptr, 0),
                 "Fatal error: No view for 'insertSubview:atIndex:' of class 'UIKit.UIView'");
}

TEST_F(UIViewDeathTest, WindowIsNobodysSubview) {
    EXPECT_DEATH(window->addSubview(window), "Fatal error: Adding a window");
    EXPECT_DEATH(parent->addSubview(window), "Fatal error: Adding a window");
}

// Coming into a window

TEST_F(UIViewTest, EachViewHearsOnceOfItsNewWindow) {
    const auto outer = makeProbe({}, "outer ");
    const auto inner = makeProbe({}, "inner ");
    inner->log = outer->log;
    outer->addSubview(inner);
    EXPECT_EQ(*outer->log, Log{});
    window->addSubview(outer);
    EXPECT_EQ(*outer->log, (Log{"outer in", "inner in"}));
    window->addSubview(outer);
    window->bringSubviewToFront(outer);
    EXPECT_EQ(outer->log->size(), 2u);
    outer->removeFromSuperview();
    EXPECT_EQ(*outer->log, (Log{"outer in", "inner in", "outer out", "inner out"}));
}

TEST_F(UIViewTest, SubviewAddedWhileComingIntoAWindowHearsOnce) {
    const auto outer = makeProbe({});
    const auto inner = makeProbe({});
    outer->onWindow = [&] { outer->addSubview(inner); };
    window->addSubview(outer);
    outer->onWindow = nullptr;
    EXPECT_EQ(*inner->log, Log{"in"});
}

TEST_F(UIViewTest, SubviewTakenOutWhileComingIntoAWindowHearsNothingOfIt) {
    const auto outer = makeProbe({});
    const auto inner = makeProbe({});
    outer->addSubview(inner);
    outer->onWindow = [&] { inner->removeFromSuperview(); };
    window->addSubview(outer);
    outer->onWindow = nullptr;
    EXPECT_EQ(inner->window(), nullptr);
    EXPECT_EQ(*inner->log, Log{"out"});
}

TEST_F(UIViewTest, ViewThatLeavesAgainAtOnceTakesItsSubviewsAlong) {
    const auto outer = makeProbe({});
    const auto inner = makeProbe({});
    outer->addSubview(inner);
    outer->onWindow = [&] {
        outer->onWindow = nullptr;
        outer->removeFromSuperview();
    };
    window->addSubview(outer);
    EXPECT_EQ(*outer->log, (Log{"in", "out"}));
    EXPECT_EQ(*inner->log, Log{"out"});
}

TEST_F(UIViewTest, ViewThatOutlivesItsWindowHearsThatItHasNone) {
    const auto view = makeProbe({});
    parent->addSubview(view);
    window->addSubview(parent);
    window.reset();
    EXPECT_EQ(view->window(), nullptr);
    EXPECT_EQ(*view->log, (Log{"in", "out"}));
}

TEST_F(UIViewTest, AddingWinsOverWhatRemovalStirsUp) {
    const auto view = makeProbe(CGRectMake(0, 0, 10, 10));
    const auto first = plain();
    const auto thief = plain();
    window->addSubview(first);
    window->addSubview(thief);
    window->addSubview(parent);
    first->addSubview(view);
    view->onWindow = [&] {
        view->onWindow = nullptr;
        thief->addSubview(view);
    };
    parent->addSubview(view);
    EXPECT_EQ(view->superview(), parent);
    EXPECT_TRUE(first->subviews().empty());
    EXPECT_TRUE(thief->subviews().empty());
    EXPECT_EQ(parent->subviews(), Views{view});
}

} // namespace
