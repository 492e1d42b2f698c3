#pragma once

#include <SDL.h>
#include <optional>

namespace KivUICore::SDL {

/// Pixels a point on the screen of `window`: what SDL knows of it, or else what an X server's desktop asks
/// its programs for.
double screenScale(SDL_Window& window);

/// What the environment variable GDK_SCALE and the X resource Xft.dpi ask for, from 1 to 8; the variable goes
/// first, as it is what somebody set by hand. Null stands for one that is not set. Nothing when neither is a
/// number above zero.
std::optional<double> requestedScale(const char* gdkScale, const char* xftDpi);

} // namespace KivUICore::SDL
