#include "Player/Desktop/MpvProperties.h"

#include "Hosts/Cairo/ScreenText.h"
#include "Player/Desktop/MpvClient.h"
#include "Player/Desktop/MpvLists.h"

#include <algorithm>
#include <array>
#include <span>

namespace KivUICore::Player {

namespace {

/// `value` is of the property's format; null where there is none.
using Take = void (*)(MpvProperties&, const void* value);

struct Observed {
    const char* name;
    mpv_format format;
    Take take;
};

double number(const void* value) { return *static_cast<const double*>(value); }
bool isSet(const void* value) { return value && *static_cast<const int*>(value) != 0; }
const mpv_node& node(const void* value) { return *static_cast<const mpv_node*>(value); }

void takePosition(MpvProperties& properties, const void* value) {
    properties.position = value ? std::max(0.0, number(value)) : properties.position;
}

// A still picture has a length of nothing.
void takeDuration(MpvProperties& properties, const void* value) {
    const bool isKnown = value && number(value) > 0.0;
    properties.duration = isKnown ? std::optional(number(value)) : std::nullopt;
}

// What nothing can be seen of is none.
std::optional<std::string> oneLine(const void* value) {
    const std::string line = value ? Cairo::oneLine(*static_cast<const char* const*>(value)) : "";
    return line.empty() ? std::nullopt : std::optional(line);
}

void takeTitle(MpvProperties& properties, const void* value) { properties.title = oneLine(value); }
void takeFileName(MpvProperties& properties, const void* value) { properties.fileName = oneLine(value); }

void takePaused(MpvProperties& properties, const void* value) { properties.isPaused = isSet(value); }
void takeEnd(MpvProperties& properties, const void* value) { properties.isAtEnd = isSet(value); }
void takeWaiting(MpvProperties& properties, const void* value) { properties.isWaitingForData = isSet(value); }
void takeSeekable(MpvProperties& properties, const void* value) {
    properties.isSeekable = !value || isSet(value);
}

void takeCache(MpvProperties& properties, const void* value) {
    properties.cache = value ? readCache(node(value)) : FilmCache();
}

void takeMuted(MpvProperties& properties, const void* value) { properties.isMuted = isSet(value); }

void takeVolume(MpvProperties& properties, const void* value) {
    constexpr double loudest = 100.0;
    properties.volume = value ? std::clamp(number(value) / loudest, 0.0, 1.0) : properties.volume;
}

void takeSpeed(MpvProperties& properties, const void* value) {
    properties.speed = value ? number(value) : properties.speed;
}

void takePicture(MpvProperties& properties, const void* value) { properties.hasPicture = value != nullptr; }

void takeTracks(MpvProperties& properties, const void* value) {
    properties.tracks = value ? readTracks(node(value)) : std::vector<Overlay::Track>();
}

void takeChapters(MpvProperties& properties, const void* value) {
    properties.chapters = value ? readChapters(node(value)) : std::vector<Overlay::Chapter>();
}

void markSelectedDevice(MpvProperties& properties) {
    for (Overlay::AudioDevice& device : properties.audioDevices) {
        device.isSelected = device.identifier == properties.audioDevice;
    }
}

void takeAudioDevices(MpvProperties& properties, const void* value) {
    properties.audioDevices = value ? readAudioDevices(node(value)) : std::vector<Overlay::AudioDevice>();
    markSelectedDevice(properties);
}

void takeAudioDevice(MpvProperties& properties, const void* value) {
    properties.audioDevice = value ? *static_cast<const char* const*>(value) : "";
    markSelectedDevice(properties);
}

constexpr std::array<Observed, 17> observed{{
    // To list the devices is to start all sound drivers there are, which takes time, and to hear them
    // complain: these two are told when they change, and not at all to who has no sound.
    {"audio-device-list", MPV_FORMAT_NODE, takeAudioDevices},
    {"audio-device", MPV_FORMAT_STRING, takeAudioDevice},
    {"time-pos", MPV_FORMAT_DOUBLE, takePosition},
    {"duration", MPV_FORMAT_DOUBLE, takeDuration},
    {"media-title", MPV_FORMAT_STRING, takeTitle},
    {"filename", MPV_FORMAT_STRING, takeFileName},
    {"eof-reached", MPV_FORMAT_FLAG, takeEnd},
    {"paused-for-cache", MPV_FORMAT_FLAG, takeWaiting},
    {"vid", MPV_FORMAT_INT64, takePicture},
    {"track-list", MPV_FORMAT_NODE, takeTracks},
    {"chapter-list", MPV_FORMAT_NODE, takeChapters},
    {"seekable", MPV_FORMAT_FLAG, takeSeekable},
    {"pause", MPV_FORMAT_FLAG, takePaused},
    {"volume", MPV_FORMAT_DOUBLE, takeVolume},
    {"mute", MPV_FORMAT_FLAG, takeMuted},
    {"speed", MPV_FORMAT_DOUBLE, takeSpeed},
    {"demuxer-cache-state", MPV_FORMAT_NODE, takeCache},
}};

constexpr std::size_t firstWithoutDevices = 2;
constexpr std::size_t firstOfPlayer = 12;
constexpr std::size_t cacheIndex = observed.size() - 1;

void release(mpv_format format, void* value) {
    if (format == MPV_FORMAT_STRING) {
        mpv_free(*static_cast<char**>(value));
    } else if (format == MPV_FORMAT_NODE) {
        mpv_free_node_contents(static_cast<mpv_node*>(value));
    }
}

void observeAgain(const MpvClient& client, std::size_t index) {
    mpv_unobserve_property(client.handle(), index);
    mpv_observe_property(client.handle(), index, observed[index].name, observed[index].format);
}

} // namespace

void MpvProperties::observe(const MpvClient& client, Devices devices) {
    if (!client.handle()) {
        return;
    }
    for (std::size_t index = devices == Devices::Listed ? 0 : firstWithoutDevices; index < cacheIndex;
         ++index) {
        mpv_observe_property(client.handle(), index, observed[index].name, observed[index].format);
    }
}

void MpvProperties::observeEndAgain(const MpvClient& client) {
    const auto* const found = std::find_if(observed.begin(), observed.end(),
                                           [](const Observed& each) { return each.take == takeEnd; });
    observeAgain(client, static_cast<std::size_t>(found - observed.begin()));
}

void MpvProperties::beginFilm(const MpvClient& client, double start) {
    for (std::size_t index = firstWithoutDevices; index < firstOfPlayer; ++index) {
        observed[index].take(*this, nullptr);
        observeAgain(client, index);
    }
    hasPicture.reset();
    cache = {};
    position = start;
}

void MpvProperties::observeCache(const MpvClient& client, Cache cache) {
    if (cache == Cache::Followed) {
        observeAgain(client, cacheIndex);
    } else {
        mpv_unobserve_property(client.handle(), cacheIndex);
    }
}

void MpvProperties::handle(const mpv_event& event) {
    if (event.event_id == MPV_EVENT_PROPERTY_CHANGE) {
        const auto& property = *static_cast<const mpv_event_property*>(event.data);
        observed.at(event.reply_userdata)
            .take(*this, property.format == MPV_FORMAT_NONE ? nullptr : property.data);
    }
}

void MpvProperties::refresh(const MpvClient& client) {
    if (!client.handle()) {
        return;
    }
    union {
        int flag;
        std::int64_t integer;
        double number;
        char* text;
        mpv_node node;
    } value;
    for (const Observed& property : std::span(observed).subspan(firstWithoutDevices)) {
        if (mpv_get_property(client.handle(), property.name, property.format, &value) < 0) {
            property.take(*this, nullptr);
        } else {
            property.take(*this, &value);
            release(property.format, &value);
        }
    }
}

} // namespace KivUICore::Player
