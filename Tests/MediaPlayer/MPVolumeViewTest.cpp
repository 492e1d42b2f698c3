#include "Platform/MediaPlayer/MPVolumeView.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/Foundation/Message.h"
#include "Platform/MediaPlayer/MPRouteProvider.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using namespace CoreGraphics;
using namespace MediaPlayer;
using Foundation::make;
using KivUICore::Headless::HeadlessHost;

class TestProvider : public MPRouteProvider {
public:
    std::vector<MPRoute> routes() const override { return routes_; }

    void selectRoute(const std::string& identifier) override {
        for (MPRoute& route : routes_) {
            route.isSelected = route.identifier == identifier;
        }
    }

    void chooseRouteFromView(const std::shared_ptr<MPVolumeView>& view) override {
        askedFrom.push_back(view.get());
        if (const auto call = onChoose) {
            call();
        }
    }

    void setRoutes(std::vector<MPRoute> routes) {
        routes_ = std::move(routes);
        routesDidChange();
    }

    std::vector<MPVolumeView*> askedFrom;
    std::function<void()> onChoose;

private:
    std::vector<MPRoute> routes_;
};

const MPRoute here{"This screen", "here", true};
const MPRoute kitchen{"Kitchen", "kitchen", false};

class MPVolumeViewTest : public testing::Test {
protected:
    MPVolumeViewTest() {
        view->setShowsVolumeSlider(false);
        host.window()->addSubview(view);
        MPRouteProvider::install(provider, host.window());
        host.draw();
    }

    ~MPVolumeViewTest() override { MPRouteProvider::install(nullptr, host.window()); }

    bool drawsAnything() {
        host.window()->setNeedsDisplayEverywhere();
        const auto operations = host.draw()->operations();
        return std::any_of(operations.begin(), operations.end(), [](const CGDrawing::Operation& each) {
            return std::holds_alternative<CGDrawing::StrokePath>(each);
        });
    }

    HeadlessHost host{{300, 100}};
    std::shared_ptr<TestProvider> provider = std::make_shared<TestProvider>();
    std::shared_ptr<MPVolumeView> view = make<MPVolumeView>(CGRectMake(20, 30, 60, 40));
};

TEST_F(MPVolumeViewTest, ShowsTheButtonOnlyWhenThereIsAChoice) {
    EXPECT_FALSE(view->isRouteButtonVisible());
    EXPECT_FALSE(drawsAnything());
    provider->setRoutes({here});
    EXPECT_FALSE(view->isRouteButtonVisible());
    provider->setRoutes({here, kitchen});
    EXPECT_TRUE(host.window()->needsDisplay());
    EXPECT_TRUE(view->isRouteButtonVisible());
    EXPECT_TRUE(drawsAnything());
    provider->setRoutes({kitchen});
    EXPECT_TRUE(host.window()->needsDisplay());
    EXPECT_FALSE(drawsAnything());
}

TEST_F(MPVolumeViewTest, AViewAddedLaterShowsTheButtonAtOnceAndOutsideNoMore) {
    provider->setRoutes({here, kitchen});
    const auto later = make<MPVolumeView>();
    EXPECT_FALSE(later->isRouteButtonVisible());
    host.window()->addSubview(later);
    EXPECT_TRUE(later->isRouteButtonVisible());
    later->removeFromSuperview();
    EXPECT_FALSE(later->isRouteButtonVisible());
}

TEST_F(MPVolumeViewTest, FollowsTheProviderThatIsInstalledAroundIt) {
    provider->setRoutes({here, kitchen});
    const auto other = std::make_shared<TestProvider>();
    MPRouteProvider::install(other, host.window());
    EXPECT_FALSE(view->isRouteButtonVisible());
    provider->setRoutes({here, kitchen});
    EXPECT_FALSE(view->isRouteButtonVisible());
    MPRouteProvider::install(provider, host.window());
    EXPECT_TRUE(view->isRouteButtonVisible());
    MPRouteProvider::install(nullptr, host.window());
    EXPECT_FALSE(view->isRouteButtonVisible());
}

