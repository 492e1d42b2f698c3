#pragma once

#include "Player/Overlay/PlaybackState.h"

#include <mpv/client.h>
#include <vector>

namespace Player {

/// The sound and subtitle tracks in libmpv's list of tracks.
std::vector<Overlay::Track> readTracks(const mpv_node& list);

/// The chapters in libmpv's list of them; one without a title has an empty name.
std::vector<Overlay::Chapter> readChapters(const mpv_node& list);

/// The devices in libmpv's list of them, after one that leaves the choice to the system; none where there is
/// nothing to choose. None is selected.
std::vector<Overlay::AudioDevice> readAudioDevices(const mpv_node& list);

} // namespace Player
