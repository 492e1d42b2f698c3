#include "Platform/UIKit/UIKit.h"

#include <gtest/gtest.h>

namespace {

TEST(UIKitTest, EveryClassIsKnownByName) {
    for (const char* name :
         {"UIKit.UIButton", "UIKit.UIColor", "UIKit.UIControl", "UIKit.UIFont", "UIKit.UIImage",
          "UIKit.UIImageView", "UIKit.UILabel", "UIKit.UIPopoverPresentationController",
          "UIKit.UIPresentationController", "UIKit.UIResponder", "UIKit.UISlider", "UIKit.UITableView",
          "UIKit.UITableViewCell", "UIKit.UIView", "UIKit.UIViewController", "UIKit.UIWindow"}) {
        const Foundation::Class* found = Foundation::Class::named(name);
        ASSERT_NE(found, nullptr) << name;
        EXPECT_EQ(found->name(), name);
    }
}

TEST(UIKitTest, ControlsAreViews) {
    EXPECT_TRUE(UIKit::UISlider::classObject().isSubclassOf(UIKit::UIControl::classObject()));
    EXPECT_TRUE(UIKit::UIButton::classObject().isSubclassOf(UIKit::UIControl::classObject()));
    EXPECT_TRUE(UIKit::UILabel::classObject().isSubclassOf(UIKit::UIView::classObject()));
    EXPECT_FALSE(UIKit::UILabel::classObject().isSubclassOf(UIKit::UIControl::classObject()));
}

} // namespace
