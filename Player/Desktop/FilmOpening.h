#pragma once

#include "Player/Desktop/ListTrail.h"
#include "Player/Desktop/OpeningLog.h"
#include "Player/Desktop/SourceRules.h"
#include "Player/Overlay/Film/PlaybackError.h"

#include <cstdint>
#include <mpv/client.h>
#include <optional>
#include <string>

namespace KivUICore::Player {

class MpvClient;

/// How a film is opened, and whether it turns out to be one. Works for one film after the other, also for
/// those that another program has the library open. A list of films is opened as the first of them that can
/// be played; where that is none of the first thousand, it is given up.
class FilmOpening {
public:
    /// Asks `client` to open a file or URL, to be played from `start` in seconds; one beyond the end is the
    /// end.
    void begin(MpvClient& client, const std::string& location, double start);

    /// Also answers what the library asks before it opens something.
    void handle(const mpv_event& event, MpvClient& client);

    /// Call it when all events at hand are handled.
    void conclude(MpvClient& client);

    /// A file's path or a URL; empty while none was opened. That of a list until a film in it is found.
    const std::string& location() const { return location_; }

    /// True where it came out of a list.
    bool isOfList() const { return lists_.includes(entry_); }

    /// Where it was to start, in seconds.
    double start() const { return start_; }

    /// True once it is known what is in it.
    bool isLoaded() const { return isLoaded_; }

    /// True once the place asked for is reached.
    bool isAtStart() const { return isAtStart_; }

    /// Why it can't be played.
    const std::optional<Overlay::PlaybackError>& failure() const { return failure_; }

    /// Gives up. What is on its way ends some time later; the failure is there at once.
    void cancel(MpvClient& client);

    /// It can't be played for this reason, which is the end of a sentence ("no such file").
    void fail(const std::string& reason);

private:
    void answer(const mpv_event_hook& question, const MpvClient& client);
    void takeOver(std::string location);
    void noteEvent(const mpv_event& event, MpvClient& client);
    bool isLocal() const;
    std::optional<std::string> describeSilence(const MpvClient& client) const;
    std::string describeLoading(const MpvClient& client) const;
    void noteStart(std::int64_t entry, const MpvClient& client);
    void nameEntry();
    void noteEnd(const mpv_event_end_file& end);
    void catchUp(const MpvClient& client);
    bool isInVain(const MpvClient& client) const;
    void failInVain(const MpvClient& client);
    std::string describeEnd(const MpvClient& client) const;
    void noteLog(const mpv_event_log_message& message);

    std::string location_;
    double start_ = 0.0;
    std::optional<Overlay::PlaybackError> failure_;

    OpeningLog log_;

    // What in it was not opened, as it must not be.
    std::optional<SourceRules::Refusal> refusal_;

    // The player itself did that, which it tells better than the library.
    bool hasRefused_ = false;
    std::optional<int> endError_;

    ListTrail lists_;
    std::int64_t entry_ = 0;
    std::string entryLocation_;
    bool isOneOfMany_ = false;

    // How many entries of lists were begun.
    int tries_ = 0;
    double begin_ = 0.0;

    // Until the library begins with the film, what it tells is about the one before; and until it answered
    // the command, so is that it begins.
    bool isAwaited_ = false;
    int unanswered_ = 0;
    bool isIdle_ = false;
    bool isLoaded_ = false;
    bool hasEnded_ = false;
    bool hasDecoded_ = false;
    bool isAtStart_ = false;
};

/// Whether the film's picture or sound could be decoded so far.
bool hasDecodedAnything(const MpvClient& client);

} // namespace KivUICore::Player
