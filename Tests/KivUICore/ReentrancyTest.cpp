#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Watchers.h"

#include <gtest/gtest.h>
#include <utility>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UISlider;
using UIKit::UIView;

/// A player with its overlay as an application builds it: it owns its controls and bars and is their
/// observer. Whatever calls out may tear any of it down.
class ReentrancyTest : public testing::Test {
protected:
    struct Overlay {
        std::shared_ptr<Watcher> watcher;
        std::shared_ptr<Player> player;
        std::shared_ptr<PlayerWatcher> playerWatcher;
        std::shared_ptr<UISlider> slider;
        std::shared_ptr<SeekBar> seekBar;
        std::shared_ptr<UIKit::UIButton> buttonView;
        std::shared_ptr<Button> button;
        std::shared_ptr<BottomBar> bar;
    };

    ReentrancyTest() {
        overlay.watcher = make<Watcher>(story);
        overlay.player = make<Player>(true);
        overlay.playerWatcher = make<PlayerWatcher>(story);
        overlay.player->eventNotifier()->addObserver(overlay.playerWatcher);
        overlay.slider = make<UISlider>();
        overlay.seekBar = make<SeekBar>(overlay.slider, overlay.watcher, overlay.player);
        overlay.buttonView = make<UIKit::UIButton>();
        overlay.button = make<Button>(overlay.buttonView, nullptr);
        overlay.bar = make<BottomBar>(host->window());
        overlay.bar->addElementToView(overlay.button, 2);
        overlay.bar->addElementToView(overlay.seekBar, 8);
        remember(overlay.seekBar);
        remember(overlay.button);
        remember(overlay.bar);
        remember(overlay.watcher);
        remember(overlay.player);
    }

    ~ReentrancyTest() override {
        dropAll();
        host.reset();
        for (const auto& each : remembered) {
            EXPECT_TRUE(each.expired());
        }
    }

    void remember(const std::shared_ptr<NSObject>& object) { remembered.push_back(object); }

    /// Lets everything go, the views in the window included.
    void dropAll() {
        if (const auto bar = overlay.bar) {
            bar->view()->removeFromSuperview();
            bar->clean();
        }
        overlay = {};
    }

    void dropWindow() {
        const std::vector<std::shared_ptr<UIView>> views = host->window()->subviews();
        for (const auto& view : views) {
            view->removeFromSuperview();
        }
    }

    static constexpr CGPoint onButton{20.0, 460.0};
    static constexpr CGPoint onThumb{66.0, 460.0};

    void drag() {
        host->touchDown(onThumb);
        host->touchMove({onThumb.x + 30.0, onThumb.y});
        host->touchUp({onThumb.x + 30.0, onThumb.y});
    }

    void addControl() {
        if (overlay.bar) {
            const auto component = make<UIComponent>();
            component->setView(make<UIView>());
            overlay.bar->addElementToView(component, 1);
        }
    }

    Story story;
    std::unique_ptr<KivUICore::Headless::HeadlessHost> host =
        std::make_unique<KivUICore::Headless::HeadlessHost>(CGSizeMake(320.0, 480.0));
    Overlay overlay;
    std::vector<std::weak_ptr<NSObject>> remembered;
};

// Accessors that a subclass overrides

/// A bar and a seek bar that do something when they are read next. Whoever lets one go there must not watch
/// it by a weak reference: its memory would stay, and use of it go unnoticed.
class ReadBar : public KivBar {
public:
    std::shared_ptr<UIView> view() const override {
        auto result = KivBar::view();
        act();
        return result;
    }
    double delay() const override {
        const double result = KivBar::delay();
        act();
        return result;
    }
    mutable std::function<void()> onRead;

private:
    void act() const {
        if (const auto call = std::exchange(onRead, nullptr)) {
            call();
        }
    }
};

class ReadSeekBar : public SeekBar {
public:
    std::shared_ptr<UIEventObserver> observer() const override {
        auto result = SeekBar::observer();
        if (const auto call = std::exchange(onRead, nullptr)) {
            call();
        }
        return result;
    }
    mutable std::function<void()> onRead;
};

