#include "Hosts/SDL/SoftwareCompositor.h"

#include "Hosts/Cairo/OverlaySurface.h"
#include "Hosts/SDL/FilmSource.h"

namespace KivUICore::SDL {

namespace {

struct SurfaceRelease {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

} // namespace

std::unique_ptr<SoftwareCompositor> SoftwareCompositor::create(SDL_Window& window, FilmSource& film) {
    if (!film.startMemory()) {
        return nullptr;
    }
    return std::unique_ptr<SoftwareCompositor>(new SoftwareCompositor(window, film));
}

SoftwareCompositor::~SoftwareCompositor() { film_.stopDrawing(); }

void SoftwareCompositor::resize(const Cairo::PixelSize& size) {
    filmPixels_ = Cairo::FilmPixels(size);
    composed_.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height));
    isAllChanged_ = true;
    isFilmStale_ = true;
}

void SoftwareCompositor::show(const Cairo::OverlaySurface& overlay,
                              std::span<const Cairo::PixelRect> changed) {
    const bool isNewFrame = film_.hasNewFrame();
    if (isNewFrame || isFilmStale_) {
        film_.drawIntoMemory(filmPixels_.buffer());
        cairo_surface_mark_dirty(filmPixels_.surface());
        isAllChanged_ = true;
        isFilmStale_ = false;
    }
    const Cairo::PixelRect all{0, 0, overlay.size().width, overlay.size().height};
    const std::span<const Cairo::PixelRect> parts = isAllChanged_ ? std::span(&all, 1) : changed;
    isAllChanged_ = false;
    if (!changed.empty()) {
        isOverlayBlank_ = overlay.isBlank();
    }
    if (isOverlayBlank_) {
        present(filmPixels_.surface(), parts);
    } else {
        compose(overlay, parts);
        present(composed_.get(), parts);
    }
    if (isNewFrame) {
        film_.frameWasShown();
    }
}

void SoftwareCompositor::compose(const Cairo::OverlaySurface& overlay,
                                 std::span<const Cairo::PixelRect> parts) {
    const Cairo::CairoHandle context(cairo_create(composed_.get()));
    for (const Cairo::PixelRect& part : parts) {
        cairo_rectangle(context.get(), part.x, part.y, part.width, part.height);
    }
    cairo_clip(context.get());
    cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(context.get(), filmPixels_.surface(), 0.0, 0.0);
    cairo_paint(context.get());
    cairo_set_operator(context.get(), CAIRO_OPERATOR_OVER);
    cairo_set_source_surface(context.get(), overlay.surface(), 0.0, 0.0);
    cairo_paint(context.get());
    cairo_surface_flush(composed_.get());
}

// The window's surface may be gone or of another size at any time: the window may have been resized again.
void SoftwareCompositor::present(cairo_surface_t* picture, std::span<const Cairo::PixelRect> parts) {
    SDL_Surface* target = SDL_GetWindowSurface(&window_);
    if (!target) {
        return;
    }
    const std::unique_ptr<SDL_Surface, SurfaceRelease> source(SDL_CreateRGBSurfaceWithFormatFrom(
        cairo_image_surface_get_data(picture), cairo_image_surface_get_width(picture),
        cairo_image_surface_get_height(picture), 32, cairo_image_surface_get_stride(picture),
        SDL_PIXELFORMAT_RGB888));
    rects_.clear();
    for (const Cairo::PixelRect& part : parts) {
        SDL_Rect rect{part.x, part.y, part.width, part.height};
        SDL_BlitSurface(source.get(), &rect, target, &rect);
        rects_.push_back(rect);
    }
    SDL_UpdateWindowSurfaceRects(&window_, rects_.data(), static_cast<int>(rects_.size()));
}

} // namespace KivUICore::SDL
