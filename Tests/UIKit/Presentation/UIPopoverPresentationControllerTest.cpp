#include "Platform/UIKit/UIPopoverPresentationController.h"

#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIViewController.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/ControlTestSupport.h"
#include "Tests/UIKit/TestViews.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using testing::ElementsAre;
using testing::IsEmpty;

class PopoverDelegate
    : public Foundation::Adopting<Foundation::NSObject, UIPopoverPresentationControllerDelegate> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<PopoverDelegate, NSObject>("Test.PopoverDelegate")
                .method<&PopoverDelegate::adaptiveStyle>(
                    "adaptivePresentationStyleForPresentationController:")
                .method<&PopoverDelegate::prepare>("prepareForPopoverPresentation:")
                .method<&PopoverDelegate::didDismiss>("popoverPresentationControllerDidDismissPopover:")
                .build();
        return object;
    }

    Log log;
    std::function<void(const std::string&)> onCall;
    UIModalPresentationStyle style = UIModalPresentationStyle::None;

    UIModalPresentationStyle adaptiveStyle(const std::shared_ptr<UIPresentationController>& /*controller*/) {
        note("style");
        return style;
    }
    void prepare(const std::shared_ptr<UIPopoverPresentationController>& /*controller*/) { note("prepare"); }
    void didDismiss(const std::shared_ptr<UIPopoverPresentationController>& /*controller*/) {
        note("dismissed");
    }

private:
    void note(const std::string& what) {
        log.push_back(what);
        if (const auto call = onCall) {
            call(what);
        }
    }
};

/// A delegate that wants to know nothing.
class SilentDelegate
    : public Foundation::Adopting<Foundation::NSObject, UIPopoverPresentationControllerDelegate> {};

/// A pop-over of 120 by 100 points for a small anchor at the top of a window of 320 by 240.
class PopoverTest : public testing::Test {
protected:
    PopoverTest() {
        presenting->view()->setFrame(host.window()->bounds());
        presenting->view()->setAutoresizingMask(UIViewAutoresizingFlexibleWidth |
                                                UIViewAutoresizingFlexibleHeight);
        anchor->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin);
        presenting->view()->addSubview(below);
        presenting->view()->addSubview(anchor);
        host.window()->addSubview(presenting->view());
        presented->setModalPresentationStyle(UIModalPresentationStyle::Popover);
        presented->setPreferredContentSize({120, 100});
        below->log->clear();
    }

    void show() {
        const auto popover = presented->popoverPresentationController();
        popover->setDelegate(delegate);
        popover->setSourceView(anchor);
        popover->setSourceRect({{}, anchor->frame().size});
        presenting->presentViewController(presented, true, nullptr);
    }

    bool isShown() const { return presented->view()->window() != nullptr; }

    /// The root view's place in the window.
    CGRect place() const {
        return presented->view()->convertRectToView(presented->view()->bounds(), *host.window());
    }

    KivUICore::Headless::HeadlessHost host{{320, 240}};
    std::shared_ptr<UIViewController> presenting = make<UIViewController>();
    std::shared_ptr<UIViewController> presented = make<UIViewController>();
    std::shared_ptr<PopoverDelegate> delegate = make<PopoverDelegate>();
    std::shared_ptr<ProbeView> below = makeProbe(CGRectMake(0, 0, 320, 240));
    std::shared_ptr<UIView> anchor = makeView(CGRectMake(200, 0, 40, 40));
};

TEST_F(PopoverTest, AsksForTheStyleThenPreparesAndLaterReportsItsDismissal) {
    delegate->onCall = [&](const std::string& what) {
        if (what != "dismissed") {
            EXPECT_FALSE(isShown());
        } else {
            EXPECT_EQ(presenting->presentedViewController(), nullptr);
            EXPECT_EQ(presented->view()->window(), nullptr);
        }
    };
    show();
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare"));
    EXPECT_TRUE(isShown());
    host.tap({20, 200});
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare"));
    host.advance(1.0);
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare", "dismissed"));
}

TEST_F(PopoverTest, LiesBelowOrAboveItsSource) {
    show();
    EXPECT_EQ(place(), CGRectMake(160, 52, 120, 100));
    EXPECT_EQ(presented->popoverPresentationController()->arrowDirection(), UIPopoverArrowDirectionUp);
    anchor->setFrame(CGRectMake(200, 200, 40, 40));
    presented->popoverPresentationController()->setSourceView(anchor);
    EXPECT_EQ(place(), CGRectMake(160, 88, 120, 100));
    EXPECT_EQ(presented->popoverPresentationController()->arrowDirection(), UIPopoverArrowDirectionDown);
}

