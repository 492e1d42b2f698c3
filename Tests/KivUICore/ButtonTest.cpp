#include "KivUICore/UIComponent/Button.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIButton;
using UIKit::UIView;

/// A button view that writes down its registrations.
class NotingButton : public UIButton {
public:
    void addTarget(const std::shared_ptr<NSObject>& target, SEL action,
                   UIKit::UIControlEvents events) override {
        registrations.push_back(std::string(action.name()) + " for " + std::to_string(events));
        lastTarget = target;
        UIButton::addTarget(target, action, events);
    }
    void removeTarget(const std::shared_ptr<NSObject>& target, SEL action,
                      UIKit::UIControlEvents events) override {
        registrations.push_back(std::string(action.name()) + " no more");
        UIButton::removeTarget(target, action, events);
    }

    Story registrations;
    std::weak_ptr<NSObject> lastTarget;
};

class ButtonTest : public testing::Test {
protected:
    ButtonTest() {
        view->setFrame(CGRectMake(10.0, 10.0, 40.0, 40.0));
        host.window()->addSubview(view);
    }

    void press() { host.tap({30.0, 30.0}); }

    KivUICore::Headless::HeadlessHost host{{320.0, 480.0}};
    std::shared_ptr<NotingButton> view = make<NotingButton>();
    int presses = 0;
    std::function<void()> count = [this] { ++presses; };
};

class ButtonDeathTest : public ButtonTest {};

TEST_F(ButtonTest, WrapsItsViewAndHasNoObserver) {
    const auto button = make<Button>(view, count);
    EXPECT_EQ(button->view(), view);
    EXPECT_EQ(button->observer(), nullptr);
    EXPECT_TRUE(button->actionClosure());
}

TEST_F(ButtonTest, RegistersForTouchUpInsideAlone) {
    const auto button = make<Button>(view, count);
    EXPECT_EQ(view->registrations, Story{"touchAction: for 64"});
    EXPECT_EQ(view->lastTarget.lock(), button);
}

TEST_F(ButtonTest, RegistersWhenItHasItsAction) {
    class Asking : public UIButton {
    public:
        void addTarget(const std::shared_ptr<NSObject>& target, SEL action,
                       UIKit::UIControlEvents events) override {
            hadAction = static_cast<bool>(as<Button>(target)->actionClosure());
            UIButton::addTarget(target, action, events);
        }
        bool hadAction = false;
    };
    const auto asking = make<Asking>();
    const auto button = make<Button>(asking, count);
    EXPECT_TRUE(asking->hadAction);
}

TEST_F(ButtonTest, APressRunsTheActionOnceAndTellsTheObserverNothing) {
    Story story;
    const auto button = make<Button>(view, count);
    button->setObserver(make<Watcher>(story));
    press();
    EXPECT_EQ(presses, 1);
    press();
    EXPECT_EQ(presses, 2);
    EXPECT_EQ(story, Story());
}

TEST_F(ButtonTest, OnlyATouchThatIsLiftedInsideIsAPress) {
    const auto button = make<Button>(view, count);
    host.touchDown({30.0, 30.0});
    EXPECT_EQ(presses, 0);
    host.touchMove({200.0, 200.0});
    host.touchUp({200.0, 200.0});
    EXPECT_EQ(presses, 0);
    host.touchDown({30.0, 30.0});
    host.touchCancel();
    EXPECT_EQ(presses, 0);
    host.touchDown({200.0, 200.0});
    host.touchMove({30.0, 30.0});
    host.touchUp({30.0, 30.0});
    EXPECT_EQ(presses, 0);
    host.touchDown({30.0, 30.0});
    host.touchUp({30.0, 30.0});
    EXPECT_EQ(presses, 1);
}

TEST_F(ButtonTest, WithoutAnActionAPressDoesNothingUntilThereIsOne) {
    const auto button = make<Button>(view, nullptr);
    EXPECT_FALSE(button->actionClosure());
    press();
    button->setActionClosure(count);
    press();
    EXPECT_EQ(presses, 1);
    button->setActionClosure(nullptr);
    press();
    EXPECT_EQ(presses, 1);
}

