#include "KivUICore/UIElement/UIElement.h"

#include "KivUICore/KivUICore.h"

#include <gtest/gtest.h>
#include <type_traits>

namespace {

using namespace Foundation;
using namespace KivUICore;

// A record of the framework's own: out of dispatch's reach, and never changed.
static_assert(!std::is_base_of_v<NSObject, UIElement>);
static_assert(!std::is_polymorphic_v<UIElement>);
static_assert(!std::is_copy_assignable_v<UIElement> && !std::is_move_assignable_v<UIElement>);

TEST(UIElementTest, KeepsSizeAndControlAsGiven) {
    for (const std::int64_t size :
         {std::int64_t{2}, std::int64_t{0}, std::int64_t{-3}, INT64_MAX, INT64_MIN}) {
        const auto component = make<UIComponent>();
        const auto element = std::make_shared<UIElement>(component, size);
        EXPECT_EQ(element->size(), size);
        EXPECT_EQ(element->view(), component);
    }
}

TEST(UIElementTest, HoldsItsControlUntilItEndsAndLeavesTheViewAlone) {
    const auto screen = make<UIKit::UIView>();
    const auto view = make<UIKit::UIView>();
    screen->addSubview(view);
    auto component = make<UIComponent>();
    component->setView(view);
    const std::weak_ptr<UIComponent> present = component;
    auto element = std::make_shared<UIElement>(component, 1);
    component = nullptr;
    EXPECT_EQ(present.use_count(), 1);
    element = nullptr;
    EXPECT_TRUE(present.expired());
    EXPECT_EQ(view->superview(), screen);
}

TEST(UIElementTest, DoesNotTouchItsControl) {
    const auto component = make<UIComponent>();
    component->setView(make<UIKit::UIView>(CoreGraphics::CGRectMake(1.0, 2.0, 3.0, 4.0)));
    std::make_shared<UIElement>(component, 5);
    EXPECT_EQ(component->view()->frame(), CoreGraphics::CGRectMake(1.0, 2.0, 3.0, 4.0));
    EXPECT_EQ(component.use_count(), 1);
}

TEST(UIElementTest, HasNoClassToBeFoundByName) {
    EXPECT_EQ(Class::named("KivUICore.UIElement"), nullptr);
    EXPECT_NE(Class::named("KivUICore.KivBar"), nullptr);
}

} // namespace
