#include "KivUICore/UIComponent/SeekBar.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using KivCore::KivPlayer;
using MediaPlayer::MPVolumeView;
using UIKit::UISlider;
using UIKit::UIView;

/// A slider that writes down its registrations and how its value is set.
class NotingSlider : public UISlider {
public:
    void addTarget(const std::shared_ptr<NSObject>& target, SEL action,
                   UIKit::UIControlEvents events) override {
        registrations.push_back(std::string(action.name()) + " for " + std::to_string(events));
        lastTarget = target;
        UISlider::addTarget(target, action, events);
    }
    void removeTarget(const std::shared_ptr<NSObject>& target, SEL action,
                      UIKit::UIControlEvents events) override {
        registrations.push_back(std::string(action.name()) + " no more");
        UISlider::removeTarget(target, action, events);
    }
    void setValue(float value) override {
        settings.push_back("setValue: " + std::to_string(value));
        isPlain_ = true;
        UISlider::setValue(value);
        isPlain_ = false;
    }
    void setValue(float value, bool animated) override {
        if (!isPlain_) {
            settings.push_back("setValue: " + std::to_string(value) +
                               (animated ? " animated" : " not animated"));
        }
        UISlider::setValue(value, animated);
    }

    Story registrations;
    Story settings;
    std::weak_ptr<NSObject> lastTarget;

private:
    bool isPlain_ = false;
};

class SeekBarTest : public testing::Test {
protected:
    SeekBarTest() {
        slider->setFrame(CGRectMake(10.0, 10.0, 200.0, 40.0));
        host.window()->addSubview(slider);
        player->eventNotifier()->addObserver(playerWatcher);
    }

    CGPoint thumb() const {
        const CGRect bounds = slider->bounds();
        const CGRect rect =
            slider->thumbRectForBounds(bounds, slider->trackRectForBounds(bounds), slider->value());
        return slider->convertPointToView({CGRectGetMidX(rect), CGRectGetMidY(rect)}, *host.window());
    }

    std::shared_ptr<SeekBar> makeSeekBar() { return make<SeekBar>(slider, watcher, player); }

    Story story;
    KivUICore::Headless::HeadlessHost host{{320.0, 480.0}};
    std::shared_ptr<NotingSlider> slider = make<NotingSlider>();
    std::shared_ptr<Watcher> watcher = make<Watcher>(story);
    std::shared_ptr<Player> player = make<Player>(false);
    std::shared_ptr<PlayerWatcher> playerWatcher = make<PlayerWatcher>(story);
};

class SeekBarDeathTest : public SeekBarTest {};

// Construction

TEST_F(SeekBarTest, HoldsWhatItIsMadeWith) {
    const auto seekBar = makeSeekBar();
    EXPECT_EQ(seekBar->view(), slider);
    EXPECT_EQ(seekBar->observer(), watcher);
    EXPECT_EQ(seekBar->player(), player);
    EXPECT_EQ(seekBar->airplayButton(), nullptr);
    EXPECT_EQ(player->questions, 1);
    EXPECT_EQ(story, Story());
}

TEST_F(SeekBarTest, RegistersItsThreeActionsInOrder) {
    const auto seekBar = makeSeekBar();
    EXPECT_EQ(slider->registrations,
              (Story{"beganScrubbing: for 1", "endedScrubbing: for 448", "onValueChanged: for 4096"}));
    EXPECT_EQ(slider->lastTarget.lock(), seekBar);
}

TEST_F(SeekBarTest, AsksThePlayerWhenItKnowsAllElseAndRegistersAfterwards) {
    class Asking : public Player {
    public:
        bool allowsAirPlay() const override {
            onQuestion();
            return Player::allowsAirPlay();
        }
        std::function<void()> onQuestion;
    };
    const auto asking = make<Asking>(true);
    const auto seekBar = allocate<SeekBar>();
    asking->onQuestion = [&] {
        EXPECT_EQ(seekBar->view(), slider);
        EXPECT_EQ(seekBar->observer(), watcher);
        EXPECT_EQ(seekBar->player(), asking);
        EXPECT_EQ(seekBar->airplayButton(), nullptr);
        EXPECT_EQ(slider->registrations, Story());
    };
    ASSERT_TRUE(seekBar->init(slider, watcher, asking));
    EXPECT_EQ(asking->questions, 1);
    EXPECT_EQ(slider->registrations.size(), 3U);
}

