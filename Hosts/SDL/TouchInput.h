#pragma once

#include "Platform/UIKit/UIWindow.h"

#include <SDL_events.h>
#include <memory>

namespace KivUICore::SDL {

/// Turns SDL's pointer and finger events into touches of a window: the main mouse button is one touch, each
/// finger another.
class TouchInput {
public:
    explicit TouchInput(std::shared_ptr<UIKit::UIWindow> window) : window_(std::move(window)) {}

    /// The window's size in SDL's own units, in which the mouse is told; not empty.
    void setScreenSize(const CoreGraphics::CGSize& size) { screenSize_ = size; }

    /// A place that SDL tells the mouse at, in points.
    CoreGraphics::CGPoint pointAt(int x, int y) const;

    /// Events of other kinds are ignored. May tear down anything but this object.
    void handle(const SDL_Event& event);

    /// Cancels all touches: the window lost the pointer or the focus.
    void cancel();

private:
    void mouseWent(UIKit::UITouchPhase phase, int x, int y);
    void fingerWent(UIKit::UITouchPhase phase, const SDL_TouchFingerEvent& finger);

    std::shared_ptr<UIKit::UIWindow> window_;
    CoreGraphics::CGSize screenSize_{1.0, 1.0};
    bool isMouseDown_ = false;
};

} // namespace KivUICore::SDL
