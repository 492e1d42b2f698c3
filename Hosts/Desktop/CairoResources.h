#pragma once

#include "Hosts/Desktop/ImageSurfaceCache.h"
#include "Hosts/Desktop/PatternTileCache.h"
#include "Hosts/Desktop/TextLayoutCache.h"

namespace Desktop {

/// What contexts keep from one frame to the next. Outlives the contexts that use it.
struct CairoResources {
    TextLayoutCache texts;
    ImageSurfaceCache images;
    PatternTileCache patterns;
};

} // namespace Desktop