TEST_F(PopoverTest, TheSourceRectIsInTheSourcesCoordinates) {
    show();
    presented->popoverPresentationController()->setSourceRect(CGRectMake(-100, 0, 40, 60));
    EXPECT_EQ(place(), CGRectMake(60, 72, 120, 100));
    presented->popoverPresentationController()->setPermittedArrowDirections(UIPopoverArrowDirectionDown);
    EXPECT_EQ(presented->popoverPresentationController()->arrowDirection(), UIPopoverArrowDirectionUnknown);
}

TEST_F(PopoverTest, FollowsItsAnchorWhenTheWindowChangesSize) {
    show();
    host.window()->setFrame(CGRectMake(0, 0, 420, 300));
    host.advance(0.0);
    EXPECT_EQ(place(), CGRectMake(260, 52, 120, 100));
    // As a program does that places its views itself.
    host.window()->setFrame(CGRectMake(0, 0, 430, 300));
    anchor->setFrame(CGRectMake(100, 260, 40, 40));
    host.advance(0.0);
    EXPECT_EQ(place(), CGRectMake(60, 148, 120, 100));
    EXPECT_EQ(presented->popoverPresentationController()->arrowDirection(), UIPopoverArrowDirectionDown);
    host.window()->setFrame(CGRectMake(0, 0, 120, 80));
    host.advance(0.0);
    const CGRect small = place();
    EXPECT_TRUE(CGRectContainsRect(CGRectMake(10, 10, 100, 60), small));
    host.window()->setFrame(CGRectMake(0, 0, 320, 240));
    host.advance(0.0);
    EXPECT_EQ(place().size, (CGSize{120, 100}));
}

TEST_F(PopoverTest, ManyNewSizesOfTheWindowAreFollowedByOneLayout) {
    class Counted : public UIViewController {
    public:
        CGSize preferredContentSize() const override {
            ++layouts;
            return {120, 100};
        }
        mutable int layouts = 0;
    };
    const auto counted = make<Counted>();
    counted->setModalPresentationStyle(UIModalPresentationStyle::Popover);
    presented = counted;
    show();
    host.advance(1.0);
    counted->layouts = 0;
    for (const CGFloat width : {400.0, 410.0, 420.0}) {
        host.window()->setFrame(CGRectMake(0, 0, width, 300));
    }
    EXPECT_EQ(counted->layouts, 0);
    host.advance(0.0);
    EXPECT_EQ(counted->layouts, 1);
    host.advance(1.0);
    EXPECT_EQ(counted->layouts, 1);
}

TEST_F(PopoverTest, ANewPreferredSizeIsTakenAtOnce) {
    show();
    presented->setPreferredContentSize({60, 50});
    EXPECT_EQ(place().size, (CGSize{60, 50}));
    presented->setPreferredContentSize({0, 50});
    EXPECT_EQ(place().size, (CGSize{300, 178}));
}

TEST_F(PopoverTest, ATouchOutsideClosesItAndReachesNothingElse) {
    show();
    host.advance(1.0);
    host.touchDown({20, 200});
    EXPECT_THAT(*below->log, IsEmpty());
    host.touchMove({30, 200});
    host.touchUp({30, 200});
    EXPECT_THAT(*below->log, IsEmpty());
    host.advance(1.0);
    EXPECT_FALSE(isShown());
    host.tap({20, 200});
    EXPECT_THAT(*below->log, ElementsAre("began 0", "ended 0"));
}

TEST_F(PopoverTest, TouchesInsideStayInside) {
    const auto inside = makeProbe(CGRectMake(0, 0, 60, 50), "inside ");
    presented->view()->addSubview(inside);
    show();
    inside->log->clear();
    host.tap({170, 60});
    EXPECT_THAT(*inside->log, ElementsAre("inside began 0", "inside ended 0"));
    host.tap({270, 140});
    host.tap({220, 47});
    host.advance(1.0);
    EXPECT_TRUE(isShown());
    EXPECT_THAT(*below->log, IsEmpty());
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare"));
}

TEST_F(PopoverTest, ATouchJustBesideThePlateIsOutside) {
    show();
    host.tap({158, 100});
    host.advance(1.0);
    EXPECT_FALSE(isShown());
    show();
    host.tap({180, 47});
    host.advance(1.0);
    EXPECT_FALSE(isShown());
}

