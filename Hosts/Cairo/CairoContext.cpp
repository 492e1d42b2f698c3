#include "Hosts/Cairo/CairoContext.h"

#include "Platform/CoreGraphics/CGPath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace KivUICore::Cairo {

namespace {

using namespace CoreGraphics;

cairo_matrix_t cairoMatrix(const CGAffineTransform& transform) {
    return {transform.a, transform.b, transform.c, transform.d, transform.tx, transform.ty};
}

bool isInvertible(cairo_matrix_t matrix) { return cairo_matrix_invert(&matrix) == CAIRO_STATUS_SUCCESS; }

bool isFinite(const CGRect& rect) {
    return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
           std::isfinite(rect.size.height);
}

CGRect visibleArea(cairo_t* context) {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    cairo_clip_extents(context, &left, &top, &right, &bottom);
    return CGRectMake(left, top, right - left, bottom - top);
}

cairo_line_cap_t cairoCap(CGLineCap cap) {
    return cap == CGLineCap::Round ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT;
}

cairo_line_join_t cairoJoin(CGLineJoin join) {
    return join == CGLineJoin::Round ? CAIRO_LINE_JOIN_ROUND : CAIRO_LINE_JOIN_MITER;
}

void addRoundedRect(cairo_t* context, const CGRect& rect, double radius) {
    constexpr double quarter = std::numbers::pi / 2.0;
    const double left = CGRectGetMinX(rect) + radius;
    const double right = CGRectGetMaxX(rect) - radius;
    const double top = CGRectGetMinY(rect) + radius;
    const double bottom = CGRectGetMaxY(rect) - radius;
    cairo_new_sub_path(context);
    cairo_arc(context, right, top, radius, -quarter, 0.0);
    cairo_arc(context, right, bottom, radius, 0.0, quarter);
    cairo_arc(context, left, bottom, radius, quarter, 2.0 * quarter);
    cairo_arc(context, left, top, radius, 2.0 * quarter, 3.0 * quarter);
    cairo_close_path(context);
}

CGRect inkArea(PangoLayout* layout, const CGPoint& origin) {
    PangoRectangle ink;
    pango_layout_get_extents(layout, &ink, nullptr);
    return CGRectMake(origin.x + pango_units_to_double(ink.x), origin.y + pango_units_to_double(ink.y),
                      pango_units_to_double(ink.width), pango_units_to_double(ink.height));
}

} // namespace

CairoContext::CairoContext(cairo_surface_t* surface, double scale, CairoResources& resources)
    : context_(cairo_create(surface)), resources_(resources) {
    cairo_save(context_.get());
    cairo_scale(context_.get(), scale, scale);
}

CairoContext::CairoContext(cairo_t* context, CairoResources& resources)
    : context_(cairo_reference(context)), resources_(resources) {
    cairo_save(context_.get());
}

CairoContext::~CairoContext() { cairo_restore(context_.get()); }

void CairoContext::saveState() {
    cairo_save(context_.get());
    ++level_;
}

void CairoContext::restoreState() {
    cairo_restore(context_.get());
    leaveLevel();
}

void CairoContext::leaveLevel() {
    if (flatLevel_ == level_) {
        flatLevel_.reset();
    }
    --level_;
}

// Cairo refuses all further work once it was given a transform that has no way back.
void CairoContext::concatenate(const CGAffineTransform& transform) {
    const cairo_matrix_t step = cairoMatrix(transform);
    cairo_matrix_t current;
    cairo_get_matrix(context_.get(), &current);
    cairo_matrix_t result;
    cairo_matrix_multiply(&result, &step, &current);
    if (isInvertible(step) && isInvertible(result)) {
        cairo_set_matrix(context_.get(), &result);
    } else if (!flatLevel_) {
        flatLevel_ = level_;
    }
}

void CairoContext::clipToRect(const CGRect& rect) {
    addRect(rect);
    cairo_clip(context_.get());
}

void CairoContext::clipToPath(const CGPath& path) {
    addPath(path);
    cairo_clip(context_.get());
}

