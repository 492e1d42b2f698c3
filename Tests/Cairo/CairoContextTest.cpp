#include "Hosts/Cairo/CairoContext.h"

#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/CoreGraphics/CGImage.h"
#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Tests/Cairo/Canvas.h"
#include "Tests/CoreGraphics/AllocationCounter.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace KivUICore::Cairo {

namespace {

using namespace CoreGraphics;

constexpr CGColor white{1.0, 1.0, 1.0, 1.0};
constexpr CGColor red{1.0, 0.0, 0.0, 1.0};
constexpr CGColor blue{0.0, 0.0, 1.0, 1.0};
constexpr Pixel whitePixel{255, 255, 255, 255};
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::shared_ptr<const CGImage> oneColorImage(std::size_t side, std::uint8_t level) {
    return CGImage::create(side, side, std::vector<std::uint8_t>(side * side * 4, level));
}

class CairoContextAtScale : public testing::TestWithParam<double> {
protected:
    int pixels(double points) const { return static_cast<int>(std::lround(points * GetParam())); }
};

TEST_P(CairoContextAtScale, RectangleCoversItsPixelsAndNoOther) {
    Canvas canvas(40.0, 40.0, GetParam());
    canvas.context().fillRect(CGRectMake(10.0, 20.0, 24.0, 12.0), white);
    EXPECT_EQ(canvas.inkArea(), (PixelRect{pixels(10.0), pixels(20.0), pixels(24.0), pixels(12.0)}));
    EXPECT_EQ(canvas.at(pixels(10.0), pixels(20.0)), whitePixel);
    EXPECT_EQ(canvas.at(pixels(34.0) - 1, pixels(32.0) - 1), whitePixel);
}

TEST_P(CairoContextAtScale, ClipCutsAtItsPixels) {
    Canvas canvas(40.0, 40.0, GetParam());
    canvas.context().saveState();
    canvas.context().clipToRect(CGRectMake(8.0, 8.0, 16.0, 4.0));
    canvas.context().fillRect(CGRectMake(0.0, 0.0, 40.0, 40.0), white);
    canvas.context().restoreState();
    EXPECT_EQ(canvas.inkArea(), (PixelRect{pixels(8.0), pixels(8.0), pixels(16.0), pixels(4.0)}));
    canvas.context().fillRect(CGRectMake(0.0, 0.0, 40.0, 40.0), white);
    EXPECT_EQ(canvas.inkArea(), (PixelRect{0, 0, canvas.width(), canvas.height()}));
}

TEST_P(CairoContextAtScale, ClearMakesPixelsTransparentAgain) {
    Canvas canvas(40.0, 40.0, GetParam());
    canvas.context().fillRect(CGRectMake(0.0, 0.0, 40.0, 40.0), white);
    canvas.context().clearRect(CGRectMake(0.0, 10.0, 40.0, 20.0));
    EXPECT_EQ(canvas.at(5, pixels(10.0) - 1), whitePixel);
    EXPECT_EQ(canvas.at(5, pixels(10.0)), transparent);
    EXPECT_EQ(canvas.at(5, pixels(30.0) - 1), transparent);
    EXPECT_EQ(canvas.at(5, pixels(30.0)), whitePixel);
}

TEST_P(CairoContextAtScale, PatternOfAPlainCellShowsNoSeam) {
    for (const CGSize& cell : {CGSize{5.0, 5.0}, CGSize{7.3, 3.1}, CGSize{0.7, 33.0}, CGSize{1.0, 1.0}}) {
        Canvas canvas(40.0, 40.0, GetParam());
        CGRecordingContext recording(cell);
        recording.fillRect({{}, cell}, white);
        canvas.context().fillPattern(recording.drawing(), CGRectMake(4.0, 4.0, 32.0, 32.0));
        EXPECT_EQ(canvas.inkArea(), (PixelRect{pixels(4.0), pixels(4.0), pixels(32.0), pixels(32.0)}));
        for (int y = pixels(4.0); y < pixels(36.0); ++y) {
            for (int x = pixels(4.0); x < pixels(36.0); ++x) {
                // A rounding step or two can't be seen; a seam loses a quarter.
                ASSERT_GE(canvas.at(x, y).alpha, 252) << x << ", " << y << ", cell " << cell.width;
            }
        }
    }
}

TEST_P(CairoContextAtScale, PatternRepeatsFromTheOriginAtItsOwnSize) {
    Canvas canvas(48.0, 48.0, GetParam());
    CGRecordingContext recording({8.0, 8.0});
    recording.fillRect(CGRectMake(0.0, 0.0, 4.0, 8.0), red);
    recording.fillRect(CGRectMake(4.0, 0.0, 4.0, 8.0), blue);
    const auto cell = recording.drawing();
    canvas.context().fillPattern(cell, CGRectMake(4.0, 0.0, 40.0, 40.0));
    for (int column = 1; column < 11; ++column) {
        const int middle = pixels(column * 4.0 + 2.0);
        EXPECT_EQ(canvas.at(middle, 10).red, column % 2 == 0 ? 255 : 0) << column;
        EXPECT_EQ(canvas.at(middle, 10).blue, column % 2 == 0 ? 0 : 255) << column;
    }
}

TEST_P(CairoContextAtScale, GroupFadesAsOneWhereShapesOverlap) {
    Canvas canvas(40.0, 40.0, GetParam());
    CGContext& context = canvas.context();
    context.beginGroup(0.5, CGRectMake(0.0, 0.0, 40.0, 40.0));
    context.fillRect(CGRectMake(0.0, 0.0, 20.0, 20.0), red);
    context.fillRect(CGRectMake(10.0, 0.0, 20.0, 20.0), blue);
    context.endGroup();
    EXPECT_EQ(canvas.at(pixels(5.0), 5), (Pixel{128, 0, 0, 128}));
    EXPECT_EQ(canvas.at(pixels(15.0), 5), (Pixel{0, 0, 128, 128}));

    Canvas separate(40.0, 40.0, GetParam());
    separate.context().fillRect(CGRectMake(0.0, 0.0, 20.0, 20.0), {1.0, 0.0, 0.0, 0.5});
    separate.context().fillRect(CGRectMake(10.0, 0.0, 20.0, 20.0), {0.0, 0.0, 1.0, 0.5});
    EXPECT_GT(separate.at(pixels(15.0), 5).red, 0) << "shapes that fade each for itself shine through";
}

TEST_P(CairoContextAtScale, GroupKeepsItsEdgesWhereItsBoundsCutAPixel) {
    Canvas canvas(40.0, 40.0, GetParam());
    const CGRect bounds = CGRectMake(3.3, 3.3, 20.1, 20.1);
    Canvas plain(40.0, 40.0, GetParam());
    plain.context().fillRect(bounds, white);
    canvas.context().beginGroup(1.0, bounds);
    canvas.context().fillRect(bounds, white);
    canvas.context().endGroup();
    const int edge = static_cast<int>(std::floor(3.3 * GetParam()));
    EXPECT_EQ(canvas.at(edge, pixels(10.0)), plain.at(edge, pixels(10.0)));
}

TEST_P(CairoContextAtScale, TextThatIsTooLongEndsInsideItsRectangle) {
    const CGRect rect = CGRectMake(10.0, 0.0, 90.0, 30.0);
    const CGTextStyle style{.font = {.size = 14.0}, .color = white};
    Canvas cut(200.0, 30.0, GetParam());
    cut.context().drawText("A title that goes on for much longer than its room", style, rect);
    const PixelRect ink = cut.inkArea();
    EXPECT_GE(ink.x, pixels(10.0));
    EXPECT_LE(ink.x + ink.width, pixels(100.0));
    EXPECT_GT(ink.width, pixels(60.0)) << "the room is used";

    // What ends in an ellipsis has three dots at its end and nothing above them.
    int highestInk = cut.height();
    for (int y = 0; y < cut.height(); ++y) {
        for (int x = ink.x + ink.width - pixels(4.0); x < ink.x + ink.width; ++x) {
            if (cut.at(x, y).alpha != 0) {
                highestInk = std::min(highestInk, y);
            }
        }
    }
    EXPECT_GT(highestInk, pixels(15.0));
}

TEST_P(CairoContextAtScale, FiguresOfEqualWidthKeepATextInItsPlace) {
    const auto width = [](const char* text, CGFigures figures) {
        Canvas canvas(200.0, 40.0, GetParam());
        const CGTextStyle style{.font = {.size = 20.0, .figures = figures},
                                .color = white,
                                .alignment = CGTextAlignment::Trailing};
        // The last glyph stands at the right edge, so that the first one tells of the width.
        canvas.context().drawText(text, style, CGRectMake(0.0, 0.0, 200.0, 40.0));
        return canvas.inkArea().width;
    };
    const int tolerance = 1;
    EXPECT_NEAR(width("01111110", CGFigures::Monospaced), width("08888880", CGFigures::Monospaced),
                tolerance);
    EXPECT_LT(width("01111110", CGFigures::Proportional) + pixels(8.0),
              width("08888880", CGFigures::Proportional));
}

TEST_P(CairoContextAtScale, TextStandsInTheMiddleOfItsHeight) {
    Canvas canvas(60.0, 40.0, GetParam());
    const CGTextStyle style{.font = {.size = 20.0}, .color = white};
    canvas.context().drawText("H", style, CGRectMake(0.0, 0.0, 60.0, 40.0));
    const PixelRect ink = canvas.inkArea();
    EXPECT_NEAR(ink.y + ink.height / 2.0, canvas.height() / 2.0, 1.0 + GetParam());
}

TEST_P(CairoContextAtScale, ImageFillsItsRectangleUpToTheEdges) {
    for (const std::size_t side : {2U, 16U, 300U}) {
        Canvas canvas(40.0, 40.0, GetParam());
        canvas.context().drawImage(oneColorImage(side, 255), CGRectMake(8.0, 8.0, 20.0, 20.0));
        EXPECT_EQ(canvas.inkArea(), (PixelRect{pixels(8.0), pixels(8.0), pixels(20.0), pixels(20.0)}))
            << side;
        EXPECT_EQ(canvas.at(pixels(8.0), pixels(8.0)), whitePixel) << side;
        EXPECT_EQ(canvas.at(pixels(28.0) - 1, pixels(28.0) - 1), whitePixel) << side;
    }
}

INSTANTIATE_TEST_SUITE_P(Scales, CairoContextAtScale, testing::Values(1.0, 1.5, 2.0, 3.0),
                         [](const auto& scale) {
                             return std::to_string(static_cast<int>(scale.param * 100));
                         });

TEST(CairoContext, ColorsArePremultiplied) {
    Canvas canvas(4.0, 4.0, 1.0);
    canvas.context().fillRect(CGRectMake(0.0, 0.0, 4.0, 4.0), {1.0, 0.5, 0.0, 0.4});
    EXPECT_EQ(canvas.at(1, 1), (Pixel{102, 51, 0, 102}));
}

TEST(CairoContext, ImageKeepsItsColors) {
    Canvas canvas(2.0, 1.0, 1.0);
    canvas.context().drawImage(CGImage::create(2, 1, {255, 128, 0, 255, 10, 20, 30, 40}),
                               CGRectMake(0.0, 0.0, 2.0, 1.0));
    EXPECT_EQ(canvas.at(0, 0), (Pixel{255, 128, 0, 255}));
    EXPECT_EQ(canvas.at(1, 0), (Pixel{10, 20, 30, 40}));
}

TEST(CairoContext, ImageShrunkToOnePixelIsTheMeanOfItsPixels) {
    std::vector<std::uint8_t> bytes;
    for (int pixel = 0; pixel < 64 * 64; ++pixel) {
        const std::uint8_t level = pixel % 2 == pixel / 64 % 2 ? 255 : 0;
        bytes.insert(bytes.end(), {level, level, level, 255});
    }
    Canvas canvas(4.0, 4.0, 1.0);
    canvas.context().drawImage(CGImage::create(64, 64, bytes), CGRectMake(0.0, 0.0, 4.0, 4.0));
    EXPECT_NEAR(canvas.at(1, 1).red, 128, 12);
    EXPECT_NEAR(canvas.at(2, 1).red, 128, 12);
}

TEST(CairoContext, ImageMadeWhereAnotherOneStoodIsNotMistakenForIt) {
    Canvas canvas(4.0, 4.0, 1.0);
    for (int round = 0; round < 50; ++round) {
        const auto level = static_cast<std::uint8_t>(round * 5);
        const auto image = oneColorImage(4, level);
        canvas.context().clearRect(CGRectMake(0.0, 0.0, 4.0, 4.0));
        canvas.context().drawImage(image, CGRectMake(0.0, 0.0, 4.0, 4.0));
        ASSERT_EQ(canvas.at(1, 1), (Pixel{level, level, level, level}));
    }
}

TEST(CairoContext, LeadingIsWhereTheTextsScriptStarts) {
    const auto ink = [](const char* text, CGTextAlignment alignment) {
        Canvas canvas(200.0, 30.0, 1.0);
        canvas.context().drawText(text, {.font = {.size = 14.0}, .color = white, .alignment = alignment},
                                  CGRectMake(0.0, 0.0, 200.0, 30.0));
        return canvas.inkArea();
    };
    const auto isLeft = [](const PixelRect& area) { return area.x < 5; };
    const auto isRight = [](const PixelRect& area) { return area.x + area.width > 195; };
    EXPECT_TRUE(isLeft(ink("peace", CGTextAlignment::Leading)));
    EXPECT_TRUE(isRight(ink("peace", CGTextAlignment::Trailing)));
    EXPECT_TRUE(isRight(ink("שלום", CGTextAlignment::Leading)));
    EXPECT_TRUE(isLeft(ink("שלום", CGTextAlignment::Trailing)));
    const PixelRect centered = ink("שלום", CGTextAlignment::Center);
    EXPECT_NEAR(centered.x + centered.width / 2.0, 100.0, 2.0);
}

TEST(CairoContext, LinesThatDoNotFitAreLeftOut) {
    const auto height = [](const char* text, int maximumLines, double available) {
        Canvas canvas(100.0, 200.0, 1.0);
        canvas.context().drawText(text,
                                  {.font = {.size = 10.0}, .color = white, .maximumLines = maximumLines},
                                  CGRectMake(0.0, (200.0 - available) / 2.0, 100.0, available));
        return canvas.inkArea().height;
    };
    const char* paragraphs = "HHH\nHHH\nHHH\nHHH\nHHH\nHHH\nHHH\nHHH";
    const char* words = "HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH HHH";
    for (const char* text : {paragraphs, words}) {
        EXPECT_LT(height(text, 1, 200.0), 10);
        EXPECT_NEAR(height(text, 3, 200.0), 2 * 12 + 7, 3);
        EXPECT_LE(height(text, 0, 40.0), 40);
        EXPECT_GT(height(text, 0, 40.0), 28) << "three lines fit";
    }
}

TEST(CairoContext, TextStaysInsideARectangleThatIsTooLow) {
    Canvas canvas(100.0, 60.0, 1.0);
    canvas.context().drawText("Hgj", {.font = {.size = 40.0}, .color = white},
                              CGRectMake(0.0, 20.0, 100.0, 10.0));
    const PixelRect ink = canvas.inkArea();
    EXPECT_GE(ink.y, 20);
    EXPECT_LE(ink.y + ink.height, 30);
}

TEST(CairoContext, TextThatIsNoUtf8IsDrawnWithoutComplaint) {
    Canvas canvas(100.0, 30.0, 1.0);
    testing::internal::CaptureStderr();
    canvas.context().drawText("ab\xff\xfe\x80", {.font = {.size = 14.0}, .color = white},
                              CGRectMake(0.0, 0.0, 100.0, 30.0));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_GT(canvas.inkArea().width, 10);
}

TEST(CairoContext, UnchangedTextIsNotSetAgain) {
    TextLayoutCache cache;
    const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 10, 10));
    const CairoHandle context(cairo_create(surface.get()));
    const CGTextStyle style{.font = {.size = 14.0}, .color = white};
    PangoLayout* first = cache.layout(context.get(), "0:42", style, {80.0, 20.0});
    EXPECT_EQ(cache.layout(context.get(), "0:42", style, {80.0, 20.0}), first);
    EXPECT_NE(cache.layout(context.get(), "0:43", style, {80.0, 20.0}), first);
    EXPECT_EQ(cache.layout(context.get(), "0:42", style, {80.0, 20.0}), first);
    CGTextStyle bold = style;
    bold.font.weight = CGFontWeight::Bold;
    EXPECT_NE(cache.layout(context.get(), "0:42", bold, {80.0, 20.0}), first);
    cairo_scale(context.get(), 2.0, 2.0);
    EXPECT_NE(cache.layout(context.get(), "0:42", style, {80.0, 20.0}), first);
}

