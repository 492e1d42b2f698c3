#include "Platform/Foundation/NSTimer.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIPopoverPresentationController.h"
#include "Platform/UIKit/UISlider.h"
#include "Platform/UIKit/UIViewController.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/ControlTestSupport.h"
#include "Tests/UIKit/NullContext.h"
#include "Tests/UIKit/TableTestSupport.h"
#include "Tests/UIKit/TestViews.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using testing::ElementsAre;

/// What an application's callbacks throw here.
struct Mishap {};

[[noreturn]] void fail() { throw Mishap(); }

/// Whatever an application throws passes through to the host, and everything can be used afterwards.
class ExceptionTest : public testing::Test {
protected:
    std::shared_ptr<ProbeView> addProbe(const std::string& name = "") {
        auto view = makeProbe(CGRectMake(0, 0, 100, 40), name);
        host.window()->addSubview(view);
        return view;
    }

    KivUICore::Headless::HeadlessHost host{{320, 240}};
};

// Animations

TEST_F(ExceptionTest, AfterOneInsideAnimationsPlainChangesShowAtOnce) {
    const auto view = addProbe();
    EXPECT_THROW(UIView::animateWithDuration(1.0, 0.0, UIViewAnimationOptionCurveLinear, fail), Mishap);
    host.draw();
    view->setAlpha(0.5);
    EXPECT_TRUE(host.window()->needsDisplay());
}

TEST_F(ExceptionTest, WhatWasAnimatedBeforeOneTravelsAndCompletes) {
    const auto view = makeView(CGRectMake(0, 0, 100, 40));
    host.window()->addSubview(view);
    int completions = 0;
    EXPECT_THROW(UIView::animateWithDuration(
                     1.0, 0.0, UIViewAnimationOptionCurveLinear,
                     [&] {
                         view->setFrame(CGRectMake(100, 0, 100, 40));
                         fail();
                     },
                     [&completions](bool /*finished*/) { ++completions; }),
                 Mishap);
    host.draw();
    host.advance(0.5);
    EXPECT_TRUE(host.window()->needsDisplay());
    EXPECT_EQ(completions, 0);
    host.advance(1.0);
    EXPECT_EQ(completions, 1);
}

TEST_F(ExceptionTest, OneInsideInnerAnimationsLeavesTheOuterOnesRecording) {
    const auto view = addProbe();
    UIView::animateWithDuration(1.0, 0.0, UIViewAnimationOptionCurveLinear, [&] {
        EXPECT_THROW(UIView::animateWithDuration(2.0, 0.0, UIViewAnimationOptionCurveLinear, fail), Mishap);
        host.draw();
        view->setAlpha(0.5);
        EXPECT_FALSE(host.window()->needsDisplay());
    });
}

TEST_F(ExceptionTest, AfterOneFromACompletionTheOthersAreCalledNext) {
    std::vector<int> called;
    const auto complete = [&called](int which) {
        return [&called, which](bool /*finished*/) {
            called.push_back(which);
            if (which == 2) {
                fail();
            }
        };
    };
    for (const int which : {1, 2, 3, 4}) {
        UIView::animateWithDuration(0.0, 0.0, UIViewAnimationOptionCurveLinear, nullptr, complete(which));
    }
    EXPECT_THROW(host.advance(1.0), Mishap);
    EXPECT_THAT(called, ElementsAre(1, 2));
    host.advance(0.0);
    EXPECT_THAT(called, ElementsAre(1, 2, 3, 4));
    host.advance(1.0);
    EXPECT_EQ(called.size(), 4U);
}

// Drawing

/// A context that knows what is open in it, and where it was cleared.
class BalanceContext : public NullContext {
public:
    int states = 0;
    int groups = 0;
    std::vector<CGRect> cleared;

    void saveState() override { ++states; }
    void restoreState() override { --states; }
    void beginGroup(CGFloat /*alpha*/, const CGRect& /*bounds*/) override { ++groups; }
    void endGroup() override { --groups; }
    void clearRect(const CGRect& rect) override { cleared.push_back(rect); }
};

