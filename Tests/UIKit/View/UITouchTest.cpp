#include "Platform/UIKit/UITouch.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/TestViews.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;

TEST(UITouchTest, LocationIsGivenInAnyViewsCoordinates) {
    std::vector<CGPoint> locations;
    KivUICore::Headless::HeadlessHost host({100, 100});
    const auto view = makeProbe(CGRectMake(10, 20, 50, 50));
    const auto beside = makeProbe(CGRectMake(80, 80, 10, 10));
    beside->setTransform(CGAffineTransformMakeScale(2, 2));
    host.window()->addSubview(view);
    host.window()->addSubview(beside);
    view->onTouch = [&](const UITouch& touch) {
        EXPECT_EQ(touch.view, view);
        locations = {touch.location, touch.previousLocation, touch.locationInView(*view),
                     touch.previousLocationInView(*view), touch.locationInView(*beside)};
    };
    host.touchDown({15, 25});
    host.touchMove({35, 45});
    view->onTouch = nullptr;
    EXPECT_EQ(locations, (std::vector<CGPoint>{{35, 45}, {15, 25}, {25, 25}, {5, 5}, {-20, -15}}));
}

TEST(UITouchTest, LocationInAViewWithoutAWindowIsTheOrigin) {
    const auto view = makeProbe(CGRectMake(10, 20, 50, 50));
    UITouch touch;
    touch.location = {30, 30};
    touch.previousLocation = {30, 30};
    EXPECT_EQ(touch.locationInView(*view), CGPointMake(0, 0));
    EXPECT_EQ(touch.previousLocationInView(*view), CGPointMake(0, 0));
}

TEST(UITouchTest, CarriesTheRunLoopsTime) {
    KivUICore::Headless::HeadlessHost host({100, 100});
    const auto view = makeProbe(CGRectMake(0, 0, 100, 100));
    host.window()->addSubview(view);
    std::vector<double> times;
    view->onTouch = [&](const UITouch& touch) { times.push_back(touch.timestamp); };
    host.advance(0.5);
    host.touchDown({1, 1});
    host.advance(0.25);
    host.touchMove({2, 2});
    host.touchUp({2, 2});
    EXPECT_EQ(times, (std::vector<double>{0.5, 0.75, 0.75}));
}

} // namespace
