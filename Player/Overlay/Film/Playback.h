#pragma once

#include "Player/Overlay/Film/PlaybackState.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace KivUICore::Overlay {

enum class SeekPrecision {
    /// The nearest picture that can be had quickly.
    KeyFrame,
    Exact,
};

enum class Direction { Backward, Forward };

/// The film under the overlay. Commands return at once; what comes of them is in the state, and the change
/// handler is called after each change of it, never from inside a command. Pause, volume, mute and speed are
/// in the state at once, so that one command can follow on another.
class Playback {
public:
    virtual ~Playback() = default;

    virtual const PlaybackState& state() const = 0;

    /// One handler, replaced by the next; an empty one is allowed.
    virtual void setChangeHandler(std::function<void()> handler) = 0;

    /// Goes on, from the start if the film has ended.
    virtual void play() = 0;
    virtual void pause() = 0;

    /// Keeps the film still while the viewer looks for a place in it, or lets it go on. It isn't paused by
    /// that: `state().isPaused` is what the viewer wants for afterwards, and while the film is held play and
    /// pause change only that.
    virtual void setHeld(bool held) = 0;

    /// Goes to a time in seconds, cut to what can be sought. `state().isSeeking` is true from this call until
    /// the picture of that time is there or it turned out that there is none.
    virtual void seek(double time, SeekPrecision precision) = 0;

    /// Pauses and shows the next picture, or the one before.
    virtual void stepFrame(Direction direction) = 0;

    /// From 0.0 to 1.0; cut to that range.
    virtual void setVolume(double volume) = 0;
    virtual void setMuted(bool muted) = 0;

    /// 1.0 is the film's own speed; above 0.0.
    virtual void setSpeed(double speed) = 0;

    /// Chooses one of `state().tracks`; none switches subtitles or sound off.
    virtual void selectTrack(TrackKind kind, std::optional<std::int64_t> identifier) = 0;

    /// Sends the sound to one of `state().audioDevices`.
    virtual void selectAudioDevice(const std::string& identifier) = 0;

    /// Gives up a film that is being opened, which is an error that can be tried again, and one that is tried
    /// out. Does nothing to a film that plays.
    virtual void cancelOpening() = 0;

    /// Opens the film again after an error, where it was: after an interruption it goes on.
    virtual void retry() = 0;
};

} // namespace KivUICore::Overlay