TEST_F(PopoverTest, EscapeClosesItAsATouchOutsideDoes) {
    show();
    EXPECT_FALSE(host.window()->sendKey({UIKeyboardHIDUsage::None, "m", false}));
    EXPECT_TRUE(host.window()->sendKey({UIKeyboardHIDUsage::Escape, "", false}));
    EXPECT_FALSE(host.window()->sendKey({UIKeyboardHIDUsage::Escape, "", false}));
    host.advance(1.0);
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare", "dismissed"));
}

TEST_F(PopoverTest, ClosingItEndsTheTouchesThatAreDownOnIt) {
    const auto inside = makeProbe(CGRectMake(0, 0, 120, 100), "inside ");
    presented->view()->addSubview(inside);
    const std::vector<std::function<void()>> ways{
        [&] {
            host.window()->sendKey({UIKeyboardHIDUsage::Escape, "", false});
        },
        [&] {
            host.touchDown({20, 200}, 1);
        },
        [&] { presenting->dismissViewControllerAnimated(true, nullptr); }};
    for (const auto& close : ways) {
        show();
        host.touchDown({220, 100});
        inside->log->clear();
        close();
        host.touchUp({220, 100});
        host.touchCancel(1);
        host.advance(1.0);
        EXPECT_THAT(*inside->log, testing::Contains("inside cancelled 0"));
        EXPECT_THAT(*inside->log, testing::Not(testing::Contains("inside ended 0")));
    }
}

TEST_F(PopoverTest, ATouchThatItsClosingEndsMayTakeItsViewsOut) {
    const auto inside = makeProbe(CGRectMake(0, 0, 120, 100));
    presented->view()->addSubview(inside);
    show();
    host.touchDown({220, 100});
    inside->onTouch = [&](const UITouch& /*touch*/) { presenting->view()->removeFromSuperview(); };
    host.window()->sendKey({UIKeyboardHIDUsage::Escape, "", false});
    EXPECT_EQ(host.window()->subviews().size(), 0U);
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare", "dismissed"));
    host.advance(1.0);
    EXPECT_EQ(delegate->log.size(), 3U);
}

TEST_F(PopoverTest, TheWheelReachesNothingUnderneath) {
    show();
    EXPECT_TRUE(host.window()->sendScroll({20, 200}, {0, 1}));
    EXPECT_TRUE(host.window()->sendScroll({200, 100}, {0, 1}));
    EXPECT_THAT(*below->log, IsEmpty());
}

TEST_F(PopoverTest, AProgramsOwnDismissalIsNotReported) {
    show();
    presented->dismissViewControllerAnimated(true, nullptr);
    host.advance(1.0);
    EXPECT_FALSE(isShown());
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare"));
}

TEST_F(PopoverTest, FadesInAndOut) {
    host.draw();
    show();
    const auto alphaOf = [this] {
        host.window()->setNeedsDisplayEverywhere();
        const auto drawing = host.draw();
        for (const CGDrawing::Operation& each : drawing->operations()) {
            if (const auto* group = std::get_if<CGDrawing::BeginGroup>(&each)) {
                return group->alpha;
            }
        }
        return 1.0;
    };
    host.advance(0.05);
    const double early = alphaOf();
    host.advance(0.05);
    const double later = alphaOf();
    EXPECT_GT(early, 0.0);
    EXPECT_GT(later, early);
    EXPECT_LT(later, 1.0);
    host.advance(1.0);
    EXPECT_EQ(alphaOf(), 1.0);
    host.tap({20, 200});
    host.advance(0.1);
    EXPECT_LT(alphaOf(), 1.0);
}

TEST_F(PopoverTest, ItsOutlineLiesInsideWhatIsMarkedAsChanged) {
    for (const CGFloat anchorTop : {0.0, 200.0}) {
        anchor->setFrame(CGRectMake(200, anchorTop, 40, 40));
        show();
        host.advance(1.0);
        const auto popover = presented->view()->superview()->superview();
        const auto strokes = drawnBy<CGDrawing::StrokePath>(*popover);
        ASSERT_EQ(strokes.size(), 1U);
        const CGFloat outside = strokes[0].stroke.width / 2.0;
        const CGRect drawn = CGRectInset(strokes[0].path.boundingBox(), -outside, -outside);
        EXPECT_TRUE(CGRectContainsRect(popover->bounds(), drawn))
            << testing::PrintToString(drawn) << " in " << testing::PrintToString(popover->bounds());
        presented->dismissViewControllerAnimated(false, nullptr);
    }
}

