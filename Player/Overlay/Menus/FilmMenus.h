#pragma once

#include "Player/Overlay/Film/FilmCommands.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace KivUICore::Overlay {

enum class MenuKind { Main, Speed, AudioTracks, Subtitles, Chapters, AudioDevices };

/// A line of a menu: it opens another menu, or does something.
struct MenuEntry {
    std::string text;

    /// Marked with a tick.
    bool isCurrent = false;
    std::optional<MenuKind> opens;
    std::function<void()> choose;
};

/// What the menus over a film offer.
class FilmMenus {
public:
    /// Both outlive the menus and what their entries do.
    FilmMenus(Playback& playback, FilmCommands& film) : playback_(playback), film_(film) {}

    /// The main menu leads to the others, but for the one of audio devices, as far as there is something to
    /// choose in them.
    std::vector<MenuEntry> entries(MenuKind kind) const;

    /// Call it after each change of the playback. True if a menu's entries may be others than at the last
    /// call.
    bool playbackDidChange();

private:
    /// What entries are made of.
    struct Offer {
        double speed = 1.0;
        std::vector<Track> tracks;
        std::vector<Chapter> chapters;
        std::optional<std::size_t> chapter;
        std::vector<AudioDevice> audioDevices;
    };

    std::optional<std::size_t> currentChapter() const;
    std::vector<MenuEntry> mainEntries() const;
    std::vector<MenuEntry> speedEntries() const;
    std::vector<MenuEntry> trackEntries(TrackKind kind) const;
    std::vector<MenuEntry> chapterEntries() const;
    std::vector<MenuEntry> deviceEntries() const;
    bool hasTracks(TrackKind kind) const;

    Playback& playback_;
    FilmCommands& film_;
    Offer told_;
};

} // namespace KivUICore::Overlay
