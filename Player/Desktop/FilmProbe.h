#pragma once

#include "Player/Desktop/FilmOpening.h"
#include "Player/Desktop/MpvClient.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace KivUICore::Player {

/// Finds out whether a film can be played without disturbing the one that is: opens it unseen and unheard,
/// as far as its first picture.
class FilmProbe {
public:
    /// `wakeUp` is called on any thread when `update` may have something to do; it must not call back.
    FilmProbe(const std::string& location, std::function<void()> wakeUp);

    FilmProbe(const FilmProbe&) = delete;
    FilmProbe& operator=(const FilmProbe&) = delete;
    ~FilmProbe() { client_.abandon(); }

    void setWakeUp(std::function<void()> wakeUp) { client_.setWakeUp(std::move(wakeUp)); }

    /// Takes in what has happened since the last call.
    void update();

    const std::string& location() const { return opening_.location(); }

    /// True once it is known that the film can be played; never where `failure` says otherwise.
    bool isPlayable() const { return !opening_.failure() && opening_.isAtStart(); }
    const std::optional<Overlay::PlaybackError>& failure() const { return opening_.failure(); }

private:
    MpvClient client_;
    FilmOpening opening_;
};

} // namespace KivUICore::Player
