#pragma once

#include "Player/Overlay/Film/PlaybackError.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace KivUICore::Overlay {

enum class TrackKind { Audio, Subtitle };

struct Track {
    TrackKind kind = TrackKind::Audio;

    /// Unlike that of any other track of its kind.
    std::int64_t identifier = 0;

    /// What the film calls it, in any script; made up of language and number where it has no name.
    std::string name;
    bool isSelected = false;

    friend bool operator==(const Track&, const Track&) = default;
};

struct Chapter {
    /// In seconds.
    double start = 0.0;
    std::string name;

    friend bool operator==(const Chapter&, const Chapter&) = default;
};

/// Where the sound can go.
struct AudioDevice {
    /// Unlike any other's.
    std::string identifier;
    std::string name;
    bool isSelected = false;

    friend bool operator==(const AudioDevice&, const AudioDevice&) = default;
};

/// A part of a film, in seconds.
struct TimeRange {
    double start = 0.0;
    double end = 0.0;

    friend bool operator==(const TimeRange&, const TimeRange&) = default;
};

/// What is known of a film at one moment. Times are in seconds.
struct PlaybackState {
    /// The film's own title, or the name of its file.
    std::string title;

    double position = 0.0;

    /// Unknown while the film is being opened, and for one without an end.
    std::optional<double> duration;

    /// Whether it can be sent to another place: not what comes through a pipe.
    bool isSeekable = true;

    /// The part of the film that it can be sent to, where that is not all of it: of a live stream, what is at
    /// hand.
    std::optional<TimeRange> seekableRange;

    /// Its first picture isn't there yet.
    bool isOpening = false;
    bool isPaused = false;

    /// It should play or show a picture, but there is no data yet.
    bool isWaiting = false;
    bool isSeeking = false;
    bool hasEnded = false;

    /// From 0.0 to 1.0.
    double volume = 1.0;
    bool isMuted = false;
    double speed = 1.0;

    std::vector<Track> tracks;
    std::vector<Chapter> chapters;

    /// Empty unless there is something to choose.
    std::vector<AudioDevice> audioDevices;

    /// The film that is tried out while this one goes on, by its name; nothing when none is.
    std::optional<std::string> nextFilm;

    /// Why nothing can be played, or why it goes no further; nothing while all is well.
    std::optional<PlaybackError> error;

    friend bool operator==(const PlaybackState&, const PlaybackState&) = default;
};

/// Whether there is a film: true also for one that was interrupted.
bool isPlayable(const PlaybackState& state);

/// Whether the film can be sent to another place.
bool canSeek(const PlaybackState& state);

/// The place nearest to `time` that the film can be sent to, in seconds.
double nearestPlace(const PlaybackState& state, double time);

} // namespace KivUICore::Overlay
