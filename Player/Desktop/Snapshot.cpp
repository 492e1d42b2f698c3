#include "Player/Desktop/Snapshot.h"

#include "Hosts/Cairo/CairoResources.h"
#include "Hosts/Cairo/FilmPixels.h"
#include "Hosts/Cairo/OverlaySurface.h"
#include "Hosts/Headless/VirtualClock.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIWindow.h"
#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/MpvPicture.h"
#include "Player/Desktop/MpvPlayback.h"
#include "Player/Desktop/Options.h"
#include "Player/Desktop/PictureFile.h"
#include "Player/Desktop/WakeUpSignal.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Player/Overlay/WindowControls.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <optional>
#include <sstream>
#include <string>
#include <system_error>
#include <unistd.h>

namespace KivUICore::Player {

namespace {

using Cairo::CairoSurface;
using Cairo::FilmPixels;
using Cairo::PixelSize;

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
    return playback.isAtStart() && hasDecodedAnything(client) && (!hasPicture || picture.hasDrawn());
}

std::chrono::steady_clock::time_point endOfPatience(const Options& options) {
    using namespace std::chrono;
    return steady_clock::now() + duration_cast<steady_clock::duration>(duration<double>(options.timeout));
}

std::string whyImpatient(const Options& options) {
    std::ostringstream reason;
    reason << "there was no picture of it within " << options.timeout
           << (options.timeout == 1.0 ? " second" : " seconds") << " (--timeout allows more)";
    return reason.str();
}

// The last picture may stand some time before the end.
bool isShortOf(double place, const Overlay::PlaybackState& state) {
    constexpr double tolerance = 2.0;
    return std::min(place, state.duration.value_or(0.0)) - state.position > tolerance;
}

// A file that is cut off has no more than its last picture. What a server sends may break off, or be sent
// from its beginning alone.
Problem problemOf(const MpvPlayback& playback, const Options& options) {
    using Overlay::PlaybackError;
    const Overlay::PlaybackState& state = playback.state();
    const std::string location = playback.client().text("path").value_or(options.location);
    const bool isLocal = localPath(location).has_value();
    if (state.error && !(isLocal && state.error->kind == PlaybackError::Kind::Interrupted)) {
        return lineOf(*state.error);
    }
    if (!isLocal && isShortOf(options.start, state)) {
        return lineOf(PlaybackError{PlaybackError::Kind::Unplayable, shownLocation(location),
                                    "the place asked for could not be reached"});
    }
    return std::nullopt;
}

Problem drawFilm(const Options& options, MpvPlayback& playback, const FilmPixels& pixels) {
    const auto end = endOfPatience(options);
    WakeUpSignal signal;
    MpvPicture picture(playback);
    playback.setWakeUp([&signal] { signal.raise(); });
    picture.setWakeUp([&signal] { signal.raise(); });
    picture.startMemory();
    playback.setBottomInset(Overlay::PlayerOverlay::bottomInset() / options.height);
    playback.open(options.location, options.start);
    playback.update();
    bool isLate = false;
    while (!isLate && isPlayable(playback.state()) && !isReady(playback, picture)) {
        isLate = !signal.waitUntil(end);
        playback.update();
        if (picture.hasNewFrame()) {
            picture.drawIntoMemory(pixels.buffer());
        }
    }
    cairo_surface_mark_dirty(pixels.surface());
    playback.refresh();
    playback.setWakeUp([] {});
    const Overlay::PlaybackState& state = playback.state();
    if (isLate && !state.error) {
        return lineOf(Overlay::PlaybackError{Overlay::PlaybackError::Kind::Unplayable,
                                             shownLocation(options.location), whyImpatient(options)});
    }
    return problemOf(playback, options);
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
                 Cairo::OverlaySurface& surface) {
    const Headless::VirtualClock clock;
    Foundation::NSRunLoop runLoop(clock);
    const auto views =
        Foundation::make<UIKit::UIWindow>(CoreGraphics::CGRectMake(0.0, 0.0, options.width, options.height));
    views->setContentScale(scale);
    NoWindow window;
    const Overlay::PlayerOverlay overlay(views, playback, window);
    surface.draw(*views);
}

CairoSurface compose(const FilmPixels& film, const Cairo::OverlaySurface& overlay) {
    CairoSurface result(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, overlay.size().width, overlay.size().height));
    const Cairo::CairoHandle context(cairo_create(result.get()));
    for (cairo_surface_t* layer : {film.surface(), overlay.surface()}) {
        cairo_set_source_surface(context.get(), layer, 0.0, 0.0);
        cairo_paint(context.get());
    }
    return result;
}

// All are written before the first one takes its place, so that they stay of one kind.
Problem writeInto(const std::filesystem::path& folder, const std::array<cairo_surface_t*, 3>& surfaces) {
    std::array<PictureFile, 3> files{PictureFile(folder / "film.png"), PictureFile(folder / "overlay.png"),
                                     PictureFile(folder / "snapshot.png")};
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (Problem problem = files[index].write(surfaces[index])) {
            return problem;
        }
    }
    for (PictureFile& file : files) {
        if (Problem problem = file.putInPlace()) {
            return problem;
        }
    }
    return std::nullopt;
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
    Cairo::CairoResources resources;
    Cairo::OverlaySurface overlay(size, scale, resources);
    drawOverlay(options, scale, playback, overlay);
    const CairoSurface both = compose(film, overlay);
    return writeInto(folder, {film.surface(), overlay.surface(), both.get()});
}

} // namespace

Exit takeSnapshot(const Options& options) {
    // A picture that grows beyond a limit for files is told of; it doesn't end the program.
    std::signal(SIGXFSZ, SIG_IGN);
    const Problem problem = writePictures(options);
    return problem ? Exit{ExitCode::Failure, *problem} : Exit{};
}

} // namespace KivUICore::Player