TEST_F(ReentrancyTest, ABarMayBeLetGoInsideEachReadOfItsAccessors) {
    const std::vector<std::function<void(KivBar&)>> operations{
        [](KivBar& bar) { bar.hide(); },
        [](KivBar& bar) { bar.show(); },
        [](KivBar& bar) { bar.resetAutoHide(); },
        [](KivBar& bar) { bar.setBackgroundColor(make<UIKit::UIColor>(1.0, 1.0)); },
        [](KivBar& bar) {
            bar.setBackgroundImage(imageOf({10.0, 10.0}));
        },
        [](KivBar& bar) { bar.updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 640.0, 480.0)); },
        [](KivBar& bar) { bar.addElementToView(make<UIComponent>(), 1); },
    };
    for (const auto& operate : operations) {
        auto bar = make<ReadBar>(host->window(), CGRectMake(0.0, 0.0, 320.0, 40.0));
        bar->view()->setAlpha(0.5);
        bar->setDelay(1.0);
        ReadBar& read = *bar;
        read.onRead = [&bar] { bar = nullptr; };
        operate(read);
        EXPECT_EQ(bar, nullptr);
        host->advance(5.0);
    }
}

TEST_F(ReentrancyTest, ASeekBarMayBeLetGoInsideTheReadOfItsObserver) {
    for (const char* event : {"beganScrubbing:", "endedScrubbing:", "onValueChanged:"}) {
        auto seekBar = make<ReadSeekBar>(overlay.slider, overlay.watcher, overlay.player);
        ReadSeekBar& read = *seekBar;
        read.onRead = [&seekBar] { seekBar = nullptr; };
        read.send(event, overlay.slider);
        EXPECT_EQ(seekBar, nullptr);
    }
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan", "onSeekFinished:", "player: onSeekEnd",
                            "onValueChanged:"}));
}

// The action of a button

TEST_F(ReentrancyTest, AnActionThatCountsGoesOnFromPressToPress) {
    std::vector<int> counts;
    overlay.button->setActionClosure([&counts, count = 0]() mutable { counts.push_back(++count); });
    host->tap(onButton);
    host->tap(onButton);
    overlay.button->actionClosure()();
    overlay.button->send<Block<void()>>("actionClosure")();
    overlay.button->setActionClosure(overlay.button->actionClosure());
    host->tap(onButton);
    EXPECT_EQ(counts, (std::vector{1, 2, 3, 4, 5}));
}

TEST_F(ReentrancyTest, AnActionMayTearEverythingDown) {
    bool ran = false;
    overlay.button->setActionClosure([this, &ran] {
        dropAll();
        ran = true;
    });
    host->tap(onButton);
    EXPECT_TRUE(ran);
    host->tap(onButton);
    host->advance(1.0);
}

TEST_F(ReentrancyTest, AnActionMayDropTheLastReferenceToItsButton) {
    const std::weak_ptr<Button> present = overlay.button;
    overlay.button->setActionClosure([this] {
        overlay.bar->clean();
        overlay.button = nullptr;
    });
    host->tap(onButton);
    EXPECT_TRUE(present.expired());
}

TEST_F(ReentrancyTest, AnActionMayReplaceItself) {
    auto token = std::make_shared<int>(7);
    int seen = 0;
    overlay.button->setActionClosure([this, token = std::move(token), &seen] {
        overlay.button->setActionClosure(nullptr);
        seen = *token;
    });
    host->tap(onButton);
    EXPECT_EQ(seen, 7);
    host->tap(onButton);
}

TEST_F(ReentrancyTest, AnActionThatTheApplicationReadsAndRunsMayReplaceItself) {
    auto token = std::make_shared<int>(7);
    int seen = 0;
    overlay.button->setActionClosure([this, token = std::move(token), &seen] {
        overlay.button->setActionClosure(nullptr);
        seen = *token;
    });
    overlay.button->actionClosure()();
    EXPECT_EQ(seen, 7);
    EXPECT_FALSE(overlay.button->actionClosure());
}

