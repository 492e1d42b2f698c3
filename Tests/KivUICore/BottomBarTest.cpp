#include "KivUICore/Bottom/BottomBar.h"

#include "Tests/CoreGraphics/Values.h"
#include "Tests/KivUICore/HostView.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIView;

TEST(BottomBarTest, BeginsAboveAHostViewThatIsTooLow) {
    const auto host = make<UIView>(CGRectMake(0.0, 0.0, 320.0, 30.0));
    EXPECT_EQ(make<BottomBar>(host)->barFrame(), CGRectMake(0.0, -10.0, 320.0, 40.0));
}

TEST(BottomBarTest, AsksTheHostViewForItsFrameTwiceAndThenAddsTheContainerView) {
    Story story;
    const auto host = make<HostView>(CGRectMake(0.0, 0.0, 320.0, 480.0), story);
    const Story expected{"frame", "frame", "addSubview: (0, 440, 320, 40), no background"};
    const auto bar = make<BottomBar>(host);
    EXPECT_EQ(story, expected);
    story.clear();
    const auto other = make<BottomBar>(host, 40.0);
    EXPECT_EQ(story, expected);
}

/// A host view that is larger each time it is asked.
class GrowingView : public UIView {
public:
    CGRect frame() const override {
        size_ += 100.0;
        return CGRectMake(0.0, 0.0, size_, size_);
    }

private:
    mutable CGFloat size_ = 0.0;
};

TEST(BottomBarTest, ReadsTheHeightFirstAndThenTheWidth) {
    EXPECT_EQ(make<BottomBar>(make<GrowingView>())->barFrame(), CGRectMake(0.0, 60.0, 200.0, 40.0));
}

} // namespace
