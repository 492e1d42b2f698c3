#include "Hosts/SDL/XLibrary.h"

#include <SDL_loadso.h>

namespace KivUICore::SDL {

// The library stays loaded, for it keeps the functions that it is given.
void* xFunction(const char* name) {
    static void* const library = SDL_LoadObject("libX11.so.6");
    return library ? SDL_LoadFunction(library, name) : nullptr;
}

} // namespace KivUICore::SDL