TEST_F(ReentrancyTest, AnActionMayTakeItsButtonOutOfTheWindowAndPressItAgain) {
    int presses = 0;
    overlay.button->setActionClosure([this, &presses] {
        if (++presses == 1) {
            overlay.buttonView->removeFromSuperview();
            overlay.button->send("touchAction:", overlay.buttonView);
        }
    });
    host->tap(onButton);
    EXPECT_EQ(presses, 2);
}

TEST_F(ReentrancyTest, AnActionMayAddControlsAndReLayTheBar) {
    overlay.button->setActionClosure([this] {
        addControl();
        overlay.bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 640.0, 480.0));
    });
    host->tap(onButton);
    EXPECT_EQ(overlay.bar->elemets()->size(), 3U);
    EXPECT_EQ(overlay.bar->view()->frame(), CGRectMake(0.0, 440.0, 640.0, 40.0));
}

TEST_F(ReentrancyTest, AnActionThatIsReplacedMayLookAtItsButtonOnItsWayOut) {
    struct Farewell {
        explicit Farewell(std::function<void()> closure) : run(std::move(closure)) {}
        ~Farewell() { run(); }
        std::function<void()> run;
    };
    bool ran = false;
    const Button& button = *overlay.button;
    auto farewell = std::make_shared<Farewell>([&button] { button.actionClosure()(); });
    overlay.button->setActionClosure([farewell] {});
    farewell = nullptr;
    overlay.button->setActionClosure([&ran] { ran = true; });
    EXPECT_TRUE(ran);
    overlay.button->setActionClosure(nullptr);
}

// The observer of a seek bar

class EachSeekEvent : public ReentrancyTest, public testing::WithParamInterface<const char*> {
protected:
    /// Does it once, when the observer is told of this test's event.
    void when(std::function<void()> act) {
        overlay.watcher->reaction = [this, act = std::move(act)](const std::string& operation) {
            if (operation == GetParam() && !done) {
                done = true;
                const auto once = act;
                once();
            }
        };
    }

    bool done = false;
};

INSTANTIATE_TEST_SUITE_P(Reentrancy, EachSeekEvent,
                         testing::Values("onSeekBegan:", "onValueChanged:", "onSeekFinished:"));

TEST_P(EachSeekEvent, TheObserverMayTearEverythingDown) {
    when([this] { dropAll(); });
    drag();
    EXPECT_TRUE(done);
    host->advance(1.0);
}

TEST_P(EachSeekEvent, TheObserverMayDropTheSeekBar) {
    const std::weak_ptr<SeekBar> present = overlay.seekBar;
    when([this] {
        overlay.bar->clean();
        overlay.seekBar = nullptr;
    });
    drag();
    EXPECT_TRUE(done);
    EXPECT_TRUE(present.expired());
}

TEST_P(EachSeekEvent, TheObserverMayEmptyTheWindow) {
    when([this] { dropWindow(); });
    drag();
    EXPECT_TRUE(done);
    EXPECT_FALSE(overlay.slider->isTracking());
    // Taking the slider away cancels the drag, so each beginning has its one end.
    EXPECT_EQ(std::count(story.begin(), story.end(), "onSeekBegan:"), 1);
    EXPECT_EQ(std::count(story.begin(), story.end(), "onSeekFinished:"), 1);
}

TEST_P(EachSeekEvent, TheObserverMayReplaceItselfAndEnd) {
    Story others;
    auto successor = make<Watcher>(others);
    const std::weak_ptr<Watcher> present = overlay.watcher;
    when([this, &successor] {
        overlay.seekBar->setObserver(successor);
        overlay.watcher = nullptr;
    });
    drag();
    EXPECT_TRUE(done);
    EXPECT_TRUE(present.expired());
    EXPECT_EQ(overlay.seekBar->observer(), successor);
    overlay.seekBar->setObserver(nullptr);
}

TEST_P(EachSeekEvent, TheObserverMayReplaceTheSlider) {
    when([this] {
        overlay.seekBar->setView(nullptr);
        overlay.slider->removeFromSuperview();
        overlay.slider = nullptr;
    });
    drag();
    EXPECT_TRUE(done);
    EXPECT_EQ(overlay.seekBar->currentValue(), 0.0F);
}

