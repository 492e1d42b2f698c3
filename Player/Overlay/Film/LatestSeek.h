#pragma once

#include "Player/Overlay/Film/Playback.h"

#include <optional>

namespace KivUICore::Overlay {

/// Sends a film to where the viewer wants it, one seek at a time: what is asked for while one is on its way
/// waits, and only the newest does.
class LatestSeek {
public:
    /// `playback` outlives this.
    explicit LatestSeek(Playback& playback) : playback_(playback) {}

    /// `time` in seconds.
    void seek(double time, SeekPrecision precision);

    /// Sends nothing more of what was asked for: it was about another film.
    void forget();

    /// Call it after each change of the playback's state.
    void playbackDidChange();

    /// Where the film will be once all that was asked for is done; nothing when it is there.
    std::optional<double> target() const;

private:
    struct Request {
        double time;
        SeekPrecision precision;
    };

    void send(const Request& request);

    Playback& playback_;
    std::optional<double> sent_;
    std::optional<Request> waiting_;
};

} // namespace KivUICore::Overlay