TEST_F(ExceptionTest, WhatAViewThatThrowsHasNotDrawnIsDrawnNext) {
    const auto around = makeView(CGRectMake(0, 0, 200, 100));
    around->setAlpha(0.5);
    host.window()->addSubview(around);
    const auto view = makeProbe(CGRectMake(10, 10, 100, 40));
    view->setAlpha(0.5);
    around->addSubview(view);
    host.draw();
    bool isFailing = true;
    view->onDraw = [&isFailing](const CGRect& /*rect*/) {
        if (isFailing) {
            fail();
        }
    };
    view->setNeedsDisplay();
    const std::vector<CGRect> damage(host.window()->damage().rects().begin(),
                                     host.window()->damage().rects().end());
    BalanceContext context;
    EXPECT_THROW(host.window()->display(context), Mishap);
    EXPECT_EQ(context.states, 0);
    EXPECT_EQ(context.groups, 0);
    isFailing = false;
    EXPECT_TRUE(host.window()->needsDisplay());
    context.cleared.clear();
    host.window()->display(context);
    EXPECT_EQ(context.cleared, damage);
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(ExceptionTest, WhatWasDrawnBeforeOneIsNotDrawnAgain) {
    const auto first = addProbe();
    const auto second = makeProbe(CGRectMake(200, 200, 50, 20));
    host.window()->addSubview(second);
    host.draw();
    first->setNeedsDisplay();
    second->setNeedsDisplay();
    second->onDraw = [](const CGRect& /*rect*/) { fail(); };
    BalanceContext context;
    EXPECT_THROW(host.window()->display(context), Mishap);
    ASSERT_EQ(host.window()->damage().rects().size(), 1U);
    EXPECT_EQ(host.window()->damage().rects()[0], CGRectMake(200, 200, 50, 20));
}

// Timers

TEST_F(ExceptionTest, AfterOneFromATimerTimersAndAnimationsGoOn) {
    int fired = 0;
    bool isComplete = false;
    Foundation::NSTimer::scheduledTimerWithTimeInterval(1.0, false, [](Foundation::NSTimer&) { fail(); });
    Foundation::NSTimer::scheduledTimerWithTimeInterval(1.0, false, [&](Foundation::NSTimer&) { ++fired; });
    const auto view = addProbe();
    UIView::animateWithDuration(
        1.0, 0.0, UIViewAnimationOptionCurveLinear, [&view] { view->setAlpha(0.0); },
        [&isComplete](bool finished) { isComplete = finished; });
    EXPECT_THROW(host.advance(2.0), Mishap);
    host.advance(0.0);
    EXPECT_EQ(fired, 1);
    EXPECT_TRUE(isComplete);
}

// Tables

class TableExceptionTest : public ExceptionTest {
protected:
    TableExceptionTest() {
        table->setDataSource(source);
        table->setDelegate(source);
        host.window()->addSubview(table);
        source->log.clear();
    }

    void failAt(const std::string& call) {
        source->onCall = [call](const std::string& what) {
            if (what == call) {
                fail();
            }
        };
    }

    std::shared_ptr<ListSource> source = makeSource({2, 1});
    std::shared_ptr<UITableView> table = make<UITableView>(CGRectMake(0, 0, 200, 240));
};

TEST_F(TableExceptionTest, ASourceThatThrewIsAskedAgain) {
    for (const char* call : {"sections", "rows 0", "rows 1", "cell 0.0", "cell 1.0"}) {
        failAt(call);
        EXPECT_THROW(table->reloadData(), Mishap) << call;
        source->onCall = nullptr;
        source->log.clear();
        table->reloadData();
        EXPECT_THAT(source->log,
                    ElementsAre("sections", "rows 0", "rows 1", "cell 0.0", "cell 0.1", "cell 1.0"))
            << call;
        EXPECT_EQ(table->numberOfRowsInSection(0), 2) << call;
    }
}

TEST_F(TableExceptionTest, WhatASourceThatThrewDidNotAnswerIsAskedWithTheNextChange) {
    for (const char* call : {"rows 1", "cell 1.0"}) {
        failAt(call);
        EXPECT_THROW(table->reloadData(), Mishap) << call;
        source->onCall = nullptr;
        table->setFrame(CGRectInset(table->frame(), 0.0, 1.0));
        table->layoutIfNeeded();
        EXPECT_NE(table->cellForRowAtIndexPath(make<Foundation::NSIndexPath>(0, 1)), nullptr) << call;
    }
}

TEST_F(TableExceptionTest, RowsThatASourceDidNotTellOfAreNotChosen) {
    failAt("rows 1");
    table->keyPressed({UIKeyboardHIDUsage::End, ""});
    EXPECT_THROW(table->reloadData(), Mishap);
    source->onCall = nullptr;
    source->log.clear();
    host.tap({50.0, 100.0});
    table->keyPressed({UIKeyboardHIDUsage::ReturnOrEnter, ""});
    EXPECT_THAT(source->log, testing::Not(testing::Contains(testing::StartsWith("chose 1"))));
}

TEST_F(TableExceptionTest, AfterOneFromItsDelegateTheTableChoosesAgain) {
    failAt("chose 0.1");
    EXPECT_THROW(host.tap({50.0, 60.0}), Mishap);
    source->onCall = nullptr;
    source->log.clear();
    host.tap({50.0, 20.0});
    EXPECT_THAT(source->log, ElementsAre("chose 0.0"));
}

TEST_F(TableExceptionTest, AfterOneFromACellTheTableTakesTheNextTouch) {
    class FragileCell : public UITableViewCell {
    public:
        bool isFragile = true;
        void setHighlighted(bool highlighted) override {
            if (isFragile && isHighlighted() && !highlighted) {
                fail();
            }
            UITableViewCell::setHighlighted(highlighted);
        }
    };
    class FragileSource : public ListSource {
    public:
        std::shared_ptr<FragileCell> cell = make<FragileCell>();
        std::shared_ptr<UITableViewCell>
        tableViewCellForRowAtIndexPath(const std::shared_ptr<UITableView>& /*table*/,
                                       const std::shared_ptr<Foundation::NSIndexPath>& /*path*/) override {
            return cell;
        }
    };
    const auto fragile = make<FragileSource>();
    fragile->counts = {1};
    table->setDataSource(fragile);
    table->reloadData();
    EXPECT_THROW(host.tap({50.0, 20.0}), Mishap);
    fragile->cell->isFragile = false;
    constexpr UITouchIdentifier another = 7;
    host.touchDown({50.0, 20.0}, another);
    host.touchUp({50.0, 20.0}, another);
    EXPECT_THAT(source->log, ElementsAre("chose 0.0"));
}

// Controls

TEST_F(ExceptionTest, AfterOneAtTheEndOfATouchAControlTakesTheNext) {
    const auto slider = make<UISlider>(CGRectMake(0, 0, 200, 40));
    slider->setContinuous(false);
    host.window()->addSubview(slider);
    const auto recorder = make<EventRecorder>();
    recorder->watch(*slider);
    recorder->onEvent = [](const std::string& event) {
        if (event == "value") {
            fail();
        }
    };
    const CGPoint thumb{15.0, 20.0};
    host.touchDown(thumb);
    host.touchMove({60.0, 20.0});
    EXPECT_THROW(host.touchUp({60.0, 20.0}), Mishap);
    EXPECT_FALSE(slider->isTracking());
    EXPECT_FALSE(slider->isHighlighted());
    recorder->onEvent = nullptr;
    recorder->events.clear();
    host.tap({60.0, 20.0});
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
}

TEST_F(ExceptionTest, ATouchWhoseBeginningThrowsIsNotTracked) {
    class Fragile : public UIControl {
    public:
        bool isFragile = true;
        bool beginTrackingWithTouch(const UITouch& touch) override {
            if (isFragile) {
                fail();
            }
            return UIControl::beginTrackingWithTouch(touch);
        }
    };
    const auto control = make<Fragile>(CGRectMake(0, 0, 100, 40));
    host.window()->addSubview(control);
    const auto recorder = make<EventRecorder>();
    recorder->watch(*control);
    EXPECT_THROW(host.touchDown({10, 10}), Mishap);
    host.touchUp({10, 10});
    EXPECT_TRUE(recorder->events.empty());
    control->isFragile = false;
    host.tap({10, 10});
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
}

// The tree

TEST_F(ExceptionTest, AllOfATreeHearsThatItMovedAlsoAfterOne) {
    const auto top = makeProbe(CGRectMake(0, 0, 100, 100), "top ");
    const auto child = makeProbe(CGRectMake(0, 0, 10, 10), "child ");
    const auto sibling = makeProbe(CGRectMake(20, 0, 10, 10), "sibling ");
    sibling->log = child->log = top->log;
    top->addSubview(child);
    top->addSubview(sibling);
    top->onWindow = child->onWindow = fail;
    EXPECT_THROW(host.window()->addSubview(top), Mishap);
    EXPECT_THAT(*top->log, ElementsAre("top in", "child in", "sibling in"));
    top->log->clear();
    EXPECT_THROW(top->removeFromSuperview(), Mishap);
    EXPECT_THAT(*top->log, ElementsAre("top out", "child out", "sibling out"));
    EXPECT_EQ(top->window(), nullptr);
}

TEST_F(ExceptionTest, AModalViewGoesWithItsOwnerAlsoAfterOne) {
    const auto owner = addProbe();
    const auto modal = makeProbe(CGRectMake(0, 0, 50, 50));
    host.window()->addModalView(modal, owner);
    owner->onWindow = fail;
    EXPECT_THROW(owner->removeFromSuperview(), Mishap);
    EXPECT_EQ(modal->superview(), nullptr);
}

// View controllers and presentations

class FragileController : public UIViewController {
public:
    std::string failing;
    mutable int sizesGiven = 0;

    void loadView() override {
        failAt("load");
        UIViewController::loadView();
    }
    void viewDidLoad() override { failAt("did load"); }
    UIModalPresentationStyle modalPresentationStyle() const override {
        failAt("style");
        return UIViewController::modalPresentationStyle();
    }
    CGSize preferredContentSize() const override {
        failAt("size");
        ++sizesGiven;
        return UIViewController::preferredContentSize();
    }

private:
    void failAt(const std::string& place) const {
        if (place == failing) {
            fail();
        }
    }
};

class FragileDelegate
    : public Foundation::Adopting<Foundation::NSObject, UIPopoverPresentationControllerDelegate> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<FragileDelegate, NSObject>("Test.FragileDelegate")
                .method<&FragileDelegate::prepare>("prepareForPopoverPresentation:")
                .build();
        return object;
    }

    void prepare(const std::shared_ptr<UIPopoverPresentationController>& /*controller*/) {
        if (isFragile) {
            fail();
        }
    }

    bool isFragile = false;
};