TEST_P(EachSeekEvent, TheObserverMayCleanTheBarAndPlaceControlsAnew) {
    when([this] {
        overlay.bar->clean();
        addControl();
        overlay.bar->addElementToView(overlay.seekBar, 8);
    });
    drag();
    EXPECT_TRUE(done);
    EXPECT_EQ(overlay.bar->elemets()->size(), 2U);
    EXPECT_EQ(overlay.seekBar->observer(), nullptr);
    EXPECT_NE(overlay.slider->superview(), nullptr);
}

TEST_P(EachSeekEvent, TheObserverMayDisableTheSeekBar) {
    when([this] { overlay.seekBar->disable(); });
    drag();
    EXPECT_TRUE(done);
    EXPECT_EQ(std::count(story.begin(), story.end(), "onSeekFinished:"), 1);
    EXPECT_EQ(std::count(story.begin(), story.end(), "player: onSeekEnd"), 1);
}

TEST_P(EachSeekEvent, TheObserverMayDropThePlayer) {
    when([this] {
        overlay.seekBar->setPlayer(nullptr);
        overlay.player = nullptr;
        overlay.playerWatcher = nullptr;
    });
    drag();
    EXPECT_TRUE(done);
}

TEST_F(ReentrancyTest, TheObserverMayLetGoOfASeekBarThatIsWorkedByName) {
    for (const char* operation : {"beganScrubbing:", "onValueChanged:", "endedScrubbing:"}) {
        // Nobody else holds the player, which goes with it.
        auto player = make<Player>(false);
        player->eventNotifier()->addObserver(overlay.playerWatcher);
        auto seekBar = make<SeekBar>(overlay.slider, overlay.watcher, player);
        player = nullptr;
        overlay.watcher->reaction = [&seekBar](const std::string&) { seekBar = nullptr; };
        seekBar->send(operation, overlay.slider);
        EXPECT_EQ(seekBar, nullptr);
    }
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan",
                            "onValueChanged:", "onSeekFinished:", "player: onSeekEnd"}));
}

// The player's own observers

TEST_F(ReentrancyTest, APlayersObserverMayTearEverythingDown) {
    overlay.playerWatcher->reaction = [this] { dropAll(); };
    drag();
    // Taking the bar's view out cancels the touch while the observer is still there.
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan", "onSeekFinished:", "player: onSeekEnd"}));
}

TEST_F(ReentrancyTest, APlayersObserverMayEndItsPeersAndThePlayer) {
    auto second = make<PlayerWatcher>(story);
    overlay.player->eventNotifier()->addObserver(second);
    overlay.playerWatcher->reaction = [this, &second] {
        second = nullptr;
        overlay.seekBar->setPlayer(nullptr);
        overlay.player = nullptr;
    };
    drag();
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan", "onValueChanged:", "onSeekFinished:"}));
}

// Timers and completions

/// A bar that does something when it hides, or when the countdown starts over.
class LivelyBar : public BottomBar {
public:
    void hide() override {
        BottomBar::hide();
        run(onHide);
    }
    void resetAutoHide() override {
        BottomBar::resetAutoHide();
        run(onReset);
    }

    std::function<void()> onHide;
    std::function<void()> onReset;

private:
    static void run(const std::function<void()>& closure) {
        if (const auto copy = closure) {
            copy();
        }
    }
};

TEST_F(ReentrancyTest, ATimerMayEndItsBar) {
    auto bar = make<LivelyBar>(host->window());
    remember(bar);
    bar->onHide = [&bar] {
        bar->setDelay(0.0);
        bar->clean();
        bar = nullptr;
    };
    bar->setAutoHide(1.0);
    host->advance(5.0);
    EXPECT_EQ(bar, nullptr);
}

TEST_F(ReentrancyTest, ATimerMayTearEverythingDown) {
    auto bar = make<LivelyBar>(host->window());
    remember(bar);
    bar->onHide = [this, &bar] {
        dropWindow();
        dropAll();
        bar->setDelay(0.0);
        bar = nullptr;
    };
    bar->setAutoHide(1.0);
    host->advance(5.0);
    EXPECT_EQ(bar, nullptr);
}

