#pragma once

#include "Hosts/Cairo/CairoContext.h"
#include "Hosts/Cairo/CairoHandles.h"
#include "Hosts/Cairo/PixelGeometry.h"

#include <span>
#include <vector>

namespace UIKit {
class UIWindow;
} // namespace UIKit

namespace KivUICore::Cairo {

/// A window's views as premultiplied pixels, transparent where no view is.
class OverlaySurface {
public:
    /// `size` is not empty; `scale` is pixels a point; `resources` outlives the surface.
    OverlaySurface(const PixelSize& size, double scale, CairoResources& resources);

    /// Draws into the memory of a program that shows it by itself. It is transparent at first and outlives
    /// the surface; its rows begin at multiples of four bytes.
    OverlaySurface(const PixelBuffer& buffer, double scale, CairoResources& resources);

    const PixelSize& size() const { return size_; }
    cairo_surface_t* surface() const { return surface_.get(); }

    /// True where nothing is to be seen. Looks at the pixels.
    bool isBlank() const;

    /// Draws what `window` needs drawn, and says which pixels that changed. Valid until the next call.
    std::span<const PixelRect> draw(UIKit::UIWindow& window);

private:
    OverlaySurface(CairoSurface surface, double scale, CairoResources& resources);

    PixelSize size_;
    double scale_;
    CairoSurface surface_;
    CairoContext context_;
    std::vector<PixelRect> changed_;
};

} // namespace KivUICore::Cairo