TEST(CairoContext, FrameThatIsDrawnAgainAllocatesNothing) {
    Canvas canvas(200.0, 60.0, 1.5);
    CGRecordingContext recording({5.0, 5.0});
    recording.fillRect(CGRectMake(0.0, 0.0, 3.0, 3.0), white);
    const auto cell = recording.drawing();
    const auto image = oneColorImage(20, 200);
    CGPath path;
    path.addEllipse(CGRectMake(0.0, 0.0, 30.0, 30.0));
    const auto drawFrame = [&] {
        CGContext& context = canvas.context();
        const CGRect all = CGRectMake(0.0, 0.0, 200.0, 60.0);
        context.clearRect(all);
        context.beginGroup(0.5, all);
        context.fillPattern(cell, all);
        context.fillRoundedRect(CGRectMake(10.0, 10.0, 40.0, 40.0), 8.0, red);
        context.strokePath(path, {.width = 2.0}, white);
        context.drawImage(image, CGRectMake(60.0, 10.0, 40.0, 40.0));
        context.drawText("1:23:45", {.font = {.size = 14.0}, .color = white},
                         CGRectMake(100.0, 0.0, 90.0, 60.0));
        context.endGroup();
    };
    drawFrame();
    const std::size_t before = allocationCount();
    for (int frame = 0; frame < 10; ++frame) {
        drawFrame();
    }
    EXPECT_EQ(allocationCount(), before);
}

