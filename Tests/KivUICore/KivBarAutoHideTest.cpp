#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Watchers.h"

#include <limits>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIView;

constexpr double fade = 0.5;
constexpr double moment = 1e-3;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// A bar that counts what it is asked to do.
class CountingBar : public TopBar {
public:
    void setAutoHide(double delay) override {
        ++autoHides;
        TopBar::setAutoHide(delay);
    }
    void resetAutoHide() override {
        ++resets;
        TopBar::resetAutoHide();
    }
    void hide() override {
        ++hides;
        TopBar::hide();
    }
    void show() override {
        ++shows;
        TopBar::show();
    }

    int autoHides = 0;
    int resets = 0;
    int hides = 0;
    int shows = 0;
};

class KivBarAutoHideTest : public testing::Test {
protected:
    KivBarAutoHideTest() {
        for (int index = 0; index < 3; ++index) {
            const auto component = make<UIComponent>();
            component->setView(make<UIView>());
            bar->addElementToView(component, 2);
        }
    }

    bool isIdle() { return host.runLoop().timeUntilNextWork() == std::nullopt; }

    /// True when the container view and all of its direct subviews have that alpha.
    bool isAt(CGFloat alpha) const {
        bool result = bar->view()->alpha() == alpha;
        for (const auto& subview : bar->view()->subviews()) {
            result = result && subview->alpha() == alpha;
        }
        return result;
    }

    /// What of the container view is to be seen.
    double shownAlpha() const { return bar->view()->presentedAlpha(); }

    KivUICore::Headless::HeadlessHost host{{320.0, 480.0}};
    std::shared_ptr<CountingBar> bar = make<CountingBar>(host.window());
};

// A new bar

TEST_F(KivBarAutoHideTest, ANewBarIsShownAndCountsNothingDown) {
    bar->show();
    bar->resetAutoHide();
    EXPECT_TRUE(isAt(1.0));
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(bar->autoHides, 0);
}

// setAutoHide

TEST_F(KivBarAutoHideTest, AutoHideSchedulesATimerForItsDelay) {
    bar->setAutoHide(3.0);
    EXPECT_EQ(bar->delay(), 3.0);
    const auto timer = bar->autoHideTimer();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isValid());
    EXPECT_EQ(timer->timeInterval(), 3.0);
    EXPECT_EQ(timer->userInfo(), nullptr);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), 3.0);
}

TEST_F(KivBarAutoHideTest, ABarHidesAfterItsDelayAndFadesEasingIn) {
    bar->setAutoHide(3.0);
    host.advance(3.0 - moment);
    EXPECT_TRUE(isAt(1.0));
    EXPECT_EQ(bar->hides, 0);
    host.advance(moment);
    EXPECT_EQ(bar->hides, 1);
    EXPECT_TRUE(isAt(0.0));
    EXPECT_FALSE(bar->autoHideTimer()->isValid());

    host.advance(fade / 2.0);
    // Less than half of the way in half of the time.
    EXPECT_GT(shownAlpha(), 0.6);
    EXPECT_LT(shownAlpha(), 0.8);
    EXPECT_EQ(bar->resets, 0);
    host.advance(fade / 2.0 - moment);
    EXPECT_EQ(bar->resets, 0);
    host.advance(2.0 * moment);
    EXPECT_EQ(shownAlpha(), 0.0);
    EXPECT_EQ(bar->resets, 1);
}

TEST_F(KivBarAutoHideTest, AHiddenBarCountsDownOnceMoreAndThenRests) {
    bar->setAutoHide(3.0);
    host.advance(3.0 + fade);
    const auto timer = bar->autoHideTimer();
    EXPECT_TRUE(timer->isValid());
    EXPECT_EQ(bar->autoHides, 2);
    EXPECT_NEAR(host.runLoop().timeUntilNextWork().value_or(0.0), 3.0, moment);
    host.advance(3.0 + moment);
    EXPECT_EQ(bar->hides, 2);
    EXPECT_FALSE(timer->isValid());
    EXPECT_EQ(bar->autoHideTimer(), timer);
    EXPECT_EQ(bar->resets, 1);
    EXPECT_TRUE(isAt(0.0));
    EXPECT_TRUE(isIdle());
}