TEST_F(SeekBarTest, APlayerThatAllowsAirPlayGetsAShrunkButtonFourPointsLower) {
    const auto fitted = make<MPVolumeView>();
    fitted->sizeToFit();
    fitted->setTransform(CGAffineTransformMakeScale(0.8, 0.8));
    const CGRect before = fitted->frame();

    const auto seekBar = make<SeekBar>(slider, watcher, make<Player>(true));
    const auto button = seekBar->airplayButton();
    ASSERT_NE(button, nullptr);
    EXPECT_FALSE(button->showsVolumeSlider());
    EXPECT_EQ(button->transform(), CGAffineTransformMakeScale(0.8, 0.8));
    EXPECT_EQ(button->superview(), nullptr);
    EXPECT_NEAR(button->bounds().size.width, fitted->bounds().size.width, 1e-9);
    EXPECT_NEAR(button->bounds().size.height, fitted->bounds().size.height, 1e-9);
    EXPECT_GT(before.size.width, 0.0);
    EXPECT_NEAR(button->frame().origin.x, before.origin.x, 1e-9);
    EXPECT_NEAR(button->frame().origin.y, before.origin.y + 4.0, 1e-9);
    EXPECT_NEAR(button->frame().size.width, before.size.width, 1e-9);
    EXPECT_NEAR(button->frame().size.height, before.size.height, 1e-9);
}

TEST_F(SeekBarTest, AReplacedPlayerNeitherMakesNorTakesTheRouteButton) {
    const auto with = make<SeekBar>(slider, watcher, make<Player>(true));
    const auto button = with->airplayButton();
    with->setPlayer(make<Player>(false));
    EXPECT_EQ(with->airplayButton(), button);
    const auto without = makeSeekBar();
    without->setPlayer(make<Player>(true));
    EXPECT_EQ(without->airplayButton(), nullptr);
}

TEST_F(SeekBarTest, AnInitializerRunAgainDecidesAboutTheRouteButtonAnew) {
    const auto seekBar = make<SeekBar>(slider, watcher, make<Player>(true));
    ASSERT_TRUE(seekBar->init(slider, watcher, player));
    EXPECT_EQ(seekBar->airplayButton(), nullptr);
    EXPECT_EQ(seekBar->player(), player);
}

// Scrubbing

TEST_F(SeekBarTest, ADragIsReportedInOrder) {
    const auto seekBar = makeSeekBar();
    const CGPoint start = thumb();
    host.touchDown(start);
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan"}));
    EXPECT_EQ(watcher->lastSeekBar.lock(), seekBar);
    host.touchMove({start.x + 20.0, start.y});
    host.touchMove({start.x + 40.0, start.y});
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan", "onValueChanged:", "onValueChanged:"}));
    EXPECT_GT(seekBar->currentValue(), 0.0F);
    host.touchUp({start.x + 40.0, start.y});
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan",
                            "onValueChanged:", "onValueChanged:", "onSeekFinished:", "player: onSeekEnd"}));
    EXPECT_EQ(watcher->lastSeekBar.lock(), seekBar);
}

TEST_F(SeekBarTest, ATouchThatChangesNothingBeginsAndEnds) {
    const auto seekBar = makeSeekBar();
    host.tap(thumb());
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan", "onSeekFinished:", "player: onSeekEnd"}));
}