TEST(CairoContext, RoundedRectangleOfHalfItsSideIsACircle) {
    Canvas canvas(20.0, 20.0, 1.0);
    canvas.context().fillRoundedRect(CGRectMake(0.0, 0.0, 20.0, 20.0), 1000.0, white);
    EXPECT_EQ(canvas.at(10, 10), whitePixel);
    EXPECT_GT(canvas.at(10, 0).alpha, 200);
    EXPECT_GT(canvas.at(0, 10).alpha, 200);
    EXPECT_EQ(canvas.at(1, 1), transparent);
}

TEST(CairoContext, StrokeIsAsWideAsAsked) {
    Canvas canvas(20.0, 20.0, 1.0);
    CGPath path;
    path.moveTo({4.0, 10.0});
    path.addLine({16.0, 10.0});
    canvas.context().strokePath(path, {.width = 4.0}, white);
    EXPECT_EQ(canvas.inkArea(), (PixelRect{4, 8, 12, 4}));
}

TEST(CairoContext, TransformsApplyToWhatFollows) {
    Canvas canvas(20.0, 20.0, 1.0);
    CGContext& context = canvas.context();
    context.saveState();
    context.concatenate(CGAffineTransformMakeTranslation(4.0, 2.0));
    context.concatenate(CGAffineTransformMakeScale(2.0, 3.0));
    context.fillRect(CGRectMake(1.0, 1.0, 2.0, 2.0), white);
    context.restoreState();
    EXPECT_EQ(canvas.inkArea(), (PixelRect{6, 5, 4, 6}));
}