TEST_F(KivBarAutoHideTest, TheCountdownOfAShownBarStartsWhenItsFadeEnds) {
    bar->setAutoHide(3.0);
    host.advance(10.0);
    ASSERT_TRUE(isIdle());
    bar->show();
    EXPECT_TRUE(isAt(1.0));
    host.advance(fade + 3.0 - 5.0 * moment);
    EXPECT_TRUE(isAt(1.0));
    EXPECT_EQ(bar->resets, 2);
    host.advance(10.0 * moment);
    EXPECT_TRUE(isAt(0.0));
    EXPECT_EQ(bar->hides, 3);
}

TEST_F(KivBarAutoHideTest, ActivityPostponesTheHiding) {
    bar->setAutoHide(3.0);
    const auto first = bar->autoHideTimer();
    host.advance(2.0);
    bar->resetAutoHide();
    EXPECT_FALSE(first->isValid());
    EXPECT_NE(bar->autoHideTimer(), first);
    EXPECT_EQ(bar->delay(), 3.0);
    host.advance(3.0 - moment);
    EXPECT_TRUE(isAt(1.0));
    EXPECT_NEAR(host.runLoop().now(), 5.0 - moment, 1e-9);
    host.advance(2.0 * moment);
    EXPECT_TRUE(isAt(0.0));
    EXPECT_EQ(bar->hides, 1);
}

TEST_F(KivBarAutoHideTest, ActivityOverAndOverKeepsTheBarShown) {
    bar->setAutoHide(3.0);
    for (int index = 0; index < 10; ++index) {
        host.advance(2.9);
        bar->resetAutoHide();
    }
    EXPECT_TRUE(isAt(1.0));
    EXPECT_EQ(bar->hides, 0);
}

TEST_F(KivBarAutoHideTest, ASecondAutoHideLeavesTheFirstTimerRunning) {
    bar->setAutoHide(3.0);
    const auto first = bar->autoHideTimer();
    bar->setAutoHide(5.0);
    EXPECT_EQ(bar->delay(), 5.0);
    EXPECT_TRUE(first->isValid());
    EXPECT_NE(bar->autoHideTimer(), first);
    host.advance(3.0 + moment);
    EXPECT_TRUE(isAt(0.0));
    EXPECT_EQ(bar->hides, 1);
    // The fade that the first one started takes the second one's place when it ends.
    const auto second = bar->autoHideTimer();
    EXPECT_TRUE(second->isValid());
    host.advance(fade);
    EXPECT_FALSE(second->isValid());
    EXPECT_TRUE(bar->autoHideTimer()->isValid());
    host.advance(5.0 + moment);
    EXPECT_EQ(bar->hides, 2);
    EXPECT_TRUE(isIdle());
}

TEST_F(KivBarAutoHideTest, BothTimersFireWhenNothingComesBetween) {
    bar->setAutoHide(3.0);
    bar->setAutoHide(3.25);
    host.advance(3.1);
    EXPECT_EQ(bar->hides, 1);
    host.advance(0.2);
    EXPECT_EQ(bar->hides, 2);
    EXPECT_EQ(bar->resets, 0);
}

TEST_F(KivBarAutoHideTest, EachAutoHideOfTheSameDelayFires) {
    bar->setAutoHide(1.0);
    bar->setAutoHide(1.0);
    bar->setAutoHide(1.0);
    host.advance(1.0 + moment);
    EXPECT_EQ(bar->hides, 3);
}

TEST_F(KivBarAutoHideTest, ADelayOfNothingStillHidesOnce) {
    bar->setAutoHide(0.0);
    EXPECT_EQ(bar->delay(), 0.0);
    ASSERT_NE(bar->autoHideTimer(), nullptr);
    EXPECT_EQ(bar->autoHideTimer()->timeInterval(), 0.0);
    EXPECT_TRUE(isAt(1.0));
    bar->resetAutoHide();
    EXPECT_TRUE(bar->autoHideTimer()->isValid());
    host.runLoop().turn();
    EXPECT_TRUE(isAt(0.0));
    host.advance(2.0 * fade);
    EXPECT_EQ(bar->hides, 1);
    EXPECT_EQ(bar->resets, 2);
    EXPECT_EQ(bar->autoHides, 1);
    EXPECT_TRUE(isIdle());
}