void CairoContext::clearRect(const CGRect& rect) {
    if (addRect(rect)) {
        cairo_set_operator(context_.get(), CAIRO_OPERATOR_CLEAR);
        cairo_fill(context_.get());
        cairo_set_operator(context_.get(), CAIRO_OPERATOR_OVER);
    }
}

void CairoContext::fillRect(const CGRect& rect, const CGColor& color) {
    if (addRect(rect)) {
        setColor(color);
        cairo_fill(context_.get());
    }
}

void CairoContext::fillRoundedRect(const CGRect& rect, CGFloat radius, const CGColor& color) {
    if (!isVisible(rect)) {
        return;
    }
    const double largest = std::min(CGRectGetWidth(rect), CGRectGetHeight(rect)) / 2.0;
    const double used = std::min(radius, largest);
    if (!(used > 0.0)) {
        fillRect(rect, color);
        return;
    }
    cairo_new_path(context_.get());
    addRoundedRect(context_.get(), rect, used);
    setColor(color);
    cairo_fill(context_.get());
}

void CairoContext::fillPath(const CGPath& path, const CGColor& color) {
    addPath(path);
    setColor(color);
    cairo_fill(context_.get());
}

void CairoContext::strokePath(const CGPath& path, const CGStroke& stroke, const CGColor& color) {
    if (!(stroke.width > 0.0) || !std::isfinite(stroke.width)) {
        return;
    }
    addPath(path);
    setColor(color);
    cairo_set_line_width(context_.get(), stroke.width);
    cairo_set_line_cap(context_.get(), cairoCap(stroke.cap));
    cairo_set_line_join(context_.get(), cairoJoin(stroke.join));
    cairo_stroke(context_.get());
}

void CairoContext::drawImage(const std::shared_ptr<const CGImage>& image, const CGRect& rect) {
    if (!image || !isVisible(rect)) {
        return;
    }
    cairo_surface_t* surface = resources_.images.surface(image);
    if (!surface) {
        return;
    }
    const CGRect area = CGRectStandardize(rect);
    const CairoPattern pattern(cairo_pattern_create_for_surface(surface));
    cairo_matrix_t toImage;
    cairo_matrix_init_scale(&toImage, static_cast<double>(image->width()) / area.size.width,
                            static_cast<double>(image->height()) / area.size.height);
    cairo_matrix_translate(&toImage, -area.origin.x, -area.origin.y);
    if (!isInvertible(toImage)) {
        return;
    }
    cairo_pattern_set_matrix(pattern.get(), &toImage);
    // The outermost pixels go on beyond the edge, so that they aren't mixed with nothing there.
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_GOOD);
    addRect(area);
    cairo_set_source(context_.get(), pattern.get());
    cairo_fill(context_.get());
}

void CairoContext::fillPattern(const std::shared_ptr<const CGDrawing>& cell, const CGRect& rect) {
    if (!cell || !isVisible(rect) || !isVisible({{}, cell->size()})) {
        return;
    }
    cairo_matrix_t matrix;
    cairo_get_matrix(context_.get(), &matrix);
    const CGSize size = CGRectStandardize({{}, cell->size()}).size;
    const auto drawCell = [this, &cell](cairo_t* context, const CGRect& place) {
        CairoContext copy(context, resources_);
        cell->draw(copy, place);
    };
    const PatternTile* tile = resources_.patterns.tile(cell, std::hypot(matrix.xx, matrix.yx),
                                                       std::hypot(matrix.xy, matrix.yy), drawCell);
    if (!tile) {
        return;
    }
    cairo_surface_t* pixels = tile->surface.get();
    const CairoPattern pattern(cairo_pattern_create_for_surface(pixels));
    cairo_matrix_t toTile;
    cairo_matrix_init_scale(&toTile, cairo_image_surface_get_width(pixels) / (size.width * tile->columns),
                            cairo_image_surface_get_height(pixels) / (size.height * tile->rows));
    cairo_pattern_set_matrix(pattern.get(), &toTile);
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(pattern.get(), CAIRO_FILTER_GOOD);
    addRect(rect);
    cairo_set_source(context_.get(), pattern.get());
    cairo_fill(context_.get());
}

