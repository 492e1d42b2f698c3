#include "Platform/UIKit/UIViewController.h"

#include "Platform/Foundation/NSBundle.h"
#include "Platform/Foundation/NSCoder.h"
#include "Platform/UIKit/UIPopoverPresentationController.h"
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

class LoggingController : public UIViewController {
public:
    Log log;
    bool makesView = true;

    void loadView() override {
        log.push_back("loadView");
        EXPECT_EQ(view(), nullptr);
        if (makesView) {
            UIViewController::loadView();
        }
    }
    void viewDidLoad() override {
        log.push_back("viewDidLoad");
        EXPECT_NE(view(), nullptr);
    }
};

TEST(UIViewControllerTest, ItsViewIsMadeWhenItIsFirstAskedFor) {
    const auto controller = make<LoggingController>();
    EXPECT_FALSE(controller->isViewLoaded());
    EXPECT_THAT(controller->log, IsEmpty());
    const auto view = controller->view();
    ASSERT_NE(view, nullptr);
    EXPECT_THAT(controller->log, ElementsAre("loadView", "viewDidLoad"));
    EXPECT_EQ(controller->view(), view);
    EXPECT_EQ(controller->log.size(), 2U);
    EXPECT_TRUE(controller->isViewLoaded());
}

TEST(UIViewControllerTest, AViewThatIsSetIsNotLoaded) {
    const auto controller = make<LoggingController>();
    const auto view = make<UIView>();
    controller->setView(view);
    EXPECT_EQ(controller->view(), view);
    EXPECT_THAT(controller->log, IsEmpty());
}

TEST(UIViewControllerTest, ALoadThatMakesNoViewIsTriedAgain) {
    const auto controller = make<LoggingController>();
    controller->makesView = false;
    EXPECT_EQ(controller->view(), nullptr);
    EXPECT_EQ(controller->view(), nullptr);
    EXPECT_THAT(controller->log, ElementsAre("loadView", "loadView"));
}

TEST(UIViewControllerTest, IsMadeFromNibCoderAndByNameAlike) {
    EXPECT_NE(make<UIViewController>(), nullptr);
    EXPECT_NE(make<UIViewController>(std::optional<std::string>("Main"), make<Foundation::NSBundle>()),
              nullptr);
    EXPECT_NE(make<UIViewController>(make<Foundation::NSCoder>()), nullptr);
    const auto made = Foundation::Class::named("UIKit.UIViewController")->alloc();
    EXPECT_TRUE(made->send<bool>("initWithNibName:bundle:", std::optional<std::string>(), nullptr));
    EXPECT_NE(made->send<std::shared_ptr<UIView>>("view"), nullptr);
    made->send("setModalPresentationStyle:", 7);
    EXPECT_EQ(made->send<int>("modalPresentationStyle"), 7);
}

TEST(UIViewControllerTest, ThePlainInitializerEndsInTheOneOfNibs) {
    class Refusing : public UIViewController {
    public:
        using UIViewController::init;
        bool init(const std::optional<std::string>& /*nibName*/,
                  const std::shared_ptr<Foundation::NSBundle>& /*bundle*/) override {
            return false;
        }
    };
    EXPECT_EQ(make<Refusing>(), nullptr);
}

TEST(UIViewControllerTest, APopoverIsMadeOnDemandForThePopoverStyleAlone) {
    const auto controller = make<UIViewController>();
    EXPECT_EQ(controller->modalPresentationStyle(), UIModalPresentationStyle::FullScreen);
    EXPECT_EQ(controller->popoverPresentationController(), nullptr);
    controller->setModalPresentationStyle(UIModalPresentationStyle::Popover);
    const auto popover = controller->popoverPresentationController();
    ASSERT_NE(popover, nullptr);
    EXPECT_EQ(controller->popoverPresentationController(), popover);
    EXPECT_EQ(popover->presentedViewController(), controller);
    controller->setModalPresentationStyle(UIModalPresentationStyle::None);
    EXPECT_EQ(controller->popoverPresentationController(), nullptr);
}

