#pragma once

namespace KivUICore::Overlay {

/// The window around the film, as far as the overlay changes it.
class WindowControls {
public:
    virtual ~WindowControls() = default;

    /// May also change by itself; `PlayerOverlay::windowDidChange` is called then.
    virtual bool isFullScreen() const = 0;
    virtual void setFullScreen(bool fullScreen) = 0;

    /// Whether the pointer is invisible while it is over the window.
    virtual void setPointerHidden(bool hidden) = 0;

    /// Ends the player, soon; never from inside this call.
    virtual void close() = 0;
};

} // namespace KivUICore::Overlay
