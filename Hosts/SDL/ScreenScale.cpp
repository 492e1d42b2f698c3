#include "Hosts/SDL/ScreenScale.h"

#include <SDL_syswm.h>
#include <algorithm>
#include <cstdlib>

namespace KivUICore::SDL {

namespace {

constexpr double usualDpi = 96.0;

std::optional<double> positiveNumber(const char* text) {
    char* end = nullptr;
    const double number = text ? std::strtod(text, &end) : 0.0;
    const bool isWhole = end != text && end && *end == '\0';
    return isWhole && number > 0.0 ? std::optional(number) : std::nullopt;
}

double density(SDL_Window& window) {
    int points = 0;
    int pixels = 0;
    SDL_GetWindowSize(&window, &points, nullptr);
    SDL_GetWindowSizeInPixels(&window, &pixels, nullptr);
    return points > 0 && pixels > 0 ? static_cast<double>(pixels) / points : 1.0;
}

#if defined(SDL_VIDEO_DRIVER_X11)
// By the library that SDL has loaded itself: the program runs without it too.
const char* xftDpi(Display* display) {
    using GetDefault = char* (*)(Display*, const char*, const char*);
    void* library = SDL_LoadObject("libX11.so.6");
    void* function = library ? SDL_LoadFunction(library, "XGetDefault") : nullptr;
    const char* dpi = function ? reinterpret_cast<GetDefault>(function)(display, "Xft", "dpi") : nullptr;
    SDL_UnloadObject(library);
    return dpi;
}

std::optional<double> scaleOfDesktop(SDL_Window& window) {
    SDL_SysWMinfo info;
    SDL_VERSION(&info.version);
    if (SDL_GetWindowWMInfo(&window, &info) == SDL_FALSE || info.subsystem != SDL_SYSWM_X11) {
        return std::nullopt;
    }
    return requestedScale(SDL_getenv("GDK_SCALE"), xftDpi(info.info.x11.display));
}
#else
std::optional<double> scaleOfDesktop(SDL_Window& /*window*/) { return std::nullopt; }
#endif

} // namespace

double screenScale(SDL_Window& window) { return scaleOfDesktop(window).value_or(density(window)); }

std::optional<double> requestedScale(const char* gdkScale, const char* xftDpi) {
    constexpr double smallest = 1.0;
    constexpr double largest = 8.0;
    std::optional<double> scale = positiveNumber(gdkScale);
    if (const std::optional<double> dpi = positiveNumber(xftDpi); dpi && !scale) {
        scale = *dpi / usualDpi;
    }
    return scale ? std::optional(std::clamp(*scale, smallest, largest)) : std::nullopt;
}

} // namespace KivUICore::SDL
