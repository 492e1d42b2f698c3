#pragma once

#include <string>

namespace KivUICore::Overlay {

/// What went wrong with a film or its player. Each reader makes its own words of it.
struct PlaybackError {
    enum class Kind {
        /// The film can't be played at all.
        Unplayable,

        /// The film was played up to a place that is not its end, and can be tried again from there.
        Interrupted,

        /// The film plays on without these subtitles.
        NoSubtitles,

        /// There is no player to play anything with.
        NoPlayer,

        /// Other programs can't reach the player. The film goes on.
        Unreachable,
    };

    Kind kind = Kind::Unplayable;

    /// Which film: its path or URL, as people may see it; empty where it is no film's fault.
    std::string subject;

    /// The end of a sentence: "no such file". May be empty.
    std::string reason;

    friend bool operator==(const PlaybackError&, const PlaybackError&) = default;
};

/// All of it as one sentence without its end, for a terminal: "cannot play 'a.mkv': no such file".
std::string lineOf(const PlaybackError& error);

/// All of it as one sentence, for a viewer: "Cannot play 'a.mkv': no such file." A long name keeps its
/// beginning and its end alone, so that a small window has room for the reason.
std::string sentenceOf(const PlaybackError& error);

/// The reason alone as a sentence, for where there is room for no more: "No such file."
std::string reasonSentenceOf(const PlaybackError& error);

} // namespace KivUICore::Overlay
