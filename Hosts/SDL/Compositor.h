#pragma once

#include "Hosts/Cairo/PixelGeometry.h"

#include <span>

namespace KivUICore::Cairo {
class OverlaySurface;
} // namespace KivUICore::Cairo

namespace KivUICore::SDL {

/// Puts the film and the overlay together on the screen.
class Compositor {
public:
    virtual ~Compositor() = default;

    /// Must be called before the first frame and whenever the window has another size, which is not empty.
    /// All is drawn again at the next frame.
    virtual void resize(const Cairo::PixelSize& size) = 0;

    /// Shows the film's frame that is due, if one is, and the overlay, which has the window's size and of
    /// which `changed` is new since the last frame.
    virtual void show(const Cairo::OverlaySurface& overlay, std::span<const Cairo::PixelRect> changed) = 0;

    /// Shows all of the window again at the next frame: after something covered it.
    virtual void invalidate() = 0;
};

} // namespace KivUICore::SDL
