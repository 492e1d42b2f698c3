#include "Hosts/Cairo/OverlaySurface.h"

#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIWindow.h"

#include <cstdint>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace KivUICore::Cairo {

namespace {

using namespace CoreGraphics;
using Foundation::make;

struct StillClock : Foundation::Clock {
    double now() const override { return 0.0; }
};

std::vector<std::uint32_t> pixels(const OverlaySurface& surface) {
    const auto width = static_cast<std::size_t>(surface.size().width);
    const auto height = static_cast<std::size_t>(surface.size().height);
    std::vector<std::uint32_t> result(width * height);
    for (std::size_t y = 0; y < height; ++y) {
        std::memcpy(&result[y * width],
                    cairo_image_surface_get_data(surface.surface()) +
                        y * static_cast<std::size_t>(cairo_image_surface_get_stride(surface.surface())),
                    width * 4);
    }
    return result;
}

class OverlaySurfaceAtScale : public testing::TestWithParam<double> {
protected:
    OverlaySurfaceAtScale() {
        window->setContentScale(GetParam());
        view->setBackgroundColor(make<UIKit::UIColor>(0.2, 0.4, 0.6, 0.65));
        window->addSubview(view);
    }

    PixelSize size() const {
        return {static_cast<int>(60.0 * GetParam()), static_cast<int>(40.0 * GetParam())};
    }

    StillClock clock;
    Foundation::NSRunLoop runLoop{clock};
    CairoResources resources;
    std::shared_ptr<UIKit::UIWindow> window = make<UIKit::UIWindow>(CGRectMake(0.0, 0.0, 60.0, 40.0));
    std::shared_ptr<UIKit::UIView> view = make<UIKit::UIView>(CGRectMake(3.0, 5.0, 21.0, 7.0));
};

TEST_P(OverlaySurfaceAtScale, IsBlankWhileNoViewIsSeen) {
    OverlaySurface surface(size(), GetParam(), resources);
    EXPECT_TRUE(surface.isBlank());
    surface.draw(*window);
    EXPECT_FALSE(surface.isBlank());
    view->setAlpha(0.0);
    surface.draw(*window);
    EXPECT_TRUE(surface.isBlank());
    view->setAlpha(1.0);
    view->setFrame(CGRectMake(59.0, 39.0, 1.0, 1.0));
    surface.draw(*window);
    EXPECT_FALSE(surface.isBlank());
}

TEST_P(OverlaySurfaceAtScale, DrawsEverythingAtFirstAndNothingWithoutAChange) {
    OverlaySurface surface(size(), GetParam(), resources);
    EXPECT_THAT(surface.draw(*window), testing::ElementsAre(PixelRect{0, 0, size().width, size().height}));
    EXPECT_THAT(surface.draw(*window), testing::IsEmpty());
}

TEST_P(OverlaySurfaceAtScale, ChangeTellsOnlyThePixelsAroundIt) {
    OverlaySurface surface(size(), GetParam(), resources);
    surface.draw(*window);
    view->setBackgroundColor(make<UIKit::UIColor>(1.0, 0.0, 0.0, 1.0));
    const auto changed = surface.draw(*window);
    ASSERT_EQ(changed.size(), 1U);
    EXPECT_LE(changed[0].x, static_cast<int>(3.0 * GetParam()));
    EXPECT_GE(changed[0].x + changed[0].width, static_cast<int>(24.0 * GetParam()));
    EXPECT_LE(changed[0].width, static_cast<int>(21.0 * GetParam()) + 2);
    EXPECT_LE(changed[0].height, static_cast<int>(7.0 * GetParam()) + 2);
}

TEST_P(OverlaySurfaceAtScale, DrawingInPartsLeavesNoTraceAtTheirEdges) {
    OverlaySurface inParts(size(), GetParam(), resources);
    inParts.draw(*window);
    for (const double x : {4.0, 7.3, 11.0, 30.5, 3.0}) {
        view->setFrame(CGRectMake(x, 5.0 + x / 3.0, 21.0, 7.0));
        inParts.draw(*window);
    }
    OverlaySurface atOnce(size(), GetParam(), resources);
    window->setNeedsDisplayEverywhere();
    atOnce.draw(*window);
    EXPECT_EQ(pixels(inParts), pixels(atOnce));
}

INSTANTIATE_TEST_SUITE_P(Scales, OverlaySurfaceAtScale, testing::Values(1.0, 1.25, 1.5, 2.0),
                         [](const auto& scale) {
                             return std::to_string(static_cast<int>(scale.param * 100));
                         });

} // namespace

} // namespace KivUICore::Cairo
