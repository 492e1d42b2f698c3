#pragma once

#include "Tests/Hostile/EventScript.h"
#include "Tests/Player/MpvSocket.h"
#include "Tests/Player/Process.h"
#include "Tests/Player/VirtualScreen.h"

#include <memory>
#include <string>
#include <vector>

namespace KivUICore::Player {

/// A player in a window with a window manager around it, and somebody who moves, clicks, drags, types,
/// resizes and drops on it. What must not happen is thrown as `std::runtime_error`.
class Storm {
public:
    explicit Storm(unsigned seed);

    /// The next few events, as fast as the screen takes them.
    void rage();

    /// Left in peace, the player plays a film that is dropped, takes a click on its button and ends with q.
    void calmDown();

    int events() const { return script_.events() + drops_; }
    int drops() const { return drops_; }

    /// How often the player was started: it ends well when its window is closed, which a click may do.
    int starts() const { return starts_; }

    /// What the player occupies, in megabytes.
    double memory() const { return player_->memory(); }

private:
    void start();
    void startAgainIfItEnded();
    void awaitWindow();
    bool tryTool(const std::vector<std::string>& words) const;
    void drop(const std::string& uris);
    void expectGoodEnd();

    EventScript script_;
    TemporaryFolder folder_;
    std::vector<std::string> uris_;
    VirtualScreen screen_;
    MpvSocket mpv_;
    std::unique_ptr<Process> player_;
    int drops_ = 0;
    int starts_ = 0;
};

} // namespace KivUICore::Player