TEST_F(SeekBarTest, ADragThatEndsOutsideOrIsCancelledEndsToo) {
    const auto seekBar = makeSeekBar();
    host.touchDown(thumb());
    story.clear();
    host.touchUp({thumb().x, 470.0});
    EXPECT_EQ(story, (Story{"onSeekFinished:", "player: onSeekEnd"}));
    host.touchDown(thumb());
    story.clear();
    host.touchCancel();
    EXPECT_EQ(story, (Story{"onSeekFinished:", "player: onSeekEnd"}));
    host.touchDown(thumb());
    story.clear();
    seekBar->disable();
    EXPECT_EQ(story, (Story{"onSeekFinished:", "player: onSeekEnd"}));
    host.touchUp(thumb());
    seekBar->enable();
    host.touchDown(thumb());
    story.clear();
    slider->removeFromSuperview();
    EXPECT_EQ(story, (Story{"onSeekFinished:", "player: onSeekEnd"}));
}

TEST_F(SeekBarTest, WithoutAnObserverNobodyIsTold) {
    const auto seekBar = makeSeekBar();
    seekBar->setObserver(nullptr);
    const CGPoint start = thumb();
    host.touchDown(start);
    host.touchMove({start.x + 20.0, start.y});
    host.touchUp({start.x + 20.0, start.y});
    EXPECT_EQ(story, Story());
    EXPECT_GT(seekBar->currentValue(), 0.0F);
}

TEST_F(SeekBarTest, WithoutAPlayerOrANotifierTheObserverIsStillTold) {
    const auto seekBar = makeSeekBar();
    const Story expected{"onSeekBegan:", "onValueChanged:", "onSeekFinished:"};
    const auto drag = [this](CGFloat distance) {
        const CGPoint start = thumb();
        host.touchDown(start);
        host.touchMove({start.x + distance, start.y});
        host.touchUp({start.x + distance, start.y});
    };
    seekBar->setPlayer(nullptr);
    drag(20.0);
    EXPECT_EQ(story, expected);
    story.clear();
    seekBar->setPlayer(player);
    player->hasNotifier = false;
    drag(20.0);
    EXPECT_EQ(story, expected);
}

TEST_F(SeekBarTest, ObserverAndPlayerAreReadAtEachEvent) {
    Story other;
    const auto seekBar = makeSeekBar();
    host.touchDown(thumb());
    const auto otherPlayer = make<Player>(false);
    const auto otherPlayerWatcher = make<PlayerWatcher>(other);
    otherPlayer->eventNotifier()->addObserver(otherPlayerWatcher);
    const auto otherWatcher = make<Watcher>(other);
    seekBar->setObserver(otherWatcher);
    seekBar->setPlayer(otherPlayer);
    host.touchUp(thumb());
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan"}));
    EXPECT_EQ(other, (Story{"onSeekFinished:", "player: onSeekEnd"}));
}

TEST_F(SeekBarTest, ThePlayerIsReadAfterTheObserverWasTold) {
    const auto seekBar = makeSeekBar();
    watcher->reaction = [&seekBar](const std::string&) { seekBar->setPlayer(nullptr); };
    host.touchDown(thumb());
    EXPECT_EQ(story, Story{"onSeekBegan:"});
}

TEST_F(SeekBarTest, AnObserverThatSilencesTheControlStillLetsThePlayersHear) {
    const auto seekBar = makeSeekBar();
    watcher->reaction = [&seekBar](const std::string&) { seekBar->setObserver(nullptr); };
    host.touchDown(thumb());
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan"}));
}

TEST_F(SeekBarTest, PlayerObserversThatDoNotKnowOfSeeksArePassedOver) {
    const auto silent = make<SilentPlayerWatcher>();
    const auto second = make<PlayerWatcher>(story);
    player->eventNotifier()->addObserver(silent);
    player->eventNotifier()->addObserver(second);
    const auto seekBar = makeSeekBar();
    host.tap(thumb());
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan", "player: onSeekBegan",
                            "onSeekFinished:", "player: onSeekEnd", "player: onSeekEnd"}));
}

