#include "KivUICore/Bottom/BottomBar.h"
#include "KivUICore/TopBar/TopBar.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIImage.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

#include <string>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIColor;
using UIKit::UIView;

/// A bar's name, and where it begins in a host view of the given height.
template <class Bar>
struct Edge;

template <>
struct Edge<TopBar> {
    static constexpr const char* name = "KivUICore.TopBar";
    static CGFloat y(CGFloat /*hostHeight*/, CGFloat /*height*/) { return 0.0; }
};

template <>
struct Edge<BottomBar> {
    static constexpr const char* name = "KivUICore.BottomBar";
    static CGFloat y(CGFloat hostHeight, CGFloat height) { return hostHeight - height; }
};

/// What the two bars that lie along an edge of their host view have in common.
template <class Bar>
class DockedBar : public testing::Test {
protected:
    static CGRect place(CGFloat width, CGFloat hostHeight, CGFloat height = 40.0) {
        return CGRectMake(0.0, Edge<Bar>::y(hostHeight, height), width, height);
    }

    const std::shared_ptr<UIView> host = make<UIView>(CGRectMake(0.0, 0.0, 320.0, 480.0));
    const CGRect frame = CGRectMake(0.0, 0.0, 320.0, 40.0);
    const std::string name = Edge<Bar>::name;
};

template <class Bar>
using DockedBarTest = DockedBar<Bar>;

template <class Bar>
using DockedBarDeathTest = DockedBar<Bar>;

struct BarNames {
    template <class Bar>
    static std::string GetName(int /*index*/) {
        return std::string(Edge<Bar>::name).substr(std::string("KivUICore.").size());
    }
};

using Bars = testing::Types<TopBar, BottomBar>;
TYPED_TEST_SUITE(DockedBarTest, Bars, BarNames);
TYPED_TEST_SUITE(DockedBarDeathTest, Bars, BarNames);

TYPED_TEST(DockedBarTest, LiesAlongItsEdgeAtTheDefaultHeight) {
    this->host->addSubview(make<UIView>());
    const auto bar = make<TypeParam>(this->host);
    EXPECT_EQ(bar->barFrame(), this->place(320.0, 480.0));
    EXPECT_EQ(bar->view()->frame(), this->place(320.0, 480.0));
    EXPECT_EQ(bar->columnSize(), 320.0 / 12.0);
    EXPECT_EQ(bar->superview(), this->host);
    EXPECT_EQ(this->host->subviews().back(), bar->view());
    EXPECT_EQ(background(*bar->view()), "rgba 0 0 0 0.65");
    EXPECT_EQ(bar->view()->autoresizingMask(), UIKit::UIViewAutoresizingNone);
    EXPECT_EQ(bar->view()->alpha(), 1.0);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_EQ(bar->delay(), 0.0);
}

TYPED_TEST(DockedBarTest, TakesTheHeightThatItIsGiven) {
    for (const CGFloat height : {60.0, 0.0, -5.0, 1000.0}) {
        const auto bar = make<TypeParam>(make<UIView>(CGRectMake(0.0, 0.0, 320.0, 480.0)), height);
        EXPECT_EQ(bar->barFrame(), this->place(320.0, 480.0, height));
        EXPECT_EQ(bar->view()->frame(), this->place(320.0, 480.0, height));
        EXPECT_EQ(bar->columnSize(), 320.0 / 12.0);
    }
}

TYPED_TEST(DockedBarTest, TheOriginOfTheHostViewPlaysNoPart) {
    const auto moved = make<UIView>(CGRectMake(100.0, 50.0, 200.0, 300.0));
    EXPECT_EQ(make<TypeParam>(moved)->barFrame(), this->place(200.0, 300.0));
}