TEST_F(KivBarAutoHideTest, DelaysGoToTheTimerAsTheyAre) {
    for (const double delay : {-2.0, -infinity, notANumber}) {
        const auto other = make<CountingBar>(host.window());
        other->setAutoHide(delay);
        ASSERT_NE(other->autoHideTimer(), nullptr);
        host.runLoop().turn();
        EXPECT_EQ(other->hides, 1) << delay;
        EXPECT_EQ(other->view()->alpha(), 0.0);
    }
    const auto other = make<CountingBar>(host.window());
    other->setAutoHide(infinity);
    EXPECT_EQ(other->autoHideTimer()->timeInterval(), infinity);
    host.advance(1e6);
    EXPECT_EQ(other->hides, 0);
    EXPECT_TRUE(isIdle());
    other->autoHideTimer()->invalidate();
}

// resetAutoHide

TEST_F(KivBarAutoHideTest, WithoutADelayActivityChangesNothing) {
    for (const double delay : {0.0, -1.0, notANumber, -infinity}) {
        bar->setAutoHide(3.0);
        const auto timer = bar->autoHideTimer();
        bar->setDelay(delay);
        bar->resetAutoHide();
        EXPECT_EQ(bar->autoHideTimer(), timer) << delay;
        EXPECT_TRUE(timer->isValid()) << delay;
        timer->invalidate();
    }
}

TEST_F(KivBarAutoHideTest, ADelayThatIsAssignedWorksFromTheNextActivityOn) {
    bar->setDelay(2.0);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_TRUE(isIdle());
    bar->resetAutoHide();
    ASSERT_NE(bar->autoHideTimer(), nullptr);
    host.advance(2.0 + moment);
    EXPECT_TRUE(isAt(0.0));
}

TEST_F(KivBarAutoHideTest, ADelayThatIsTakenAwayLetsThePendingTimerFireOnce) {
    bar->setAutoHide(3.0);
    bar->setDelay(0.0);
    host.advance(10.0);
    EXPECT_EQ(bar->hides, 1);
    EXPECT_EQ(bar->resets, 1);
    EXPECT_EQ(bar->autoHides, 1);
    EXPECT_TRUE(isAt(0.0));
    EXPECT_TRUE(isIdle());
    bar->show();
    host.advance(10.0);
    EXPECT_TRUE(isAt(1.0));
    EXPECT_TRUE(isIdle());
}

// hide and show

TEST_F(KivBarAutoHideTest, HidingFadesTheContainerViewAndItsDirectSubviewsAlone) {
    const auto picture = make<UIView>();
    const auto inside = make<UIView>();
    picture->addSubview(inside);
    bar->view()->addSubview(picture);
    bar->hide();
    EXPECT_TRUE(isAt(0.0));
    EXPECT_EQ(picture->alpha(), 0.0);
    EXPECT_EQ(inside->alpha(), 1.0);
    for (const auto& slot : bar->view()->subviews()) {
        for (const auto& control : slot->subviews()) {
            EXPECT_EQ(control->alpha(), 1.0);
        }
    }
}

TEST_F(KivBarAutoHideTest, AHiddenBarStaysWhereItIs) {
    bar->hide();
    host.advance(1.0);
    EXPECT_FALSE(bar->view()->isHidden());
    EXPECT_EQ(bar->view()->superview(), host.window());
    EXPECT_EQ(bar->view()->subviews().size(), 3U);
    for (const auto& slot : bar->view()->subviews()) {
        EXPECT_FALSE(slot->isHidden());
    }
}

TEST_F(KivBarAutoHideTest, AFadeLeavesNoSubviewHalfTransparent) {
    const auto subview = bar->view()->subviews()[1];
    subview->setAlpha(0.5);
    bar->hide();
    host.advance(1.0);
    bar->show();
    host.advance(1.0);
    EXPECT_EQ(subview->alpha(), 1.0);
}