/// A controller in a window, and one to present, over the whole window unless a test says otherwise.
class PresentationTest : public testing::Test {
protected:
    PresentationTest() {
        presenting->view()->setFrame(host.window()->bounds());
        host.window()->addSubview(presenting->view());
    }

    /// What is written to standard error meanwhile.
    template <class Action>
    static std::string warnings(Action&& action) {
        testing::internal::CaptureStderr();
        action();
        return testing::internal::GetCapturedStderr();
    }

    KivUICore::Headless::HeadlessHost host{{320, 240}};
    std::shared_ptr<UIViewController> presenting = make<UIViewController>();
    std::shared_ptr<UIViewController> presented = make<UIViewController>();
    int completions = 0;
    std::function<void()> count = [this] { ++completions; };
};

using PresentationDeathTest = PresentationTest;

TEST_F(PresentationTest, FullScreenFillsTheWindowAndFollowsIt) {
    presenting->presentViewController(presented, true, count);
    EXPECT_EQ(presenting->presentedViewController(), presented);
    EXPECT_EQ(presented->presentingViewController(), presenting);
    EXPECT_EQ(presented->view()->frame(), CGRectMake(0, 0, 320, 240));
    EXPECT_EQ(presented->view()->window(), host.window());
    EXPECT_EQ(completions, 0);
    host.advance(1.0);
    EXPECT_EQ(completions, 1);
    host.window()->setFrame(CGRectMake(0, 0, 100, 50));
    host.advance(0.0);
    EXPECT_EQ(presented->view()->frame(), CGRectMake(0, 0, 100, 50));
}

TEST_F(PresentationTest, IsHeldWhilePresentedAndLetGoAfterwards) {
    const std::weak_ptr<UIViewController> weak = presented;
    presenting->presentViewController(presented, false, nullptr);
    presented = nullptr;
    ASSERT_FALSE(weak.expired());
    presenting->dismissViewControllerAnimated(true, count);
    EXPECT_FALSE(weak.expired());
    host.advance(1.0);
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_EQ(host.window()->subviews().size(), 1U);
}

TEST_F(PresentationTest, IsDismissedByItselfToo) {
    presenting->presentViewController(presented, false, nullptr);
    presented->dismissViewControllerAnimated(false, count);
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_EQ(presented->presentingViewController(), nullptr);
    EXPECT_EQ(presented->view()->superview(), nullptr);
    EXPECT_EQ(host.window()->subviews().size(), 1U);
    EXPECT_EQ(completions, 0);
    host.advance(0.0);
    EXPECT_EQ(completions, 1);
}

