#pragma once

#include "Hosts/Cairo/CairoHandles.h"
#include "Hosts/Cairo/PixelGeometry.h"

#include <cstdlib>
#include <memory>

namespace KivUICore::Cairo {

/// Memory for a film's picture, black at first, laid out as scalers like it: rows begin at multiples of 64
/// bytes.
class FilmPixels {
public:
    FilmPixels() = default;
    explicit FilmPixels(const PixelSize& size);

    PixelBuffer buffer() const;

    /// The same memory as an opaque surface.
    cairo_surface_t* surface() const { return surface_.get(); }

private:
    struct Release {
        void operator()(unsigned char* memory) const { std::free(memory); }
    };

    PixelSize size_;
    std::size_t stride_ = 0;
    std::unique_ptr<unsigned char, Release> memory_;
    CairoSurface surface_;
};

} // namespace KivUICore::Cairo