TEST(CairoContext, NothingShowsInASpaceThatIsFlatUntilItIsLeft) {
    for (const CGAffineTransform& flat :
         {CGAffineTransformMakeScale(0.0, 1.0), CGAffineTransformMakeScale(nan, 1.0),
          CGAffineTransformMakeTranslation(infinity, 0.0), CGAffineTransform{1.0, 1.0, 1.0, 1.0, 0.0, 0.0}}) {
        Canvas canvas(20.0, 20.0, 1.0);
        CGContext& context = canvas.context();
        const CGRect all = CGRectMake(0.0, 0.0, 20.0, 20.0);
        context.saveState();
        context.concatenate(flat);
        context.saveState();
        context.fillRect(all, white);
        context.beginGroup(0.5, all);
        context.drawText("text", {.font = {.size = 14.0}, .color = white}, all);
        context.drawImage(oneColorImage(2, 255), all);
        context.endGroup();
        context.restoreState();
        context.fillRoundedRect(all, 4.0, white);
        context.restoreState();
        EXPECT_EQ(canvas.inkArea(), PixelRect{});
        context.fillRect(CGRectMake(2.0, 2.0, 3.0, 3.0), white);
        EXPECT_EQ(canvas.inkArea(), (PixelRect{2, 2, 3, 3})) << "drawing goes on afterwards";
    }
}

