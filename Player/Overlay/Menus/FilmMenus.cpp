#include "Player/Overlay/Menus/FilmMenus.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace KivUICore::Overlay {

namespace {

struct Speed {
    double factor;
    const char* name;
};

constexpr std::array<Speed, 8> speeds{{
    {0.25, "0.25×"},
    {0.5, "0.5×"},
    {0.75, "0.75×"},
    {1.0, "Normal"},
    {1.25, "1.25×"},
    {1.5, "1.5×"},
    {1.75, "1.75×"},
    {2.0, "2×"},
}};

} // namespace

std::vector<MenuEntry> FilmMenus::entries(MenuKind kind) const {
    switch (kind) {
    case MenuKind::Main:
        return mainEntries();
    case MenuKind::Speed:
        return speedEntries();
    case MenuKind::AudioTracks:
        return trackEntries(TrackKind::Audio);
    case MenuKind::Subtitles:
        return trackEntries(TrackKind::Subtitle);
    case MenuKind::Chapters:
        return chapterEntries();
    case MenuKind::AudioDevices:
        return deviceEntries();
    }
    return {};
}

// Compared before anything is copied: a film at play tells of each of its pictures.
bool FilmMenus::playbackDidChange() {
    const PlaybackState& state = playback_.state();
    const std::optional<std::size_t> chapter = currentChapter();
    if (state.speed == told_.speed && state.tracks == told_.tracks && state.chapters == told_.chapters &&
        chapter == told_.chapter && state.audioDevices == told_.audioDevices) {
        return false;
    }
    told_ = {state.speed, state.tracks, state.chapters, chapter, state.audioDevices};
    return true;
}

// The one that is playing; none before the first.
std::optional<std::size_t> FilmMenus::currentChapter() const {
    // Players come to rest a little before the place that was asked for.
    constexpr double tolerance = 0.05;
    const std::vector<Chapter>& chapters = playback_.state().chapters;
    const double position = film_.position() + tolerance;
    std::optional<std::size_t> current;
    for (std::size_t index = 0; index < chapters.size(); ++index) {
        if (chapters[index].start <= position) {
            current = index;
        }
    }
    return current;
}

std::vector<MenuEntry> FilmMenus::mainEntries() const {
    const auto leadTo = [](const char* text, MenuKind kind) { return MenuEntry{text, false, kind, nullptr}; };
    std::vector<MenuEntry> entries{leadTo("Speed", MenuKind::Speed)};
    if (hasTracks(TrackKind::Audio)) {
        entries.push_back(leadTo("Audio track", MenuKind::AudioTracks));
    }
    if (hasTracks(TrackKind::Subtitle)) {
        entries.push_back(leadTo("Subtitles", MenuKind::Subtitles));
    }
    if (!playback_.state().chapters.empty()) {
        entries.push_back(leadTo("Chapters", MenuKind::Chapters));
    }
    return entries;
}

std::vector<MenuEntry> FilmMenus::speedEntries() const {
    std::vector<MenuEntry> entries;
    entries.reserve(speeds.size());
    for (const Speed& speed : speeds) {
        entries.push_back({speed.name, playback_.state().speed == speed.factor, std::nullopt,
                           [this, factor = speed.factor] { playback_.setSpeed(factor); }});
    }
    return entries;
}

bool FilmMenus::hasTracks(TrackKind kind) const {
    const std::vector<Track>& tracks = playback_.state().tracks;
    return std::any_of(tracks.begin(), tracks.end(), [kind](const Track& each) { return each.kind == kind; });
}

std::vector<MenuEntry> FilmMenus::trackEntries(TrackKind kind) const {
    std::vector<MenuEntry> entries;
    bool isAnySelected = false;
    for (const Track& track : playback_.state().tracks) {
        if (track.kind == kind) {
            isAnySelected = isAnySelected || track.isSelected;
            entries.push_back(
                {track.name, track.isSelected, std::nullopt,
                 [this, kind, identifier = track.identifier] { playback_.selectTrack(kind, identifier); }});
        }
    }
    if (kind == TrackKind::Subtitle) {
        entries.insert(entries.begin(), {"Off", !isAnySelected, std::nullopt,
                                         [this, kind] { playback_.selectTrack(kind, std::nullopt); }});
    }
    return entries;
}

std::vector<MenuEntry> FilmMenus::chapterEntries() const {
    const std::vector<Chapter>& chapters = playback_.state().chapters;
    const std::optional<std::size_t> current = currentChapter();
    std::vector<MenuEntry> entries;
    for (std::size_t index = 0; index < chapters.size(); ++index) {
        const Chapter& chapter = chapters[index];
        const std::string name = chapter.name.empty() ? "Chapter " + std::to_string(index + 1) : chapter.name;
        entries.push_back({name, index == current, std::nullopt,
                           [this, start = chapter.start] { film_.seek(start, SeekPrecision::Exact); }});
    }
    return entries;
}

std::vector<MenuEntry> FilmMenus::deviceEntries() const {
    std::vector<MenuEntry> entries;
    for (const AudioDevice& device : playback_.state().audioDevices) {
        entries.push_back(
            {device.name, device.isSelected, std::nullopt,
             [this, identifier = device.identifier] { playback_.selectAudioDevice(identifier); }});
    }
    return entries;
}

} // namespace KivUICore::Overlay
