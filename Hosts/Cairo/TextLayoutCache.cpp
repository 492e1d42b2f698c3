#include "Hosts/Cairo/TextLayoutCache.h"

#include "Hosts/Cairo/ScreenText.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace KivUICore::Cairo {

namespace {

using namespace CoreGraphics;

constexpr std::size_t textsKept = 256;
constexpr const char* faces = "Inter, DejaVu Sans, sans-serif";

// Pango counts in 1/1024 of a point in an int; what is larger than this is larger than any screen.
constexpr double largestLength = 100000.0;

struct FontDescriptionRelease {
    void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
};
struct AttributesRelease {
    void operator()(PangoAttrList* attributes) const { pango_attr_list_unref(attributes); }
};
struct FontOptionsRelease {
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};

PangoWeight pangoWeight(CGFontWeight weight) {
    switch (weight) {
    case CGFontWeight::Regular:
        return PANGO_WEIGHT_NORMAL;
    case CGFontWeight::Medium:
        return PANGO_WEIGHT_MEDIUM;
    case CGFontWeight::Bold:
        return PANGO_WEIGHT_BOLD;
    }
    return PANGO_WEIGHT_NORMAL;
}

// Pango swaps left and right for a text whose own direction is from right to left.
PangoAlignment pangoAlignment(CGTextAlignment alignment) {
    switch (alignment) {
    case CGTextAlignment::Leading:
        return PANGO_ALIGN_LEFT;
    case CGTextAlignment::Center:
        return PANGO_ALIGN_CENTER;
    case CGTextAlignment::Trailing:
        return PANGO_ALIGN_RIGHT;
    }
    return PANGO_ALIGN_LEFT;
}

// Pango breaks all of a text into lines before it leaves out what doesn't fit, in a time that grows with the
// square of a word's length. So it is given no more than could fit: hardly a character is narrower than a
// fifth of the font's size, and no line lower than that size.
std::size_t mostCharacters(const CGFont& font, int maximumLines, const CGSize& size) {
    constexpr double narrowest = 0.2;
    constexpr double mostEver = 4096.0;
    const double lineLength = size.width / (font.size * narrowest) + 1.0;
    const double fitting = size.height / font.size + 1.0;
    const double lines = maximumLines > 0 ? std::min<double>(maximumLines, fitting) : fitting;
    return static_cast<std::size_t>(std::clamp(lineLength * lines, 1.0, mostEver));
}

int pangoUnits(double points) { return pango_units_from_double(std::min(points, largestLength)); }

void setFont(PangoLayout* layout, const CGFont& font) {
    const std::unique_ptr<PangoFontDescription, FontDescriptionRelease> description(
        pango_font_description_from_string(faces));
    pango_font_description_set_absolute_size(description.get(), pangoUnits(font.size));
    pango_font_description_set_weight(description.get(), pangoWeight(font.weight));
    pango_layout_set_font_description(layout, description.get());
    if (font.figures == CGFigures::Monospaced) {
        const std::unique_ptr<PangoAttrList, AttributesRelease> attributes(pango_attr_list_new());
        pango_attr_list_insert(attributes.get(), pango_attr_font_features_new("tnum=1"));
        pango_layout_set_attributes(layout, attributes.get());
    }
}

int lineHeight(PangoLayout* layout, int index) {
    int height = 0;
    pango_layout_line_get_height(pango_layout_get_line_readonly(layout, index), &height);
    return height;
}

struct LineLimit {
    int lines;
    int height;
};

// The first line always stands, however low the space is.
LineLimit lineLimit(PangoLayout* layout, int maximumLines, double height) {
    const int present = pango_layout_get_line_count(layout);
    const int allowed = maximumLines > 0 ? std::min(maximumLines, present) : present;
    const int available = pangoUnits(height);
    LineLimit limit{1, lineHeight(layout, 0)};
    while (limit.lines < allowed) {
        const int next = lineHeight(layout, limit.lines);
        if (limit.height + next > available) {
            break;
        }
        ++limit.lines;
        limit.height += next;
    }
    return limit;
}

// Pango puts no ellipsis where it leaves out whole paragraphs, and shows a line of each: so the text ends
// with the paragraph of the last line that stands.
void endAtLine(PangoLayout* layout, int line) {
    const std::string_view text = pango_layout_get_text(layout);
    const auto start = static_cast<std::size_t>(pango_layout_get_line_readonly(layout, line)->start_index);
    const std::size_t end = std::min(text.find_first_of("\r\n", start), text.find("\u2029", start));
    if (end != std::string_view::npos) {
        const std::string shortened = std::string(text.substr(0, end)) + "…";
        pango_layout_set_text(layout, shortened.c_str(), -1);
    }
}

void limitLines(PangoLayout* layout, int maximumLines, double height) {
    const LineLimit limit = lineLimit(layout, maximumLines, height);
    if (limit.lines < pango_layout_get_line_count(layout)) {
        endAtLine(layout, limit.lines - 1);
    }
    // Zero is Pango's way to say one line.
    pango_layout_set_height(layout, limit.lines == 1 ? 0 : limit.height);
    pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_END);
}

} // namespace

