#pragma once

#include "Player/Overlay/SeekQueue.h"

namespace Overlay {

/// What a viewer can do to a film, whatever it is done with.
class FilmCommands {
public:
    /// `playback` outlives the commands.
    explicit FilmCommands(Playback& playback) : playback_(playback), seeks_(playback) {}

    /// Where the film is in seconds, or will be once the seeks that were asked for are done.
    double position() const;

    void togglePlay();
    void toggleMute();
    void seek(double time, SeekPrecision precision) { seeks_.seek(time, precision); }
    void seekBy(double seconds);

    /// From 0.0, the start, to 1.0. Nothing happens while the film's length is unknown.
    void seekToFraction(double fraction);

    /// `difference` in parts of the full volume. Louder also ends muting. Says what the volume is then.
    double changeVolume(double difference);
    void stepFrame(Direction direction) { playback_.stepFrame(direction); }

    /// Call it after each change of the playback's state.
    void playbackDidChange() { seeks_.playbackDidChange(); }

private:
    double endPosition() const;

    Playback& playback_;
    SeekQueue seeks_;
};

} // namespace Overlay
