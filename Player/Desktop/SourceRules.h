#pragma once

#include <array>
#include <mpv/client.h>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace KivUICore::Player {

/// What is opened, whoever names it: the viewer, a playlist, a film that consists of several files or another
/// program. Docs/sources.md tells the rules.
class SourceRules {
public:
    /// Whose fault it is that something was refused: that of the film itself, or of the list that leads to
    /// it.
    enum class Culprit { Film, List };

    struct Refusal {
        Culprit culprit;

        /// The end of a sentence.
        std::string reason;
    };

    /// Options that hold libmpv to the rules wherever a film leads.
    static std::array<std::pair<std::string, std::string>, 3> settings();

    /// Has libmpv ask before it opens something. Whoever takes its events must answer, or it waits for ever.
    static void askFor(mpv_handle* handle);

    /// Answers libmpv's question. Why it must not open that; nothing when it may.
    static std::optional<Refusal> answer(mpv_handle* handle, const mpv_event_hook& question);

    /// What a message of libmpv says of something that it has refused; nothing if it is about anything else.
    static std::optional<Refusal> refusalIn(std::string_view message);
};

} // namespace KivUICore::Player
