#include "Player/Desktop/Snapshot.h"

#include "Hosts/Desktop/CairoResources.h"
#include "Hosts/Desktop/FilmPixels.h"
#include "Hosts/Desktop/OverlaySurface.h"
#include "Hosts/Headless/VirtualClock.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIWindow.h"
#include "Player/Desktop/MpvPicture.h"
#include "Player/Desktop/MpvPlayback.h"
#include "Player/Desktop/Options.h"
#include "Player/Desktop/WakeUpSignal.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Player/Overlay/WindowControls.h"

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

// True once the place asked for is reached and its picture, if there is any, was drawn.
bool isReady(const MpvPlayback& playback, const MpvPicture& picture) {
    const MpvClient& client = playback.client();
    const bool hasPicture = client.number("vid").has_value();
    return playback.isAtStart() && (hasPicture ? picture.hasDrawn() : hasDecodedAnything(client));
}

Problem drawFilm(const Options& options, MpvPlayback& playback, const FilmPixels& pixels) {
    WakeUpSignal signal;
    MpvPicture picture(playback);
    playback.setWakeUp([&signal] { signal.raise(); });
    picture.setWakeUp([&signal] { signal.raise(); });
    picture.startMemory();
    playback.setBottomInset(Overlay::PlayerOverlay::bottomInset() / options.height);
    playback.open(options.location, options.start);
    playback.update();
    while (!playback.state().error && !isReady(playback, picture)) {
        signal.wait();
        playback.update();
        if (picture.hasNewFrame()) {
            picture.drawIntoMemory(pixels.buffer());
        }
    }
    cairo_surface_mark_dirty(pixels.surface());
    playback.refresh();
    playback.setWakeUp([] {});
    return playback.state().error;
}

/// There is no window around a picture.
class NoWindow : public Overlay::WindowControls {
public:
    bool isFullScreen() const override { return false; }
    void setFullScreen(bool /*fullScreen*/) override {}
    void setPointerHidden(bool /*hidden*/) override {}
    void close() override {}
};

void drawOverlay(const Options& options, double scale, MpvPlayback& playback,
                 Desktop::OverlaySurface& surface) {
    const Headless::VirtualClock clock;
    Foundation::NSRunLoop runLoop(clock);
    const auto views =
        Foundation::make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, options.width, options.height));
    views->setContentScale(scale);
    NoWindow window;
    const Overlay::PlayerOverlay overlay(views, playback, window);
    surface.draw(*views);
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
    MpvPlayback playback({.start = MpvPlayback::Start::Paused,
                          .sound = MpvPlayback::Sound::Discarded,
                          .ipcServer = options.ipcServer});
    if (Problem problem = drawFilm(options, playback, film)) {
        return problem;
    }
    Desktop::CairoResources resources;
    Desktop::OverlaySurface overlay(size, scale, resources);
    drawOverlay(options, scale, playback, overlay);
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
