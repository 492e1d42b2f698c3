#include "Hosts/Cairo/TextLayoutCache.h"

#include "Hosts/Cairo/CairoHandles.h"

#include <chrono>
#include <cstring>
#include <gtest/gtest.h>

namespace KivUICore::Cairo {

namespace {

using namespace CoreGraphics;

struct HostileText {
    const char* name;
    std::string repeatedText;
};

void PrintTo(const HostileText& text, std::ostream* stream) { *stream << text.name; }

class TextWithoutMeasure : public testing::TestWithParam<HostileText> {
protected:
    static constexpr std::size_t bytes = 100000;

    PangoLayout* layout(const std::string& text, const CGSize& size, int maximumLines) {
        CGTextStyle style;
        style.font.size = 15.0;
        style.maximumLines = maximumLines;
        return cache_.layout(context_.get(), text, style, size);
    }

    std::string hostileText() const {
        std::string text = "a";
        while (text.size() < bytes) {
            text += GetParam().repeatedText;
        }
        return text;
    }

private:
    CairoSurface surface_{cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 640, 360)};
    CairoHandle context_{cairo_create(surface_.get())};
    TextLayoutCache cache_;
};

TEST_P(TextWithoutMeasure, IsSetInBoundedTimeAtAnySize) {
    const std::string text = hostileText();
    const auto start = std::chrono::steady_clock::now();
    for (double width = 100.0; width < 1000.0; width += 100.0) {
        PangoLayout* line = layout(text, {width, 20.0}, 1);
        EXPECT_EQ(pango_layout_get_line_count(line), 1);
        EXPECT_LT(std::strlen(pango_layout_get_text(line)), 20000U);
    }
    layout(text, {400.0, 300.0}, 0);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TextWithoutMeasure,
    testing::Values(HostileText{"Word", "a"}, HostileText{"NarrowWord", "i"}, HostileText{"Marks", "\u0301"},
                    HostileText{"NoWidth", "\u200B"}, HostileText{"Joiners", "\u200D"},
                    HostileText{"Embeddings", "\u202Ex"}, HostileText{"Isolates", "\u2067"},
                    HostileText{"BothDirections", "aא"}, HostileText{"Tabs", "\t"},
                    HostileText{"LineBreaks", "\n"}, HostileText{"Paragraphs", "\u2029"},
                    HostileText{"NoUtf8", "\xff"}, HostileText{"Zeros", std::string(1, '\0')},
                    HostileText{"Families", "👩\u200D"}, HostileText{"Flags", "🇩"},
                    HostileText{"SoftHyphens", "a\u00AD"}),
    [](const auto& text) { return text.param.name; });

TEST(TextLayoutCache, TextThatIsCutFillsItsLine) {
    const CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 10, 10));
    const CairoHandle context(cairo_create(surface.get()));
    TextLayoutCache cache;
    CGTextStyle style;
    style.font.size = 15.0;
    style.maximumLines = 1;
    for (const char character : {'i', '.', 'a', 'W', '1'}) {
        PangoLayout* layout =
            cache.layout(context.get(), std::string(100000, character), style, {400.0, 20.0});
        PangoRectangle ink{};
        pango_layout_get_extents(layout, &ink, nullptr);
        EXPECT_GT(pango_units_to_double(ink.width), 380.0) << character;
        EXPECT_TRUE(pango_layout_is_ellipsized(layout)) << character;
    }
}

} // namespace

} // namespace KivUICore::Cairo
