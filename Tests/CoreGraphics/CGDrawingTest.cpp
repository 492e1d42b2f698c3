#include "Platform/CoreGraphics/CGDrawing.h"

#include "Platform/CoreGraphics/CGImage.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Tests/CoreGraphics/Values.h"

#include <gtest/gtest.h>

using namespace CoreGraphics;
using Operations = std::vector<CGDrawing::Operation>;

namespace {

const CGColor red{1, 0, 0, 1};
const CGDrawing::Operation save = CGDrawing::SaveState{};
const CGDrawing::Operation restore = CGDrawing::RestoreState{};
const CGDrawing::Operation begin = CGDrawing::BeginGroup{0.5, CGRectMake(0, 0, 1, 1)};
const CGDrawing::Operation end = CGDrawing::EndGroup{};
const CGDrawing::Operation fill = CGDrawing::FillRect{CGRectMake(1, 2, 3, 4), red};

Operations balanced(Operations operations) { return CGDrawing({10, 10}, std::move(operations)).operations(); }

Operations drawn(const CGDrawing& drawing, const CGRect& rect) {
    CGRecordingContext context({100, 100});
    drawing.draw(context, rect);
    return context.operations();
}

} // namespace

TEST(CGDrawing, KeepsItsSizeAndOperations) {
    const CGDrawing drawing({10, 20}, {save, fill, restore});
    EXPECT_EQ(drawing.size(), CGSizeMake(10, 20));
    EXPECT_EQ(drawing.operations(), (Operations{save, fill, restore}));
}

TEST(CGDrawing, DrawingsAreEqualWhenSizeAndOperationsAre) {
    const CGDrawing drawing({10, 20}, {fill});
    EXPECT_EQ(drawing, CGDrawing({10, 20}, {fill}));
    EXPECT_NE(drawing, CGDrawing({10, 21}, {fill}));
    EXPECT_NE(drawing, CGDrawing({10, 20}, {fill, fill}));
    EXPECT_NE(drawing, CGDrawing({10, 20}, {CGDrawing::FillRect{CGRectMake(1, 2, 3, 4), CGColor{}}}));
    EXPECT_NE(drawing, CGDrawing({10, 20}, {CGDrawing::ClearRect{CGRectMake(1, 2, 3, 4)}}));
}

TEST(CGDrawing, LeavesBalancedOperationsAlone) {
    const Operations operations{save, begin, fill, save, restore, end, begin, end, restore, fill};
    EXPECT_EQ(balanced(operations), operations);
}

TEST(CGDrawing, ClosesWhatIsLeftOpenTheInnermostFirst) {
    EXPECT_EQ(balanced({save, begin, fill}), (Operations{save, begin, fill, end, restore}));
    EXPECT_EQ(balanced({begin, save, save, fill}),
              (Operations{begin, save, save, fill, restore, restore, end}));
    EXPECT_EQ(balanced({save, begin, end, begin, save, restore}),
              (Operations{save, begin, end, begin, save, restore, end, restore}));
}

TEST(CGDrawing, LeavesOutEndsThatMatchNothingOpen) {
    EXPECT_EQ(balanced({restore, end, fill, restore}), (Operations{fill}));
    EXPECT_EQ(balanced({save, restore, restore, fill}), (Operations{save, restore, fill}));
}

TEST(CGDrawing, LeavesOutARestoreThatReachesOutOfItsGroup) {
    EXPECT_EQ(balanced({save, begin, restore, fill, end}), (Operations{save, begin, fill, end, restore}));
    EXPECT_EQ(balanced({begin, save, end, fill, restore}), (Operations{begin, save, fill, restore, end}));
}

TEST(CGDrawing, ReplayRepeatsEveryOperationInOrder) {
    CGPath path;
    path.addEllipse(CGRectMake(0, 0, 5, 6));
    const auto image = CGImage::create(1, 1, {1, 2, 3, 4});
    const auto cell = std::make_shared<const CGDrawing>(CGSizeMake(2, 2), Operations{fill});
    const CGTextStyle style{{13, CGFontWeight::Bold, CGFigures::Monospaced}, red, CGTextAlignment::Center, 2};
    const CGDrawing drawing(
        {10, 20},
        {CGDrawing::SaveState{}, CGDrawing::Concatenate{CGAffineTransformMakeScale(2, 3)},
         CGDrawing::ClipToRect{CGRectMake(1, 1, 2, 2)}, CGDrawing::ClipToPath{path},
         CGDrawing::ClearRect{CGRectMake(2, 2, 3, 3)}, CGDrawing::FillRect{CGRectMake(3, 3, 4, 4), red},
         CGDrawing::FillRoundedRect{CGRectMake(4, 4, 5, 5), 1.5, red}, CGDrawing::FillPath{path, red},
         CGDrawing::StrokePath{path, {2, CGLineCap::Round, CGLineJoin::Round}, red},
         CGDrawing::DrawImage{image, CGRectMake(5, 5, 6, 6)},
         CGDrawing::FillPattern{cell, CGRectMake(6, 6, 7, 7)},
         CGDrawing::DrawText{"12:34", style, CGRectMake(7, 7, 8, 8)},
         CGDrawing::BeginGroup{0.25, CGRectMake(8, 8, 9, 9)}, CGDrawing::EndGroup{},
         CGDrawing::RestoreState{}});
    ASSERT_EQ(drawing.operations().size(), std::variant_size_v<CGDrawing::Operation>);

    CGRecordingContext context(drawing.size());
    drawing.replay(context);
    EXPECT_EQ(context.operations(), drawing.operations());
    EXPECT_EQ(*context.drawing(), drawing);
}

