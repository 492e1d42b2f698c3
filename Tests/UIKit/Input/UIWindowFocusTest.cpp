#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/Foundation/Message.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UILabel.h"
#include "Platform/UIKit/UISlider.h"
#include "Platform/UIKit/UITableView.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/UIKit/NullContext.h"
#include "Tests/UIKit/TestViews.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using KivUICore::Headless::HeadlessHost;
using testing::ElementsAre;
using testing::IsEmpty;

/// A probe that takes the focus.
class FocusView : public ProbeView {
public:
    bool takesFocus = true;
    std::function<void()> onGain;
    std::function<void()> onLoss;

    bool canBecomeFocused() const override { return takesFocus; }
    void didGainFocus() override { hearFocus(isFocused() ? "gained" : "gained and lost", onGain); }
    void didLoseFocus() override { hearFocus(isFocused() ? "lost and gained" : "lost", onLoss); }

private:
    void hearFocus(const std::string& what, const std::function<void()>& then) {
        log->push_back(name + what);
        if (const auto call = then) {
            call();
        }
    }
};

/// Two rows of two: `a`, `b` above `c`, `d`.
class UIWindowFocusTest : public testing::Test {
protected:
    UIWindowFocusTest() {
        // Not in reading order.
        for (const auto& each : {d, b, a, c}) {
            window.addSubview(each);
        }
        host.draw();
        log->clear();
    }

    std::shared_ptr<FocusView> makeFocusView(const CGRect& frame, const std::string& name) {
        auto view = make<FocusView>(frame);
        view->name = name;
        view->log = log;
        return view;
    }

    void focus(const std::shared_ptr<UIView>& view) {
        window.setFocusedView(view);
        ASSERT_EQ(window.focusedView(), view);
        host.draw();
        log->clear();
    }

    std::shared_ptr<FocusView> present() {
        auto modal = makeFocusView(CGRectMake(0, 0, 100, 100), "modal ");
        modal->takesFocus = false;
        inModal = makeFocusView(CGRectMake(10, 10, 10, 10), "inside ");
        modal->addSubview(inModal);
        window.addModalView(modal, window.subviews().front());
        return modal;
    }

    HeadlessHost host{{100, 100}};
    UIWindow& window = *host.window();
    std::shared_ptr<Log> log = std::make_shared<Log>();
    std::shared_ptr<FocusView> a = makeFocusView(CGRectMake(0, 0, 20, 20), "a ");
    std::shared_ptr<FocusView> b = makeFocusView(CGRectMake(50, 2, 20, 20), "b ");
    std::shared_ptr<FocusView> c = makeFocusView(CGRectMake(0, 50, 20, 20), "c ");
    std::shared_ptr<FocusView> d = makeFocusView(CGRectMake(50, 50, 20, 20), "d ");
    std::shared_ptr<FocusView> inModal;
    const UIKey key{UIKeyboardHIDUsage::None, "m", false};
};

// Having it

TEST_F(UIWindowFocusTest, NobodyHasItAtFirst) {
    EXPECT_EQ(window.focusedView(), nullptr);
    EXPECT_FALSE(a->isFocused());
}

TEST_F(UIWindowFocusTest, TheOneWhoLosesItHearsOfThatFirst) {
    window.setFocusedView(a);
    window.setFocusedView(b);
    EXPECT_EQ(window.focusedView(), b);
    EXPECT_TRUE(b->isFocused());
    EXPECT_FALSE(a->isFocused());
    window.setFocusedView(nullptr);
    EXPECT_THAT(*log, ElementsAre("a gained", "a lost", "b gained", "b lost"));
}

TEST_F(UIWindowFocusTest, SettingItToWhereItIsTellsNobody) {
    focus(a);
    window.setFocusedView(a);
    EXPECT_THAT(*log, IsEmpty());
}

TEST_F(UIWindowFocusTest, AViewIsDrawnAgainWhenItComesAndGoes) {
    window.setFocusedView(a);
    EXPECT_TRUE(window.damage().contains(a->frame()));
    host.draw();
    window.setFocusedView(b);
    EXPECT_TRUE(window.damage().contains(a->frame()));
    EXPECT_TRUE(window.damage().contains(b->frame()));
    EXPECT_FALSE(window.damage().contains(c->frame()));
}