TEST_F(KivBarAutoHideTest, HidingAHiddenBarDoesNothing) {
    bar->setDelay(3.0);
    bar->view()->setAlpha(0.0);
    bar->hide();
    EXPECT_TRUE(isIdle());
    EXPECT_EQ(bar->view()->subviews()[0]->alpha(), 1.0);
    bar->setAutoHide(3.0);
    const auto timer = bar->autoHideTimer();
    bar->hide();
    EXPECT_EQ(bar->autoHideTimer(), timer);
    EXPECT_TRUE(timer->isValid());
    host.advance(1.0);
    EXPECT_EQ(bar->resets, 0);
}

TEST_F(KivBarAutoHideTest, ShowingAShownBarDoesNothing) {
    bar->view()->subviews()[0]->setAlpha(0.5);
    bar->setAutoHide(3.0);
    const auto timer = bar->autoHideTimer();
    host.advance(1.0);
    bar->show();
    EXPECT_EQ(bar->autoHideTimer(), timer);
    EXPECT_EQ(bar->view()->subviews()[0]->alpha(), 0.5);
    host.advance(1.0);
    EXPECT_EQ(bar->resets, 0);
    EXPECT_NEAR(host.runLoop().timeUntilNextWork().value_or(0.0), 1.0, 1e-9);
}

TEST_F(KivBarAutoHideTest, NearlyHiddenIsNotHiddenAndNearlyShownIsNotShown) {
    bar->view()->setAlpha(0.001);
    bar->hide();
    EXPECT_TRUE(isAt(0.0));
    host.advance(1.0);
    EXPECT_EQ(bar->resets, 1);
    bar->view()->setAlpha(0.999);
    bar->show();
    EXPECT_TRUE(isAt(1.0));
    host.advance(1.0);
    EXPECT_EQ(bar->resets, 2);
}

TEST_F(KivBarAutoHideTest, AnAlphaOutOfRangeOrThatIsNoNumberIsNeitherHiddenNorShown) {
    for (const CGFloat alpha : {-0.5, -infinity, 1.5, infinity, notANumber}) {
        bar->view()->setAlpha(alpha);
        bar->hide();
        EXPECT_TRUE(isAt(0.0)) << alpha;
        host.advance(1.0);
        bar->view()->setAlpha(alpha);
        bar->show();
        EXPECT_TRUE(isAt(1.0)) << alpha;
        host.advance(1.0);
    }
    EXPECT_EQ(bar->resets, 10);
}

/// A view that writes down when its alpha is set, and may do more.
class NotingView : public UIView {
public:
    using UIView::init;
    bool init(Story& story, const std::string& name) {
        story_ = &story;
        name_ = name;
        return UIView::init();
    }

    void setAlpha(CGFloat alpha) override {
        UIView::setAlpha(alpha);
        story_->push_back(name_);
        if (onAlpha) {
            onAlpha();
        }
    }

    std::function<void()> onAlpha;

private:
    Story* story_ = nullptr;
    std::string name_;
};

TEST_F(KivBarAutoHideTest, TheContainerViewIsSetFirstAndThenWhatIsInItByThen) {
    Story story;
    const auto container = make<NotingView>(story, "container");
    const auto late = make<NotingView>(story, "late");
    for (const char* name : {"first", "second"}) {
        container->addSubview(make<NotingView>(story, name));
    }
    bar->setView(container);
    container->onAlpha = [&] { container->addSubview(late); };
    bar->hide();
    EXPECT_EQ(story, (Story{"container", "first", "second", "late"}));
    EXPECT_EQ(late->alpha(), 0.0);
}

TEST_F(KivBarAutoHideTest, ASecondHideDuringAFadeOutDoesNothing) {
    bar->hide();
    host.advance(0.25);
    bar->hide();
    host.advance(0.25 + moment);
    EXPECT_EQ(bar->resets, 1);
    EXPECT_TRUE(isIdle());
}

