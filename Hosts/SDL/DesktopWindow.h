#pragma once

#include "Hosts/Cairo/CairoResources.h"
#include "Hosts/Cairo/OverlaySurface.h"
#include "Hosts/SDL/Compositor.h"
#include "Hosts/SDL/DropInput.h"
#include "Hosts/SDL/TouchInput.h"
#include "Hosts/SDL/XConnectionWatch.h"
#include "Hosts/SDL/XErrorFilter.h"
#include "Platform/UIKit/UIWindow.h"

#include <SDL.h>
#include <memory>
#include <optional>
#include <string>

namespace KivUICore::SDL {

class FilmSource;
class WindowDelegate;

/// A window on the desktop with a film in it and views over the film. Feeds the views with touches, keys, the
/// wheel and sizes, and draws.
class DesktopWindow {
public:
    enum class Drawing { Automatic, OpenGL, Software };

    struct Settings {
        std::string title;

        /// In points.
        CoreGraphics::CGSize size;

        /// Pixels a point; what the screen says when not given.
        std::optional<double> scale;
        Drawing drawing = Drawing::Automatic;
    };

    /// Why a window can't be shown: there is no display for it, no way to draw on it, or no OpenGL where that
    /// is asked for.
    enum class Problem { NoDisplay, NoDrawing, NoOpenGL };

    /// Shows the window. Null when that can't be; `problem` then says why. `film` outlives the window.
    static std::unique_ptr<DesktopWindow> open(const Settings& settings, FilmSource& film, Problem& problem);

    DesktopWindow(const DesktopWindow&) = delete;
    DesktopWindow& operator=(const DesktopWindow&) = delete;
    ~DesktopWindow();

    /// The root of the views, as large as the window and transparent.
    const std::shared_ptr<UIKit::UIWindow>& views() const { return views_; }

    /// One delegate, replaced by the next; null for none. It outlives the window.
    void setDelegate(WindowDelegate* delegate);

    /// Shown as one line, and cut where a window manager would be busy with it for long.
    void setTitle(const std::string& title);

    /// Whether the window covers its whole screen.
    bool isFullScreen() const;
    void setFullScreen(bool fullScreen);

    /// Whether the pointer is invisible over the window. Elsewhere it always shows.
    void setPointerHidden(bool hidden);

    /// Takes in one event of SDL's. A change of size waits for `settle`.
    void handle(const SDL_Event& event);

    /// Call it once the events at hand are handled: a window that is being dragged larger is laid out once
    /// for many events.
    void settle();

    /// True when what is shown is out of date, the film's new frames aside.
    bool needsDisplay() const { return needsDisplay_ || views_->needsDisplay(); }

    /// Shows what has changed in the views and the film.
    void display();

    /// Frames a second that the screen shows.
    double refreshRate() const;

private:
    struct VideoSystem {
        bool isStarted;

        VideoSystem();
        ~VideoSystem();
    };
    struct WindowRelease {
        void operator()(SDL_Window* window) const;
    };

    DesktopWindow(const Settings& settings, FilmSource& film);

    bool makeWindow(Uint32 flags);
    bool makeCompositor();
    Cairo::PixelSize pixelSize() const;
    void handleWindowEvent(const SDL_WindowEvent& event);
    void handleKey(const SDL_KeyboardEvent& event);
    void handleMotion(const SDL_MouseMotionEvent& event);
    void handleWheel(const SDL_MouseWheelEvent& event);
    void handleDrop(const SDL_DropEvent& event);
    void noteHidden();
    std::string droppedAddresses() const;
    bool hasFullScreenFlag() const;
    void restoreSize();
    void noteFullScreen();

    Settings settings_;
    FilmSource& film_;
    XErrorFilter xErrors_;
    VideoSystem video_;
    std::optional<XConnectionWatch> connection_;
    std::unique_ptr<SDL_Window, WindowRelease> window_;
    std::unique_ptr<Compositor> compositor_;

    double scale_ = 1.0;
    std::shared_ptr<UIKit::UIWindow> views_;
    TouchInput input_;
    Cairo::CairoResources resources_;
    std::optional<Cairo::OverlaySurface> overlay_;
    bool needsDisplay_ = true;
    DropInput drop_{[this] { return droppedAddresses(); }};
    WindowDelegate* delegate_;
    bool wasFullScreen_ = false;

    // While the window has all of the screen, what it had before; in SDL's units.
    std::optional<CoreGraphics::CGSize> sizeBefore_;
};

} // namespace KivUICore::SDL