TEST_F(PopoverTest, AnOpenPopoverAtRestCostsNothing) {
    show();
    host.advance(1.0);
    host.draw();
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    host.advance(5.0);
    EXPECT_FALSE(host.window()->needsDisplay());
}

TEST_F(PopoverTest, FullScreenForAnAnswerFillsTheWindow) {
    delegate->style = UIModalPresentationStyle::FullScreen;
    show();
    EXPECT_THAT(delegate->log, ElementsAre("style"));
    EXPECT_EQ(place(), CGRectMake(0, 0, 320, 240));
    host.tap({20, 200});
    EXPECT_FALSE(host.window()->sendKey({UIKeyboardHIDUsage::Escape, "", false}));
    host.advance(1.0);
    EXPECT_TRUE(isShown());
}

TEST_F(PopoverTest, WithoutADelegateOrWithOneThatSaysNothingItIsAPopover) {
    const auto silent = make<SilentDelegate>();
    for (const std::shared_ptr<UIPopoverPresentationControllerDelegate>& given :
         {std::shared_ptr<UIPopoverPresentationControllerDelegate>(),
          std::shared_ptr<UIPopoverPresentationControllerDelegate>(silent)}) {
        presented->popoverPresentationController()->setDelegate(given);
        presented->popoverPresentationController()->setSourceView(anchor);
        presenting->presentViewController(presented, false, nullptr);
        EXPECT_EQ(place().size, (CGSize{120, 100}));
        host.tap({20, 200});
        host.advance(1.0);
        EXPECT_FALSE(isShown());
    }
}

TEST_F(PopoverTest, WithoutASourceInTheWindowItLiesInTheMiddle) {
    presenting->presentViewController(presented, false, nullptr);
    EXPECT_EQ(place(), CGRectMake(100, 70, 120, 100));
    presented->popoverPresentationController()->setSourceView(make<UIView>());
    EXPECT_EQ(place(), CGRectMake(100, 70, 120, 100));
    EXPECT_EQ(presented->popoverPresentationController()->arrowDirection(), UIPopoverArrowDirectionUnknown);
}

TEST_F(PopoverTest, HoldsNeitherSourceNorDelegate) {
    const auto popover = presented->popoverPresentationController();
    popover->setDelegate(make<PopoverDelegate>());
    popover->setSourceView(make<UIView>());
    EXPECT_EQ(popover->delegate(), nullptr);
    EXPECT_EQ(popover->sourceView(), nullptr);
}

TEST_F(PopoverTest, EachPresentationIsSetUpAnew) {
    show();
    const auto first = presented->popoverPresentationController();
    host.tap({20, 200});
    host.advance(1.0);
    const auto second = presented->popoverPresentationController();
    EXPECT_NE(first, second);
    EXPECT_EQ(second->delegate(), nullptr);
    EXPECT_EQ(second->sourceView(), nullptr);
}

// Colours

TEST_F(PopoverTest, ThePlateIsLightOrOfTheGivenColour) {
    show();
    host.advance(1.0);
    const auto plate = [this] {
        host.window()->setNeedsDisplayEverywhere();
        const auto drawing = host.draw();
        for (const CGDrawing::Operation& each : drawing->operations()) {
            if (const auto* fill = std::get_if<CGDrawing::FillPath>(&each)) {
                return fill->color;
            }
        }
        return CGColor{};
    };
    EXPECT_GT(plate().red, 0.9);
    EXPECT_GT(plate().alpha, 0.9);
    const CGColor green{0.0, 1.0, 0.0, 1.0};
    presented->popoverPresentationController()->setBackgroundColor(make<UIColor>(0.0, 1.0, 0.0, 1.0));
    EXPECT_EQ(plate(), green);
}

TEST_F(PopoverTest, APatternFillsThePlateWithinItsOutline) {
    presented->popoverPresentationController()->setBackgroundColor(make<UIColor>(makeImage({4, 4})));
    presenting->presentViewController(presented, false, nullptr);
    const auto drawing = host.draw();
    bool isClipped = false;
    bool isFilled = false;
    for (const CGDrawing::Operation& each : drawing->operations()) {
        isClipped = isClipped || std::holds_alternative<CGDrawing::ClipToPath>(each);
        isFilled = isFilled || (isClipped && std::holds_alternative<CGDrawing::FillPattern>(each));
    }
    EXPECT_TRUE(isFilled);
}