TEST_F(ButtonTest, DisablingChangesTheFlagOfTheViewAlone) {
    const auto button = make<Button>(view, count);
    button->disable();
    EXPECT_FALSE(view->isEnabled());
    EXPECT_EQ(view->alpha(), 1.0);
    EXPECT_TRUE(button->actionClosure());
    press();
    EXPECT_EQ(presses, 0);
    button->enable();
    EXPECT_TRUE(view->isEnabled());
    press();
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(view->registrations.size(), 1U);
}

TEST_F(ButtonTest, AnImageIsSetForItsStateAndNothingClearsNothing) {
    const auto button = make<Button>(view, count);
    const auto normal = imageOf({1.0, 1.0});
    const auto disabled = imageOf({2.0, 2.0});
    button->setImage(normal, UIKit::UIControlStateNormal);
    button->setImage(disabled, UIKit::UIControlStateDisabled);
    button->setImage(nullptr, UIKit::UIControlStateNormal);
    button->setImage(nullptr, UIKit::UIControlStateDisabled);
    EXPECT_EQ(view->imageForState(UIKit::UIControlStateNormal), normal);
    EXPECT_EQ(view->imageForState(UIKit::UIControlStateDisabled), disabled);
}

TEST_F(ButtonTest, ATextIsSetForItsStateAndAnEmptyTextIsOne) {
    const auto button = make<Button>(view, count);
    button->setText("Play", UIKit::UIControlStateNormal);
    button->setText("Off", UIKit::UIControlStateDisabled);
    button->setText(std::nullopt, UIKit::UIControlStateNormal);
    EXPECT_EQ(view->titleForState(UIKit::UIControlStateNormal), "Play");
    EXPECT_EQ(view->titleForState(UIKit::UIControlStateDisabled), "Off");
    button->setText("", UIKit::UIControlStateNormal);
    EXPECT_EQ(view->titleForState(UIKit::UIControlStateNormal), "");
    EXPECT_EQ(view->titleForState(UIKit::UIControlStateDisabled), "Off");
}

TEST_F(ButtonTest, AViewThatIsNoButtonIsLeftAlone) {
    const auto button = make<Button>(view, count);
    for (const std::shared_ptr<UIView>& other :
         {std::shared_ptr<UIView>(), make<UIView>(), std::shared_ptr<UIView>(make<UIKit::UISlider>())}) {
        button->setView(other);
        button->disable();
        button->enable();
        button->setImage(imageOf({1.0, 1.0}), UIKit::UIControlStateNormal);
        button->setText("Play", UIKit::UIControlStateNormal);
    }
    EXPECT_TRUE(view->isEnabled());
    EXPECT_EQ(view->currentImage(), nullptr);
    EXPECT_EQ(view->currentTitle(), std::nullopt);
    const auto slider = make<UIKit::UISlider>();
    button->setView(slider);
    button->disable();
    EXPECT_TRUE(slider->isEnabled());
}

TEST_F(ButtonTest, AReplacedViewKeepsItsRegistrationAndTheNewOneGetsNone) {
    const auto button = make<Button>(view, count);
    const auto other = make<NotingButton>(CGRectMake(100.0, 10.0, 40.0, 40.0));
    host.window()->addSubview(other);
    button->setView(other);
    EXPECT_EQ(other->registrations, Story());
    EXPECT_EQ(view->registrations, Story{"touchAction: for 64"});
    host.tap({120.0, 30.0});
    EXPECT_EQ(presses, 0);
    press();
    EXPECT_EQ(presses, 1);
    button->disable();
    EXPECT_TRUE(view->isEnabled());
    EXPECT_FALSE(other->isEnabled());
}

