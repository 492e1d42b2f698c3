#pragma once

#include "Hosts/Cairo/PixelGeometry.h"

#include <functional>

namespace KivUICore::SDL {

/// The moving picture under the overlay. Drawn either by OpenGL or in memory, as the host starts it; used on
/// the host's thread alone.
class FilmSource {
public:
    virtual ~FilmSource() = default;

    /// `wakeUp` is called on any thread, at any time, when `hasNewFrame` may have changed; it must not call
    /// back.
    virtual void setWakeUp(std::function<void()> wakeUp) = 0;

    /// Makes ready to draw by OpenGL, with the functions that `functionAddress` finds by name. The context
    /// that is current now is current at all later calls, up to and with `stopDrawing`. False when that can't
    /// be done.
    virtual bool startOpenGL(void* (*functionAddress)(const char* name)) = 0;

    /// Makes ready to draw in memory. False when that can't be done.
    virtual bool startMemory() = 0;
    virtual void stopDrawing() = 0;

    /// True from when a frame is due until it is drawn.
    virtual bool hasNewFrame() = 0;

    /// Draw the frame that is due, or the last one again, fitted into the whole size with black around it.
    virtual void drawIntoFramebuffer(unsigned framebuffer, const Cairo::PixelSize& size) = 0;
    virtual void drawIntoMemory(const Cairo::PixelBuffer& buffer) = 0;

    /// The frame that was drawn last is on the screen.
    virtual void frameWasShown() = 0;
};

} // namespace KivUICore::SDL
