#pragma once

#include "Hosts/Cairo/CairoHandles.h"
#include "Platform/CoreGraphics/CGImage.h"

#include <memory>
#include <unordered_map>

namespace KivUICore::Cairo {

/// Images in Cairo's pixel order, made once for each image and kept for as long as the image lives.
class ImageSurfaceCache {
public:
    /// Null when there is no memory for it. Valid until the next call.
    cairo_surface_t* surface(const std::shared_ptr<const CoreGraphics::CGImage>& image);

private:
    struct Entry {
        std::weak_ptr<const CoreGraphics::CGImage> image;
        CairoSurface surface;
    };

    void forgetGoneImages();

    std::unordered_map<const CoreGraphics::CGImage*, Entry> entries_;
};

} // namespace KivUICore::Cairo
