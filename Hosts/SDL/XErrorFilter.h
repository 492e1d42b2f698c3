#pragma once

#include <vector>

namespace KivUICore::SDL {

/// Lets a program outlive X windows of its own that another program destroys: the X library ends one whose
/// request names a window that is gone, and SDL's last requests may do so even at a proper end. While there
/// is a filter, errors about its windows are passed over. All others go to the handler that was there before,
/// which has its place again when the last filter goes.
class XErrorFilter {
public:
    /// Make it before SDL opens its connections, and let it outlive them: SDL puts back at its end what it
    /// found.
    XErrorFilter();
    XErrorFilter(const XErrorFilter&) = delete;
    XErrorFilter& operator=(const XErrorFilter&) = delete;
    ~XErrorFilter();

    /// `window` is the X server's number of one of the program's windows.
    void add(unsigned long window);

private:
    std::vector<unsigned long> windows_;
};

} // namespace KivUICore::SDL
