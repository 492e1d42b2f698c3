#include "Hosts/SDL/XConnectionWatch.h"

#include "Hosts/SDL/XLibrary.h"

#include <X11/Xlib.h>
#include <utility>
#include <vector>

namespace KivUICore::SDL {

namespace {

std::vector<const XConnectionWatch*>& watches() {
    static std::vector<const XConnectionWatch*> all;
    return all;
}

XIOErrorHandler handlerBefore = nullptr;

int handleCut(Display* display) {
    const std::vector<const XConnectionWatch*> all = watches();
    for (const XConnectionWatch* watch : all) {
        if (watch->display() == display) {
            watch->tell();
        }
    }
    return handlerBefore(display);
}

// It stays for good, as somebody else's handler may lead to it: without a watch it does what was done before.
bool installHandler() {
    const auto set = xFunction<decltype(XSetIOErrorHandler)>("XSetIOErrorHandler");
    handlerBefore = set ? set(handleCut) : nullptr;
    return true;
}

} // namespace

XConnectionWatch::XConnectionWatch(Display* display, std::function<void()> onCut)
    : display_(display), onCut_(std::move(onCut)) {
    [[maybe_unused]] static const bool isInstalled = installHandler();
    watches().push_back(this);
}

XConnectionWatch::~XConnectionWatch() { std::erase(watches(), this); }

} // namespace KivUICore::SDL
