#pragma once

#include <functional>
#include <mpv/client.h>
#include <optional>
#include <string>

namespace KivUICore::Player {

class MpvClient;

/// Adds files of subtitles to the film that is loaded, one after the other.
class SubtitleFile {
public:
    /// What came of adding one: `reason` is the end of a sentence on why it failed, nothing when it is there.
    struct Result {
        std::string location;
        std::optional<std::string> reason;
    };

    /// True for names of files that hold nothing but subtitles.
    static bool isNamedSo(const std::string& location);

    /// Asks `client` to add a file and to show it.
    void add(MpvClient& client, const std::string& location);

    /// What the event tells came of the newest; that of an older one is of no interest any more.
    std::optional<Result> handle(const mpv_event& event);

private:
    std::string location_;
    int unanswered_ = 0;
};

} // namespace KivUICore::Player
