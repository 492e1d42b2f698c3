#pragma once

#include "Hosts/Cairo/CairoContext.h"
#include "Hosts/Cairo/PixelGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <ostream>

namespace KivUICore::Cairo {

struct Pixel {
    int red = 0;
    int green = 0;
    int blue = 0;
    int alpha = 0;

    friend bool operator==(const Pixel&, const Pixel&) = default;
};

inline void PrintTo(const Pixel& pixel, std::ostream* stream) {
    *stream << "rgba(" << pixel.red << ", " << pixel.green << ", " << pixel.blue << ", " << pixel.alpha
            << ")";
}

inline constexpr Pixel transparent{0, 0, 0, 0};

/// A context to draw into and the pixels that come of it, premultiplied.
class Canvas {
public:
    /// In points.
    Canvas(double width, double height, double scale)
        : width_(static_cast<int>(std::lround(width * scale))),
          height_(static_cast<int>(std::lround(height * scale))),
          surface_(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width_, height_)),
          context_(surface_.get(), scale, resources_) {}

    CoreGraphics::CGContext& context() { return context_; }
    CairoResources& resources() { return resources_; }

    int width() const { return width_; }
    int height() const { return height_; }

    Pixel at(int x, int y) const {
        cairo_surface_flush(surface_.get());
        std::uint32_t value = 0;
        std::memcpy(&value,
                    cairo_image_surface_get_data(surface_.get()) +
                        y * cairo_image_surface_get_stride(surface_.get()) + x * 4,
                    sizeof value);
        return {static_cast<int>(value >> 16 & 255), static_cast<int>(value >> 8 & 255),
                static_cast<int>(value & 255), static_cast<int>(value >> 24)};
    }

    /// The pixels that are not transparent, as the smallest rectangle around them; of no size if there are
    /// none.
    PixelRect inkArea() const {
        int left = width_;
        int top = height_;
        int right = 0;
        int bottom = 0;
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                if (at(x, y).alpha != 0) {
                    left = std::min(left, x);
                    top = std::min(top, y);
                    right = std::max(right, x + 1);
                    bottom = std::max(bottom, y + 1);
                }
            }
        }
        return right == 0 ? PixelRect{} : PixelRect{left, top, right - left, bottom - top};
    }

private:
    int width_;
    int height_;
    CairoSurface surface_;
    CairoResources resources_;
    CairoContext context_;
};

} // namespace KivUICore::Cairo