TEST_F(KivBarAutoHideTest, AShowDuringAFadeOutFadesInAndBothFadesCompleteOnce) {
    bar->setDelay(3.0);
    bar->hide();
    host.advance(0.25);
    const double shown = shownAlpha();
    bar->show();
    EXPECT_TRUE(isAt(1.0));
    EXPECT_NEAR(shownAlpha(), shown, 1e-9);
    host.advance(fade + 2.0 * moment);
    EXPECT_EQ(bar->resets, 2);
    EXPECT_EQ(shownAlpha(), 1.0);
    host.advance(3.0 - 5.0 * moment);
    EXPECT_EQ(bar->hides, 1);
    host.advance(5.0 * moment);
    EXPECT_EQ(bar->hides, 2);
}

TEST_F(KivBarAutoHideTest, AFadeThatIsInterruptedStartsTheCountdownToo) {
    bar->setDelay(3.0);
    bar->hide();
    host.advance(0.25);
    bar->view()->setAlpha(0.0);
    bar->view()->setAlpha(0.5);
    for (const auto& subview : bar->view()->subviews()) {
        subview->setAlpha(0.5);
    }
    host.advance(fade);
    EXPECT_EQ(bar->resets, 1);
    ASSERT_NE(bar->autoHideTimer(), nullptr);
    EXPECT_TRUE(bar->autoHideTimer()->isValid());
}

TEST_F(KivBarAutoHideTest, AFadeOfAViewThatIsGoneStartsTheCountdownToo) {
    bar->setDelay(3.0);
    bar->hide();
    bar->view()->removeFromSuperview();
    bar->setView(make<UIView>());
    host.advance(fade + moment);
    EXPECT_EQ(bar->resets, 1);
}

TEST_F(KivBarAutoHideTest, FadesWorkInABarThatIsInNoWindow) {
    const auto lonely = make<CountingBar>(make<UIView>(CGRectMake(0.0, 0.0, 100.0, 100.0)));
    lonely->setAutoHide(1.0);
    host.advance(1.0 + moment);
    EXPECT_EQ(lonely->view()->alpha(), 0.0);
    host.advance(fade + moment);
    EXPECT_EQ(lonely->resets, 1);
}

TEST_F(KivBarAutoHideTest, TheViewThatFadesIsTheOneThatTheBarHasNow) {
    const auto first = bar->view();
    const auto other = make<UIView>();
    bar->setView(other);
    bar->hide();
    EXPECT_EQ(other->alpha(), 0.0);
    EXPECT_EQ(first->alpha(), 1.0);
}

// Cleaning

TEST_F(KivBarAutoHideTest, CleaningStopsTheCountdownUntilTheNextActivity) {
    bar->setAutoHide(3.0);
    bar->clean();
    host.advance(10.0);
    EXPECT_EQ(bar->hides, 0);
    EXPECT_EQ(bar->delay(), 3.0);
    bar->resetAutoHide();
    host.advance(3.0 + moment);
    EXPECT_EQ(bar->hides, 1);
}

TEST_F(KivBarAutoHideTest, AFadeThatEndsAfterCleaningStartsTheCountdownAgain) {
    bar->setDelay(3.0);
    bar->hide();
    bar->clean();
    host.advance(fade + moment);
    ASSERT_NE(bar->autoHideTimer(), nullptr);
    EXPECT_TRUE(bar->autoHideTimer()->isValid());
}

// Who holds whom

TEST_F(KivBarAutoHideTest, APendingTimerKeepsItsBarUntilItFires) {
    const std::weak_ptr<CountingBar> present = bar;
    const auto view = bar->view();
    bar->setAutoHide(3.0);
    bar->setDelay(0.0);
    bar = nullptr;
    host.advance(3.0 - moment);
    EXPECT_FALSE(present.expired());
    host.advance(2.0 * moment);
    EXPECT_EQ(view->alpha(), 0.0);
    // The fade holds it from here on.
    host.advance(fade - 4.0 * moment);
    EXPECT_FALSE(present.expired());
    host.advance(10.0 * moment);
    EXPECT_TRUE(present.expired());
}

