#pragma once

#include "Player/Overlay/Film/PlaybackState.h"

#include <cstdint>
#include <mpv/client.h>
#include <optional>
#include <string>
#include <vector>

namespace KivUICore::Player {

class MpvClient;

/// The sound and subtitle tracks in libmpv's list of tracks.
std::vector<Overlay::Track> readTracks(const mpv_node& list);

/// The chapters in libmpv's list of them; one without a title has an empty name.
std::vector<Overlay::Chapter> readChapters(const mpv_node& list);

/// The devices in libmpv's list of them, after one that leaves the choice to the system; none where there is
/// nothing to choose. None is selected.
std::vector<Overlay::AudioDevice> readAudioDevices(const mpv_node& list);

/// What of a film libmpv has at hand.
struct FilmCache {
    std::vector<Overlay::TimeRange> ranges;

    /// How far the film has been read, in seconds.
    std::optional<double> end;

    /// Whether that is as far as it goes.
    bool isComplete = false;
};

FilmCache readCache(const mpv_node& state);

/// The part that a film is in at a time in seconds; nothing if there is none that it could be sent to.
std::optional<Overlay::TimeRange> rangeAround(const FilmCache& cache, double time);

/// The file's path or the URL of an entry in the list of what libmpv plays; nothing if it isn't there any
/// more.
std::optional<std::string> locationOfEntry(const MpvClient& client, std::int64_t identifier);

} // namespace KivUICore::Player