TEST_F(ButtonTest, AButtonThatIsGoneIsNoLongerTold) {
    auto button = make<Button>(view, count);
    button = nullptr;
    press();
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(view->superview(), host.window());
    EXPECT_EQ(view->registrations, Story{"touchAction: for 64"});
}

TEST_F(ButtonTest, ReleasesViewObserverAndActionWhenItEnds) {
    auto token = std::make_shared<int>(0);
    const std::weak_ptr<int> present = token;
    auto button = make<Button>(view, [token] {});
    auto watcher = make<Watcher>();
    const std::weak_ptr<Watcher> presentWatcher = watcher;
    button->setObserver(watcher);
    token = nullptr;
    watcher = nullptr;
    EXPECT_FALSE(present.expired() || presentWatcher.expired());
    button = nullptr;
    EXPECT_TRUE(present.expired() && presentWatcher.expired());
}

// By name

TEST_F(ButtonTest, AddsJustItsOperationsToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(Button::classObject()),
              (std::set<std::string>{"initWithView:action:", "actionClosure", "setActionClosure:", "enable",
                                     "disable",
                                     "setImage:controlState:", "setText:controlState:", "touchAction:"}));
    EXPECT_EQ(Button::classObject().superclass(), &UIComponent::classObject());
    EXPECT_TRUE(Button::classObject().classMethods().selectors().empty());
}

TEST_F(ButtonTest, ItsActionIsSentAsALambdaAndTakenAwayByNothing) {
    const auto button = make<Button>(view, nullptr);
    button->send("setActionClosure:", [this] { ++presses; });
    view->sendActionsForControlEvents(UIKit::UIControlEventTouchUpInside);
    EXPECT_EQ(presses, 1);
    button->send("setActionClosure:", nullptr);
    view->sendActionsForControlEvents(UIKit::UIControlEventTouchUpInside);
    EXPECT_EQ(presses, 1);
    button->send("setText:controlState:", nullptr, UIKit::UIControlStateNormal);

    const auto other = std::static_pointer_cast<Button>(Button::classObject().alloc());
    EXPECT_TRUE(other->send<bool>("initWithView:action:", nullptr, nullptr));
}

TEST_F(ButtonTest, IsMadeAndWorkedByName) {
    const auto button = Class::named("KivUICore.Button")->alloc();
    ASSERT_TRUE(button->send<bool>("initWithView:action:", view, Block<void()>(count)));
    press();
    EXPECT_EQ(presses, 1);
    button->send("touchAction:", view);
    button->send("touchAction:", nullptr);
    EXPECT_EQ(presses, 3);
    button->send("disable");
    EXPECT_FALSE(view->isEnabled());
    button->send("enable");
    EXPECT_TRUE(view->isEnabled());
    const auto image = imageOf({1.0, 1.0});
    button->send("setImage:controlState:", image, UIKit::UIControlStateNormal);
    EXPECT_EQ(view->currentImage(), image);
    button->send("setImage:controlState:", nullptr, UIKit::UIControlStateNormal);
    EXPECT_EQ(view->currentImage(), image);
    button->send("setText:controlState:", "Play", UIKit::UIControlStateNormal);
    EXPECT_EQ(view->currentTitle(), "Play");
    button->send("setText:controlState:", std::optional<std::string>(), UIKit::UIControlStateNormal);
    EXPECT_EQ(view->currentTitle(), "Play");
    button->send("setText:controlState:", "", UIKit::UIControlStateNormal);
    EXPECT_EQ(view->currentTitle(), "");
}

TEST_F(ButtonTest, WhoeverSendsAPressIsNotLookedAt) {
    const auto button = make<Button>(view, count);
    const auto slider = make<UIKit::UISlider>();
    slider->addTarget(button, "touchAction:", UIKit::UIControlEventValueChanged);
    slider->sendActionsForControlEvents(UIKit::UIControlEventValueChanged);
    button->send("touchAction:", button);
    EXPECT_EQ(presses, 2);
}

