#include "KivUICore/UIComponent/UIEventObserver.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"
#include "Tests/KivUICore/Watchers.h"

namespace {

using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;

TEST(UIEventObserverTest, AnAdopterIsReachedByAllSevenNames) {
    EXPECT_EQ(ownSelectors(Watcher::classObject()),
              (std::set<std::string>{"onButtonPress:", "onSeekBegan:", "onSeekFinished:", "onValueChanged:",
                                     "onPopOverButtonPress:", "popOverShouldPresent", "onPopOverDismiss"}));
}

TEST(UIEventObserverTest, ItsOperationsStandInTheirOrder) {
    const std::size_t first = slotOf(&UIEventObserver::onButtonPress).value_or(0);
    EXPECT_EQ(slotOf(&UIEventObserver::onSeekBegan), first + 1);
    EXPECT_EQ(slotOf(&UIEventObserver::onSeekFinished), first + 2);
    EXPECT_EQ(slotOf(&UIEventObserver::onValueChanged), first + 3);
    EXPECT_EQ(slotOf(&UIEventObserver::onPopOverButtonPress), first + 4);
    EXPECT_EQ(slotOf(&UIEventObserver::popOverShouldPresent), first + 5);
    EXPECT_EQ(slotOf(&UIEventObserver::onPopOverDismiss), first + 6);
    static_assert(std::is_abstract_v<UIEventObserver>);
}

TEST(UIEventObserverTest, WhatIsSentByNameArrivesWithItsArguments) {
    Story story;
    const auto watcher = make<Watcher>(story);
    const auto seekBar = make<SeekBar>(make<UIKit::UISlider>(), watcher, make<Player>(false));
    UIEventObserver& observer = *watcher;
    observer.send("onButtonPress:", make<Button>(make<UIKit::UIButton>(), nullptr));
    observer.send("onSeekBegan:", seekBar);
    EXPECT_EQ(watcher->lastSeekBar.lock(), seekBar);
    observer.send("onSeekFinished:", seekBar);
    observer.send("onValueChanged:", seekBar);
    observer.send("onPopOverButtonPress:", std::int64_t{1} << 40);
    observer.send("popOverShouldPresent");
    observer.send("onPopOverDismiss");
    EXPECT_EQ(story,
              (Story{"onButtonPress:", "onSeekBegan:", "onSeekFinished:", "onValueChanged:",
                     "onPopOverButtonPress: 1099511627776", "popOverShouldPresent", "onPopOverDismiss"}));
}

TEST(UIEventObserverTest, ControlsTellItOfSeeksAndNeverOfPresses) {
    Story story;
    KivUICore::Headless::HeadlessHost host({320.0, 480.0});
    const auto watcher = make<Watcher>(story);
    const auto view = make<UIKit::UIButton>();
    const auto button = make<Button>(view, nullptr);
    button->setObserver(watcher);
    const auto slider = make<UIKit::UISlider>();
    const auto seekBar = make<SeekBar>(slider, watcher, make<Player>(false));
    const auto label = make<Label>(make<UIKit::UILabel>(), watcher);
    const auto bar = make<TopBar>(host.window());
    bar->addElementToView(button, 2);
    bar->addElementToView(seekBar, 8);
    bar->addElementToView(label, 2);

    host.tap({20.0, 20.0});
    EXPECT_EQ(story, Story());
    label->updateLabelWithTime(1.0F);
    EXPECT_EQ(story, Story());
    host.touchDown({66.0, 20.0});
    host.touchMove({100.0, 20.0});
    host.touchUp({100.0, 20.0});
    EXPECT_EQ(story, (Story{"onSeekBegan:", "onValueChanged:", "onSeekFinished:"}));
    EXPECT_EQ(watcher->lastSeekBar.lock(), seekBar);
}

} // namespace
