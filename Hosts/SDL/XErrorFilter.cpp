#include "Hosts/SDL/XErrorFilter.h"

#include "Hosts/SDL/XLibrary.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <mutex>

namespace KivUICore::SDL {

namespace {

/// What all filters share. The library calls its handler on any thread.
struct Chain {
    std::mutex mutex;
    int filters = 0;
    std::vector<unsigned long> windows;
    XErrorHandler before = nullptr;

    // Also while no filter needs it but somebody else's handler has come on top.
    bool isInstalled = false;
};

Chain& chain() {
    static Chain shared;
    return shared;
}

bool isOurs(unsigned long window) {
    const std::lock_guard lock(chain().mutex);
    return std::find(chain().windows.begin(), chain().windows.end(), window) != chain().windows.end();
}

int handleError(Display* display, XErrorEvent* error) {
    const bool isPassedOver = isOurs(error->resourceid);
    return isPassedOver || !chain().before ? 0 : chain().before(display, error);
}

XErrorHandler setHandler(XErrorHandler handler) {
    const auto set = xFunction<decltype(XSetErrorHandler)>("XSetErrorHandler");
    return set ? set(handler) : nullptr;
}

} // namespace

XErrorFilter::XErrorFilter() {
    Chain& shared = chain();
    ++shared.filters;
    if (!shared.isInstalled) {
        shared.isInstalled = true;
        shared.before = setHandler(handleError);
    }
}

XErrorFilter::~XErrorFilter() {
    Chain& shared = chain();
    {
        const std::lock_guard lock(shared.mutex);
        for (const unsigned long window : windows_) {
            shared.windows.erase(std::find(shared.windows.begin(), shared.windows.end(), window));
        }
    }
    if (--shared.filters > 0) {
        return;
    }
    const XErrorHandler top = setHandler(shared.before);
    if (top == handleError) {
        shared.isInstalled = false;
    } else {
        setHandler(top);
    }
}

void XErrorFilter::add(unsigned long window) {
    windows_.push_back(window);
    const std::lock_guard lock(chain().mutex);
    chain().windows.push_back(window);
}

} // namespace KivUICore::SDL
