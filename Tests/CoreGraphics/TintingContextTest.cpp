#include "Platform/CoreGraphics/TintingContext.h"

#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/CoreGraphics/CGImage.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"

#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;

// One of each operation, all in one colour.
std::vector<CGDrawing::Operation> everything(const CGColor& color) {
    static const auto image = CGImage::create(1, 1, {1, 2, 3, 255});
    static const auto cell =
        std::make_shared<const CGDrawing>(CGSize{2, 2}, std::vector<CGDrawing::Operation>());
    const CGRect rect = CGRectMake(1, 2, 3, 4);
    CGPath path;
    path.addEllipse(rect);
    return {CGDrawing::SaveState{},
            CGDrawing::Concatenate{CGAffineTransformMakeScale(2, 3)},
            CGDrawing::ClipToRect{rect},
            CGDrawing::ClipToPath{path},
            CGDrawing::ClearRect{rect},
            CGDrawing::FillRect{rect, color},
            CGDrawing::FillRoundedRect{rect, 1.5, color},
            CGDrawing::FillPath{path, color},
            CGDrawing::StrokePath{path, {2.0, CGLineCap::Round, CGLineJoin::Round}, color},
            CGDrawing::DrawImage{image, rect},
            CGDrawing::FillPattern{cell, rect},
            CGDrawing::BeginGroup{0.5, rect},
            CGDrawing::DrawText{"text", {{12.0}, color, CGTextAlignment::Center, 2}, rect},
            CGDrawing::EndGroup{},
            CGDrawing::RestoreState{}};
}

TEST(TintingContextTest, PassesEverythingOnInTheTintAtItsOwnAlpha) {
    CGRecordingContext recording({10, 10});
    TintingContext tinting(recording, {1.0, 0.5, 0.25, 0.5});
    CGDrawing({10, 10}, everything({0.0, 0.0, 1.0, 0.5})).replay(tinting);
    EXPECT_EQ(recording.operations(), everything({1.0, 0.5, 0.25, 0.25}));
}

} // namespace