TEST_F(ReentrancyTest, ACompletionMayEndItsBarAndItsViews) {
    auto bar = make<LivelyBar>(host->window());
    remember(bar);
    bar->onReset = [this, &bar] {
        if (bar) {
            bar->clean();
            bar = nullptr;
        }
        dropWindow();
    };
    bar->hide();
    host->advance(2.0);
    EXPECT_EQ(bar, nullptr);
}

TEST_F(ReentrancyTest, ACompletionMayStartTheNextFade) {
    auto bar = make<LivelyBar>(host->window());
    int resets = 0;
    bar->onReset = [&] {
        ++resets;
        bar->view()->alpha() == 0.0 ? bar->show() : bar->hide();
    };
    bar->hide();
    host->advance(10.0);
    EXPECT_GE(resets, 18);
    EXPECT_LE(resets, 20);
    bar->onReset = nullptr;
    host->advance(1.0);
}

TEST_F(ReentrancyTest, ACompletionMayPlaceControlsAndReplaceTheContainerView) {
    auto bar = make<LivelyBar>(host->window());
    bar->onReset = [&bar] {
        bar->setView(make<UIView>());
        bar->addElementToView(make<UIComponent>(), 2);
    };
    bar->hide();
    host->advance(2.0);
    EXPECT_EQ(bar->view()->subviews().size(), 1U);
    EXPECT_EQ(bar->view()->alpha(), 1.0);
    bar->onReset = nullptr;
}

TEST_F(ReentrancyTest, AFadingBarMayLoseItsViewsAndItsWindow) {
    const std::weak_ptr<BottomBar> present = overlay.bar;
    overlay.bar->hide();
    host->advance(0.25);
    dropWindow();
    dropAll();
    EXPECT_FALSE(present.expired());
    host->advance(0.5);
    EXPECT_TRUE(present.expired());
}

/// A view whose alpha changes more than itself.
class UnsteadyView : public UIView {
public:
    void setAlpha(CGFloat alpha) override {
        UIView::setAlpha(alpha);
        if (const auto copy = onAlpha) {
            copy();
        }
    }
    void setFrame(const CGRect& frame) override {
        UIView::setFrame(frame);
        if (const auto copy = onFrame) {
            copy();
        }
    }

    std::function<void()> onAlpha;
    std::function<void()> onFrame;
};

TEST_F(ReentrancyTest, AFadeAndAReLayoutOutliveTheSlotsThatGoMeanwhile) {
    auto container = make<UnsteadyView>();
    const auto first = make<UnsteadyView>();
    const auto second = make<UIView>();
    container->addSubview(first);
    container->addSubview(second);
    auto bar = make<LivelyBar>(host->window());
    bar->setView(container);
    first->onAlpha = first->onFrame = [&] {
        const std::vector<std::shared_ptr<UIView>> views = container->subviews();
        for (const auto& view : views) {
            view->removeFromSuperview();
        }
    };
    bar->hide();
    EXPECT_EQ(second->alpha(), 0.0);
    container->addSubview(first);
    container->addSubview(second);
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(second->frame(), CGRectMake(80.0, 0.0, 288.0, 40.0));
    EXPECT_TRUE(container->subviews().empty());
}

TEST_F(ReentrancyTest, AFadeOutlivesTheBarBeingLetGoByItsOwnViews) {
    auto container = make<UnsteadyView>();
    auto bar = make<LivelyBar>(host->window());
    remember(bar);
    bar->setView(container);
    container->onAlpha = container->onFrame = [&bar] { bar = nullptr; };
    bar->hide();
    EXPECT_EQ(bar, nullptr);
    host->advance(1.0);
    bar = make<LivelyBar>(host->window());
    remember(bar);
    bar->setView(container);
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(bar, nullptr);
}