TEST(CGDrawing, DrawClipsToTheRectangleAndScalesIntoIt) {
    const CGDrawing drawing({10, 20}, {fill});
    const Operations expected{save, CGDrawing::ClipToRect{CGRectMake(100, 200, 30, 40)},
                              CGDrawing::Concatenate{{3, 0, 0, 2, 100, 200}}, fill, restore};
    EXPECT_EQ(drawn(drawing, CGRectMake(100, 200, 30, 40)), expected);
    EXPECT_EQ(drawn(drawing, CGRectMake(130, 240, -30, -40)), expected);
}

TEST(CGDrawing, ADrawingSmallerThanAPointIsDrawn) {
    const Operations expected{CGDrawing::SaveState{}, CGDrawing::ClipToRect{CGRectMake(0, 0, 1, 1)},
                              CGDrawing::Concatenate{CGAffineTransformMakeScale(2, 4)}, fill,
                              CGDrawing::RestoreState{}};
    EXPECT_EQ(drawn(CGDrawing({0.5, 0.25}, {fill}), CGRectMake(0, 0, 1, 1)), expected);
}

TEST(CGDrawing, DrawLeavesTheStateAsItWasWhateverTheRecordingLeftOpen) {
    for (const Operations& operations :
         {Operations{save, begin, fill}, Operations{restore, end, restore}, Operations{begin, save, end},
          Operations{begin, begin, save, save}}) {
        const Operations result = drawn(CGDrawing({10, 10}, operations), CGRectMake(0, 0, 5, 5));
        ASSERT_GE(result.size(), 4u);
        EXPECT_EQ(result.front(), save);
        EXPECT_EQ(result.back(), restore);
        EXPECT_EQ(balanced(result), result);
        // Nothing in between may close the save that draw() began with.
        const Operations inside(result.begin() + 1, result.end() - 1);
        EXPECT_EQ(balanced(inside), inside);
    }
}

TEST(CGDrawing, DrawsNothingWhenItOrTheRectangleIsEmptyOrNotFinite) {
    for (const double length : {0.0, -1.0, notANumber, infinity, -infinity}) {
        EXPECT_TRUE(drawn(CGDrawing({length, 10}, {fill}), CGRectMake(0, 0, 5, 5)).empty()) << length;
        EXPECT_TRUE(drawn(CGDrawing({10, length}, {fill}), CGRectMake(0, 0, 5, 5)).empty()) << length;
    }
    for (const double length : {0.0, notANumber, infinity, -infinity}) {
        EXPECT_TRUE(drawn(CGDrawing({10, 10}, {fill}), CGRectMake(0, 0, length, 5)).empty()) << length;
        EXPECT_TRUE(drawn(CGDrawing({10, 10}, {fill}), CGRectMake(0, 0, 5, length)).empty()) << length;
    }
    EXPECT_TRUE(drawn(CGDrawing({10, 10}, {fill}), CGRectMake(notANumber, 0, 5, 5)).empty());
    EXPECT_TRUE(drawn(CGDrawing({10, 10}, {fill}), CGRectMake(0, infinity, 5, 5)).empty());
}

TEST(CGDrawing, HandsAContextOnlyTransformsThatHaveAnInverse) {
    for (const double size : awkwardNumbers) {
        for (const double x : awkwardNumbers) {
            for (const double width : awkwardNumbers) {
                const CGDrawing drawing({size, size}, {fill});
                for (const CGDrawing::Operation& operation : drawn(drawing, CGRectMake(x, x, width, width))) {
                    if (const auto* concatenate = std::get_if<CGDrawing::Concatenate>(&operation)) {
                        EXPECT_TRUE(CGAffineTransformInvert(concatenate->transform))
                            << size << ' ' << x << ' ' << width;
                    }
                }
            }
        }
    }
}
