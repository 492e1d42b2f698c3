#include "KivUICore/TopBar/TopBar.h"

#include "Tests/CoreGraphics/Values.h"
#include "Tests/KivUICore/HostView.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIView;

TEST(TopBarTest, AsksTheHostViewForItsFrameOnceAndThenAddsTheContainerView) {
    Story story;
    const auto host = make<HostView>(CGRectMake(0.0, 0.0, 320.0, 480.0), story);
    const Story expected{"frame", "addSubview: (0, 0, 320, 40), no background"};
    const auto bar = make<TopBar>(host);
    EXPECT_EQ(story, expected);
    story.clear();
    const auto other = make<TopBar>(host, 40.0);
    EXPECT_EQ(story, expected);
}

/// An application's own top bar, which wants more room and knows when it is laid out.
class TallBar : public TopBar {
public:
    static const Class& classObject() {
        static const Class& object = ClassBuilder<TallBar, TopBar>("Tests.TallBar")
                                         .initializer<const std::shared_ptr<UIView>&>("initWithSuperview:")
                                         .build();
        return object;
    }

    using TopBar::init;
    bool init(const std::shared_ptr<UIView>& superview) { return TopBar::init(superview, 64.0); }
};

TEST(TopBarTest, ASubclassMayHaveInitializersOfItsOwn) {
    const auto host = make<UIView>(CGRectMake(0.0, 0.0, 320.0, 480.0));
    EXPECT_EQ(make<TallBar>(host)->barFrame(), CGRectMake(0.0, 0.0, 320.0, 64.0));
    const auto named = TallBar::classObject().alloc();
    ASSERT_TRUE(named->send<bool>("initWithSuperview:", host));
    EXPECT_EQ(named->send<std::shared_ptr<UIView>>("view")->frame(), CGRectMake(0.0, 0.0, 320.0, 64.0));
    EXPECT_TRUE(named->isKindOfClass(KivBar::classObject()));
}

/// An application's own top bar that takes a frame after all.
class FreeBar : public TopBar {
public:
    using TopBar::init;
    bool init(const std::shared_ptr<UIView>& superview, const CGRect& frame) override {
        return KivBar::init(superview, frame);
    }
};

TEST(TopBarTest, ASubclassMayAllowWhatTopBarRefuses) {
    const auto host = make<UIView>(CGRectMake(0.0, 0.0, 320.0, 480.0));
    const auto bar = make<FreeBar>(host, CGRectMake(1.0, 2.0, 120.0, 4.0));
    EXPECT_EQ(bar->columnSize(), 10.0);
    // The bar's own initializers don't come by there.
    EXPECT_EQ(make<FreeBar>(host)->barFrame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
}

} // namespace
