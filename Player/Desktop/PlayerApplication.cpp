#include "Player/Desktop/PlayerApplication.h"

#include "Platform/UIKit/UIWindow.h"
#include "Player/Desktop/ErrorLine.h"
#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/SoundOutput.h"

#include <cctype>
#include <filesystem>

namespace Player {

namespace {

Desktop::DesktopWindow::Drawing drawing(Options::Drawing wanted) {
    switch (wanted) {
    case Options::Drawing::Automatic:
        return Desktop::DesktopWindow::Drawing::Automatic;
    case Options::Drawing::OpenGL:
        return Desktop::DesktopWindow::Drawing::OpenGL;
    case Options::Drawing::Software:
        return Desktop::DesktopWindow::Drawing::Software;
    }
    return Desktop::DesktopWindow::Drawing::Automatic;
}

MpvFilm::Sound sound(Options::Sound wanted) {
    return wanted == Options::Sound::On && hasSoundOutput() ? MpvFilm::Sound::Audible
                                                            : MpvFilm::Sound::Silent;
}

// "cannot play" stands after the program's name on the error output, and alone in the window.
std::string sentence(std::string text) {
    text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text + ".";
}

std::string windowTitle(const std::string& location) {
    return isUrl(location) ? location : std::filesystem::path(location).filename().string();
}

} // namespace

PlayerApplication::PlayerApplication(const Options& options)
    : options_(options), film_(MpvFilm::Playback::Running, sound(options.sound)) {}

Exit PlayerApplication::run() {
    std::string problem;
    window_ = Desktop::DesktopWindow::open({.title = windowTitle(options_.location),
                                            .size = CoreGraphics::CGSizeMake(options_.width, options_.height),
                                            .scale = options_.scale,
                                            .drawing = drawing(options_.drawing)},
                                           film_, problem);
    if (!window_) {
        return {ExitCode::Usage, film_.failure().value_or(
                                     problem + "; start it in a graphical session, or write pictures instead "
                                               "with --snapshot DIR")};
    }
    open();
    loop_->run();
    return {hasFailed_ ? ExitCode::Failure : ExitCode::Success, {}};
}

void PlayerApplication::open() {
    overlay_.emplace(window_->views());
    window_->setResizeHandler([this] { layOut(); });
    window_->setCloseHandler([this] { loop_->stop(); });
    window_->setKeyHandler([this](SDL_Keycode key) { handleKey(key); });
    loop_.emplace(runLoop_, *window_, film_, [this] { filmHasNews(); });
    layOut();
    film_.open(options_.location, options_.start);
    filmHasNews();
}

void PlayerApplication::filmHasNews() {
    film_.update();
    if (film_.failure() && !hasFailed_) {
        hasFailed_ = true;
        printErrorLine(*film_.failure());
        overlay_->showMessage(sentence(*film_.failure()));
    }
}

void PlayerApplication::layOut() {
    overlay_->hostViewWasResized();
    film_.setBottomInset(Overlay::PlayerOverlay::bottomInset() /
                         CoreGraphics::CGRectGetHeight(window_->views()->bounds()));
}

void PlayerApplication::handleKey(SDL_Keycode key) {
    switch (key) {
    case SDLK_ESCAPE:
    case SDLK_q:
        loop_->stop();
        break;
    case SDLK_SPACE:
        film_.togglePause();
        break;
    default:
        break;
    }
}

} // namespace Player