TEST_F(KivBarAutoHideTest, AForgottenBarWithADelayEndsWhenItHasHidden) {
    const std::weak_ptr<CountingBar> present = bar;
    bar->setAutoHide(3.0);
    bar = nullptr;
    host.advance(3.0 + fade + 3.0 - 10.0 * moment);
    EXPECT_FALSE(present.expired());
    host.advance(20.0 * moment);
    EXPECT_TRUE(present.expired());
    EXPECT_TRUE(isIdle());
}

TEST_F(KivBarAutoHideTest, CleaningLetsABarGoThatOnlyItsTimerHolds) {
    const std::weak_ptr<CountingBar> present = bar;
    bar->setAutoHide(3.0);
    CountingBar& held = *bar;
    bar = nullptr;
    ASSERT_FALSE(present.expired());
    held.clean();
    EXPECT_TRUE(present.expired());
}

TEST_F(KivBarAutoHideTest, ActivityKeepsABarThatOnlyItsTimerHolds) {
    const std::weak_ptr<CountingBar> present = bar;
    bar->setAutoHide(3.0);
    CountingBar& held = *bar;
    bar = nullptr;
    host.advance(2.0);
    held.resetAutoHide();
    host.advance(2.0);
    EXPECT_FALSE(present.expired());
    EXPECT_EQ(held.hides, 0);
    host.advance(10.0);
    EXPECT_TRUE(present.expired());
}

TEST_F(KivBarAutoHideTest, TheCleanOfASubclassMayUseTheWholeBarWhileItEnds) {
    class Parting : public TopBar {
    public:
        void clean() override {
            resetAutoHide();
            updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
            TopBar::clean();
            hide();
            setAutoHide(1.0);
        }
    };
    auto parting = make<Parting>(host.window());
    const std::weak_ptr<Parting> present = parting;
    const auto view = parting->view();
    const auto slot = make<UIView>();
    view->addSubview(slot);
    parting->setDelay(2.0);
    parting = nullptr;
    EXPECT_TRUE(present.expired());
    EXPECT_EQ(view->frame(), CGRectMake(0.0, 0.0, 480.0, 40.0));
    EXPECT_EQ(view->alpha(), 0.0);
    EXPECT_EQ(slot->alpha(), 0.0);
    host.advance(10.0);
    EXPECT_TRUE(isIdle());
}

// Overriding

/// A bar with a delay of its own, which is never stored.
class PatientBar : public TopBar {
public:
    void setAutoHide(double delay) override { given.push_back(delay); }
    double delay() const override { return 7.0; }
    void setAutoHideTimer(const std::shared_ptr<NSTimer>& timer) override {
        given.push_back(timer ? 1.0 : 0.0);
        TopBar::setAutoHideTimer(timer);
    }

    std::vector<double> given;
};

TEST_F(KivBarAutoHideTest, TheCountdownGoesThroughWhatASubclassOverrides) {
    const auto patient = make<PatientBar>(host.window());
    patient->resetAutoHide();
    EXPECT_EQ(patient->given, (std::vector{0.0, 7.0}));
    patient->given.clear();
    patient->TopBar::setAutoHide(2.0);
    EXPECT_EQ(patient->given, std::vector{1.0});
    EXPECT_EQ(patient->KivBar::delay(), 2.0);
    patient->given.clear();
    host.advance(2.0 + fade + moment);
    EXPECT_EQ(patient->given, (std::vector{0.0, 7.0}));
}

/// A bar that shows another view than the one it was made with.
class BorrowingBar : public TopBar {
public:
    std::shared_ptr<UIView> view() const override { return borrowed; }

    std::shared_ptr<UIView> borrowed = make<UIView>();
};

TEST_F(KivBarAutoHideTest, FadesAreOfTheViewThatASubclassGives) {
    const auto borrowing = make<BorrowingBar>(host.window());
    const auto own = borrowing->KivBar::view();
    const auto inside = make<UIView>();
    borrowing->borrowed->addSubview(inside);
    own->setAlpha(0.0);
    borrowing->hide();
    EXPECT_EQ(borrowing->borrowed->alpha(), 0.0);
    EXPECT_EQ(inside->alpha(), 0.0);
    own->setAlpha(1.0);
    borrowing->show();
    EXPECT_EQ(borrowing->borrowed->alpha(), 1.0);
    EXPECT_EQ(inside->alpha(), 1.0);
    EXPECT_EQ(own->alpha(), 1.0);
}