TEST_F(PopoverTest, TheContentIsCutAtRoundCorners) {
    presented->view()->setBackgroundColor(make<UIColor>(1.0, 0.0, 0.0, 1.0));
    show();
    host.advance(1.0);
    host.window()->setNeedsDisplayEverywhere();
    const auto drawing = host.draw();
    const auto& operations = drawing->operations();
    const auto fill = std::find_if(operations.rbegin(), operations.rend(), [](const auto& each) {
        const auto* found = std::get_if<CGDrawing::FillRect>(&each);
        return found && found->rect.size == CGSize{120, 100};
    });
    ASSERT_NE(fill, operations.rend());
    EXPECT_TRUE(std::any_of(fill, operations.rend(), [](const auto& each) {
        return std::holds_alternative<CGDrawing::ClipToPath>(each);
    }));
}

// Callbacks that do things

TEST_F(PopoverTest, AnyCallbackMayDismissIt) {
    for (const char* moment : {"style", "prepare"}) {
        SCOPED_TRACE(moment);
        delegate->log.clear();
        delegate->onCall = [&](const std::string& what) {
            if (what == moment) {
                presented->dismissViewControllerAnimated(true, nullptr);
            }
        };
        show();
        host.advance(1.0);
        EXPECT_FALSE(isShown());
        EXPECT_EQ(presenting->presentedViewController(), nullptr);
        EXPECT_EQ(delegate->log.back(), moment);
    }
}

TEST_F(PopoverTest, AnyCallbackMayShowItAgain) {
    for (const char* moment : {"style", "prepare", "dismissed"}) {
        SCOPED_TRACE(moment);
        bool isFirst = true;
        delegate->log.clear();
        delegate->onCall = [&](const std::string& what) {
            if (what == moment && std::exchange(isFirst, false)) {
                show();
            }
        };
        testing::internal::CaptureStderr();
        show();
        host.tap({20, 200});
        host.advance(1.0);
        const bool isWarned = !testing::internal::GetCapturedStderr().empty();
        EXPECT_EQ(isWarned, moment != std::string("dismissed"));
        EXPECT_EQ(isShown(), moment == std::string("dismissed"));
        presented->dismissViewControllerAnimated(false, nullptr);
    }
}

TEST_F(PopoverTest, AnyCallbackMayTakeThePresentingViewOut) {
    for (const char* moment : {"style", "prepare", "dismissed"}) {
        SCOPED_TRACE(moment);
        host.window()->addSubview(presenting->view());
        delegate->onCall = [&](const std::string& what) {
            if (what == moment) {
                presenting->view()->removeFromSuperview();
            }
        };
        show();
        host.tap({20, 200});
        host.advance(1.0);
        EXPECT_FALSE(isShown());
        EXPECT_EQ(presenting->presentedViewController(), nullptr);
        EXPECT_THAT(host.window()->subviews(), IsEmpty());
    }
}

/// A controller that says when it goes. Watched otherwise, its memory would stay, and use of it go unnoticed.
class MortalController : public UIViewController {
public:
    bool* isGone = nullptr;

protected:
    void dealloc() override {
        *isGone = true;
        UIViewController::dealloc();
    }
};

TEST_F(PopoverTest, AnyCallbackMayLetBothControllersGo) {
    for (const char* moment : {"style", "prepare", "dismissed"}) {
        SCOPED_TRACE(moment);
        delegate = make<PopoverDelegate>();
        presenting = make<UIViewController>();
        presenting->setView(make<UIView>(host.window()->bounds()));
        host.window()->addSubview(presenting->view());
        bool isGone = false;
        auto mortal = make<MortalController>();
        mortal->isGone = &isGone;
        presented = std::move(mortal);
        presented->setModalPresentationStyle(UIModalPresentationStyle::Popover);
        delegate->onCall = [&](const std::string& what) {
            if (what == moment) {
                presenting = nullptr;
                presented = nullptr;
                delegate = nullptr;
            }
        };
        show();
        host.tap({2, 238});
        host.advance(1.0);
        EXPECT_EQ(presented, nullptr);
        host.window()->subviews().back()->removeFromSuperview();
        host.advance(1.0);
        EXPECT_TRUE(isGone);
    }
}

TEST_F(PopoverTest, ADelegateReplacedInACallbackHearsTheRest) {
    const auto other = make<PopoverDelegate>();
    delegate->onCall = [&](const std::string&) {
        presented->popoverPresentationController()->setDelegate(other);
    };
    show();
    host.tap({20, 200});
    host.advance(1.0);
    EXPECT_THAT(delegate->log, ElementsAre("style"));
    EXPECT_THAT(other->log, ElementsAre("prepare", "dismissed"));
}

