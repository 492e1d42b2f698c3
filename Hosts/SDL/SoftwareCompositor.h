#pragma once

#include "Hosts/Cairo/CairoHandles.h"
#include "Hosts/Cairo/FilmPixels.h"
#include "Hosts/SDL/Compositor.h"

#include <SDL.h>
#include <memory>
#include <vector>

namespace KivUICore::SDL {

class FilmSource;

/// Composes in memory: where there is no OpenGL, or where the processor would have to do its work.
class SoftwareCompositor final : public Compositor {
public:
    /// Null when the film can't be drawn in memory. Both outlive the compositor.
    static std::unique_ptr<SoftwareCompositor> create(SDL_Window& window, FilmSource& film);
    ~SoftwareCompositor() override;

    void resize(const Cairo::PixelSize& size) override;
    void show(const Cairo::OverlaySurface& overlay, std::span<const Cairo::PixelRect> changed) override;
    void invalidate() override { isAllChanged_ = true; }

private:
    SoftwareCompositor(SDL_Window& window, FilmSource& film) : window_(window), film_(film) {}

    void compose(const Cairo::OverlaySurface& overlay, std::span<const Cairo::PixelRect> parts);
    void present(cairo_surface_t* picture, std::span<const Cairo::PixelRect> parts);

    SDL_Window& window_;
    FilmSource& film_;
    Cairo::FilmPixels filmPixels_;
    Cairo::CairoSurface composed_;
    bool isAllChanged_ = true;
    bool isFilmStale_ = true;
    bool isOverlayBlank_ = false;
    std::vector<SDL_Rect> rects_;
};

} // namespace KivUICore::SDL