TEST_F(SeekBarTest, NeverRegistersItselfWithThePlayer) {
    const auto seekBar = makeSeekBar();
    int count = 0;
    player->eventNotifier()->notifyObservers([&](const auto& observer) {
        ++count;
        EXPECT_NE(&observer->asObject(), seekBar.get());
    });
    EXPECT_EQ(count, 1);
}

// Values

TEST_F(SeekBarTest, ValuesAreTheSliders) {
    const auto seekBar = makeSeekBar();
    seekBar->setMaximumValue(120.0F);
    EXPECT_EQ(slider->maximumValue(), 120.0F);
    EXPECT_EQ(seekBar->maximumValue(), 120.0F);
    seekBar->setCurrentValue(60.0F);
    EXPECT_EQ(slider->value(), 60.0F);
    EXPECT_EQ(seekBar->currentValue(), 60.0F);
}

TEST_F(SeekBarTest, SyncTravelsAndWritingTheValueJumps) {
    const auto seekBar = makeSeekBar();
    seekBar->sync(0.5F);
    EXPECT_EQ(seekBar->currentValue(), 0.5F);
    seekBar->setCurrentValue(0.25F);
    EXPECT_EQ(slider->settings, (Story{"setValue: 0.500000 animated", "setValue: 0.250000"}));
}

TEST_F(SeekBarTest, ValuesThatTheApplicationSetsAreNotReported) {
    const auto seekBar = makeSeekBar();
    seekBar->sync(0.5F);
    seekBar->setCurrentValue(0.25F);
    seekBar->setMaximumValue(0.1F);
    host.advance(1.0);
    EXPECT_EQ(story, Story());
}

TEST_F(SeekBarTest, SyncDuringADragMovesTheSliderAndDoesNotEndTheScrub) {
    const auto seekBar = makeSeekBar();
    const CGPoint start = thumb();
    host.touchDown(start);
    story.clear();
    seekBar->sync(0.75F);
    EXPECT_EQ(seekBar->currentValue(), 0.75F);
    EXPECT_EQ(slider->settings, Story{"setValue: 0.750000 animated"});
    EXPECT_TRUE(slider->isTracking());
    EXPECT_EQ(story, Story());
    host.touchMove({start.x + 20.0, start.y});
    EXPECT_EQ(story, Story{"onValueChanged:"});
    EXPECT_LT(seekBar->currentValue(), 0.5F);
    host.touchUp({start.x + 20.0, start.y});
    EXPECT_EQ(story.back(), "player: onSeekEnd");
}

TEST_F(SeekBarTest, WithoutASliderValuesAreZeroAndNothingHappens) {
    const auto seekBar = makeSeekBar();
    seekBar->setCurrentValue(0.5F);
    slider->settings.clear();
    const auto label = make<UIKit::UILabel>();
    for (const std::shared_ptr<UIView>& other : {std::shared_ptr<UIView>(), std::shared_ptr<UIView>(label)}) {
        seekBar->setView(other);
        EXPECT_EQ(seekBar->currentValue(), 0.0F);
        EXPECT_EQ(seekBar->maximumValue(), 0.0F);
        seekBar->setCurrentValue(0.7F);
        seekBar->setMaximumValue(9.0F);
        seekBar->sync(0.8F);
        seekBar->disable();
        seekBar->enable();
        seekBar->setThumbImage(imageOf({1.0, 1.0}), 0);
        seekBar->setMinimumTrackImage(imageOf({1.0, 1.0}), 0);
        seekBar->setMaximumTrackImage(imageOf({1.0, 1.0}), 0);
    }
    EXPECT_EQ(slider->value(), 0.5F);
    EXPECT_EQ(slider->settings, Story());
    EXPECT_EQ(slider->thumbImageForState(0), nullptr);
}

TEST_F(SeekBarTest, EnablingAndDisablingConcernTheSliderAlone) {
    const auto seekBar = make<SeekBar>(slider, watcher, make<Player>(true));
    seekBar->disable();
    EXPECT_FALSE(slider->isEnabled());
    EXPECT_TRUE(seekBar->airplayButton()->isUserInteractionEnabled());
    EXPECT_EQ(slider->alpha(), 1.0);
    seekBar->enable();
    EXPECT_TRUE(slider->isEnabled());
}