TEST_F(MPVolumeViewTest, EachHalfOfAWindowAsksItsOwnProvider) {
    const auto left = make<UIKit::UIView>(CGRectMake(0, 0, 150, 100));
    const auto right = make<UIKit::UIView>(CGRectMake(150, 0, 150, 100));
    host.window()->addSubview(left);
    host.window()->addSubview(right);
    const auto rightView = make<MPVolumeView>(CGRectMake(20, 30, 60, 40));
    left->addSubview(view);
    right->addSubview(rightView);
    const auto rightProvider = std::make_shared<TestProvider>();
    MPRouteProvider::install(nullptr, host.window());
    MPRouteProvider::install(provider, left);
    MPRouteProvider::install(rightProvider, right);
    provider->setRoutes({here, kitchen});
    EXPECT_TRUE(view->isRouteButtonVisible());
    EXPECT_FALSE(rightView->isRouteButtonVisible());
    rightProvider->setRoutes({here, kitchen});
    host.tap({50, 50});
    EXPECT_EQ(provider->askedFrom, std::vector<MPVolumeView*>{view.get()});
    EXPECT_TRUE(rightProvider->askedFrom.empty());
    host.tap({200, 50});
    EXPECT_EQ(rightProvider->askedFrom, std::vector<MPVolumeView*>{rightView.get()});
    EXPECT_EQ(provider->askedFrom.size(), 1U);
}

TEST_F(MPVolumeViewTest, NearestProviderIsAskedWhileItIsAlive) {
    const auto half = make<UIKit::UIView>(CGRectMake(0, 0, 150, 100));
    host.window()->addSubview(half);
    half->addSubview(view);
    auto nearest = std::make_shared<TestProvider>();
    MPRouteProvider::install(nearest, half);
    EXPECT_EQ(MPRouteProvider::providerFor(*view), nearest);
    EXPECT_EQ(MPRouteProvider::providerFor(*host.window()), provider);
    nearest = nullptr;
    EXPECT_EQ(MPRouteProvider::providerFor(*view), provider);
}

TEST(MPRouteProviderDeathTest, ProviderWithoutAViewIsReported) {
    EXPECT_DEATH(MPRouteProvider::install(std::make_shared<TestProvider>(), nullptr),
                 "A route provider is installed in a view");
}

TEST_F(MPVolumeViewTest, ATapAsksTheProvider) {
    provider->setRoutes({here, kitchen});
    host.tap({50, 50});
    EXPECT_EQ(provider->askedFrom, std::vector<MPVolumeView*>{view.get()});
}

TEST_F(MPVolumeViewTest, ATouchThatEndsOutsideAsksNobody) {
    provider->setRoutes({here, kitchen});
    host.touchDown({50, 50});
    host.touchMove({200, 50});
    host.touchUp({200, 50});
    EXPECT_TRUE(provider->askedFrom.empty());
}

TEST_F(MPVolumeViewTest, WithoutAChoiceTouchesGoThrough) {
    EXPECT_EQ(host.window()->hitTest({50, 50}), host.window());
    host.tap({50, 50});
    EXPECT_TRUE(provider->askedFrom.empty());
}

TEST_F(MPVolumeViewTest, RoutesThatGoInMidTouchTakeTheButtonAway) {
    provider->setRoutes({here, kitchen});
    host.touchDown({50, 50});
    provider->setRoutes({here});
    host.touchUp({50, 50});
    EXPECT_TRUE(provider->askedFrom.empty());
}

TEST_F(MPVolumeViewTest, TheProviderIsHeldWeakly) {
    provider->setRoutes({here, kitchen});
    provider = nullptr;
    EXPECT_EQ(MPRouteProvider::providerFor(*view), nullptr);
    host.tap({50, 50});
    view->removeFromSuperview();
    host.window()->addSubview(view);
    EXPECT_FALSE(view->isRouteButtonVisible());
}

