#pragma once

#include "Hosts/Desktop/PixelGeometry.h"

#include <span>

namespace Desktop {

class OverlaySurface;

/// Puts the film and the overlay together on the screen.
class Compositor {
public:
    virtual ~Compositor() = default;

    /// Must be called before the first frame and whenever the window has another size, which is not empty.
    /// All is drawn again at the next frame.
    virtual void resize(const PixelSize& size) = 0;

    /// Shows the film's frame that is due, if one is, and the overlay, which has the window's size and of
    /// which `changed` is new since the last frame.
    virtual void show(const OverlaySurface& overlay, std::span<const PixelRect> changed) = 0;

    /// Shows all of the window again at the next frame: after something covered it.
    virtual void invalidate() = 0;
};

} // namespace Desktop
