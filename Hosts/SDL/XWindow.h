#pragma once

#include <optional>
#include <string>

struct SDL_Window;

// The library's own header names macros None and Bool.
struct _XDisplay; // NOLINT(bugprone-reserved-identifier)

namespace KivUICore::SDL {

/// The X server's window behind one of SDL's.
class XWindow {
public:
    /// Nothing where SDL draws by another system than X.
    static std::optional<XWindow> behind(SDL_Window& window);

    /// The connection that it is reached by.
    _XDisplay* display() const { return display_; }

    /// The server's number of it.
    unsigned long identifier() const { return identifier_; }

    /// False once another program has destroyed it.
    bool exists() const;

    /// Has whoever waits on this connection for the window to be hidden believe that it was. SDL does before
    /// it destroys one, and would wait for ever where another program was faster.
    void tellHidden() const;

    /// What was handed over last to be dropped, as a list of addresses in lines; empty if it was something
    /// else.
    std::string droppedAddresses() const;

private:
    XWindow(_XDisplay* display, unsigned long identifier) : display_(display), identifier_(identifier) {}

    _XDisplay* display_;
    unsigned long identifier_;
};

} // namespace KivUICore::SDL