TEST_F(KivBarAutoHideTest, TheTimerThatASubclassGivesIsStoppedAndThenLetGo) {
    class OwnTimerBar : public TopBar {
    public:
        std::shared_ptr<NSTimer> autoHideTimer() const override { return own; }
        void setAutoHideTimer(const std::shared_ptr<NSTimer>& timer) override {
            story.push_back(std::string(own && own->isValid() ? "running, " : "stopped, ") +
                            (timer ? "setAutoHideTimer:" : "setAutoHideTimer: nothing"));
            own = timer;
        }
        std::shared_ptr<NSTimer> own;
        Story story;
    };
    const auto owning = make<OwnTimerBar>(host.window());
    owning->setAutoHide(2.0);
    owning->story.clear();
    owning->resetAutoHide();
    EXPECT_EQ(owning->story, (Story{"stopped, setAutoHideTimer: nothing", "stopped, setAutoHideTimer:"}));
    owning->story.clear();
    owning->clean();
    EXPECT_EQ(owning->story, Story{"stopped, setAutoHideTimer: nothing"});
    EXPECT_TRUE(isIdle());
}

TEST_F(KivBarAutoHideTest, DelayAndThenTimerAreStoredThroughASubclass) {
    class ListeningBar : public TopBar {
    public:
        void setDelay(double delay) override {
            story.push_back("setDelay: " + std::to_string(delay));
            work.push_back(NSRunLoop::currentRunLoop().timeUntilNextWork());
            TopBar::setDelay(delay);
        }
        void setAutoHideTimer(const std::shared_ptr<NSTimer>& timer) override {
            story.push_back("setAutoHideTimer: " +
                            (timer ? std::to_string(timer->timeInterval()) : "nothing"));
            work.push_back(NSRunLoop::currentRunLoop().timeUntilNextWork());
            TopBar::setAutoHideTimer(timer);
        }
        Story story;
        std::vector<std::optional<double>> work;
    };
    const auto listening = make<ListeningBar>(host.window());
    listening->setAutoHide(2.0);
    EXPECT_EQ(listening->story, (Story{"setDelay: 2.000000", "setAutoHideTimer: 2.000000"}));
    EXPECT_EQ(listening->work, (std::vector<std::optional<double>>{std::nullopt, 2.0}));
}

TEST_F(KivBarAutoHideTest, TheTimerTellsTheBarByName) {
    class SteadyBar : public TopBar {
    public:
        static const Class& classObject() {
            static const Class& object =
                ClassBuilder<SteadyBar, TopBar>("Tests.SteadyBar").method<&SteadyBar::stay>("hide").build();
            return object;
        }
        void stay() { ++stays; }
        int stays = 0;
    };
    const auto steady = make<SteadyBar>(host.window());
    steady->setAutoHide(1.0);
    host.advance(1.0 + moment);
    EXPECT_EQ(steady->stays, 1);
    EXPECT_EQ(steady->view()->alpha(), 1.0);
}

TEST_F(KivBarAutoHideTest, TheCountdownIsWorkedByName) {
    const std::shared_ptr<NSObject> named = bar;
    named->send("setAutoHide:", 2.0);
    EXPECT_EQ(named->send<double>("delay"), 2.0);
    host.advance(1.0);
    named->send("resetAutoHide");
    host.advance(1.5);
    EXPECT_TRUE(isAt(1.0));
    named->send("hide");
    EXPECT_TRUE(isAt(0.0));
    named->send("show");
    EXPECT_TRUE(isAt(1.0));
    EXPECT_EQ(named->send<std::shared_ptr<NSTimer>>("autoHideTimer"), bar->autoHideTimer());
    named->send("setAutoHideTimer:", nullptr);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
}

} // namespace
