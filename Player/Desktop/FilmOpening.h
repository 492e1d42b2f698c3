#pragma once

#include <mpv/client.h>
#include <optional>
#include <string>

namespace Player {

class MpvClient;

/// How a film is opened, and whether it turns out to be one. Works for one film after the other, also for
/// those that another program has the library open.
class FilmOpening {
public:
    /// Asks `client` to open a file or URL, to be played from `start` in seconds; one beyond the end is the
    /// end.
    void begin(MpvClient& client, const std::string& location, double start);

    void handle(const mpv_event& event, const MpvClient& client);

    /// Call it when all events at hand are handled.
    void conclude(const MpvClient& client);

    /// A file's path or a URL; empty while none was opened.
    const std::string& location() const { return location_; }

    /// Where it was to start, in seconds.
    double start() const { return start_; }

    /// True once it is known what is in it.
    bool isLoaded() const { return isLoaded_; }

    /// True once the place asked for is reached.
    bool isAtStart() const { return isAtStart_; }

    /// Why it can't be played, as one sentence without its end ("cannot play 'a.mkv': no such file").
    const std::optional<std::string>& failure() const { return failure_; }

    void fail(const std::string& reason);

private:
    void takeOver(std::string location);
    void noteEvent(const mpv_event& event);
    std::string describeSilence(const MpvClient& client) const;
    std::string describeEnd(const MpvClient& client) const;
    void noteLog(const mpv_event_log_message& message);

    std::string location_;
    double start_ = 0.0;
    std::optional<std::string> failure_;

    // What the library said last about a connection or file that it could not open.
    std::string cause_;
    std::optional<int> endError_;
    double begin_ = 0.0;

    // Until the library begins with the film, what it tells is about the one before; and until it answered
    // the command, so is that it begins.
    bool isAwaited_ = false;
    int unanswered_ = 0;
    bool isLoaded_ = false;
    bool hasEnded_ = false;
    bool hasDecoded_ = false;
    bool isAtStart_ = false;
};

/// Whether the film's picture or sound could be decoded so far.
bool hasDecodedAnything(const MpvClient& client);

} // namespace Player