TEST_F(SeekBarTest, ImagesAreSetForTheirStateAndNothingClearsNothing) {
    const auto seekBar = makeSeekBar();
    const auto minimum = imageOf({1.0, 1.0});
    const auto maximum = imageOf({2.0, 2.0});
    const auto knob = imageOf({3.0, 3.0});
    const auto held = imageOf({4.0, 4.0});
    seekBar->setMinimumTrackImage(minimum, UIKit::UIControlStateNormal);
    seekBar->setMaximumTrackImage(maximum, UIKit::UIControlStateNormal);
    seekBar->setThumbImage(knob, UIKit::UIControlStateNormal);
    seekBar->setThumbImage(held, UIKit::UIControlStateHighlighted);
    for (const UIKit::UIControlState state :
         {UIKit::UIControlStateNormal, UIKit::UIControlStateHighlighted}) {
        seekBar->setMinimumTrackImage(nullptr, state);
        seekBar->setMaximumTrackImage(nullptr, state);
        seekBar->setThumbImage(nullptr, state);
    }
    EXPECT_EQ(slider->minimumTrackImageForState(UIKit::UIControlStateNormal), minimum);
    EXPECT_EQ(slider->maximumTrackImageForState(UIKit::UIControlStateNormal), maximum);
    EXPECT_EQ(slider->thumbImageForState(UIKit::UIControlStateNormal), knob);
    EXPECT_EQ(slider->thumbImageForState(UIKit::UIControlStateHighlighted), held);
}

// Who is told, and for how long

TEST_F(SeekBarTest, AReplacedSliderKeepsItsRegistrationsAndTheNewOneGetsNone) {
    const auto seekBar = makeSeekBar();
    const auto other = make<NotingSlider>(CGRectMake(10.0, 200.0, 200.0, 40.0));
    host.window()->addSubview(other);
    seekBar->setView(other);
    EXPECT_EQ(other->registrations, Story());
    EXPECT_EQ(slider->registrations.size(), 3U);
    host.tap({19.0, 220.0});
    EXPECT_EQ(story, Story());
    host.tap(thumb());
    EXPECT_EQ(story.size(), 4U);
}

TEST_F(SeekBarTest, ASeekBarThatIsGoneIsNoLongerTold) {
    auto seekBar = makeSeekBar();
    host.touchDown(thumb());
    story.clear();
    seekBar = nullptr;
    host.touchMove({200.0, 30.0});
    host.touchUp({200.0, 30.0});
    host.tap(thumb());
    EXPECT_EQ(story, Story());
    EXPECT_EQ(slider->registrations.size(), 3U);
}

TEST_F(SeekBarTest, EndingReleasesAllAndLeavesTheRouteButtonWhereItIs) {
    const auto airPlayer = make<Player>(true);
    auto seekBar = make<SeekBar>(slider, watcher, airPlayer);
    const auto button = seekBar->airplayButton();
    host.window()->addSubview(button);
    seekBar = nullptr;
    EXPECT_EQ(button->superview(), host.window());
    EXPECT_EQ(button.use_count(), 2);
    EXPECT_EQ(airPlayer.use_count(), 1);
    EXPECT_EQ(watcher.use_count(), 1);
    EXPECT_EQ(slider.use_count(), 2);
}

// By name

TEST_F(SeekBarTest, AddsJustItsOperationsToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(SeekBar::classObject()),
              (std::set<std::string>{"initWithView:observer:player:",
                                     "airplayButton",
                                     "setAirplayButton:",
                                     "player",
                                     "setPlayer:",
                                     "currentValue",
                                     "setCurrentValue:",
                                     "maximumValue",
                                     "setMaximumValue:",
                                     "sync:",
                                     "enable",
                                     "disable",
                                     "setMaximumTrackImage:controlState:",
                                     "setMinimumTrackImage:controlState:",
                                     "setThumbImage:controlState:",
                                     "beganScrubbing:",
                                     "endedScrubbing:",
                                     "onValueChanged:",
                                     "onSeekBegan",
                                     "onSeekEnd"}));
    EXPECT_EQ(SeekBar::classObject().superclass(), &UIComponent::classObject());
    EXPECT_TRUE(SeekBar::classObject().classMethods().selectors().empty());
}

