#include "Hosts/Desktop/DesktopWindow.h"

#include "Hosts/Desktop/FilmSource.h"
#include "Hosts/Desktop/GLCompositor.h"
#include "Hosts/Desktop/SoftwareCompositor.h"

#include <algorithm>
#include <cmath>

namespace Desktop {

namespace {

using namespace CoreGraphics;

constexpr const char* noDisplay = "there is no display to open a window on";
constexpr const char* noDrawing = "the display offers no way to draw on it";
constexpr const char* noOpenGL = "the display offers no OpenGL 3.2";

// SDL wakes its loop over a second connection to the X server, whose last request may arrive when the window
// is gone already. The X library would end the program for such an error.
int ignoreXError(void* /*display*/, void* /*error*/) { return 0; }

// Before SDL starts, which puts back at its end what it found. The library stays loaded, for it keeps the
// handler.
void outliveXErrors() {
    using Handler = int (*)(void*, void*);
    using SetHandler = Handler (*)(Handler);
    void* library = SDL_LoadObject("libX11.so.6");
    if (void* function = library ? SDL_LoadFunction(library, "XSetErrorHandler") : nullptr) {
        reinterpret_cast<SetHandler>(function)(ignoreXError);
    }
}

CGSize screenSize(SDL_Window* window) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    return {static_cast<double>(std::max(width, 1)), static_cast<double>(std::max(height, 1))};
}

} // namespace

// Only what shows a window to somebody; SDL alone would fall back on drawing where nobody looks, or take over
// the machine's console. Wayland's library complains on the error output where it has no folder for its
// sockets. The environment variable SDL_VIDEODRIVER goes before this.
DesktopWindow::VideoSystem::VideoSystem() {
    SDL_SetHint(SDL_HINT_VIDEODRIVER, SDL_getenv("XDG_RUNTIME_DIR") ? "x11,wayland" : "x11");
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
    // Where OpenGL isn't used for the film, it isn't for what SDL calls a framebuffer either.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    outliveXErrors();
    isStarted = SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
}

DesktopWindow::VideoSystem::~VideoSystem() { SDL_Quit(); }

std::unique_ptr<DesktopWindow> DesktopWindow::open(const Settings& settings, FilmSource& film,
                                                   std::string& problem) {
    std::unique_ptr<DesktopWindow> window(new DesktopWindow(settings, film));
    if (!window->video_.isStarted) {
        problem = noDisplay;
        return nullptr;
    }
    if (!window->makeCompositor()) {
        problem = settings.drawing == Drawing::OpenGL ? noOpenGL : noDrawing;
        return nullptr;
    }
    SDL_ShowWindow(window->window_.get());
    window->settle();
    return window;
}

DesktopWindow::DesktopWindow(const Settings& settings, FilmSource& film)
    : settings_(settings), film_(film), views_(Foundation::make<UIKit::UIWindow>(CGRect{{}, settings.size})),
      input_(views_) {}

DesktopWindow::~DesktopWindow() = default;

bool DesktopWindow::makeCompositor() {
    if (settings_.drawing != Drawing::Software) {
        GLCompositor::prepareWindows();
        const bool isWanted = settings_.drawing == Drawing::OpenGL;
        const auto processor = isWanted ? GLCompositor::Processor::Any : GLCompositor::Processor::Graphics;
        if (makeWindow(SDL_WINDOW_OPENGL)) {
            compositor_ = GLCompositor::create(*window_, film_, processor);
        }
        if (compositor_ || isWanted) {
            return compositor_ != nullptr;
        }
    }
    if (makeWindow(0)) {
        compositor_ = SoftwareCompositor::create(*window_, film_);
    }
    return compositor_ != nullptr;
}

bool DesktopWindow::makeWindow(Uint32 flags) {
    window_.reset(
        SDL_CreateWindow(settings_.title.c_str(), SDL_WINDOWPOS_UNDEFINED, SDL_WINDOWPOS_UNDEFINED,
                         static_cast<int>(std::lround(settings_.size.width)),
                         static_cast<int>(std::lround(settings_.size.height)),
                         flags | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_HIDDEN));
    if (!window_) {
        return false;
    }
    const double density = pixelSize().width / screenSize(window_.get()).width;
    scale_ = settings_.scale.value_or(density);
    if (scale_ != density) {
        SDL_SetWindowSize(window_.get(),
                          static_cast<int>(std::lround(settings_.size.width * scale_ / density)),
                          static_cast<int>(std::lround(settings_.size.height * scale_ / density)));
        SDL_SetWindowPosition(window_.get(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    }
    views_->setContentScale(scale_);
    return true;
}

PixelSize DesktopWindow::pixelSize() const {
    PixelSize size;
    SDL_GetWindowSizeInPixels(window_.get(), &size.width, &size.height);
    return size;
}

double DesktopWindow::refreshRate() const {
    constexpr int usual = 60;
    SDL_DisplayMode mode{};
    const int display = SDL_GetWindowDisplayIndex(window_.get());
    const bool isKnown =
        display >= 0 && SDL_GetCurrentDisplayMode(display, &mode) == 0 && mode.refresh_rate > 0;
    return isKnown ? mode.refresh_rate : usual;
}

void DesktopWindow::handle(const SDL_Event& event) {
    switch (event.type) {
    case SDL_QUIT:
        onClose_();
        break;
    case SDL_WINDOWEVENT:
        handleWindowEvent(event.window);
        break;
    case SDL_KEYDOWN:
        if (event.key.repeat == 0) {
            onKey_(event.key.keysym.sym);
        }
        break;
    default:
        input_.handle(event);
        break;
    }
}

void DesktopWindow::handleWindowEvent(const SDL_WindowEvent& event) {
    switch (event.event) {
    case SDL_WINDOWEVENT_EXPOSED:
        compositor_->invalidate();
        needsDisplay_ = true;
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
    case SDL_WINDOWEVENT_HIDDEN:
    case SDL_WINDOWEVENT_MINIMIZED:
        input_.cancel();
        break;
    default:
        break;
    }
}

void DesktopWindow::settle() {
    const PixelSize size = pixelSize();
    if (size.isEmpty() || (overlay_ && overlay_->size() == size)) {
        return;
    }
    overlay_.emplace(size, scale_, resources_);
    compositor_->resize(size);
    input_.setScreenSize(screenSize(window_.get()));
    views_->setFrame(CGRectMake(0.0, 0.0, size.width / scale_, size.height / scale_));
    views_->setNeedsDisplayEverywhere();
    needsDisplay_ = true;
    onResize_();
}

void DesktopWindow::display() {
    needsDisplay_ = false;
    compositor_->show(*overlay_, overlay_->draw(*views_));
}

} // namespace Desktop
