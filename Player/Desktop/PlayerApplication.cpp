#include "Player/Desktop/PlayerApplication.h"

#include "Platform/UIKit/UIWindow.h"
#include "Player/Desktop/ErrorLine.h"
#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/SoundOutput.h"

namespace Player {

namespace {

using Drawing = Desktop::DesktopWindow::Drawing;

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
            .sound = hasSoundOutput() ? MpvPlayback::Sound::Played : MpvPlayback::Sound::Discarded,
            .isMuted = options.sound == Options::Sound::Muted,
            .ipcServer = options.ipcServer};
}

} // namespace

PlayerApplication::PlayerApplication(const Options& options)
    : options_(options), playback_(playbackSettings(options)) {}

Exit PlayerApplication::run() {
    std::string problem;
    title_ = nameOf(options_.location);
    window_ = Desktop::DesktopWindow::open({.title = title_,
                                            .size = CoreGraphics::CGSizeMake(options_.width, options_.height),
                                            .scale = options_.scale,
                                            .drawing = drawing(options_.drawing)},
                                           picture_, problem);
    if (!window_) {
        return {ExitCode::Usage, playback_.client().failure().value_or(
                                     problem + "; start it in a graphical session, or write pictures instead "
                                               "with --snapshot DIR")};
    }
    open();
    loop_->run();
    playback_.setWakeUp([] {});
    return {playback_.state().error ? ExitCode::Failure : ExitCode::Success, {}};
}

void PlayerApplication::open() {
    overlay_.emplace(window_->views(), playback_, static_cast<Overlay::WindowControls&>(*this));
    loop_.emplace(runLoop_, *window_, picture_, [this] { filmHasNews(); });
    window_->setDelegate(this);
    playback_.setNoticeHandler([this](const std::string& text) { tellNotice(text); });
    playback_.setWakeUp([this] { loop_->wakeUp(); });
    windowWasResized();
    playback_.open(options_.location, options_.start);
    filmHasNews();
}

void PlayerApplication::filmHasNews() {
    playback_.update();
    const Overlay::PlaybackState& state = playback_.state();
    if (error_ != state.error) {
        error_ = state.error;
        if (error_) {
            printErrorLine(*error_);
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

void PlayerApplication::tellNotice(const std::string& text) {
    printErrorLine(text);
    overlay_->showProblem(text);
}

void PlayerApplication::windowWasResized() {
    overlay_->hostViewWasResized();
    playback_.setBottomInset(Overlay::PlayerOverlay::bottomInset() /
                             CoreGraphics::CGRectGetHeight(window_->views()->bounds()));
}

void PlayerApplication::fullScreenDidChange() { overlay_->windowDidChange(); }

void PlayerApplication::windowShouldClose() { close(); }

void PlayerApplication::keyWentDown(const UIKit::UIKey& key) { overlay_->handleKey(key); }

void PlayerApplication::pointerMoved(const CoreGraphics::CGPoint& location) {
    overlay_->pointerMoved(location);
}

void PlayerApplication::pointerLeft() { overlay_->pointerLeft(); }

void PlayerApplication::wheelTurned(CoreGraphics::CGFloat notches) { overlay_->scrolled(notches); }

void PlayerApplication::fileWasDropped(const std::string& path) { playback_.exchange(path); }

bool PlayerApplication::isFullScreen() const { return window_->isFullScreen(); }

void PlayerApplication::setFullScreen(bool fullScreen) { window_->setFullScreen(fullScreen); }

void PlayerApplication::setPointerHidden(bool hidden) { window_->setPointerHidden(hidden); }

void PlayerApplication::close() { loop_->stop(); }

} // namespace Player
