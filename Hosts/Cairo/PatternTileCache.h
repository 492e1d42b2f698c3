#pragma once

#include "Hosts/Cairo/CairoHandles.h"
#include "Hosts/Cairo/GenerationCache.h"
#include "Platform/CoreGraphics/CGDrawing.h"

#include <cstddef>
#include <functional>
#include <memory>

namespace KivUICore::Cairo {

/// One or more whole copies of a pattern's cell as pixels, to be repeated without a seam.
struct PatternTile {
    CairoSurface surface;
    int columns = 1;
    int rows = 1;
};

/// Pattern cells drawn at the device's resolution, kept so that a pattern that is filled again is not drawn
/// again.
class PatternTileCache {
public:
    /// Draws a cell into a rectangle.
    using Draw = std::function<void(cairo_t* context, const CoreGraphics::CGRect& rect)>;

    PatternTileCache();

    /// `scaleX` and `scaleY` are pixels a point, above zero; so is the size of `cell`. A tile that isn't kept
    /// is drawn by `draw`. Null when there is no memory for it. Valid until the next call.
    const PatternTile* tile(const std::shared_ptr<const CoreGraphics::CGDrawing>& cell, double scaleX,
                            double scaleY, const Draw& draw);

private:
    struct Key {
        std::shared_ptr<const CoreGraphics::CGDrawing> cell;
        double scaleX;
        double scaleY;

        friend bool operator==(const Key&, const Key&) = default;
    };
    struct Hash {
        std::size_t operator()(const Key& key) const;
    };

    GenerationCache<Key, PatternTile, Hash, std::equal_to<>> tiles_;
};

} // namespace KivUICore::Cairo
