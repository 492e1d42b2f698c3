#include "KivUICore/Bottom/BottomBar.h"

#include "Tests/CoreGraphics/Values.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIColor;
using UIKit::UIView;

std::shared_ptr<UIView> hostOf(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return make<UIView>(CGRectMake(x, y, width, height));
}

TEST(BottomBarTest, LiesAlongTheBottomEdgeAtTheDefaultHeight) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    host->addSubview(make<UIView>());
    const auto bar = make<BottomBar>(host);
    const CGRect frame = CGRectMake(0.0, 440.0, 320.0, 40.0);
    EXPECT_EQ(bar->barFrame(), frame);
    EXPECT_EQ(bar->view()->frame(), frame);
    EXPECT_EQ(bar->columnSize(), 320.0 / 12.0);
    EXPECT_EQ(bar->superview(), host);
    EXPECT_EQ(host->subviews().back(), bar->view());
    EXPECT_EQ(background(*bar->view()), "rgba 0 0 0 0.65");
    EXPECT_EQ(bar->view()->autoresizingMask(), UIKit::UIViewAutoresizingNone);
    EXPECT_EQ(bar->view()->alpha(), 1.0);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_EQ(bar->delay(), 0.0);
}

TEST(BottomBarTest, TakesTheHeightThatItIsGiven) {
    for (const CGFloat height : {60.0, 0.0, -5.0, 1000.0}) {
        const auto bar = make<BottomBar>(hostOf(0.0, 0.0, 320.0, 480.0), height);
        EXPECT_EQ(bar->barFrame(), CGRectMake(0.0, 480.0 - height, 320.0, height));
        EXPECT_EQ(bar->view()->frame(), CGRectMake(0.0, 480.0 - height, 320.0, height));
        EXPECT_EQ(bar->columnSize(), 320.0 / 12.0);
    }
}

TEST(BottomBarTest, TheOriginOfTheHostViewPlaysNoPart) {
    EXPECT_EQ(make<BottomBar>(hostOf(100.0, 50.0, 200.0, 300.0))->barFrame(),
              CGRectMake(0.0, 260.0, 200.0, 40.0));
}

TEST(BottomBarTest, BeginsAboveAHostViewThatIsTooLow) {
    EXPECT_EQ(make<BottomBar>(hostOf(0.0, 0.0, 320.0, 30.0))->barFrame(),
              CGRectMake(0.0, -10.0, 320.0, 40.0));
}

TEST(BottomBarTest, TheSizeIsThatOfTheHostViewsFrame) {
    const auto host = hostOf(0.0, 0.0, 400.0, 300.0);
    host->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    EXPECT_EQ(make<BottomBar>(host)->barFrame(), CGRectMake(0.0, 110.0, 200.0, 40.0));
    EXPECT_EQ(make<BottomBar>(hostOf(0.0, 0.0, -320.0, -480.0))->barFrame(),
              CGRectMake(0.0, 440.0, 320.0, 40.0));
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

TEST(BottomBarTest, DoesNotFollowTheHostViewByItself) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const auto bar = make<BottomBar>(host);
    host->setFrame(CGRectMake(0.0, 0.0, 640.0, 960.0));
    EXPECT_EQ(bar->view()->frame(), CGRectMake(0.0, 440.0, 320.0, 40.0));
    EXPECT_EQ(bar->barFrame(), CGRectMake(0.0, 440.0, 320.0, 40.0));
}

TEST(BottomBarTest, IsMadeByName) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const Class* found = Class::named("KivUICore.BottomBar");
    ASSERT_EQ(found, &BottomBar::classObject());
    EXPECT_EQ(found->superclass(), &KivBar::classObject());
    const auto bar = found->alloc();
    ASSERT_TRUE(bar->send<bool>("initWithSuperview:", host));
    EXPECT_EQ(bar->send<std::shared_ptr<UIView>>("view")->frame(), CGRectMake(0.0, 440.0, 320.0, 40.0));
    const auto high = found->alloc();
    ASSERT_TRUE(high->send<bool>("initWithSuperview:height:", host, 60.0));
    EXPECT_EQ(high->send<std::shared_ptr<UIView>>("view")->frame(), CGRectMake(0.0, 420.0, 320.0, 60.0));
}

TEST(BottomBarTest, AddsJustItsInitializersToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(BottomBar::classObject()),
              (std::set<std::string>{"initWithSuperview:", "initWithSuperview:height:"}));
}

TEST(BottomBarDeathTest, TheInitializersOfPlainBarsAreRefused) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const CGRect frame = CGRectMake(0.0, 0.0, 320.0, 40.0);
    EXPECT_UNIMPLEMENTED(make<BottomBar>(host, frame), "init(superview:frame:)", "KivUICore.BottomBar");
    EXPECT_UNIMPLEMENTED(make<BottomBar>(host, frame, make<UIColor>(1.0, 1.0)),
                         "init(superview:frame:backgroundColor:)", "KivUICore.BottomBar");
    EXPECT_UNIMPLEMENTED(make<BottomBar>(host, frame, imageOf({1.0, 1.0})),
                         "init(superview:frame:backgroundImage:)", "KivUICore.BottomBar");
    EXPECT_UNIMPLEMENTED(make<BottomBar>(host, host), "init(superview:view:)", "KivUICore.BottomBar");
}

TEST(BottomBarDeathTest, TheInitializersOfPlainBarsAreRefusedByName) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const CGRect frame = CGRectMake(0.0, 0.0, 320.0, 40.0);
    const auto bar = Class::named("KivUICore.BottomBar")->alloc();
    EXPECT_UNIMPLEMENTED(bar->send<bool>("initWithSuperview:frame:", host, frame), "init(superview:frame:)",
                         "KivUICore.BottomBar");
    EXPECT_UNIMPLEMENTED(
        bar->send<bool>("initWithSuperview:frame:backgroundColor:", host, frame, make<UIColor>(1.0, 1.0)),
        "init(superview:frame:backgroundColor:)", "KivUICore.BottomBar");
    EXPECT_UNIMPLEMENTED(
        bar->send<bool>("initWithSuperview:frame:backgroundImage:", host, frame, imageOf({1.0, 1.0})),
        "init(superview:frame:backgroundImage:)", "KivUICore.BottomBar");
    EXPECT_UNIMPLEMENTED(bar->send<bool>("initWithSuperview:view:", host, host), "init(superview:view:)",
                         "KivUICore.BottomBar");
}

TEST(BottomBarDeathTest, WithoutArgumentsTheRefusalIsTheBaseClasss) {
    EXPECT_UNIMPLEMENTED(make<BottomBar>(), "init()", "KivUICore.KivBar");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.BottomBar")->alloc()->send<bool>("init"), "init()",
                         "KivUICore.KivBar");
}

} // namespace