TEST_F(ReentrancyTest, ANewDelayMayEndTheBarThatItIsSetFor) {
    class Touchy : public TopBar {
    public:
        void setDelay(double delay) override {
            TopBar::setDelay(delay);
            if (const auto copy = onDelay) {
                copy();
            }
        }
        std::function<void()> onDelay;
    };
    auto bar = make<Touchy>(host->window());
    const std::weak_ptr<Touchy> present = bar;
    bar->onDelay = [&bar] { bar = nullptr; };
    bar->setAutoHide(1.0);
    EXPECT_EQ(bar, nullptr);
    // The timer has it by now.
    ASSERT_FALSE(present.expired());
    present.lock()->setDelay(0.0);
    host->advance(3.0);
    EXPECT_TRUE(present.expired());
}

TEST_F(ReentrancyTest, AnImageThatIsDrawnForTheBackgroundMayEndTheBar) {
    class Ending : public UIKit::UIImage {
    public:
        void drawInRect(const CGRect& rect) const override {
            UIImage::drawInRect(rect);
            onDrawing();
        }
        std::function<void()> onDrawing;
    };
    auto bar = make<TopBar>(host->window());
    const std::weak_ptr<TopBar> present = bar;
    const auto view = bar->view();
    const auto image = make<Ending>(CGRecordingContext({1.0, 1.0}).drawing());
    image->onDrawing = [&bar] { bar = nullptr; };
    bar->setBackgroundImage(image);
    EXPECT_TRUE(present.expired());
    EXPECT_TRUE(view->isOpaque());
}

// Cleaning and placing

TEST_F(ReentrancyTest, CleaningMayEndTheBarThatItsObserversOwn) {
    auto bar = make<TopBar>(host->window());
    const std::weak_ptr<TopBar> present = bar;
    TopBar& cleaned = *bar;
    auto owner = make<Watcher>();
    for (int index = 0; index < 2; ++index) {
        const auto component = make<UIComponent>();
        component->setObserver(owner);
        bar->addElementToView(component, 2);
    }
    owner->reaction = [owned = std::move(bar)](const std::string&) {};
    owner = nullptr;
    ASSERT_FALSE(present.expired());
    cleaned.clean();
    EXPECT_TRUE(present.expired());
}

TEST_F(ReentrancyTest, AnObserverMayCleanTheBarAgainWhileCleaningEndsIt) {
    auto bar = make<TopBar>(host->window());
    const std::weak_ptr<TopBar> present = bar;
    TopBar* cleaned = bar.get();
    auto owner = make<Watcher>();
    const auto component = make<UIComponent>();
    component->setObserver(owner);
    bar->addElementToView(component, 2);
    owner->farewell = [cleaned] { cleaned->clean(); };
    owner = nullptr;
    bar->clean();
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(component->observer(), nullptr);
}

TEST_F(ReentrancyTest, TheEndOfABarMayEndTheOneWhoseTouchIsDown) {
    host->touchDown(onThumb);
    story.clear();
    const std::weak_ptr<BottomBar> present = overlay.bar;
    overlay.bar = nullptr;
    EXPECT_TRUE(present.expired());
    // Its observer was emptied before the slider was taken away.
    EXPECT_EQ(story, Story());
    EXPECT_FALSE(overlay.slider->isTracking());
    host->touchUp(onThumb);
    EXPECT_EQ(story, Story());
    dropWindow();
}

TEST_F(ReentrancyTest, PlacingAControlWhoseTouchIsDownMayEndTheBar) {
    auto bar = make<TopBar>(host->window());
    const std::weak_ptr<TopBar> present = bar;
    bar->addElementToView(make<UIComponent>(), 1);
    overlay.watcher->reaction = [this, &bar](const std::string& operation) {
        if (operation == "onSeekFinished:") {
            bar = nullptr;
            overlay.bar->clean();
            overlay.seekBar = nullptr;
        }
    };
    host->touchDown(onThumb);
    bar->addElementToView(overlay.seekBar, 8);
    EXPECT_EQ(story.back(), "player: onSeekEnd");
    EXPECT_EQ(bar, nullptr);
    EXPECT_TRUE(present.expired());
    dropWindow();
}

