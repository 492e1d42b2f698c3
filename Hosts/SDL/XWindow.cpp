#include "Hosts/SDL/XWindow.h"

#include "Hosts/SDL/XLibrary.h"

#include <SDL_syswm.h>
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <memory>

namespace KivUICore::SDL {

std::optional<XWindow> XWindow::behind(SDL_Window& window) {
    SDL_SysWMinfo information;
    SDL_VERSION(&information.version);
    if (SDL_GetWindowWMInfo(&window, &information) == SDL_FALSE || information.subsystem != SDL_SYSWM_X11) {
        return std::nullopt;
    }
    return XWindow(information.info.x11.display, information.info.x11.window);
}

bool XWindow::exists() const {
    const auto get = xFunction<decltype(XGetWindowAttributes)>("XGetWindowAttributes");
    XWindowAttributes attributes{};
    return !get || get(display_, identifier_, &attributes) != 0;
}

void XWindow::tellHidden() const {
    if (const auto putBack = xFunction<decltype(XPutBackEvent)>("XPutBackEvent")) {
        XEvent event{};
        event.xunmap.type = UnmapNotify;
        event.xunmap.display = display_;
        event.xunmap.event = identifier_;
        event.xunmap.window = identifier_;
        putBack(display_, &event);
    }
}

// SDL has it put where it also asks for what is copied, and leaves it there.
std::string XWindow::droppedAddresses() const {
    const auto get = xFunction<decltype(XGetWindowProperty)>("XGetWindowProperty");
    const auto atomOf = xFunction<decltype(XInternAtom)>("XInternAtom");
    const auto release = xFunction<decltype(XFree)>("XFree");
    if (!get || !atomOf || !release) {
        return {};
    }
    constexpr long mostWords = 16384;
    constexpr int bitsOfText = 8;
    Atom type = 0;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* found = nullptr;
    get(display_, identifier_, XA_PRIMARY, 0, mostWords, False, AnyPropertyType, &type, &format, &count,
        &rest, &found);
    const std::unique_ptr<unsigned char, decltype(release)> text(found, release);
    const bool isList = text && format == bitsOfText && type == atomOf(display_, "text/uri-list", False);
    return isList ? std::string(reinterpret_cast<const char*>(text.get()), count) : std::string();
}

} // namespace KivUICore::SDL