TEST_F(SeekBarTest, OfAPlayersEventsItKnowsTheTwoOfSeeksAndDoesNothing) {
    const auto seekBar = makeSeekBar();
    KivCore::PlayerEventObserver& adopter = *seekBar;
    for (const std::string_view operation : KivCore::PlayerEventObserver::operations) {
        EXPECT_EQ(adopter.respondsToSelector(operation),
                  operation == "onSeekBegan" || operation == "onSeekEnd")
            << operation;
    }
    adopter.send("onSeekBegan");
    adopter.send("onSeekEnd");
    EXPECT_EQ(story, Story());
}

TEST_F(SeekBarTest, IsMadeAndWorkedByName) {
    const auto seekBar = Class::named("KivUICore.SeekBar")->alloc();
    ASSERT_TRUE(seekBar->send<bool>("initWithView:observer:player:", slider, watcher, player));
    seekBar->send("setMaximumValue:", 90.0F);
    seekBar->send("setCurrentValue:", 45.0);
    EXPECT_EQ(seekBar->send<float>("maximumValue"), 90.0F);
    EXPECT_EQ(seekBar->send<float>("currentValue"), 45.0F);
    seekBar->send("sync:", 30.0F);
    EXPECT_EQ(slider->settings.back(), "setValue: 30.000000 animated");
    seekBar->send("disable");
    EXPECT_FALSE(slider->isEnabled());
    seekBar->send("enable");
    EXPECT_TRUE(slider->isEnabled());
    const auto image = imageOf({1.0, 1.0});
    seekBar->send("setThumbImage:controlState:", image, 0);
    seekBar->send("setMinimumTrackImage:controlState:", image, 0);
    seekBar->send("setMaximumTrackImage:controlState:", image, 0);
    seekBar->send("setThumbImage:controlState:", nullptr, 0);
    EXPECT_EQ(slider->thumbImageForState(0), image);
    EXPECT_EQ(slider->minimumTrackImageForState(0), image);
    EXPECT_EQ(slider->maximumTrackImageForState(0), image);
    EXPECT_EQ(seekBar->send<std::shared_ptr<KivPlayer>>("player"), player);
    seekBar->send("setPlayer:", nullptr);
    EXPECT_EQ(seekBar->send<std::shared_ptr<KivPlayer>>("player"), nullptr);
    const auto button = make<MPVolumeView>();
    seekBar->send("setAirplayButton:", button);
    EXPECT_EQ(seekBar->send<std::shared_ptr<MPVolumeView>>("airplayButton"), button);
    seekBar->send("beganScrubbing:", slider);
    seekBar->send("onValueChanged:", slider);
    seekBar->send("endedScrubbing:", nullptr);
    EXPECT_EQ(story, (Story{"onSeekBegan:", "onValueChanged:", "onSeekFinished:"}));
}

TEST_F(SeekBarTest, WhoeverSendsAnEventIsNotLookedAt) {
    const auto seekBar = makeSeekBar();
    const auto button = make<UIKit::UIButton>();
    for (const char* operation : {"beganScrubbing:", "onValueChanged:", "endedScrubbing:"}) {
        button->addTarget(seekBar, operation, UIKit::UIControlEventTouchUpInside);
    }
    button->sendActionsForControlEvents(UIKit::UIControlEventTouchUpInside);
    EXPECT_EQ(story, (Story{"onSeekBegan:", "player: onSeekBegan",
                            "onValueChanged:", "onSeekFinished:", "player: onSeekEnd"}));
    seekBar->send("onValueChanged:", seekBar);
    EXPECT_EQ(story.back(), "onValueChanged:");
}

