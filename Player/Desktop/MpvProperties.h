#pragma once

#include "Player/Desktop/MpvLists.h"
#include "Player/Overlay/Film/PlaybackState.h"

#include <mpv/client.h>
#include <optional>
#include <string>
#include <vector>

namespace KivUICore::Player {

class MpvClient;

/// What libmpv says about the film and itself, kept up to date by its events. What it has no value for keeps
/// the last one that made sense to a viewer, or none.
class MpvProperties {
public:
    double position = 0.0;
    std::optional<double> duration;
    std::optional<std::string> title;

    /// What takes the place of the title where the film has none.
    std::optional<std::string> fileName;

    /// Whether there is a picture to show; nothing until it is told.
    std::optional<bool> hasPicture;
    bool isPaused = false;
    bool isAtEnd = false;
    bool isWaitingForData = false;

    /// Whether the film can be sent anywhere; otherwise to what is in the cache at most.
    bool isSeekable = true;
    FilmCache cache;
    double volume = 1.0;
    bool isMuted = false;
    double speed = 1.0;
    std::vector<Overlay::Track> tracks;
    std::vector<Overlay::Chapter> chapters;
    std::vector<Overlay::AudioDevice> audioDevices;
    std::string audioDevice;

    enum class Devices { Listed, Unlisted };
    enum class Cache { Followed, Left };

    /// Asks to be told of all of them from now on; of the devices, only if they are to be listed.
    static void observe(const MpvClient& client, Devices devices);

    /// Asks to be told in any case whether the film is at its end. For who has read it in between: libmpv
    /// tells only of what differs from what it told last, so that a film which left its end for a moment
    /// would seem not to be back there.
    static void observeEndAgain(const MpvClient& client);

    /// Forgets what is the film's own and asks to be told of it anew: libmpv tells only of what differs from
    /// the film before. `start` in seconds is where this one begins.
    void beginFilm(const MpvClient& client, double start);

    /// Asks to be told of the cache or not: it changes several times a second.
    static void observeCache(const MpvClient& client, Cache cache);

    /// Takes in one event.
    void handle(const mpv_event& event);

    /// Asks for all but the devices now: what changed a moment ago may not have been told yet. While a first
    /// picture is waiting to be drawn, libmpv answers only when it gives up waiting, after a fifth of a
    /// second.
    void refresh(const MpvClient& client);
};

} // namespace KivUICore::Player
