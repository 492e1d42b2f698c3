#include "Player/Desktop/MpvLists.h"

#include "Hosts/Cairo/ScreenText.h"
#include "Player/Desktop/MpvClient.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace KivUICore::Player {

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

// What a viewer gets to read.
std::string name(const mpv_node& map, std::string_view key) { return Cairo::oneLine(text(map, key)); }

std::int64_t integer(const mpv_node& map, std::string_view key) {
    const mpv_node* value = find(map, key, MPV_FORMAT_INT64);
    return value ? value->u.int64 : 0;
}

bool isSet(const mpv_node& map, std::string_view key) {
    const mpv_node* value = find(map, key, MPV_FORMAT_FLAG);
    return value && value->u.flag != 0;
}

std::optional<double> number(const mpv_node& map, std::string_view key) {
    const mpv_node* value = find(map, key, MPV_FORMAT_DOUBLE);
    return value ? std::optional(value->u.double_) : std::nullopt;
}

// Several tracks may be of one language, so the number goes with it.
std::string trackName(const mpv_node& track) {
    if (std::string title = name(track, "title"); !title.empty()) {
        return title;
    }
    const std::string language = name(track, "lang");
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
        result.push_back({.start = start ? start->u.double_ : 0.0, .name = name(chapter, "title")});
    }
    return result;
}

// The list also has the drivers, as devices of their own; what the driver leads to has a slash in its name.
std::vector<Overlay::AudioDevice> readAudioDevices(const mpv_node& list) {
    std::vector<Overlay::AudioDevice> result{{.identifier = "auto", .name = "System default"}};
    for (const mpv_node& device : elements(list)) {
        const std::string identifier = text(device, "name");
        if (identifier.find('/') != std::string::npos) {
            const std::string description = name(device, "description");
            result.push_back({.identifier = identifier,
                              .name = description.empty() ? Cairo::oneLine(identifier) : description});
        }
    }
    constexpr std::size_t leastToChoose = 3;
    return result.size() < leastToChoose ? std::vector<Overlay::AudioDevice>() : result;
}

FilmCache readCache(const mpv_node& state) {
    FilmCache result;
    result.end = number(state, "cache-end");
    result.isComplete = isSet(state, "eof");
    if (const mpv_node* ranges = find(state, "seekable-ranges", MPV_FORMAT_NODE_ARRAY)) {
        for (const mpv_node& range : elements(*ranges)) {
            result.ranges.push_back(
                {.start = number(range, "start").value_or(0.0), .end = number(range, "end").value_or(0.0)});
        }
    }
    return result;
}

// The film may be a little beyond what can be sought, and what is sought must be a little before the end.
std::optional<Overlay::TimeRange> rangeAround(const FilmCache& cache, double time) {
    constexpr double tolerance = 0.5;
    constexpr double shortest = 1.0;
    constexpr double margin = 0.1;
    std::optional<Overlay::TimeRange> result;
    for (const Overlay::TimeRange& range : cache.ranges) {
        const bool isBefore = range.start <= time + tolerance && range.end - range.start >= shortest;
        if (isBefore && (!result || range.start > result->start)) {
            result = {.start = range.start, .end = range.end - margin};
        }
    }
    return result;
}

// Asked for one by one: the list may be long, and to copy it takes time. Identifiers grow along it.
std::optional<std::string> locationOfEntry(const MpvClient& client, std::int64_t identifier) {
    const auto property = [](std::int64_t index, const char* name) {
        return "playlist/" + std::to_string(index) + "/" + name;
    };
    std::int64_t first = 0;
    std::int64_t last = client.number("playlist-count").value_or(0);
    while (first < last) {
        const std::int64_t middle = first + (last - first) / 2;
        if (client.number(property(middle, "id").c_str()).value_or(0) < identifier) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    return client.number(property(first, "id").c_str()) == identifier
               ? client.text(property(first, "filename").c_str())
               : std::nullopt;
}

} // namespace KivUICore::Player