TEST(CairoContext, WhatIsEmptyOrNoNumberDrawsNothing) {
    Canvas canvas(20.0, 20.0, 1.0);
    CGContext& context = canvas.context();
    CGRecordingContext recording({4.0, 4.0});
    recording.fillRect(CGRectMake(0.0, 0.0, 4.0, 4.0), white);
    const auto cell = recording.drawing();
    const CGTextStyle style{.font = {.size = 14.0}, .color = white};
    for (const CGRect& rect : {CGRectMake(0.0, 0.0, 0.0, 10.0), CGRectMake(0.0, nan, 10.0, 10.0),
                               CGRectMake(0.0, 0.0, nan, 10.0), CGRectMake(0.0, 0.0, infinity, 10.0)}) {
        context.fillRect(rect, white);
        context.fillRoundedRect(rect, 4.0, white);
        context.drawImage(oneColorImage(2, 255), rect);
        context.fillPattern(cell, rect);
        context.drawText("text", style, rect);
    }
    const CGRect all = CGRectMake(0.0, 0.0, 20.0, 20.0);
    context.drawImage(nullptr, all);
    context.fillPattern(nullptr, all);
    context.drawText("", style, all);
    context.drawText("text", {.font = {.size = nan}, .color = white}, all);
    context.drawText("text", {.font = {.size = 0.0}, .color = white}, all);
    EXPECT_EQ(canvas.inkArea(), PixelRect{});
    context.fillRect(CGRectMake(2.0, 2.0, 3.0, 3.0), white);
    EXPECT_EQ(canvas.inkArea(), (PixelRect{2, 2, 3, 3})) << "drawing goes on afterwards";
}

TEST(CairoContext, RectangleOfAnySizeIsCutToWhatShows) {
    for (const double side : {1e5, 1e7, 1e12, 1e300}) {
        Canvas canvas(20.0, 20.0, 1.0);
        canvas.context().fillRect(CGRectMake(-side, 5.0, 2.0 * side, side), white);
        EXPECT_EQ(canvas.inkArea(), (PixelRect{0, 5, 20, 15})) << side;
    }
}

TEST(CairoContext, HugePatternCellIsDrawnInBoundedMemory) {
    Canvas canvas(20.0, 20.0, 1.0);
    CGRecordingContext recording({1e9, 1e-6});
    recording.fillRect(CGRectMake(0.0, 0.0, 1e9, 1.0), white);
    canvas.context().fillPattern(recording.drawing(), CGRectMake(0.0, 0.0, 20.0, 20.0));
    canvas.context().fillRect(CGRectMake(0.0, 0.0, 20.0, 20.0), white);
    EXPECT_EQ(canvas.at(10, 10), whitePixel);
}

} // namespace

} // namespace KivUICore::Cairo
