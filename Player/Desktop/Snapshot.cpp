#include "Player/Desktop/Snapshot.h"

#include "Hosts/Desktop/CairoResources.h"
#include "Hosts/Desktop/DesktopClock.h"
#include "Hosts/Desktop/FilmPixels.h"
#include "Hosts/Desktop/OverlaySurface.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIWindow.h"
#include "Player/Desktop/MpvFilm.h"
#include "Player/Desktop/Options.h"
#include "Player/Desktop/WakeUpSignal.h"
#include "Player/Overlay/PlayerOverlay.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <unistd.h>

namespace Player {

namespace {

using Desktop::CairoSurface;
using Desktop::FilmPixels;
using Desktop::PixelSize;

/// What went wrong, if anything did.
using Problem = std::optional<std::string>;

Problem prepareFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        return "cannot make the folder '" + folder + "': " + error.message();
    }
    if (::access(folder.c_str(), W_OK | X_OK) != 0) {
        return "cannot write into the folder '" + folder + "': " + std::strerror(errno);
    }
    return std::nullopt;
}

Problem drawFilm(const Options& options, const FilmPixels& pixels) {
    WakeUpSignal signal;
    MpvFilm film(MpvFilm::Playback::Paused, MpvFilm::Sound::Silent);
    film.setWakeUp([&signal] { signal.raise(); });
    film.startMemory();
    film.setBottomInset(Overlay::PlayerOverlay::bottomInset() / options.height);
    film.open(options.location, options.start);
    while (!film.failure() && !film.isReady()) {
        signal.wait();
        film.update();
        if (film.hasNewFrame()) {
            film.drawIntoMemory(pixels.buffer());
        }
    }
    cairo_surface_mark_dirty(pixels.surface());
    return film.failure();
}

void drawOverlay(const Options& options, double scale, Desktop::OverlaySurface& surface) {
    const Desktop::DesktopClock clock;
    Foundation::NSRunLoop runLoop(clock);
    const auto window =
        Foundation::make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, options.width, options.height));
    window->setContentScale(scale);
    const Overlay::PlayerOverlay overlay(window);
    surface.draw(*window);
}

CairoSurface compose(const FilmPixels& film, const Desktop::OverlaySurface& overlay) {
    CairoSurface result(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, overlay.size().width, overlay.size().height));
    const Desktop::CairoHandle context(cairo_create(result.get()));
    for (cairo_surface_t* layer : {film.surface(), overlay.surface()}) {
        cairo_set_source_surface(context.get(), layer, 0.0, 0.0);
        cairo_paint(context.get());
    }
    return result;
}

Problem write(cairo_surface_t* surface, const std::string& folder, const char* name) {
    const std::string path = (std::filesystem::path(folder) / name).string();
    errno = 0;
    const cairo_status_t status = cairo_surface_write_to_png(surface, path.c_str());
    if (status == CAIRO_STATUS_SUCCESS) {
        return std::nullopt;
    }
    const char* reason = errno != 0 ? std::strerror(errno) : cairo_status_to_string(status);
    return "cannot write '" + path + "': " + reason;
}

Problem writePictures(const Options& options) {
    const std::string& folder = *options.snapshotFolder;
    if (Problem problem = prepareFolder(folder)) {
        return problem;
    }
    const double scale = options.scale.value_or(1.0);
    const PixelSize size{static_cast<int>(std::lround(options.width * scale)),
                         static_cast<int>(std::lround(options.height * scale))};
    const FilmPixels film(size);
    if (Problem problem = drawFilm(options, film)) {
        return problem;
    }
    Desktop::CairoResources resources;
    Desktop::OverlaySurface overlay(size, scale, resources);
    drawOverlay(options, scale, overlay);
    const CairoSurface both = compose(film, overlay);
    for (const auto& [surface, name] :
         {std::pair(film.surface(), "film.png"), std::pair(overlay.surface(), "overlay.png"),
          std::pair(both.get(), "snapshot.png")}) {
        if (Problem problem = write(surface, folder, name)) {
            return problem;
        }
    }
    return std::nullopt;
}

} // namespace

Exit takeSnapshot(const Options& options) {
    const Problem problem = writePictures(options);
    return problem ? Exit{ExitCode::Failure, *problem} : Exit{};
}

} // namespace Player