TEST_F(MPVolumeViewTest, TheProviderMayTearDownTheViewAndItself) {
    provider->setRoutes({here, kitchen});
    const std::weak_ptr<MPVolumeView> weakView = view;
    const std::weak_ptr<TestProvider> weakProvider = provider;
    provider->onChoose = [this] {
        view->removeFromSuperview();
        view = nullptr;
        provider = nullptr;
    };
    host.tap({50, 50});
    EXPECT_TRUE(weakView.expired());
    EXPECT_TRUE(weakProvider.expired());
}

TEST_F(MPVolumeViewTest, TheButtonCanBeTurnedOff) {
    provider->setRoutes({here, kitchen});
    view->setShowsRouteButton(false);
    EXPECT_FALSE(view->isRouteButtonVisible());
    provider->setRoutes({here, kitchen});
    EXPECT_FALSE(view->isRouteButtonVisible());
    view->setShowsRouteButton(true);
    EXPECT_TRUE(view->isRouteButtonVisible());
}

TEST_F(MPVolumeViewTest, RemembersWhetherAVolumeSliderIsWanted) {
    EXPECT_TRUE(make<MPVolumeView>()->showsVolumeSlider());
    EXPECT_FALSE(view->showsVolumeSlider());
}

TEST_F(MPVolumeViewTest, FitsInAnyStateAndShrunkStandsInTheMiddleOfABar) {
    const auto fitted = make<MPVolumeView>();
    host.window()->addSubview(fitted);
    fitted->sizeToFit();
    const CGRect whole = fitted->frame();
    EXPECT_EQ(whole.origin, (CGPoint{0, 0}));
    fitted->setTransform(CGAffineTransformMakeScale(0.8, 0.8));
    CGRect shrunk = fitted->frame();
    EXPECT_NEAR(shrunk.size.width, 0.8 * whole.size.width, 1e-9);
    EXPECT_GE(shrunk.size.width, 44.0 - 1e-9);
    shrunk.origin.y += 4.0;
    fitted->setFrame(shrunk);
    EXPECT_NEAR(CGRectGetMidY(fitted->frame()), 20.0, 1e-9);
    provider->setRoutes({here, kitchen});
    fitted->sizeToFit();
    EXPECT_NEAR(fitted->bounds().size.width, whole.size.width, 1e-9);
}

TEST_F(MPVolumeViewTest, AShrunkButtonIsTouchedWhereItShows) {
    provider->setRoutes({here, kitchen});
    view->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    host.tap({50, 50});
    EXPECT_EQ(provider->askedFrom.size(), 1U);
    host.tap({25, 35});
    EXPECT_EQ(provider->askedFrom.size(), 1U);
}

TEST_F(MPVolumeViewTest, AShrunkButtonTakesTouchesAllOverTheHeightOfABar) {
    provider->setRoutes({here, kitchen});
    auto fitted = make<MPVolumeView>();
    host.window()->addSubview(fitted);
    fitted->sizeToFit();
    fitted->setTransform(CGAffineTransformMakeScale(0.8, 0.8));
    const CGRect shrunk = fitted->frame();
    for (const double distance : {-19.5, 19.5}) {
        const double y = fitted->bounds().size.height / 2.0 + distance / 0.8;
        EXPECT_TRUE(fitted->pointInside({shrunk.size.width / 2.0, y})) << distance;
    }
    EXPECT_FALSE(fitted->pointInside({shrunk.size.width / 2.0, -10.0}));
}

TEST_F(MPVolumeViewTest, CanBeReachedByName) {
    const Foundation::Class* found = Foundation::Class::named("MediaPlayer.MPVolumeView");
    ASSERT_NE(found, nullptr);
    const std::shared_ptr<Foundation::NSObject> made = found->alloc();
    EXPECT_TRUE(made->send<bool>("init"));
    made->send("setShowsVolumeSlider:", false);
    EXPECT_FALSE(made->send<bool>("showsVolumeSlider"));
    made->send("sizeToFit");
    EXPECT_GT(made->send<CGRect>("frame").size.width, 0.0);
}

} // namespace