TEST_F(ReentrancyTest, PlacingAControlWhoseTouchIsDownMayCleanTheBar) {
    auto bar = make<TopBar>(host->window());
    bar->addElementToView(make<UIComponent>(), 1);
    overlay.watcher->reaction = [&bar](const std::string& operation) {
        if (operation == "onSeekFinished:") {
            bar->clean();
        }
    };
    host->touchDown(onThumb);
    bar->addElementToView(overlay.seekBar, 8);
    ASSERT_TRUE(bar->elemets());
    EXPECT_EQ(bar->elemets()->size(), 1U);
    bar->clean();
}

// What is let go looks back

TEST_F(ReentrancyTest, AViewOnItsWayOutMayLookAtTheControlThatLetItGo) {
    class Looking : public UIView {
    public:
        std::function<void()> farewell;

    protected:
        void dealloc() override {
            farewell();
            UIView::dealloc();
        }
    };
    const auto component = make<UIComponent>();
    const auto bar = make<TopBar>(host->window());
    std::vector<std::shared_ptr<UIView>> seen;
    const auto successor = make<UIView>();

    auto view = make<Looking>();
    view->farewell = [&] { seen.push_back(component->view()); };
    component->setView(view);
    view = make<Looking>();
    view->farewell = [&] { seen.push_back(bar->view()); };
    bar->view()->removeFromSuperview();
    bar->setView(view);
    view = make<Looking>();
    view->farewell = [&] { seen.push_back(bar->superview()); };
    bar->setSuperview(view);
    view = nullptr;

    component->setView(successor);
    bar->setView(successor);
    bar->setSuperview(successor);
    EXPECT_EQ(seen, (std::vector<std::shared_ptr<UIView>>{successor, successor, successor}));
}

TEST_F(ReentrancyTest, APlayerOnItsWayOutMayLookAtTheSeekBarThatLetItGo) {
    class Leaving : public Player {
    public:
        std::function<void()> farewell;

    protected:
        void dealloc() override {
            farewell();
            Player::dealloc();
        }
    };
    auto leaving = make<Leaving>(false);
    std::shared_ptr<KivCore::KivPlayer> seen;
    leaving->farewell = [&] { seen = overlay.seekBar->player(); };
    overlay.seekBar->setPlayer(leaving);
    leaving = nullptr;
    overlay.seekBar->setPlayer(overlay.player);
    EXPECT_EQ(seen, overlay.player);
    seen = nullptr;
}

TEST_F(ReentrancyTest, ControlsOnTheirWayOutMayLookAtTheListThatLetThemGo) {
    class Leaving : public UIComponent {
    public:
        std::function<void()> farewell;

    protected:
        void dealloc() override {
            farewell();
            UIComponent::dealloc();
        }
    };
    const auto bar = make<TopBar>(host->window());
    auto component = make<Leaving>();
    std::optional<KivBar::Elemets> seen;
    component->farewell = [&] { seen = bar->elemets(); };
    bar->addElementToView(component, 2);
    component = nullptr;
    bar->setElemets(KivBar::Elemets());
    EXPECT_EQ(seen, KivBar::Elemets());
}

TEST_F(ReentrancyTest, WhatATimerHeldMayLookAtTheBarThatLetTheTimerGo) {
    class Target : public NSObject {
    public:
        static const Class& classObject() {
            static const Class& object =
                ClassBuilder<Target, NSObject>("Tests.Target").method<&Target::fire>("fire").build();
            return object;
        }
        void fire() {}
        std::function<void()> farewell;

    protected:
        void dealloc() override { farewell(); }
    };
    auto target = make<Target>();
    std::shared_ptr<NSTimer> seen;
    target->farewell = [&] { seen = overlay.bar->autoHideTimer(); };
    overlay.bar->setAutoHideTimer(
        NSTimer::scheduledTimerWithTimeInterval(1.0, target, "fire", nullptr, false));
    target = nullptr;
    overlay.bar->setAutoHide(2.0);
    overlay.bar->clean();
    host->advance(3.0);
    EXPECT_EQ(seen, nullptr);
}

} // namespace
