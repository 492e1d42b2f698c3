#pragma once

#include "Hosts/Desktop/DesktopClock.h"
#include "Hosts/Desktop/DesktopWindow.h"
#include "Hosts/Desktop/EventLoop.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Player/Desktop/Exit.h"
#include "Player/Desktop/MpvFilm.h"
#include "Player/Desktop/Options.h"
#include "Player/Overlay/PlayerOverlay.h"

#include <memory>
#include <optional>
#include <string>

namespace Player {

/// The player in its window.
class PlayerApplication {
public:
    explicit PlayerApplication(const Options& options);

    /// Plays until the window is closed. A film that can't be played is told on the error output and in the
    /// window.
    Exit run();

private:
    void open();
    void filmHasNews();
    void layOut();
    void handleKey(SDL_Keycode key);

    Options options_;
    Desktop::DesktopClock clock_;
    Foundation::NSRunLoop runLoop_{clock_};
    MpvFilm film_;
    std::unique_ptr<Desktop::DesktopWindow> window_;
    std::optional<Overlay::PlayerOverlay> overlay_;
    std::optional<Desktop::EventLoop> loop_;
    bool hasFailed_ = false;
};

} // namespace Player