template <class Text>
std::size_t TextLayoutCache::Hash::operator()(const Request<Text>& request) const {
    std::size_t result = std::hash<std::string_view>{}(request.text);
    const auto mix = [&result](double value) { result = result * 31 + std::hash<double>{}(value); };
    mix(request.font.size);
    mix(request.size.width);
    mix(request.size.height);
    mix(request.scaling[0]);
    return result;
}

template <class Left, class Right>
bool TextLayoutCache::Equal::operator()(const Request<Left>& left, const Request<Right>& right) const {
    return left.text == right.text && left.font == right.font && left.alignment == right.alignment &&
           left.maximumLines == right.maximumLines && left.size == right.size &&
           left.scaling == right.scaling;
}

TextLayoutCache::TextLayoutCache() : fonts_(pango_cairo_font_map_new()), layouts_(textsKept) {}

PangoLayout* TextLayoutCache::layout(cairo_t* context, std::string_view text, const CGTextStyle& style,
                                     const CGSize& size) {
    cairo_matrix_t matrix;
    cairo_get_matrix(context, &matrix);
    // With one byte more than is looked at, as much is known as with all of it.
    const Request<std::string_view> request{
        text.substr(0, mostTextBytes + 1),           style.font, style.alignment, style.maximumLines, size,
        {matrix.xx, matrix.yx, matrix.xy, matrix.yy}};
    if (const Layout* known = layouts_.find(request)) {
        return known->get();
    }
    Request<std::string> key{std::string(request.text), style.font, style.alignment,
                             style.maximumLines,        size,       request.scaling};
    return layouts_.insert(std::move(key), makeLayout(context, request)).get();
}

TextLayoutCache::Layout TextLayoutCache::makeLayout(cairo_t* context,
                                                    const Request<std::string_view>& request) const {
    const std::unique_ptr<PangoContext, Release> fontContext(pango_font_map_create_context(fonts_.get()));
    const std::unique_ptr<cairo_font_options_t, FontOptionsRelease> options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(fontContext.get(), options.get());
    pango_context_set_round_glyph_positions(fontContext.get(), FALSE);
    pango_cairo_update_context(context, fontContext.get());

    Layout layout(pango_layout_new(fontContext.get()));
    const std::string shown =
        beginningOf(request.text, mostCharacters(request.font, request.maximumLines, request.size));
    pango_layout_set_text(layout.get(), shown.c_str(), -1);
    setFont(layout.get(), request.font);
    pango_layout_set_alignment(layout.get(), pangoAlignment(request.alignment));
    pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
    pango_layout_set_width(layout.get(), pangoUnits(request.size.width));
    limitLines(layout.get(), request.maximumLines, request.size.height);
    return layout;
}

} // namespace KivUICore::Cairo