TEST_F(PresentationTest, DismissingNothingOnlyCompletes) {
    presenting->dismissViewControllerAnimated(true, count);
    EXPECT_EQ(completions, 0);
    host.advance(0.0);
    EXPECT_EQ(completions, 1);
    presenting->dismissViewControllerAnimated(true, nullptr);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(PresentationTest, DismissingTwiceCompletesTwice) {
    presenting->presentViewController(presented, false, nullptr);
    presenting->dismissViewControllerAnimated(true, count);
    presenting->dismissViewControllerAnimated(true, count);
    host.advance(0.1);
    EXPECT_EQ(completions, 0);
    host.advance(1.0);
    EXPECT_EQ(completions, 2);
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
}

TEST_F(PresentationTest, ADismissalFadesAndLetsTouchesThroughAtOnce) {
    const auto below = makeProbe(CGRectMake(0, 0, 320, 240));
    presenting->view()->addSubview(below);
    presenting->presentViewController(presented, true, nullptr);
    host.advance(1.0);
    below->log->clear();
    host.tap({100, 100});
    EXPECT_THAT(*below->log, IsEmpty());
    presenting->dismissViewControllerAnimated(true, nullptr);
    EXPECT_NE(presented->view()->window(), nullptr);
    host.tap({100, 100});
    EXPECT_THAT(*below->log, ElementsAre("began 0", "ended 0"));
    EXPECT_EQ(host.window()->modalView(), nullptr);
    host.advance(1.0);
    EXPECT_EQ(presented->view()->window(), nullptr);
}

TEST_F(PresentationTest, WhatIsPresentedOrPresentingAlreadyIsLeftWithAWarning) {
    presenting->presentViewController(presented, false, nullptr);
    const auto other = make<UIViewController>();
    const std::string again = warnings([&] { presenting->presentViewController(presented, true, count); });
    EXPECT_EQ(again, "Warning: attempt to present 'UIKit.UIViewController' over 'UIKit.UIViewController' "
                     "which is presenting already\n");
    EXPECT_NE(warnings([&] { presenting->presentViewController(other, true, count); }), "");
    EXPECT_EQ(other->presentingViewController(), nullptr);
    const auto elsewhere = make<UIViewController>();
    host.window()->addSubview(elsewhere->view());
    EXPECT_NE(warnings([&] { elsewhere->presentViewController(presented, true, count); }), "");
    EXPECT_EQ(elsewhere->presentedViewController(), nullptr);
    EXPECT_EQ(presented->presentingViewController(), presenting);
    host.advance(1.0);
    EXPECT_EQ(completions, 0);
}

TEST_F(PresentationTest, OutsideAWindowNothingIsPresented) {
    const auto outside = make<UIViewController>();
    EXPECT_EQ(warnings([&] { outside->presentViewController(presented, true, count); }),
              "Warning: attempt to present 'UIKit.UIViewController' over 'UIKit.UIViewController' whose view "
              "is in no window\n");
    EXPECT_EQ(presented->presentingViewController(), nullptr);
}

TEST_F(PresentationTest, APresentationDuringAFadeOutBeginsAtOnce) {
    presenting->presentViewController(presented, false, nullptr);
    presenting->dismissViewControllerAnimated(true, count);
    host.advance(0.1);
    presenting->presentViewController(presented, true, nullptr);
    EXPECT_EQ(presenting->presentedViewController(), presented);
    host.advance(1.0);
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(presenting->presentedViewController(), presented);
    EXPECT_EQ(presented->view()->window(), host.window());
    EXPECT_EQ(host.window()->subviews().size(), 2U);
}

TEST_F(PresentationTest, OnePresentationStandsOnAnotherAndFallsWithIt) {
    const auto top = make<UIViewController>();
    presenting->presentViewController(presented, false, nullptr);
    presented->presentViewController(top, false, nullptr);
    EXPECT_EQ(host.window()->subviews().size(), 3U);
    presenting->dismissViewControllerAnimated(false, nullptr);
    EXPECT_EQ(host.window()->subviews().size(), 1U);
    EXPECT_EQ(presented->presentedViewController(), nullptr);
    EXPECT_EQ(top->presentingViewController(), nullptr);
}

TEST_F(PresentationTest, GoesWhenThePresentingViewLeavesTheWindow) {
    presenting->presentViewController(presented, false, nullptr);
    presenting->view()->removeFromSuperview();
    EXPECT_THAT(host.window()->subviews(), IsEmpty());
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_EQ(presented->view()->superview(), nullptr);
}

TEST_F(PresentationTest, GoesWithThePresentingController) {
    presenting->presentViewController(presented, false, nullptr);
    presenting = nullptr;
    EXPECT_EQ(presented->view()->window(), nullptr);
    EXPECT_EQ(presented->presentingViewController(), nullptr);
    EXPECT_EQ(host.window()->subviews().size(), 1U);
}

TEST_F(PresentationTest, GoesWithTheWindow) {
    auto window = make<UIWindow>(CGRectMake(0, 0, 100, 100));
    window->addSubview(presenting->view());
    presenting->presentViewController(presented, true, count);
    window = nullptr;
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_EQ(presented->view()->window(), nullptr);
    host.advance(1.0);
    EXPECT_EQ(completions, 1);
}

TEST_F(PresentationTest, AControllerWithoutAViewIsNotPresented) {
    const auto viewless = make<LoggingController>();
    viewless->makesView = false;
    presenting->presentViewController(viewless, true, count);
    EXPECT_EQ(presenting->presentedViewController(), nullptr);
    EXPECT_EQ(host.window()->subviews().size(), 1U);
}

TEST_F(PresentationDeathTest, PresentingNothingIsReported) {
    EXPECT_DEATH(presenting->presentViewController(nullptr, true, nullptr),
                 "Fatal error: No view controller for 'presentViewController:animated:completion:' of class "
                 "'UIKit.UIViewController'");
}

TEST_F(PresentationDeathTest, PresentingOneOverItselfIsReported) {
    const std::string report = "Fatal error: 'presentViewController:animated:completion:' of class "
                               "'UIKit.UIViewController' would present a view controller of class "
                               "'UIKit.UIViewController' over itself";
    EXPECT_DEATH(presenting->presentViewController(presenting, true, nullptr), report);
    presenting->presentViewController(presented, false, nullptr);
    EXPECT_DEATH(presented->presentViewController(presenting, true, nullptr), report);
    const auto third = make<UIViewController>();
    presented->presentViewController(third, false, nullptr);
    EXPECT_DEATH(third->presentViewController(presenting, true, nullptr), report);
}

TEST_F(PresentationTest, AWindowThatGoesAsTheViewAppearsEndsThePresentation) {
    for (const UIModalPresentationStyle style :
         {UIModalPresentationStyle::FullScreen, UIModalPresentationStyle::Popover}) {
        auto window = make<UIWindow>(CGRectMake(0, 0, 320, 240));
        const auto over = make<UIViewController>();
        window->addSubview(over->view());
        const auto root = makeProbe({});
        root->onWindow = [&window] { window = nullptr; };
        const auto appearing = make<UIViewController>();
        appearing->setModalPresentationStyle(style);
        appearing->setView(root);
        over->presentViewController(appearing, true, count);
        EXPECT_EQ(window, nullptr);
        EXPECT_EQ(over->presentedViewController(), nullptr);
        EXPECT_EQ(appearing->presentingViewController(), nullptr);
        EXPECT_EQ(root->window(), nullptr);
        host.advance(1.0);
        EXPECT_EQ(completions, 0);
    }
}

TEST_F(PresentationTest, AWindowThatGoesWhileTheViewIsLoadedEndsThePresentation) {
    class Leaving : public UIViewController {
    public:
        std::shared_ptr<UIWindow> window;
        void loadView() override {
            UIViewController::loadView();
            window = nullptr;
        }
    };
    const auto leaving = make<Leaving>();
    leaving->window = make<UIWindow>(CGRectMake(0, 0, 320, 240));
    const auto over = make<UIViewController>();
    leaving->window->addSubview(over->view());
    over->presentViewController(leaving, true, count);
    EXPECT_EQ(over->presentedViewController(), nullptr);
    host.advance(1.0);
    EXPECT_EQ(completions, 0);
}

/// A controller that has its root view from elsewhere.
class BorrowingController : public UIViewController {
public:
    std::shared_ptr<UIView> borrowed = makeView(CGRectMake(0, 0, 320, 240));
    std::shared_ptr<UIView> view() override { return borrowed; }
};

TEST_F(PresentationTest, ControllersWithAViewOfTheirOwnPresentAndArePresented) {
    const auto over = make<BorrowingController>();
    const auto borrowing = make<BorrowingController>();
    host.window()->addSubview(over->borrowed);
    EXPECT_EQ(warnings([&] { over->presentViewController(borrowing, false, count); }), "");
    EXPECT_EQ(over->presentedViewController(), borrowing);
    EXPECT_EQ(borrowing->borrowed->window(), host.window());
    over->dismissViewControllerAnimated(false, nullptr);
    EXPECT_EQ(borrowing->borrowed->superview(), nullptr);
    borrowing->setModalPresentationStyle(UIModalPresentationStyle::Popover);
    const auto source = makeView(CGRectMake(100, 0, 40, 40));
    over->borrowed->addSubview(source);
    borrowing->popoverPresentationController()->setSourceView(source);
    over->presentViewController(borrowing, false, nullptr);
    EXPECT_EQ(borrowing->popoverPresentationController()->arrowDirection(), UIPopoverArrowDirectionUp);
    EXPECT_EQ(borrowing->borrowed->window(), host.window());
}

} // namespace