TEST_F(ButtonTest, TheActionPassesAsABlockAndAnEmptyOneStaysEmpty) {
    const auto button = make<Button>(view, nullptr);
    EXPECT_FALSE(button->send<Block<void()>>("actionClosure"));
    button->send("setActionClosure:", Block<void()>(count));
    press();
    button->send<Block<void()>>("actionClosure")();
    EXPECT_EQ(presses, 2);
    button->send("setActionClosure:", Block<void()>());
    EXPECT_FALSE(button->actionClosure());
    EXPECT_FALSE(button->send<Block<void()>>("actionClosure"));
    const auto empty = Class::named("KivUICore.Button")->alloc();
    ASSERT_TRUE(empty->send<bool>("initWithView:action:", view, Block<void()>()));
    EXPECT_FALSE(empty->send<Block<void()>>("actionClosure"));
}

TEST_F(ButtonDeathTest, WithoutArgumentsThereIsNoButton) {
    EXPECT_UNIMPLEMENTED(make<Button>(), "init()", "KivUICore.Button");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.Button")->alloc()->send<bool>("init"), "init()",
                         "KivUICore.Button");
}

// Overriding

TEST_F(ButtonTest, NothingOfItsOwnCanBeOverridden) {
    EXPECT_FALSE(slotOf(&Button::actionClosure));
    EXPECT_FALSE(slotOf(&Button::setActionClosure));
    EXPECT_FALSE(slotOf(&Button::enable));
    EXPECT_FALSE(slotOf(&Button::disable));
    EXPECT_FALSE(slotOf(&Button::setImage));
    EXPECT_FALSE(slotOf(&Button::setText));
}

/// A button that shows another view than the one it is given.
class MirrorButton : public Button {
public:
    void setView(const std::shared_ptr<UIView>& given) override {
        seen.push_back(given);
        hadActionWhenViewCame = static_cast<bool>(actionClosure());
        Button::setView(mirror);
    }
    void setObserver(const std::shared_ptr<UIEventObserver>& observer) override {
        ++observers;
        Button::setObserver(observer);
    }

    std::vector<std::shared_ptr<UIView>> seen;
    bool hadActionWhenViewCame = false;
    int observers = 0;
    std::shared_ptr<NotingButton> mirror = make<NotingButton>(CGRectMake(100.0, 10.0, 40.0, 40.0));
};

TEST_F(ButtonTest, TheViewGoesThroughASubclassAndIsReadBackFromIt) {
    const auto button = make<MirrorButton>(view, count);
    EXPECT_EQ(button->seen, std::vector<std::shared_ptr<UIView>>{view});
    EXPECT_FALSE(button->hadActionWhenViewCame);
    EXPECT_EQ(button->observers, 0);
    EXPECT_EQ(view->registrations, Story());
    EXPECT_EQ(button->mirror->registrations, Story{"touchAction: for 64"});
    host.window()->addSubview(button->mirror);
    host.tap({120.0, 30.0});
    EXPECT_EQ(presses, 1);
}

/// A button without a view of its own.
class BlindButton : public Button {
public:
    std::shared_ptr<UIView> view() const override { return nullptr; }
};

TEST_F(ButtonTest, WithoutAButtonToReadBackNothingIsRegistered) {
    const auto button = make<BlindButton>(view, count);
    EXPECT_EQ(view->registrations, Story());
    press();
    EXPECT_EQ(presses, 0);
}

TEST_F(ButtonTest, AnApplicationsOwnActionTakesThePlaceByName) {
    class LoudButton : public Button {
    public:
        static const Class& classObject() {
            static const Class& object = ClassBuilder<LoudButton, Button>("Tests.LoudButton")
                                             .method<&LoudButton::touched>("touchAction:")
                                             .build();
            return object;
        }
        void touched(const std::shared_ptr<UIButton>& sender) { touchedView = sender; }
        std::shared_ptr<UIButton> touchedView;
    };
    const auto button = make<LoudButton>(view, count);
    press();
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(button->touchedView, view);
}

} // namespace