TEST_F(ExceptionTest, AViewWhoseLoadingThrewIsLoadedAgain) {
    const auto controller = make<FragileController>();
    controller->failing = "load";
    EXPECT_THROW(controller->view(), Mishap);
    controller->failing = "";
    EXPECT_NE(controller->view(), nullptr);
}

TEST_F(ExceptionTest, APresentationThatThrewIsNoneAndMayBeTriedAgain) {
    const auto presenting = make<UIViewController>();
    host.window()->addSubview(presenting->view());
    const auto delegate = make<FragileDelegate>();
    for (const char* place : {"load", "did load", "style", "size", "prepare", "appear"}) {
        const auto presented = make<FragileController>();
        presented->setModalPresentationStyle(UIModalPresentationStyle::Popover);
        presented->popoverPresentationController()->setDelegate(delegate);
        if (place == std::string("appear")) {
            const auto root = makeProbe({});
            presented->setView(root);
            root->onWindow = [root = root.get()] {
                if (root->window()) {
                    fail();
                }
            };
        }
        presented->failing = place;
        delegate->isFragile = place == std::string("prepare");
        EXPECT_THROW(presenting->presentViewController(presented, true, nullptr), Mishap) << place;
        EXPECT_EQ(presenting->presentedViewController(), nullptr) << place;
        EXPECT_EQ(presented->presentingViewController(), nullptr) << place;
        EXPECT_EQ(host.window()->modalView(), nullptr) << place;
        EXPECT_EQ(host.window()->subviews().size(), 1U) << place;
        presented->failing = "";
        delegate->isFragile = false;
        presented->setView(makeView({}));
        presenting->presentViewController(presented, true, nullptr);
        EXPECT_EQ(presented->view()->window(), host.window()) << place;
        presenting->dismissViewControllerAnimated(false, nullptr);
    }
}

