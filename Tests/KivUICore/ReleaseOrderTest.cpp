#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Watchers.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;

/// An object of a class that writes its name down when it goes.
template <class Base>
class Mortal : public Base {
public:
    void writeAtItsEnd(const std::string& name, Story& story) {
        name_ = name;
        story_ = &story;
    }

protected:
    void dealloc() override {
        story_->push_back(name_);
        Base::dealloc();
    }

private:
    std::string name_;
    Story* story_ = nullptr;
};

/// A bar that keeps at its end what it has.
class HoardingBar : public KivBar {
public:
    void clean() override {}
};

class ReleaseOrderTest : public testing::Test {
protected:
    template <class Base, class... Arguments>
    std::shared_ptr<Base> mortal(const std::string& name, Arguments&&... arguments) {
        auto object = make<Mortal<Base>>(std::forward<Arguments>(arguments)...);
        object->writeAtItsEnd(name, story);
        return object;
    }

    /// A closure that writes down when it goes.
    std::function<void()> closure() {
        const auto held = mortal<UIKit::UIView>("actionClosure");
        return [held] {};
    }

    KivUICore::Headless::HeadlessHost host{{320.0, 480.0}};
    Story story;
};

TEST_F(ReleaseOrderTest, ABarLetsGoOfItsSuperviewItsViewItsTimerAndItsElements) {
    auto bar = make<HoardingBar>(mortal<UIKit::UIView>("superview"), mortal<UIKit::UIView>("view"));
    bar->setAutoHideTimer(mortal<NSTimer>("autoHideTimer"));
    bar->setElemets(KivBar::Elemets{std::make_shared<UIElement>(mortal<UIComponent>("first element"), 1),
                                    std::make_shared<UIElement>(mortal<UIComponent>("second element"), 1)});
    bar = nullptr;
    EXPECT_EQ(story, (Story{"superview", "view", "autoHideTimer", "first element", "second element"}));
}

TEST_F(ReleaseOrderTest, AComponentLetsGoOfItsViewAndItsObserver) {
    auto component = make<UIComponent>();
    component->setView(mortal<UIKit::UIView>("view"));
    component->setObserver(mortal<Watcher>("observer"));
    component = nullptr;
    EXPECT_EQ(story, (Story{"view", "observer"}));
}

TEST_F(ReleaseOrderTest, AButtonLetsGoOfItsViewItsObserverAndItsClosure) {
    auto button = make<Button>(mortal<UIKit::UIButton>("view"), closure());
    button->setObserver(mortal<Watcher>("observer"));
    button = nullptr;
    EXPECT_EQ(story, (Story{"view", "observer", "actionClosure"}));
}

TEST_F(ReleaseOrderTest, ASeekBarLetsGoOfItsViewItsObserverItsRouteButtonAndItsPlayer) {
    auto seekBar = make<SeekBar>(mortal<UIKit::UISlider>("view"), mortal<Watcher>("observer"),
                                 mortal<Player>("player", false));
    seekBar->setAirplayButton(mortal<MediaPlayer::MPVolumeView>("airplayButton"));
    seekBar = nullptr;
    EXPECT_EQ(story, (Story{"view", "observer", "airplayButton", "player"}));
}

TEST_F(ReleaseOrderTest, AMenuLetsGoOfItsObserverAndItsEntries) {
    auto menu =
        make<PopOverMenu>(CGRectMake(0.0, 0.0, 100.0, 88.0),
                          PopOverMenu::Buttons{mortal<PopOverButton>("entry", imageOf({1.0, 1.0}), "a")},
                          mortal<Watcher>("observer"));
    menu = nullptr;
    EXPECT_EQ(story, (Story{"observer", "entry"}));
}

} // namespace
