#include "Player/Desktop/PlayerApplication.h"

#include "Platform/UIKit/UIWindow.h"
#include "Player/Desktop/AudioDeviceProbe.h"
#include "Player/Desktop/ErrorLine.h"
#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/SocketFile.h"

#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace KivUICore::Player {

namespace {

using Drawing = SDL::DesktopWindow::Drawing;

Drawing drawing(Options::Drawing wanted) {
    switch (wanted) {
    case Options::Drawing::Automatic:
        return Drawing::Automatic;
    case Options::Drawing::OpenGL:
        return Drawing::OpenGL;
    case Options::Drawing::Software:
        return Drawing::Software;
    }
    return Drawing::Automatic;
}

MpvPlayback::Settings playbackSettings(const Options& options) {
    return {.start = MpvPlayback::Start::Running,
            .sound = hasAudioDevice() ? MpvPlayback::Sound::Played : MpvPlayback::Sound::Discarded,
            .isMuted = options.sound == Options::Sound::Muted};
}

// A terminal that is closed ends the program as orderly as the signal that the window's library listens to.
void endByHangUp() {
    struct sigaction action {};
    sigaction(SIGHUP, nullptr, &action);
    if (action.sa_handler == SIG_DFL) {
        std::signal(SIGHUP, [](int /*number*/) { ::kill(::getpid(), SIGTERM); });
    }
}

const char* describe(SDL::DesktopWindow::Problem problem) {
    using Problem = SDL::DesktopWindow::Problem;
    switch (problem) {
    case Problem::NoDisplay:
        return "there is no display to open a window on; start it in a graphical session, or write pictures "
               "instead with --snapshot DIR";
    case Problem::NoDrawing:
        return "the display offers no way to draw on it; write pictures instead with --snapshot DIR";
    case Problem::NoOpenGL:
        return "the display offers no OpenGL 3.2; leave --opengl out to draw without it";
    }
    return "";
}

} // namespace

PlayerApplication::PlayerApplication(const Options& options)
    : options_(options), playback_(playbackSettings(options)) {}

Exit PlayerApplication::run() {
    SDL::DesktopWindow::Problem problem{};
    title_ = nameOf(options_.location);
    window_ = SDL::DesktopWindow::open({.title = title_,
                                        .size = CoreGraphics::CGSizeMake(options_.width, options_.height),
                                        .scale = options_.scale,
                                        .drawing = drawing(options_.drawing)},
                                       picture_, problem);
    if (!window_) {
        return {ExitCode::Usage,
                playback_.client().failure() ? lineOf(*playback_.client().failure()) : describe(problem)};
    }
    open();
    loop_->run();
    playback_.setWakeUp([] {});
    return {playback_.state().error ? ExitCode::Failure : ExitCode::Success, {}};
}

void PlayerApplication::open() {
    // The film loads while what lies over it is made.
    playback_.open(options_.location, options_.start);
    overlay_.emplace(window_->views(), playback_, static_cast<Overlay::WindowControls&>(*this));
    loop_.emplace(runLoop_, *window_, picture_, [this] { filmHasNews(); });
    window_->setDelegate(this);
    playback_.setNoticeHandler([this](const Overlay::PlaybackError& problem) { tellNotice(problem); });
    playback_.setNewsHandler([this](const std::string& text) { overlay_->showNotice(text); });
    playback_.setWakeUp([this] { loop_->wakeUp(); });
    endByHangUp();
    if (options_.ipcServer) {
        playback_.listenAt(*options_.ipcServer);
    }
    windowWasResized();
    filmHasNews();
}

void PlayerApplication::filmHasNews() {
    playback_.update();
    const Overlay::PlaybackState& state = playback_.state();
    if (error_ != state.error) {
        error_ = state.error;
        if (error_) {
            printErrorLine(lineOf(*error_));
        }
    }
    if (title_ != state.title) {
        title_ = state.title;
        window_->setTitle(title_);
    }
    if (playback_.isAskedToEnd()) {
        close();
    }
}

void PlayerApplication::tellNotice(const Overlay::PlaybackError& problem) {
    printErrorLine(lineOf(problem));
    overlay_->showProblem(problem);
}

void PlayerApplication::windowWasResized() {
    playback_.setBottomInset(Overlay::PlayerOverlay::bottomInset() /
                             CoreGraphics::CGRectGetHeight(window_->views()->bounds()));
}

void PlayerApplication::fullScreenDidChange() { overlay_->windowDidChange(); }

void PlayerApplication::windowShouldClose() { close(); }

void PlayerApplication::windowWasDestroyed() { close(); }

// What libmpv's threads still use must not be taken down under them.
void PlayerApplication::connectionWasCut() {
    printErrorLine("the connection to the display was cut");
    SocketFile::removeAtOnce();
    std::_Exit(static_cast<int>(ExitCode::Failure));
}

void PlayerApplication::keyWentDown(const UIKit::UIKey& key) { overlay_->handleKey(key); }

void PlayerApplication::pointerMoved(const CoreGraphics::CGPoint& location) {
    overlay_->pointerMoved(location);
}

void PlayerApplication::pointerLeft() { overlay_->pointerLeft(); }

void PlayerApplication::wheelTurned(CoreGraphics::CGFloat notches) { overlay_->scrolled(notches); }

void PlayerApplication::fileWasDropped(const std::string& location) { playback_.exchange(location); }

bool PlayerApplication::isFullScreen() const { return window_->isFullScreen(); }

void PlayerApplication::setFullScreen(bool fullScreen) { window_->setFullScreen(fullScreen); }

void PlayerApplication::setPointerHidden(bool hidden) { window_->setPointerHidden(hidden); }

void PlayerApplication::close() { loop_->stop(); }

} // namespace KivUICore::Player
