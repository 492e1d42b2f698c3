#pragma once

#include <functional>

// The library's own header names macros None and Bool.
struct _XDisplay; // NOLINT(bugprone-reserved-identifier)

namespace KivUICore::SDL {

/// Tells that the connection to the X server is cut, before the X library ends the program for it. SDL waits
/// for ever for answers that don't come, so there is no going on.
class XConnectionWatch {
public:
    /// `onCut` is called in the middle of a call of the X library and makes no such call itself. The
    /// connection outlives the watch.
    XConnectionWatch(_XDisplay* display, std::function<void()> onCut);
    XConnectionWatch(const XConnectionWatch&) = delete;
    XConnectionWatch& operator=(const XConnectionWatch&) = delete;
    ~XConnectionWatch();

    _XDisplay* display() const { return display_; }
    void tell() const { onCut_(); }

private:
    _XDisplay* display_;
    std::function<void()> onCut_;
};

} // namespace KivUICore::SDL
