#pragma once

#include "Hosts/Cairo/ImageSurfaceCache.h"
#include "Hosts/Cairo/PatternTileCache.h"
#include "Hosts/Cairo/TextLayoutCache.h"

namespace KivUICore::Cairo {

/// What contexts keep from one frame to the next. Outlives the contexts that use it.
struct CairoResources {
    TextLayoutCache texts;
    ImageSurfaceCache images;
    PatternTileCache patterns;
};

} // namespace KivUICore::Cairo