TEST_F(UIWindowFocusTest, AViewThatCannotHaveItDoesNotGetIt) {
    focus(b);
    const auto expectRefused = [&](const std::shared_ptr<UIView>& view) {
        EXPECT_FALSE(view->isFocusable());
        window.setFocusedView(view);
        EXPECT_EQ(window.focusedView(), b);
    };
    a->takesFocus = false;
    expectRefused(a);
    a->takesFocus = true;
    a->setHidden(true);
    expectRefused(a);
    a->setHidden(false);
    a->setAlpha(0.009);
    expectRefused(a);
    a->setAlpha(1.0);
    a->setUserInteractionEnabled(false);
    expectRefused(a);
    a->setUserInteractionEnabled(true);
    a->removeFromSuperview();
    expectRefused(a);
    EXPECT_TRUE(b->isFocusable());
}

TEST_F(UIWindowFocusTest, WhatIsInsideAViewThatCannotDoesNotGetItEither) {
    const auto inner = makeFocusView(CGRectMake(0, 0, 5, 5), "inner ");
    a->takesFocus = false;
    a->addSubview(inner);
    EXPECT_TRUE(inner->isFocusable()) << "being no candidate itself says nothing of what is inside";
    a->setHidden(true);
    EXPECT_FALSE(inner->isFocusable());
    a->setHidden(false);
    a->setAlpha(0.0);
    EXPECT_FALSE(inner->isFocusable());
    const auto control = make<UIControl>(CGRectMake(0, 80, 20, 20));
    window.addSubview(control);
    control->addSubview(inner);
    EXPECT_TRUE(inner->isFocusable());
    control->setEnabled(false);
    EXPECT_FALSE(inner->isFocusable());
}

TEST_F(UIWindowFocusTest, ControlsTakeItWhileEnabledAndTablesDo) {
    for (const auto& control : {std::shared_ptr<UIControl>(make<UIButton>()), make<UIControl>(CGRect{}),
                                std::shared_ptr<UIControl>(make<UISlider>())}) {
        EXPECT_TRUE(control->canBecomeFocused());
        control->setEnabled(false);
        EXPECT_FALSE(control->canBecomeFocused());
    }
    EXPECT_TRUE(make<UITableView>()->canBecomeFocused());
    EXPECT_FALSE(make<UIView>()->canBecomeFocused());
    EXPECT_FALSE(make<UILabel>()->canBecomeFocused());
}

TEST_F(UIWindowFocusTest, AViewOfAnotherWindowDoesNotGetIt) {
    HeadlessHost other({50, 50});
    other.window()->setFocusedView(a);
    EXPECT_EQ(other.window()->focusedView(), nullptr);
}

// Losing it

TEST_F(UIWindowFocusTest, AViewThatIsTakenOutHearsAtOnceThatItLostIt) {
    focus(a);
    a->removeFromSuperview();
    EXPECT_THAT(*log, ElementsAre("a out", "a lost"));
    EXPECT_EQ(window.focusedView(), nullptr);
    window.addSubview(a);
    host.draw();
    EXPECT_FALSE(a->isFocused());
}

TEST_F(UIWindowFocusTest, AViewGoesWithThoseAroundItAndLosesIt) {
    const auto inner = makeFocusView(CGRectMake(0, 0, 5, 5), "inner ");
    a->addSubview(inner);
    focus(inner);
    a->removeFromSuperview();
    EXPECT_THAT(*log, ElementsAre("a out", "inner out", "inner lost"));
}

TEST_F(UIWindowFocusTest, AViewThatCannotHaveItAnyMoreHasLostItAndHearsBeforeTheNextFrame) {
    const std::function<void(bool)> losses[] = {
        [&](bool loses) { a->setHidden(loses); }, [&](bool loses) { a->setAlpha(loses ? 0.0 : 1.0); },
        [&](bool loses) { a->setUserInteractionEnabled(!loses); },
        [&](bool loses) { a->takesFocus = !loses; }, [&](bool loses) { window.setHidden(loses); }};
    for (const auto& lose : losses) {
        focus(a);
        lose(true);
        EXPECT_FALSE(a->isFocused());
        EXPECT_EQ(window.focusedView(), nullptr);
        EXPECT_TRUE(window.needsDisplay());
        host.draw();
        EXPECT_THAT(*log, ElementsAre("a lost"));
        lose(false);
        host.draw();
        EXPECT_FALSE(a->isFocused()) << "it is lost, not kept";
        EXPECT_FALSE(window.needsDisplay());
    }
}

