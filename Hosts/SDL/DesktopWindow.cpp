#include "Hosts/SDL/DesktopWindow.h"

#include "Hosts/Cairo/ScreenText.h"
#include "Hosts/SDL/FilmSource.h"
#include "Hosts/SDL/GLCompositor.h"
#include "Hosts/SDL/KeyInput.h"
#include "Hosts/SDL/ScreenScale.h"
#include "Hosts/SDL/SoftwareCompositor.h"
#include "Hosts/SDL/WheelInput.h"
#include "Hosts/SDL/WindowDelegate.h"
#include "Hosts/SDL/XWindow.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace KivUICore::SDL {

namespace {

using namespace CoreGraphics;

// Hears for a window that has no delegate.
WindowDelegate nobody;

CGSize screenSize(SDL_Window* window) {
    int width = 0;
    int height = 0;
    SDL_GetWindowSize(window, &width, &height);
    return {static_cast<double>(std::max(width, 1)), static_cast<double>(std::max(height, 1))};
}

} // namespace

// What the program around has settled, and what its environment says, goes before this. Only what shows a
// window to somebody; SDL alone would fall back on drawing where nobody looks, or take over the machine's
// console. Wayland's library complains on the error output where it has no folder for its sockets.
DesktopWindow::VideoSystem::VideoSystem() {
    const auto prefer = [](const char* hint, const char* value) {
        SDL_SetHintWithPriority(hint, value, SDL_HINT_DEFAULT);
    };
    prefer(SDL_HINT_VIDEODRIVER, SDL_getenv("XDG_RUNTIME_DIR") ? "x11,wayland" : "x11");
    prefer(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
    prefer(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
    // Where OpenGL isn't used for the film, it isn't for what SDL calls a framebuffer either.
    prefer(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    const bool isFirst = SDL_WasInit(SDL_INIT_VIDEO) == 0;
    isStarted = SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
    if (isFirst) {
        // Keys are commands here: no input method should make words of them.
        SDL_StopTextInput();
    }
}

// The program around may use SDL itself.
DesktopWindow::VideoSystem::~VideoSystem() {
    if (isStarted) {
        SDL_QuitSubSystem(SDL_INIT_VIDEO);
    }
}

void DesktopWindow::WindowRelease::operator()(SDL_Window* window) const {
    if (const std::optional<XWindow> onServer = XWindow::behind(*window)) {
        onServer->tellHidden();
    }
    SDL_DestroyWindow(window);
}

std::unique_ptr<DesktopWindow> DesktopWindow::open(const Settings& settings, FilmSource& film,
                                                   Problem& problem) {
    std::unique_ptr<DesktopWindow> window(new DesktopWindow(settings, film));
    if (!window->video_.isStarted) {
        problem = Problem::NoDisplay;
        return nullptr;
    }
    if (!window->makeCompositor()) {
        problem = settings.drawing == Drawing::OpenGL ? Problem::NoOpenGL : Problem::NoDrawing;
        return nullptr;
    }
    SDL_ShowWindow(window->window_.get());
    window->settle();
    return window;
}

DesktopWindow::DesktopWindow(const Settings& settings, FilmSource& film)
    : settings_(settings), film_(film), views_(Foundation::make<UIKit::UIWindow>(CGRect{{}, settings.size})),
      input_(views_), delegate_(&nobody) {}

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
        SDL_CreateWindow(Cairo::oneLine(settings_.title).c_str(), SDL_WINDOWPOS_UNDEFINED,
                         SDL_WINDOWPOS_UNDEFINED, static_cast<int>(std::lround(settings_.size.width)),
                         static_cast<int>(std::lround(settings_.size.height)),
                         flags | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_HIDDEN));
    if (!window_) {
        return false;
    }
    if (const std::optional<XWindow> window = XWindow::behind(*window_)) {
        xErrors_.add(window->identifier());
        connection_.emplace(window->display(), [this] { delegate_->connectionWasCut(); });
    }
    const double density = pixelSize().width / screenSize(window_.get()).width;
    scale_ = settings_.scale ? *settings_.scale : screenScale(*window_);
    if (scale_ != density) {
        SDL_SetWindowSize(window_.get(),
                          static_cast<int>(std::lround(settings_.size.width * scale_ / density)),
                          static_cast<int>(std::lround(settings_.size.height * scale_ / density)));
        SDL_SetWindowPosition(window_.get(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    }
    views_->setContentScale(scale_);
    return true;
}

Cairo::PixelSize DesktopWindow::pixelSize() const {
    Cairo::PixelSize size;
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
        delegate_->windowShouldClose();
        break;
    case SDL_WINDOWEVENT:
        handleWindowEvent(event.window);
        break;
    case SDL_KEYDOWN:
        handleKey(event.key);
        break;
    case SDL_MOUSEWHEEL:
        handleWheel(event.wheel);
        break;
    case SDL_MOUSEMOTION:
        handleMotion(event.motion);
        input_.handle(event);
        break;
    case SDL_DROPBEGIN:
    case SDL_DROPFILE:
    case SDL_DROPTEXT:
    case SDL_DROPCOMPLETE:
        handleDrop(event.drop);
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
    case SDL_WINDOWEVENT_LEAVE:
        delegate_->pointerLeft();
        break;
    case SDL_WINDOWEVENT_HIDDEN:
        noteHidden();
        break;
    case SDL_WINDOWEVENT_FOCUS_LOST:
    case SDL_WINDOWEVENT_MINIMIZED:
        input_.cancel();
        break;
    default:
        break;
    }
}

void DesktopWindow::handleKey(const SDL_KeyboardEvent& event) {
    const std::optional<UIKit::UIKey> key = keyOf(event);
    if (key && !views_->sendKey(*key)) {
        delegate_->keyWentDown(*key);
    }
}

// A finger tells of itself, by touches: what SDL makes up from it as a mouse is no pointer.
void DesktopWindow::handleMotion(const SDL_MouseMotionEvent& event) {
    if (event.which != SDL_TOUCH_MOUSEID) {
        delegate_->pointerMoved(input_.pointAt(event.x, event.y));
    }
}

void DesktopWindow::handleWheel(const SDL_MouseWheelEvent& event) {
    const WheelTurn turn = wheelTurnOf(event);
    if (!views_->sendScroll(input_.pointAt(event.mouseX, event.mouseY), turn.delta) && turn.notches != 0.0) {
        delegate_->wheelTurned(turn.notches);
    }
}

void DesktopWindow::handleDrop(const SDL_DropEvent& event) {
    if (const std::optional<std::string> location = drop_.handle(event)) {
        delegate_->fileWasDropped(*location);
    }
}

std::string DesktopWindow::droppedAddresses() const {
    const std::optional<XWindow> window = XWindow::behind(*window_);
    return window ? window->droppedAddresses() : "";
}

// SDL doesn't tell that a window is gone, but a window that goes is hidden first.
void DesktopWindow::noteHidden() {
    input_.cancel();
    const std::optional<XWindow> window = XWindow::behind(*window_);
    if (window && !window->exists()) {
        delegate_->windowWasDestroyed();
    }
}

void DesktopWindow::setDelegate(WindowDelegate* delegate) { delegate_ = delegate ? delegate : &nobody; }

void DesktopWindow::setTitle(const std::string& title) {
    SDL_SetWindowTitle(window_.get(), Cairo::oneLine(title).c_str());
}

void DesktopWindow::setPointerHidden(bool hidden) { SDL_ShowCursor(hidden ? SDL_DISABLE : SDL_ENABLE); }

bool DesktopWindow::hasFullScreenFlag() const {
    return (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
}

// SDL doesn't notice when it is the window manager that gives a window all of the screen.
bool DesktopWindow::isFullScreen() const {
    SDL_Rect screen{};
    SDL_Rect window{};
    SDL_GetDisplayBounds(SDL_GetWindowDisplayIndex(window_.get()), &screen);
    SDL_GetWindowPosition(window_.get(), &window.x, &window.y);
    SDL_GetWindowSize(window_.get(), &window.w, &window.h);
    return hasFullScreenFlag() || SDL_RectEquals(&screen, &window) == SDL_TRUE;
}

void DesktopWindow::setFullScreen(bool fullScreen) {
    if (fullScreen == isFullScreen()) {
        return;
    }
    const bool isMaximized = (SDL_GetWindowFlags(window_.get()) & SDL_WINDOW_MAXIMIZED) != 0;
    if (fullScreen && !isMaximized) {
        sizeBefore_ = screenSize(window_.get());
    }
    // What SDL did not do it does not undo either.
    if (fullScreen || !hasFullScreenFlag()) {
        SDL_SetWindowFullscreen(window_.get(), SDL_WINDOW_FULLSCREEN_DESKTOP);
    }
    if (!fullScreen) {
        SDL_SetWindowFullscreen(window_.get(), 0);
        restoreSize();
    }
}

// A window manager would do it, but there may be none.
void DesktopWindow::restoreSize() {
    if (sizeBefore_) {
        SDL_SetWindowSize(window_.get(), static_cast<int>(sizeBefore_->width),
                          static_cast<int>(sizeBefore_->height));
        sizeBefore_.reset();
    }
}

void DesktopWindow::noteFullScreen() {
    const bool isFull = isFullScreen();
    if (std::exchange(wasFullScreen_, isFull) != isFull) {
        delegate_->fullScreenDidChange();
    }
}

void DesktopWindow::settle() {
    noteFullScreen();
    const Cairo::PixelSize size = pixelSize();
    if (size.isEmpty() || (overlay_ && overlay_->size() == size)) {
        return;
    }
    overlay_.emplace(size, scale_, resources_);
    compositor_->resize(size);
    input_.setScreenSize(screenSize(window_.get()));
    views_->setFrame(CGRectMake(0.0, 0.0, size.width / scale_, size.height / scale_));
    views_->setNeedsDisplayEverywhere();
    needsDisplay_ = true;
    delegate_->windowWasResized();
}

void DesktopWindow::display() {
    needsDisplay_ = false;
    compositor_->show(*overlay_, overlay_->draw(*views_));
}

} // namespace KivUICore::SDL
