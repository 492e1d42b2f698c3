#include "Hosts/Cairo/OverlaySurface.h"

#include "Platform/UIKit/UIWindow.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>

namespace KivUICore::Cairo {

namespace {

using namespace CoreGraphics;

constexpr std::size_t bytesPerPixel = 4;

PixelRect pixelsAround(const CGRect& rect, double scale, const PixelSize& size) {
    const auto outwards = [scale](double low, double high, int limit) {
        // What touches a pixel by a rounding error only leaves it as it was.
        constexpr double tolerance = 1e-6;
        const double first = std::clamp(std::floor(low * scale + tolerance), 0.0, static_cast<double>(limit));
        const double end = std::clamp(std::ceil(high * scale - tolerance), first, static_cast<double>(limit));
        return std::pair(static_cast<int>(first), static_cast<int>(end));
    };
    const auto [left, right] = outwards(CGRectGetMinX(rect), CGRectGetMaxX(rect), size.width);
    const auto [top, bottom] = outwards(CGRectGetMinY(rect), CGRectGetMaxY(rect), size.height);
    return {left, top, right - left, bottom - top};
}

} // namespace

OverlaySurface::OverlaySurface(const PixelSize& size, double scale, CairoResources& resources)
    : OverlaySurface(CairoSurface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size.width, size.height)),
                     scale, resources) {}

OverlaySurface::OverlaySurface(const PixelBuffer& buffer, double scale, CairoResources& resources)
    : OverlaySurface(CairoSurface(cairo_image_surface_create_for_data(buffer.pixels, CAIRO_FORMAT_ARGB32,
                                                                      buffer.size.width, buffer.size.height,
                                                                      static_cast<int>(buffer.stride))),
                     scale, resources) {}

OverlaySurface::OverlaySurface(CairoSurface surface, double scale, CairoResources& resources)
    : size_{cairo_image_surface_get_width(surface.get()), cairo_image_surface_get_height(surface.get())},
      scale_(scale), surface_(std::move(surface)), context_(surface_.get(), scale, resources) {}

bool OverlaySurface::isBlank() const {
    const unsigned char* row = cairo_image_surface_get_data(surface_.get());
    const std::ptrdiff_t stride = cairo_image_surface_get_stride(surface_.get());
    const std::vector<unsigned char> blank(static_cast<std::size_t>(size_.width) * bytesPerPixel);
    for (int y = 0; y < size_.height; ++y, row += stride) {
        if (std::memcmp(row, blank.data(), blank.size()) != 0) {
            return false;
        }
    }
    return true;
}

std::span<const PixelRect> OverlaySurface::draw(UIKit::UIWindow& window) {
    changed_.clear();
    const DamageRegion drawn = window.display(context_);
    for (const CGRect& rect : drawn.rects()) {
        const PixelRect pixels = pixelsAround(rect, scale_, size_);
        if (pixels.width > 0 && pixels.height > 0) {
            changed_.push_back(pixels);
        }
    }
    cairo_surface_flush(surface_.get());
    return changed_;
}

} // namespace KivUICore::Cairo
