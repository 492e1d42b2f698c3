#include "Player/Desktop/MpvLists.h"

#include "Player/Desktop/MpvClient.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace Player {

namespace {

std::span<const mpv_node> elements(const mpv_node& list) {
    if (list.format != MPV_FORMAT_NODE_ARRAY) {
        return {};
    }
    return {list.u.list->values, static_cast<std::size_t>(list.u.list->num)};
}

const mpv_node* find(const mpv_node& map, std::string_view key, mpv_format format) {
    if (map.format != MPV_FORMAT_NODE_MAP) {
        return nullptr;
    }
    for (int index = 0; index < map.u.list->num; ++index) {
        const mpv_node& value = map.u.list->values[index];
        if (map.u.list->keys[index] == key && value.format == format) {
            return &value;
        }
    }
    return nullptr;
}

std::string text(const mpv_node& map, std::string_view key) {
    const mpv_node* value = find(map, key, MPV_FORMAT_STRING);
    return value ? value->u.string : "";
}

std::int64_t integer(const mpv_node& map, std::string_view key) {
    const mpv_node* value = find(map, key, MPV_FORMAT_INT64);
    return value ? value->u.int64 : 0;
}

bool isSet(const mpv_node& map, std::string_view key) {
    const mpv_node* value = find(map, key, MPV_FORMAT_FLAG);
    return value && value->u.flag != 0;
}

// Several tracks may be of one language, so the number goes with it.
std::string trackName(const mpv_node& track) {
    if (std::string title = text(track, "title"); !title.empty()) {
        return title;
    }
    const std::string language = text(track, "lang");
    return (language.empty() ? "Track" : language) + " " + std::to_string(integer(track, "id"));
}

} // namespace

std::vector<Overlay::Track> readTracks(const mpv_node& list) {
    std::vector<Overlay::Track> result;
    for (const mpv_node& track : elements(list)) {
        const std::string kind = text(track, "type");
        if (kind == "audio" || kind == "sub") {
            result.push_back(
                {.kind = kind == "audio" ? Overlay::TrackKind::Audio : Overlay::TrackKind::Subtitle,
                 .identifier = integer(track, "id"),
                 .name = trackName(track),
                 .isSelected = isSet(track, "selected")});
        }
    }
    return result;
}

std::vector<Overlay::Chapter> readChapters(const mpv_node& list) {
    std::vector<Overlay::Chapter> result;
    for (const mpv_node& chapter : elements(list)) {
        const mpv_node* start = find(chapter, "time", MPV_FORMAT_DOUBLE);
        result.push_back({.start = start ? start->u.double_ : 0.0, .name = text(chapter, "title")});
    }
    return result;
}

// The list also has the drivers, as devices of their own; what the driver leads to has a slash in its name.
std::vector<Overlay::AudioDevice> readAudioDevices(const mpv_node& list) {
    std::vector<Overlay::AudioDevice> result{{.identifier = "auto", .name = "System default"}};
    for (const mpv_node& device : elements(list)) {
        const std::string identifier = text(device, "name");
        if (identifier.find('/') != std::string::npos) {
            const std::string description = text(device, "description");
            result.push_back(
                {.identifier = identifier, .name = description.empty() ? identifier : description});
        }
    }
    constexpr std::size_t leastToChoose = 3;
    return result.size() < leastToChoose ? std::vector<Overlay::AudioDevice>() : result;
}

std::optional<std::string> locationOfEntry(const MpvClient& client, std::int64_t identifier) {
    std::optional<std::string> result;
    mpv_node list;
    if (mpv_get_property(client.handle(), "playlist", MPV_FORMAT_NODE, &list) < 0) {
        return result;
    }
    for (const mpv_node& entry : elements(list)) {
        if (integer(entry, "id") == identifier) {
            result = text(entry, "filename");
        }
    }
    mpv_free_node_contents(&list);
    return result;
}

} // namespace Player
