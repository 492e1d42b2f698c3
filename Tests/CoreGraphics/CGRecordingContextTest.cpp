#include "Platform/CoreGraphics/CGRecordingContext.h"

#include "Platform/CoreGraphics/CGImage.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>

using namespace CoreGraphics;
using Operations = std::vector<CGDrawing::Operation>;

namespace {

const CGColor red{1, 0, 0, 1};

} // namespace

TEST(CGRecordingContext, StartsWithNothingButItsSize) {
    const CGRecordingContext context({10, 20});
    EXPECT_EQ(context.size(), CGSizeMake(10, 20));
    EXPECT_TRUE(context.operations().empty());
    EXPECT_EQ(*context.drawing(), CGDrawing({10, 20}, {}));
}

TEST(CGRecordingContext, RecordsEachCallWithAllOfItsArguments) {
    CGPath path;
    path.addRect(CGRectMake(0, 0, 5, 6));
    const CGStroke stroke{2, CGLineCap::Round, CGLineJoin::Round};
    const auto image = CGImage::create(1, 1, {1, 2, 3, 4});
    const auto cell = std::make_shared<const CGDrawing>(CGSizeMake(2, 2), Operations{});
    const CGTextStyle style{
        {13, CGFontWeight::Medium, CGFigures::Monospaced}, red, CGTextAlignment::Trailing, 0};

    CGRecordingContext context({10, 20});
    context.saveState();
    context.concatenate({1, 2, 3, 4, 5, 6});
    context.clipToRect(CGRectMake(1, 1, 2, 2));
    context.clipToPath(path);
    context.clearRect(CGRectMake(2, 2, 3, 3));
    context.fillRect(CGRectMake(3, 3, 4, 4), red);
    context.fillRoundedRect(CGRectMake(4, 4, 5, 5), 1.5, red);
    context.fillPath(path, red);
    context.strokePath(path, stroke, red);
    context.drawImage(image, CGRectMake(5, 5, 6, 6));
    context.fillPattern(cell, CGRectMake(6, 6, 7, 7));
    context.drawText("\xC3\xA9t\xC3\xA9", style, CGRectMake(7, 7, 8, 8));
    context.beginGroup(0.25, CGRectMake(8, 8, 9, 9));
    context.endGroup();
    context.restoreState();

    const Operations expected{CGDrawing::SaveState{},
                              CGDrawing::Concatenate{{1, 2, 3, 4, 5, 6}},
                              CGDrawing::ClipToRect{CGRectMake(1, 1, 2, 2)},
                              CGDrawing::ClipToPath{path},
                              CGDrawing::ClearRect{CGRectMake(2, 2, 3, 3)},
                              CGDrawing::FillRect{CGRectMake(3, 3, 4, 4), red},
                              CGDrawing::FillRoundedRect{CGRectMake(4, 4, 5, 5), 1.5, red},
                              CGDrawing::FillPath{path, red},
                              CGDrawing::StrokePath{path, stroke, red},
                              CGDrawing::DrawImage{image, CGRectMake(5, 5, 6, 6)},
                              CGDrawing::FillPattern{cell, CGRectMake(6, 6, 7, 7)},
                              CGDrawing::DrawText{"\xC3\xA9t\xC3\xA9", style, CGRectMake(7, 7, 8, 8)},
                              CGDrawing::BeginGroup{0.25, CGRectMake(8, 8, 9, 9)},
                              CGDrawing::EndGroup{},
                              CGDrawing::RestoreState{}};
    EXPECT_EQ(context.operations(), expected);
}

TEST(CGRecordingContext, ADrawingHoldsWhatWasDrawnSoFar) {
    CGRecordingContext context({10, 20});
    context.fillRect(CGRectMake(0, 0, 1, 1), red);
    const auto before = context.drawing();
    context.fillRect(CGRectMake(0, 0, 2, 2), red);
    EXPECT_EQ(before->operations().size(), 1u);
    EXPECT_EQ(context.drawing()->operations().size(), 2u);
    EXPECT_EQ(before->size(), CGSizeMake(10, 20));
}

TEST(CGRecordingContext, ADrawingClosesWhatIsOpenAndTheRecordingGoesOn) {
    CGRecordingContext context({10, 20});
    context.saveState();
    context.beginGroup(0.5, CGRectMake(0, 0, 10, 20));
    context.saveState();
    const auto drawing = context.drawing();

    const Operations expected{CGDrawing::SaveState{}, CGDrawing::BeginGroup{0.5, CGRectMake(0, 0, 10, 20)},
                              CGDrawing::SaveState{}, CGDrawing::RestoreState{},
                              CGDrawing::EndGroup{},  CGDrawing::RestoreState{}};
    EXPECT_EQ(drawing->operations(), expected);
    EXPECT_EQ(context.operations().size(), 3u);

    context.restoreState();
    context.endGroup();
    context.restoreState();
    EXPECT_EQ(*context.drawing(), *drawing);
}

TEST(CGRecordingContext, ResetForgetsWhatWasDrawnAndKeepsTheSize) {
    CGRecordingContext context({10, 20});
    context.fillRect(CGRectMake(0, 0, 1, 1), red);
    context.reset();
    EXPECT_TRUE(context.operations().empty());
    EXPECT_EQ(context.size(), CGSizeMake(10, 20));
}

TEST(CGRecordingContext, KeepsTextThatItsCallerForgets) {
    CGRecordingContext context({10, 20});
    {
        const std::string text(100, 'x');
        context.drawText(text, {}, CGRectMake(0, 0, 9, 9));
    }
    EXPECT_EQ(std::get<CGDrawing::DrawText>(context.operations().front()).text, std::string(100, 'x'));
}

TEST(CGRecordingContext, AllocatesNothingForPlainOperationsOnceItsMemoryHasGrown) {
    const auto image = CGImage::create(1, 1, {1, 2, 3, 4});
    CGRecordingContext context({10, 20});
    const auto draw = [&context, &image] {
        for (int round = 0; round < 100; ++round) {
            context.saveState();
            context.concatenate({1, 2, 3, 4, 5, 6});
            context.clipToRect(CGRectMake(0, 0, 1, 1));
            context.clearRect(CGRectMake(0, 0, 1, 1));
            context.fillRect(CGRectMake(0, 0, 1, 1), red);
            context.fillRoundedRect(CGRectMake(0, 0, 1, 1), 0.5, red);
            context.drawImage(image, CGRectMake(0, 0, 1, 1));
            context.beginGroup(0.5, CGRectMake(0, 0, 1, 1));
            context.endGroup();
            context.restoreState();
        }
    };
    const std::size_t before = allocationCount();
    draw();
    const std::size_t grown = allocationCount();
    context.reset();
    draw();
    EXPECT_GT(grown, before);
    EXPECT_EQ(allocationCount(), grown);
    EXPECT_EQ(context.operations().size(), 1000u);
}