TEST_F(ExceptionTest, AfterOneFromTheLayoutOfAPresentationTheOthersAreLaidOut) {
    const auto presenting = make<UIViewController>();
    const auto first = make<FragileController>();
    const auto second = make<FragileController>();
    host.window()->addSubview(presenting->view());
    for (const auto& each : {first, second}) {
        each->setModalPresentationStyle(UIModalPresentationStyle::Popover);
    }
    presenting->presentViewController(first, false, nullptr);
    first->presentViewController(second, false, nullptr);
    host.advance(1.0);
    host.window()->setFrame(CGRectMake(0, 0, 600, 700));
    second->sizesGiven = 0;
    first->failing = "size";
    EXPECT_THROW(host.advance(0.0), Mishap);
    EXPECT_EQ(second->sizesGiven, 0);
    first->failing.clear();
    host.advance(0.0);
    EXPECT_EQ(second->sizesGiven, 1);
}

TEST_F(ExceptionTest, AfterOneFromTheCompletionOfADismissalTheOthersAreCalled) {
    const auto presenting = make<UIViewController>();
    const auto presented = make<UIViewController>();
    host.window()->addSubview(presenting->view());
    presenting->presentViewController(presented, false, nullptr);
    std::vector<int> called;
    for (const int which : {1, 2, 3}) {
        presenting->dismissViewControllerAnimated(true, [&called, which] {
            called.push_back(which);
            if (which == 1) {
                fail();
            }
        });
    }
    EXPECT_THROW(host.advance(1.0), Mishap);
    host.advance(1.0);
    EXPECT_THAT(called, ElementsAre(1, 2, 3));
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
}

} // namespace
