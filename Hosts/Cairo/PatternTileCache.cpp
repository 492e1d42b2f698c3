#include "Hosts/Cairo/PatternTileCache.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

namespace KivUICore::Cairo {

namespace {

using namespace CoreGraphics;

constexpr std::size_t tilesKept = 16;
constexpr double largestSide = 8192.0;

struct TileSide {
    int copies;
    int pixels;
};

// A cell rarely covers whole pixels at a fractional scale, but a few copies of it often do. Where they don't,
// enough copies make the rounding too small to see.
TileSide tileSide(double cellPixels) {
    constexpr int mostCopies = 8;
    constexpr double tolerance = 1e-3;
    for (int copies = 1; copies <= mostCopies; ++copies) {
        const double pixels = cellPixels * copies;
        const double whole = std::round(pixels);
        if (whole >= 1.0 && whole <= largestSide && std::abs(pixels - whole) < tolerance) {
            return {copies, static_cast<int>(whole)};
        }
    }
    constexpr double enoughPixels = 64.0;
    const double copies = std::clamp(std::ceil(enoughPixels / cellPixels), 1.0, enoughPixels);
    const double pixels = std::clamp(std::round(cellPixels * copies), 1.0, largestSide);
    return {static_cast<int>(copies), static_cast<int>(pixels)};
}

// Copies that share a pixel each cover a part of it: the parts add up to the whole.
void addCopy(cairo_t* context, const CGRect& rect, const PatternTileCache::Draw& draw) {
    cairo_push_group(context);
    draw(context, rect);
    cairo_pop_group_to_source(context);
    cairo_set_operator(context, CAIRO_OPERATOR_ADD);
    cairo_paint(context);
    cairo_set_operator(context, CAIRO_OPERATOR_OVER);
}

std::optional<PatternTile> makeTile(const CGSize& cell, double scaleX, double scaleY,
                                    const PatternTileCache::Draw& draw) {
    const TileSide width = tileSide(cell.width * scaleX);
    const TileSide height = tileSide(cell.height * scaleY);
    PatternTile tile{
        CairoSurface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width.pixels, height.pixels)),
        width.copies, height.copies};
    const CairoHandle context(cairo_create(tile.surface.get()));
    cairo_scale(context.get(), width.pixels / (cell.width * width.copies),
                height.pixels / (cell.height * height.copies));
    for (int row = 0; row < height.copies; ++row) {
        for (int column = 0; column < width.copies; ++column) {
            addCopy(context.get(), {{column * cell.width, row * cell.height}, cell}, draw);
        }
    }
    if (cairo_status(context.get()) != CAIRO_STATUS_SUCCESS) {
        return std::nullopt;
    }
    return tile;
}

} // namespace

std::size_t PatternTileCache::Hash::operator()(const Key& key) const {
    const std::size_t scales = std::hash<double>{}(key.scaleX) * 31 + std::hash<double>{}(key.scaleY);
    return std::hash<std::shared_ptr<const CGDrawing>>{}(key.cell) * 31 + scales;
}

PatternTileCache::PatternTileCache() : tiles_(tilesKept) {}

const PatternTile* PatternTileCache::tile(const std::shared_ptr<const CGDrawing>& cell, double scaleX,
                                          double scaleY, const Draw& draw) {
    Key key{cell, scaleX, scaleY};
    if (const PatternTile* known = tiles_.find(key)) {
        return known;
    }
    std::optional<PatternTile> made = makeTile(cell->size(), scaleX, scaleY, draw);
    return made ? &tiles_.insert(std::move(key), std::move(*made)) : nullptr;
}

} // namespace KivUICore::Cairo