void CairoContext::drawText(std::string_view text, const CGTextStyle& style, const CGRect& rect) {
    if (text.empty() || !isVisible(rect) || !(style.font.size > 0.0) || !std::isfinite(style.font.size)) {
        return;
    }
    const CGRect area = CGRectStandardize(rect);
    PangoLayout* layout = resources_.texts.layout(context_.get(), text, style, area.size);
    int height = 0;
    pango_layout_get_size(layout, nullptr, &height);
    const CGPoint origin{area.origin.x, CGRectGetMidY(area) - pango_units_to_double(height) / 2.0};

    cairo_save(context_.get());
    if (!CGRectContainsRect(area, inkArea(layout, origin))) {
        clipToWholePixels(area);
    }
    setColor(style.color);
    cairo_move_to(context_.get(), origin.x, origin.y);
    pango_cairo_show_layout(context_.get(), layout);
    cairo_restore(context_.get());
}

void CairoContext::beginGroup(CGFloat alpha, const CGRect& bounds) {
    cairo_save(context_.get());
    ++level_;
    clipToWholePixels(bounds);
    cairo_push_group(context_.get());
    groupAlphas_.push_back(alpha);
}

void CairoContext::endGroup() {
    cairo_pop_group_to_source(context_.get());
    cairo_paint_with_alpha(context_.get(), groupAlphas_.back());
    groupAlphas_.pop_back();
    cairo_restore(context_.get());
    leaveLevel();
}

bool CairoContext::isVisible(const CGRect& rect) const {
    return !flatLevel_ && isFinite(rect) && !CGRectIsEmpty(rect);
}

// Makes the rectangle the path. Cairo's coordinates end at a few million pixels, so one that is much larger
// than what shows is cut.
bool CairoContext::addRect(const CGRect& rect) {
    cairo_new_path(context_.get());
    if (!isVisible(rect)) {
        return false;
    }
    constexpr double margin = 16.0;
    const CGRect shown = CGRectInset(visibleArea(context_.get()), -margin, -margin);
    const CGRect area = CGRectIntersection(rect, shown);
    cairo_rectangle(context_.get(), area.origin.x, area.origin.y, area.size.width, area.size.height);
    return !CGRectIsEmpty(area);
}

void CairoContext::addPath(const CGPath& path) {
    cairo_t* context = context_.get();
    cairo_new_path(context);
    if (flatLevel_) {
        return;
    }
    for (const CGPath::Element& element : path.elements()) {
        const auto& [first, second, third] = element.points;
        switch (element.verb) {
        case CGPath::Verb::Move:
            cairo_move_to(context, first.x, first.y);
            break;
        case CGPath::Verb::Line:
            cairo_line_to(context, first.x, first.y);
            break;
        case CGPath::Verb::Curve:
            cairo_curve_to(context, first.x, first.y, second.x, second.y, third.x, third.y);
            break;
        case CGPath::Verb::Close:
            cairo_close_path(context);
            break;
        }
    }
}

void CairoContext::setColor(const CGColor& color) {
    cairo_set_source_rgba(context_.get(), color.red, color.green, color.blue, color.alpha);
}

// A clip through the middle of a pixel would thin out what is drawn there, and a group's edge twice.
void CairoContext::clipToWholePixels(const CGRect& rect) {
    cairo_t* context = context_.get();
    cairo_new_path(context);
    if (isVisible(rect)) {
        cairo_matrix_t matrix;
        cairo_get_matrix(context, &matrix);
        const CGRect pixels = CGRectIntegral(CGRectApplyAffineTransform(
            rect, {matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0}));
        cairo_identity_matrix(context);
        cairo_rectangle(context, pixels.origin.x, pixels.origin.y, pixels.size.width, pixels.size.height);
        cairo_set_matrix(context, &matrix);
    }
    cairo_clip(context);
}

} // namespace KivUICore::Cairo
