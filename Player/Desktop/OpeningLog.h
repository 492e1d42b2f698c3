#pragma once

#include <mpv/client.h>
#include <optional>
#include <string>
#include <string_view>

namespace KivUICore::Player {

/// What libmpv says while it opens a film, and what a person should know of that. Reasons are the end of a
/// sentence ("Connection refused").
class OpeningLog {
public:
    void note(const mpv_event_log_message& message);

    /// What the library itself says went wrong with the file or the connection.
    std::optional<std::string> problem() const;

    /// Why the file or the connection could not be opened, by that or else by how the talk with the server
    /// went; nothing where neither tells.
    std::optional<std::string> whyNotOpened() const;

    /// Why what was opened can't be recognised as a film; nothing where all that is known is that it isn't
    /// one.
    std::optional<std::string> whyNotRecognised() const;

    /// Whether there was something for which there is no decoder.
    bool lacksDecoder() const { return lacksDecoder_; }

private:
    void noteProblem(std::string_view text);
    void noteTalk(std::string_view text);
    void noteHeader(std::string_view header);
    std::optional<std::string> describeAnswer() const;

    // The last word of whoever was nearest to the network.
    std::string problem_;
    bool isProblemOfNetwork_ = false;

    bool hasAsked_ = false;
    bool isAnswered_ = false;
    int status_ = 0;
    int redirections_ = 0;
    bool isEmpty_ = false;
    bool isWebPage_ = false;

    bool lacksIndex_ = false;
    bool lacksDecoder_ = false;
};

/// Whether the library complains of the end of a file that the server told no length of: it is no problem.
bool isEndOfUnknownLength(std::string_view text);

} // namespace KivUICore::Player
