#include "KivUICore/TopBar/TopBar.h"

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

TEST(TopBarTest, LiesAlongTheTopEdgeAtTheDefaultHeight) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    host->addSubview(make<UIView>());
    const auto bar = make<TopBar>(host);
    const CGRect frame = CGRectMake(0.0, 0.0, 320.0, 40.0);
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

TEST(TopBarTest, TakesTheHeightThatItIsGiven) {
    for (const CGFloat height : {60.0, 0.0, -5.0, 1000.0}) {
        const auto bar = make<TopBar>(hostOf(0.0, 0.0, 320.0, 480.0), height);
        EXPECT_EQ(bar->barFrame(), CGRectMake(0.0, 0.0, 320.0, height));
        EXPECT_EQ(bar->view()->frame(), CGRectMake(0.0, 0.0, 320.0, height));
        EXPECT_EQ(bar->columnSize(), 320.0 / 12.0);
    }
}

TEST(TopBarTest, TheOriginOfTheHostViewPlaysNoPart) {
    EXPECT_EQ(make<TopBar>(hostOf(100.0, 50.0, 200.0, 300.0))->barFrame(), CGRectMake(0.0, 0.0, 200.0, 40.0));
}

TEST(TopBarTest, TheSizeIsThatOfTheHostViewsFrame) {
    const auto host = hostOf(0.0, 0.0, 400.0, 300.0);
    host->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    EXPECT_EQ(make<TopBar>(host)->barFrame(), CGRectMake(0.0, 0.0, 200.0, 40.0));
    EXPECT_EQ(make<TopBar>(hostOf(0.0, 0.0, -320.0, -480.0))->barFrame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
}

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

TEST(TopBarTest, DoesNotFollowTheHostViewByItself) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const auto bar = make<TopBar>(host);
    host->setFrame(CGRectMake(0.0, 0.0, 640.0, 960.0));
    EXPECT_EQ(bar->view()->frame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
    EXPECT_EQ(bar->barFrame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
}

TEST(TopBarTest, IsMadeByName) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const Class* found = Class::named("KivUICore.TopBar");
    ASSERT_EQ(found, &TopBar::classObject());
    EXPECT_EQ(found->superclass(), &KivBar::classObject());
    const auto bar = found->alloc();
    ASSERT_TRUE(bar->send<bool>("initWithSuperview:", host));
    EXPECT_EQ(bar->send<std::shared_ptr<UIView>>("view")->frame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
    const auto high = found->alloc();
    ASSERT_TRUE(high->send<bool>("initWithSuperview:height:", host, 60.0));
    EXPECT_EQ(high->send<std::shared_ptr<UIView>>("view")->frame(), CGRectMake(0.0, 0.0, 320.0, 60.0));
}

TEST(TopBarTest, AddsJustItsInitializersToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(TopBar::classObject()),
              (std::set<std::string>{"initWithSuperview:", "initWithSuperview:height:"}));
}

TEST(TopBarDeathTest, TheInitializersOfPlainBarsAreRefused) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const CGRect frame = CGRectMake(0.0, 0.0, 320.0, 40.0);
    EXPECT_UNIMPLEMENTED(make<TopBar>(host, frame), "init(superview:frame:)", "KivUICore.TopBar");
    EXPECT_UNIMPLEMENTED(make<TopBar>(host, frame, make<UIColor>(1.0, 1.0)),
                         "init(superview:frame:backgroundColor:)", "KivUICore.TopBar");
    EXPECT_UNIMPLEMENTED(make<TopBar>(host, frame, imageOf({1.0, 1.0})),
                         "init(superview:frame:backgroundImage:)", "KivUICore.TopBar");
    EXPECT_UNIMPLEMENTED(make<TopBar>(host, host), "init(superview:view:)", "KivUICore.TopBar");
}

TEST(TopBarDeathTest, TheInitializersOfPlainBarsAreRefusedByName) {
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const CGRect frame = CGRectMake(0.0, 0.0, 320.0, 40.0);
    const auto bar = Class::named("KivUICore.TopBar")->alloc();
    EXPECT_UNIMPLEMENTED(bar->send<bool>("initWithSuperview:frame:", host, frame), "init(superview:frame:)",
                         "KivUICore.TopBar");
    EXPECT_UNIMPLEMENTED(
        bar->send<bool>("initWithSuperview:frame:backgroundColor:", host, frame, make<UIColor>(1.0, 1.0)),
        "init(superview:frame:backgroundColor:)", "KivUICore.TopBar");
    EXPECT_UNIMPLEMENTED(
        bar->send<bool>("initWithSuperview:frame:backgroundImage:", host, frame, imageOf({1.0, 1.0})),
        "init(superview:frame:backgroundImage:)", "KivUICore.TopBar");
    EXPECT_UNIMPLEMENTED(bar->send<bool>("initWithSuperview:view:", host, host), "init(superview:view:)",
                         "KivUICore.TopBar");
}

TEST(TopBarDeathTest, WithoutArgumentsTheRefusalIsTheBaseClasss) {
    EXPECT_UNIMPLEMENTED(make<TopBar>(), "init()", "KivUICore.KivBar");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.TopBar")->alloc()->send<bool>("init"), "init()",
                         "KivUICore.KivBar");
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
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
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
    const auto host = hostOf(0.0, 0.0, 320.0, 480.0);
    const auto bar = make<FreeBar>(host, CGRectMake(1.0, 2.0, 120.0, 4.0));
    EXPECT_EQ(bar->columnSize(), 10.0);
    // The bar's own initializers don't come by there.
    EXPECT_EQ(make<FreeBar>(host)->barFrame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
}

} // namespace
