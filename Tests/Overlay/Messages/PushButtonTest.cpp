#include "Player/Overlay/Messages/PushButton.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/CoreGraphics/CGDrawing.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <variant>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;

TEST(PushButton, StandsOutByAPlateUnderItsTitle) {
    Headless::HeadlessHost host({200.0, 100.0});
    const auto button = Foundation::make<PushButton>(CGRectMake(10.0, 20.0, 100.0, 44.0));
    button->setTitle("Try again", UIKit::UIControlStateNormal);
    host.window()->addSubview(button);

    const std::shared_ptr<const CGDrawing> drawing = host.draw();
    const std::vector<CGDrawing::Operation>& operations = drawing->operations();
    const auto holds = [](auto kind) {
        return [](const CGDrawing::Operation& each) { return std::holds_alternative<decltype(kind)>(each); };
    };
    const auto plate =
        std::find_if(operations.begin(), operations.end(), holds(CGDrawing::FillRoundedRect{}));
    ASSERT_NE(plate, operations.end());
    const auto& fill = std::get<CGDrawing::FillRoundedRect>(*plate);
    EXPECT_EQ(fill.rect, CGRectMake(2.0, 2.0, 96.0, 40.0));
    EXPECT_EQ(fill.radius, 8.0);
    EXPECT_EQ(fill.color, (CGColor{1.0, 1.0, 1.0, 0.16}));
    EXPECT_NE(std::find_if(plate, operations.end(), holds(CGDrawing::DrawText{})), operations.end());
}

} // namespace

} // namespace KivUICore::Overlay
