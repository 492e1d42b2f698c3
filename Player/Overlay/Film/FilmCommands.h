#pragma once

#include "Player/Overlay/Film/LatestSeek.h"

#include <optional>

namespace KivUICore::Overlay {

/// What a viewer can do to a film, whatever it is done with. What moves a film that is still being opened is
/// done once that can be; it is forgotten when the film turns out to be none.
class FilmCommands {
public:
    /// `playback` outlives the commands.
    explicit FilmCommands(Playback& playback) : playback_(playback), latestSeek_(playback) {}

    /// Where the film is in seconds, or will be once the seeks that were asked for are done.
    double position() const;

    /// After an error it tries again.
    void togglePlay();
    void toggleMute();
    void seek(double time, SeekPrecision precision);
    void seekBy(double seconds);

    /// From 0.0, the start, to 1.0. Nothing happens in a film without a length.
    void seekToFraction(double fraction);

    /// `difference` in parts of the full volume. Louder also ends muting. Says what the volume is then.
    double changeVolume(double difference);

    /// One picture after where the film is, or will be.
    void stepFrame(Direction direction);

    /// Call it after each change of the playback's state.
    void playbackDidChange();

private:
    /// A place in a film that is being opened: some seconds after a part of it, or after where it starts.
    struct Wish {
        std::optional<double> fraction;
        double seconds = 0.0;
    };

    double endPosition() const;
    bool isOnItsWay() const;
    void fulfilWish();
    void makeSteps();

    Playback& playback_;
    LatestSeek latestSeek_;
    Wish wish_;

    bool wasOpening_ = false;

    // Pictures to go on once the film is where it was sent; back if negative.
    int steps_ = 0;
};

} // namespace KivUICore::Overlay