TEST_F(UIWindowFocusTest, AKeyFindsNobodyWhoLostIt) {
    focus(a);
    a->setHidden(true);
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_THAT(*log, ElementsAre("a lost"));
}

TEST_F(UIWindowFocusTest, AViewThatIsHiddenForNoFrameKeepsIt) {
    focus(a);
    a->setHidden(true);
    a->setHidden(false);
    host.draw();
    EXPECT_TRUE(a->isFocused());
    EXPECT_THAT(*log, IsEmpty());
}

TEST_F(UIWindowFocusTest, AViewThatIsPutIntoAnotherWindowLosesIt) {
    HeadlessHost other({50, 50});
    focus(a);
    other.window()->addSubview(a);
    EXPECT_FALSE(a->isFocused());
    host.draw();
    EXPECT_THAT(*log, ElementsAre("a out", "a lost", "a in"));
}

TEST_F(UIWindowFocusTest, ItIsHeldWeakly) {
    focus(a);
    const std::weak_ptr<FocusView> weak = a;
    a->removeFromSuperview();
    a.reset();
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(window.focusedView(), nullptr);
}

TEST_F(UIWindowFocusTest, AWindowThatEndsTakesItAway) {
    auto own = std::make_unique<HeadlessHost>(CGSizeMake(50, 50));
    own->window()->addSubview(a);
    own->window()->setFocusedView(a);
    log->clear();
    own.reset();
    EXPECT_THAT(*log, ElementsAre("a lost", "a out"));
    EXPECT_FALSE(a->isFocused());
}

// Moving it

TEST_F(UIWindowFocusTest, NextAndPreviousGoInReadingOrderAndRound) {
    std::vector<std::shared_ptr<UIView>> seen;
    for (int step = 0; step < 5; ++step) {
        EXPECT_TRUE(window.focusNextView());
        seen.push_back(window.focusedView());
    }
    EXPECT_THAT(seen, ElementsAre(a, b, c, d, a));
    seen.clear();
    for (int step = 0; step < 4; ++step) {
        EXPECT_TRUE(window.focusPreviousView());
        seen.push_back(window.focusedView());
    }
    EXPECT_THAT(seen, ElementsAre(d, c, b, a));
}

TEST_F(UIWindowFocusTest, WithoutItPreviousIsTheLast) {
    EXPECT_TRUE(window.focusPreviousView());
    EXPECT_EQ(window.focusedView(), d);
}

TEST_F(UIWindowFocusTest, PassesOverWhatCannotHaveIt) {
    focus(a);
    b->setHidden(true);
    window.focusNextView();
    EXPECT_EQ(window.focusedView(), c);
}

TEST_F(UIWindowFocusTest, WithNobodyElseToGetItItStays) {
    for (const auto& each : {b, c, d}) {
        each->removeFromSuperview();
    }
    focus(a);
    EXPECT_FALSE(window.focusNextView());
    EXPECT_FALSE(window.focusPreviousView());
    EXPECT_FALSE(window.moveFocus(UIFocusHeading::Down));
    EXPECT_TRUE(a->isFocused());
    a->removeFromSuperview();
    EXPECT_FALSE(window.focusNextView());
    EXPECT_FALSE(window.moveFocus(UIFocusHeading::Down));
}

TEST_F(UIWindowFocusTest, AHeadingLeadsToTheNearestAndNotRound) {
    EXPECT_TRUE(window.moveFocus(UIFocusHeading::Up));
    EXPECT_EQ(window.focusedView(), a) << "the first where there was none";
    EXPECT_TRUE(window.moveFocus(UIFocusHeading::Right));
    EXPECT_EQ(window.focusedView(), b);
    EXPECT_TRUE(window.moveFocus(UIFocusHeading::Down));
    EXPECT_EQ(window.focusedView(), d);
    EXPECT_TRUE(window.moveFocus(UIFocusHeading::Left));
    EXPECT_EQ(window.focusedView(), c);
    EXPECT_FALSE(window.moveFocus(UIFocusHeading::Left));
    EXPECT_EQ(window.focusedView(), c);
}

