#pragma once

#include "Hosts/Cairo/FilmPixels.h"
#include "Player/Desktop/MpvPicture.h"
#include "Player/Desktop/MpvPlayback.h"
#include "Tests/Player/Process.h"

#include <string>
#include <vector>

namespace KivUICore::Player {

/// A real film in real mpv, drawn in memory, with nobody to hear it.
class PlaybackRun {
public:
    explicit PlaybackRun(MpvPlayback::Start start = MpvPlayback::Start::Paused)
        : PlaybackRun({.start = start}) {}

    explicit PlaybackRun(MpvPlayback::Settings settings) : playback(silent(std::move(settings))) {
        picture.startMemory();
        playback.setChangeHandler([this] { ++changes; });
        playback.setNoticeHandler(
            [this](const Overlay::PlaybackError& problem) { notices.push_back(lineOf(problem)); });
    }

    const Overlay::PlaybackState& state() const { return playback.state(); }

    /// Why nothing can be played, as a person reads it; empty while all is well.
    std::string error() const { return state().error ? lineOf(*state().error) : ""; }

    /// What the host does at each turn.
    void turn() {
        playback.update();
        if (picture.hasNewFrame()) {
            picture.drawIntoMemory(pixels.buffer());
            picture.frameWasShown();
        }
    }

    /// False if `condition` doesn't come to hold.
    template <class Condition>
    bool until(Condition condition, std::chrono::milliseconds bound = Process::patience) {
        return eventually(
            [&] {
                turn();
                return condition();
            },
            bound);
    }

    /// Opens a film and waits for its first picture.
    bool open(const std::string& location, double start = 0.0) {
        playback.open(location, start);
        return until([this] { return playback.isAtStart() && !state().isWaiting && !state().isSeeking; });
    }

    int changes = 0;
    std::vector<std::string> notices;
    MpvPlayback playback;
    MpvPicture picture{playback};
    Cairo::FilmPixels pixels{{320, 180}};

private:
    static MpvPlayback::Settings silent(MpvPlayback::Settings settings) {
        settings.sound = MpvPlayback::Sound::Discarded;
        return settings;
    }
};

} // namespace KivUICore::Player