TYPED_TEST(DockedBarTest, TheSizeIsThatOfTheHostViewsFrame) {
    const auto halved = make<UIView>(CGRectMake(0.0, 0.0, 400.0, 300.0));
    halved->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    EXPECT_EQ(make<TypeParam>(halved)->barFrame(), this->place(200.0, 150.0));
    const auto negative = make<UIView>(CGRectMake(0.0, 0.0, -320.0, -480.0));
    EXPECT_EQ(make<TypeParam>(negative)->barFrame(), this->place(320.0, 480.0));
}

TYPED_TEST(DockedBarTest, DoesNotFollowTheHostViewByItself) {
    const auto bar = make<TypeParam>(this->host);
    this->host->setFrame(CGRectMake(0.0, 0.0, 640.0, 960.0));
    EXPECT_EQ(bar->view()->frame(), this->place(320.0, 480.0));
    EXPECT_EQ(bar->barFrame(), this->place(320.0, 480.0));
}

TYPED_TEST(DockedBarTest, IsMadeByName) {
    const Class* found = Class::named(this->name);
    ASSERT_EQ(found, &TypeParam::classObject());
    EXPECT_EQ(found->superclass(), &KivBar::classObject());
    const auto bar = found->alloc();
    ASSERT_TRUE(bar->template send<bool>("initWithSuperview:", this->host));
    EXPECT_EQ(bar->template send<std::shared_ptr<UIView>>("view")->frame(), this->place(320.0, 480.0));
    const auto high = found->alloc();
    ASSERT_TRUE(high->template send<bool>("initWithSuperview:height:", this->host, 60.0));
    EXPECT_EQ(high->template send<std::shared_ptr<UIView>>("view")->frame(), this->place(320.0, 480.0, 60.0));
}

TYPED_TEST(DockedBarTest, AddsJustItsInitializersToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(TypeParam::classObject()),
              (std::set<std::string>{"initWithSuperview:", "initWithSuperview:height:"}));
}

TYPED_TEST(DockedBarDeathTest, TheInitializersOfPlainBarsAreRefused) {
    EXPECT_UNIMPLEMENTED(make<TypeParam>(this->host, this->frame), "init(superview:frame:)", this->name);
    EXPECT_UNIMPLEMENTED(make<TypeParam>(this->host, this->frame, make<UIColor>(1.0, 1.0)),
                         "init(superview:frame:backgroundColor:)", this->name);
    EXPECT_UNIMPLEMENTED(make<TypeParam>(this->host, this->frame, imageOf({1.0, 1.0})),
                         "init(superview:frame:backgroundImage:)", this->name);
    EXPECT_UNIMPLEMENTED(make<TypeParam>(this->host, this->host), "init(superview:view:)", this->name);
}

TYPED_TEST(DockedBarDeathTest, TheInitializersOfPlainBarsAreRefusedByName) {
    const auto bar = Class::named(this->name)->alloc();
    EXPECT_UNIMPLEMENTED(bar->template send<bool>("initWithSuperview:frame:", this->host, this->frame),
                         "init(superview:frame:)", this->name);
    EXPECT_UNIMPLEMENTED(bar->template send<bool>("initWithSuperview:frame:backgroundColor:", this->host,
                                                  this->frame, make<UIColor>(1.0, 1.0)),
                         "init(superview:frame:backgroundColor:)", this->name);
    EXPECT_UNIMPLEMENTED(bar->template send<bool>("initWithSuperview:frame:backgroundImage:", this->host,
                                                  this->frame, imageOf({1.0, 1.0})),
                         "init(superview:frame:backgroundImage:)", this->name);
    EXPECT_UNIMPLEMENTED(bar->template send<bool>("initWithSuperview:view:", this->host, this->host),
                         "init(superview:view:)", this->name);
}

TYPED_TEST(DockedBarDeathTest, WithoutArgumentsTheRefusalIsTheBaseClasss) {
    EXPECT_UNIMPLEMENTED(make<TypeParam>(), "init()", "KivUICore.KivBar");
    EXPECT_UNIMPLEMENTED(Class::named(this->name)->alloc()->template send<bool>("init"), "init()",
                         "KivUICore.KivBar");
}

} // namespace