TEST_F(UIWindowFocusTest, PlacesAreThoseInTheWindow) {
    const auto group = make<UIView>(CGRectMake(0, 80, 100, 20));
    window.addSubview(group);
    group->addSubview(a);
    focus(d);
    window.focusNextView();
    EXPECT_EQ(window.focusedView(), a) << "its place in the group is that of the first";
}

// Keys

TEST_F(UIWindowFocusTest, KeysGoToTheFocusedViewAndThoseAroundItFirst) {
    const auto inner = makeFocusView(CGRectMake(0, 0, 5, 5), "inner ");
    a->addSubview(inner);
    focus(inner);
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_THAT(*log, ElementsAre("inner key m", "a key m"));
    log->clear();
    inner->onKey = [](const UIKey&) { return true; };
    EXPECT_TRUE(window.sendKey(key));
    EXPECT_THAT(*log, ElementsAre("inner key m"));
}

TEST_F(UIWindowFocusTest, InAModalViewTheFocusedOneComesFirstAndEachIsAskedOnce) {
    const auto modal = present();
    const auto beside = makeFocusView(CGRectMake(30, 10, 10, 10), "beside ");
    modal->addSubview(beside);
    focus(inModal);
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_THAT(*log, ElementsAre("inside key m", "beside key m", "modal key m"));
}

TEST_F(UIWindowFocusTest, AViewThatAKeyTakesOutPassesItOnToNobodyAroundIt) {
    const auto inner = makeFocusView(CGRectMake(0, 0, 5, 5), "inner ");
    a->addSubview(inner);
    focus(inner);
    inner->onKey = [&](const UIKey&) {
        inner->removeFromSuperview();
        return false;
    };
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_THAT(*log, ElementsAre("inner key m", "inner out", "inner lost"));
}

// Modal views

TEST_F(UIWindowFocusTest, AModalViewKeepsItToItselfAndGivesItBack) {
    focus(a);
    const auto modal = present();
    EXPECT_EQ(window.focusedView(), nullptr);
    window.setFocusedView(b);
    EXPECT_EQ(window.focusedView(), nullptr);
    EXPECT_TRUE(window.focusNextView());
    EXPECT_EQ(window.focusedView(), inModal);
    EXPECT_FALSE(window.focusNextView());
    log->clear();
    modal->removeFromSuperview();
    EXPECT_EQ(window.focusedView(), a);
    EXPECT_THAT(*log, ElementsAre("modal out", "inside out", "inside lost", "a gained"));
}

TEST_F(UIWindowFocusTest, AModalViewThatTakesNoTouchesGivesItBackBeforeTheNextFrame) {
    focus(a);
    const auto modal = present();
    focus(inModal);
    modal->setUserInteractionEnabled(false);
    EXPECT_TRUE(a->isFocused());
    EXPECT_TRUE(window.needsDisplay());
    host.draw();
    EXPECT_THAT(*log, ElementsAre("inside lost", "a gained"));
}

TEST_F(UIWindowFocusTest, EachModalViewHasOneOfItsOwn) {
    focus(a);
    const auto first = present();
    const auto inFirst = inModal;
    focus(inFirst);
    const auto second = present();
    focus(inModal);
    first->removeFromSuperview();
    EXPECT_EQ(window.focusedView(), inModal);
    second->removeFromSuperview();
    EXPECT_EQ(window.focusedView(), a);
}

TEST_F(UIWindowFocusTest, AViewThatWentMeanwhileIsNotGivenItBack) {
    focus(a);
    const auto modal = present();
    a->setHidden(true);
    modal->removeFromSuperview();
    EXPECT_EQ(window.focusedView(), nullptr);
}

// Callbacks

TEST_F(UIWindowFocusTest, WhoLosesItMaySendItElsewhere) {
    focus(a);
    a->onLoss = [&] { window.setFocusedView(c); };
    window.setFocusedView(b);
    EXPECT_THAT(*log, ElementsAre("a lost", "c gained"));
    EXPECT_EQ(window.focusedView(), c);
}