TEST_F(SeekBarDeathTest, WithoutArgumentsThereIsNoSeekBar) {
    EXPECT_UNIMPLEMENTED(make<SeekBar>(), "init()", "KivUICore.SeekBar");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.SeekBar")->alloc()->send<bool>("init"), "init()",
                         "KivUICore.SeekBar");
}

/// An observer whose class lists nothing.
class UnlistedWatcher : public Adopting<NSObject, UIEventObserver> {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<UnlistedWatcher, NSObject>("Tests.UnlistedWatcher").build();
        return object;
    }
    void onButtonPress(const std::shared_ptr<Button>&) override {}
    void onSeekBegan(const std::shared_ptr<SeekBar>&) override {}
    void onSeekFinished(const std::shared_ptr<SeekBar>&) override {}
    void onValueChanged(const std::shared_ptr<SeekBar>&) override {}
    void onPopOverButtonPress(std::int64_t) override {}
    void popOverShouldPresent() override {}
    void onPopOverDismiss() override {}
};

TEST_F(SeekBarDeathTest, ItsObserverIsNotAskedWhetherItResponds) {
    const auto seekBar = make<SeekBar>(slider, make<UnlistedWatcher>(), player);
    EXPECT_STOP_PRINTING(host.touchDown(thumb()), "Fatal error: Unrecognized selector 'onSeekBegan:' sent to "
                                                  "class 'Tests.UnlistedWatcher'\n");
}

// Overriding

/// A seek bar whose accessors write down what passes through them.
class ListeningSeekBar : public SeekBar {
public:
    void setView(const std::shared_ptr<UIView>& view) override {
        story.push_back(view ? "setView:" : "setView: nothing");
        SeekBar::setView(view);
    }
    std::shared_ptr<UIEventObserver> observer() const override {
        story.push_back("observer");
        return SeekBar::observer();
    }
    void setObserver(const std::shared_ptr<UIEventObserver>& observer) override {
        story.push_back(std::string(observer ? "setObserver:" : "setObserver: nothing") +
                        (player() ? ", player there" : ""));
        SeekBar::setObserver(observer);
    }

    mutable Story story;
};

TEST_F(SeekBarTest, ViewAndThenObserverGoThroughASubclassBeforeThePlayerIsThere) {
    const auto seekBar = make<ListeningSeekBar>(slider, watcher, player);
    EXPECT_EQ(seekBar->story, (Story{"setView:", "setObserver:"}));
    seekBar->story.clear();
    host.tap(thumb());
    EXPECT_EQ(seekBar->story, (Story{"observer", "observer"}));
}

TEST_F(SeekBarTest, ASubclassWithoutASliderIsMadeAndRegistersNothing) {
    class Inert : public SeekBar {
    public:
        std::shared_ptr<UIView> view() const override { return nullptr; }
    };
    const auto seekBar = make<Inert>(slider, watcher, make<Player>(true));
    ASSERT_NE(seekBar, nullptr);
    EXPECT_EQ(slider->registrations, Story());
    EXPECT_NE(seekBar->airplayButton(), nullptr);
    host.tap(thumb());
    EXPECT_EQ(story, Story());
}

TEST_F(SeekBarTest, AnObserverThatASubclassGivesIsTheOneThatIsTold) {
    class Redirecting : public SeekBar {
    public:
        std::shared_ptr<UIEventObserver> observer() const override { return other; }
        std::shared_ptr<Watcher> other;
    };
    Story others;
    const auto seekBar = make<Redirecting>(slider, watcher, player);
    seekBar->other = make<Watcher>(others);
    const CGPoint start = thumb();
    host.touchDown(start);
    host.touchMove({start.x + 20.0, start.y});
    host.touchUp({start.x + 20.0, start.y});
    EXPECT_EQ(others, (Story{"onSeekBegan:", "onValueChanged:", "onSeekFinished:"}));
    EXPECT_EQ(story, (Story{"player: onSeekBegan", "player: onSeekEnd"}));
}

} // namespace