TEST_F(PopoverTest, ShownAgainWhileItFadesOutTheDismissalIsReportedFirst) {
    show();
    host.tap({20, 200});
    host.advance(0.1);
    show();
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare", "dismissed", "style", "prepare"));
    host.advance(1.0);
    EXPECT_TRUE(isShown());
    EXPECT_EQ(delegate->log.size(), 5U);
}

TEST_F(PopoverTest, AnotherOneShownWhileItFadesOutWaitsForItsReportToo) {
    show();
    host.tap({20, 200});
    host.advance(0.1);
    const auto other = make<UIViewController>();
    presenting->presentViewController(other, false, nullptr);
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare", "dismissed"));
    EXPECT_EQ(presenting->presentedViewController(), other);
    EXPECT_FALSE(isShown());
}

TEST_F(PopoverTest, ShownElsewhereWhileItFadesOutTheDismissalIsReportedFirst) {
    const auto elsewhere = make<UIViewController>();
    host.window()->addSubview(elsewhere->view());
    show();
    host.tap({20, 200});
    host.advance(0.1);
    elsewhere->presentViewController(presented, false, nullptr);
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare", "dismissed"));
    EXPECT_EQ(elsewhere->presentedViewController(), presented);
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    host.advance(1.0);
    EXPECT_TRUE(isShown());
}

TEST_F(PopoverTest, ItsOwnViewMayDismissItAsItAppears) {
    const auto probe = makeProbe(CGRectMake(0, 0, 10, 10));
    probe->onWindow = [&] { presented->dismissViewControllerAnimated(true, nullptr); };
    presented->view()->addSubview(probe);
    show();
    host.advance(1.0);
    EXPECT_FALSE(isShown());
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare"));
}

TEST_F(PopoverTest, MayBeDismissedWhileItsViewIsLoaded) {
    class Leaving : public UIViewController {
    public:
        void viewDidLoad() override { dismissViewControllerAnimated(true, nullptr); }
    };
    presented = make<Leaving>();
    presented->setModalPresentationStyle(UIModalPresentationStyle::Popover);
    show();
    EXPECT_FALSE(isShown());
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_EQ(host.window()->subviews().size(), 1U);
}

/// A view that does what a test likes when it is given its place.
class PlacedView : public UIView {
public:
    std::function<void()> onPlace;

    void setFrame(const CGRect& frame) override {
        UIView::setFrame(frame);
        if (const auto call = onPlace) {
            call();
        }
    }
};

TEST_F(PopoverTest, ItsViewMayEndItWhenItIsGivenItsPlace) {
    const auto view = make<PlacedView>();
    presented->setView(view);
    for (const bool isAnimated : {true, false}) {
        view->onPlace = [&] { presented->dismissViewControllerAnimated(isAnimated, nullptr); };
        show();
        EXPECT_EQ(host.window()->subviews().size(), 1U);
        EXPECT_EQ(presenting->presentedViewController(), nullptr);
    }
    view->onPlace = [&] { presenting->view()->removeFromSuperview(); };
    show();
    EXPECT_THAT(host.window()->subviews(), IsEmpty());
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
}

TEST_F(PopoverTest, ItsViewsTakenOutByForceEndIt) {
    show();
    host.advance(1.0);
    host.window()->modalView()->removeFromSuperview();
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_EQ(presented->presentingViewController(), nullptr);
    EXPECT_THAT(delegate->log, ElementsAre("style", "prepare"));
    show();
    EXPECT_TRUE(isShown());
}

TEST_F(PopoverTest, IsSetUpByName) {
    const auto popover = presented->popoverPresentationController();
    const std::shared_ptr<Foundation::NSObject> object = popover;
    object->send("setDelegate:", delegate);
    object->send("setSourceView:", anchor);
    object->send("setSourceRect:", CGRectMake(1, 2, 3, 4));
    object->send("setPermittedArrowDirections:", 3);
    object->send("setBackgroundColor:", nullptr);
    EXPECT_EQ(popover->delegate(), delegate);
    EXPECT_EQ(popover->sourceView(), anchor);
    EXPECT_EQ(popover->sourceRect(), CGRectMake(1, 2, 3, 4));
    EXPECT_EQ(popover->permittedArrowDirections(), 3U);
    EXPECT_EQ(object->send<int>("arrowDirection"), 0);
}

} // namespace
