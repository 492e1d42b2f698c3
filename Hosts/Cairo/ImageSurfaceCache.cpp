#include "Hosts/Cairo/ImageSurfaceCache.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

namespace KivUICore::Cairo {

namespace {

using CoreGraphics::CGImage;

void convertRow(const std::uint8_t* rgba, unsigned char* out, std::size_t width) {
    for (std::size_t x = 0; x < width; ++x, rgba += 4, out += 4) {
        const std::uint32_t pixel = static_cast<std::uint32_t>(rgba[3]) << 24 |
                                    static_cast<std::uint32_t>(rgba[0]) << 16 |
                                    static_cast<std::uint32_t>(rgba[1]) << 8 | rgba[2];
        std::memcpy(out, &pixel, sizeof pixel);
    }
}

CairoSurface makeSurface(const CGImage& image) {
    constexpr std::size_t largestSide = std::numeric_limits<short>::max();
    if (image.width() > largestSide || image.height() > largestSide) {
        return nullptr;
    }
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(image.width()),
                                                    static_cast<int>(image.height())));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        return nullptr;
    }
    unsigned char* pixels = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    for (std::size_t y = 0; y < image.height(); ++y) {
        convertRow(image.bytes().data() + y * image.width() * 4, pixels + y * stride, image.width());
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

} // namespace

cairo_surface_t* ImageSurfaceCache::surface(const std::shared_ptr<const CGImage>& image) {
    if (const auto known = entries_.find(image.get()); known != entries_.end()) {
        // Another image may have been made where one that is gone stood.
        if (known->second.image.lock() == image) {
            return known->second.surface.get();
        }
    }
    forgetGoneImages();
    Entry& entry = entries_[image.get()];
    entry = {image, makeSurface(*image)};
    return entry.surface.get();
}

void ImageSurfaceCache::forgetGoneImages() {
    std::erase_if(entries_, [](const auto& entry) { return entry.second.image.expired(); });
}

} // namespace KivUICore::Cairo