TEST_F(UIWindowFocusTest, WhoGainsItMaySendItOn) {
    b->onGain = [&] { window.setFocusedView(c); };
    window.setFocusedView(b);
    EXPECT_THAT(*log, ElementsAre("b gained", "b lost", "c gained"));
}

TEST_F(UIWindowFocusTest, WhoLosesItMayTakeTheNextOneOut) {
    focus(a);
    a->onLoss = [&] { b->removeFromSuperview(); };
    window.setFocusedView(b);
    EXPECT_THAT(*log, ElementsAre("a lost", "b out"));
    EXPECT_EQ(window.focusedView(), nullptr);
}

TEST_F(UIWindowFocusTest, HearingOfItMayEndTheWindow) {
    for (const bool isGain : {true, false}) {
        auto own = std::make_unique<HeadlessHost>(CGSizeMake(50, 50));
        const auto view = makeFocusView(CGRectMake(0, 0, 10, 10), "");
        const auto other = makeFocusView(CGRectMake(20, 0, 10, 10), "");
        own->window()->addSubview(view);
        own->window()->addSubview(other);
        (isGain ? view->onGain : view->onLoss) = [&] { own.reset(); };
        own->window()->focusNextView();
        if (own) {
            own->window()->focusNextView();
        }
        EXPECT_EQ(own, nullptr);
        EXPECT_EQ(view->window(), nullptr);
        EXPECT_FALSE(other->isFocused());
    }
}

TEST_F(UIWindowFocusTest, AKeyMayEndTheWindow) {
    auto own = std::make_unique<HeadlessHost>(CGSizeMake(50, 50));
    const auto outer = makeFocusView(CGRectMake(0, 0, 20, 20), "outer ");
    const auto view = makeFocusView(CGRectMake(0, 0, 10, 10), "");
    outer->addSubview(view);
    own->window()->addSubview(outer);
    own->window()->setFocusedView(view);
    view->onKey = [&](const UIKey&) {
        own.reset();
        return false;
    };
    EXPECT_FALSE(own->window()->sendKey(key));
    EXPECT_EQ(own, nullptr);
    EXPECT_EQ(outer->window(), nullptr);
}

TEST_F(UIWindowFocusTest, AfterAnExceptionItIsWhereItWasToGo) {
    focus(a);
    a->onLoss = [] { throw std::runtime_error("mishap"); };
    EXPECT_THROW(window.setFocusedView(b), std::runtime_error);
    EXPECT_TRUE(b->isFocused());
    EXPECT_TRUE(window.needsDisplay()) << "it has not heard yet";
    host.draw();
    EXPECT_THAT(*log, ElementsAre("a lost", "b gained"));
}

TEST_F(UIWindowFocusTest, CallbacksRunInTheTimeOfTheWindow) {
    HeadlessHost later({50, 50});
    Foundation::NSRunLoop* seen = nullptr;
    a->onGain = a->onLoss = [&] { seen = &Foundation::NSRunLoop::currentRunLoop(); };
    window.focusNextView();
    EXPECT_EQ(seen, &host.runLoop());
    seen = nullptr;
    window.setFocusedView(nullptr);
    EXPECT_EQ(seen, &host.runLoop());
}

TEST_F(UIWindowFocusTest, AFrameWithAFocusedViewAllocatesNothing) {
    present();
    focus(inModal);
    NullContext context;
    window.setNeedsDisplayEverywhere();
    const std::size_t before = allocationCount();
    window.display(context);
    EXPECT_FALSE(window.needsDisplay());
    EXPECT_EQ(allocationCount(), before);
}

TEST_F(UIWindowFocusTest, IsReachedByName) {
    window.send("setFocusedView:", std::shared_ptr<UIView>(a));
    EXPECT_TRUE(a->send<bool>("focused"));
    EXPECT_TRUE(a->send<bool>("canBecomeFocused"));
    EXPECT_TRUE(window.send<bool>("focusNextView"));
    EXPECT_EQ(window.send<std::shared_ptr<UIView>>("focusedView"), b);
    EXPECT_TRUE(window.send<bool>("focusPreviousView"));
    EXPECT_TRUE(window.send<bool>("moveFocus:", UIFocusHeading::Down));
    EXPECT_EQ(window.focusedView(), c);
    EXPECT_FALSE(window.send<bool>("focusable"));
}

} // namespace
