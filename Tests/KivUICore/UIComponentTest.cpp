#include "KivUICore/UIComponent/UIComponent.h"

#include "Tests/KivUICore/Tables.h"
#include "Tests/KivUICore/Watchers.h"

#include <gtest/gtest.h>

namespace {

using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIView;

TEST(UIComponentTest, StartsWithoutViewAndObserver) {
    const auto component = make<UIComponent>();
    EXPECT_EQ(component->view(), nullptr);
    EXPECT_EQ(component->observer(), nullptr);
}

TEST(UIComponentTest, InitializingItAgainEmptiesBoth) {
    const auto component = make<UIComponent>();
    component->setView(make<UIView>());
    component->setObserver(make<Watcher>());
    EXPECT_TRUE(component->send<bool>("init"));
    EXPECT_EQ(component->view(), nullptr);
    EXPECT_EQ(component->observer(), nullptr);
}

TEST(UIComponentTest, KeepsItsObserverAndReleasesItOnceWhenItEnds) {
    int farewells = 0;
    auto component = make<UIComponent>();
    auto watcher = make<Watcher>();
    watcher->farewell = [&farewells] { ++farewells; };
    component->setObserver(watcher);
    watcher = nullptr;
    EXPECT_EQ(farewells, 0);
    component = nullptr;
    EXPECT_EQ(farewells, 1);
}

TEST(UIComponentTest, ReplacingTheObserverReleasesTheOldOneOnce) {
    int farewells = 0;
    const auto component = make<UIComponent>();
    auto watcher = make<Watcher>();
    watcher->farewell = [&farewells] { ++farewells; };
    component->setObserver(watcher);
    watcher = nullptr;
    component->setObserver(make<Watcher>());
    EXPECT_EQ(farewells, 1);
}

TEST(UIComponentTest, ReplacingTheViewReleasesTheOldOneAndLeavesItOnTheScreen) {
    const auto screen = make<UIView>();
    auto old = make<UIView>();
    const std::weak_ptr<UIView> present = old;
    screen->addSubview(old);
    const auto component = make<UIComponent>();
    component->setView(old);
    old = nullptr;
    EXPECT_EQ(present.use_count(), 2);
    component->setView(make<UIView>());
    EXPECT_EQ(present.use_count(), 1);
    EXPECT_EQ(screen->subviews(), std::vector{present.lock()});
}

TEST(UIComponentTest, LeavesItsViewWhereItIsWhenItEnds) {
    const auto screen = make<UIView>();
    const auto view = make<UIView>();
    screen->addSubview(view);
    auto component = make<UIComponent>();
    component->setView(view);
    component = nullptr;
    EXPECT_EQ(view->superview(), screen);
    EXPECT_EQ(view.use_count(), 2);
}

TEST(UIComponentTest, AnObserverOnItsWayOutMayLookAtTheControlThatLetItGo) {
    const auto component = make<UIComponent>();
    const auto successor = make<Watcher>();
    auto watcher = make<Watcher>();
    std::shared_ptr<UIEventObserver> seen;
    watcher->farewell = [&] { seen = component->observer(); };
    component->setObserver(watcher);
    watcher = nullptr;
    component->setObserver(successor);
    EXPECT_EQ(seen, successor);
    EXPECT_EQ(component->observer(), successor);
}

TEST(UIComponentTest, AnObserverOnItsWayOutMaySilenceTheControlThatLetItGo) {
    const auto component = make<UIComponent>();
    auto watcher = make<Watcher>();
    watcher->farewell = [&component] { component->setObserver(nullptr); };
    component->setObserver(watcher);
    watcher = nullptr;
    component->setObserver(make<Watcher>());
    EXPECT_EQ(component->observer(), nullptr);
}

TEST(UIComponentTest, IsReachedByName) {
    const Class* found = Class::named("KivUICore.UIComponent");
    ASSERT_EQ(found, &UIComponent::classObject());
    const std::shared_ptr<NSObject> component = found->alloc();
    ASSERT_TRUE(component->send<bool>("init"));
    const auto view = make<UIView>();
    const auto watcher = make<Watcher>();
    component->send("setView:", view);
    component->send("setObserver:", watcher);
    EXPECT_EQ(component->send<std::shared_ptr<UIView>>("view"), view);
    EXPECT_EQ(component->send<std::shared_ptr<UIEventObserver>>("observer"), watcher);
    component->send("setView:", nullptr);
    component->send("setObserver:", nullptr);
    EXPECT_EQ(component->send<std::shared_ptr<UIView>>("view"), nullptr);
    EXPECT_EQ(component->send<std::shared_ptr<UIEventObserver>>("observer"), nullptr);
}

TEST(UIComponentTest, OnlyItsPropertiesAreReachedByName) {
    EXPECT_EQ(names(UIComponent::classObject().selectors()),
              (std::set<std::string>{"init", "view", "setView:", "observer", "setObserver:"}));
    EXPECT_TRUE(UIComponent::classObject().classMethods().selectors().empty());
}

TEST(UIComponentTest, ItsOverridableOperationsStandInTheirOrder) {
    const std::size_t first = slotOf(&UIComponent::view).value_or(0);
    EXPECT_GT(first, slotOf(overload<bool()>(&NSObject::init)).value_or(0));
    EXPECT_EQ(slotOf(&UIComponent::setView), first + 1);
    EXPECT_EQ(slotOf(&UIComponent::observer), first + 2);
    EXPECT_EQ(slotOf(&UIComponent::setObserver), first + 3);
    EXPECT_TRUE(slotOf(overload<bool()>(&UIComponent::init)));
}

TEST(UIComponentDeathTest, AnObserverThatAdoptsNothingIsAFatalReport) {
    EXPECT_DEATH(make<UIComponent>()->send("setObserver:", make<NSObject>()),
                 "Fatal error: .*'setObserver:' of class 'KivUICore.UIComponent'");
}

} // namespace
