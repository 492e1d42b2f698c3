#pragma once

#include <filesystem>
#include <mpv/client.h>
#include <optional>
#include <string>
#include <string_view>

namespace KivUICore::Player {

/// Finds out whether a film that comes to its end does so before its time: by what libmpv says while it
/// plays, and by what becomes of the file.
class FilmInterruption {
public:
    /// Another film begins: a file's path or a URL.
    void begin(const std::string& location);

    void noteLog(const mpv_event_log_message& message);

    /// The film is sent to `place`, in seconds, and should go on from there.
    void sendTo(double place) { place_ = place; }

    /// The film, of that length if it is known, is at `position`: there it was sent, or it played until
    /// there.
    void follow(double position, const std::optional<double>& duration);

    /// The last place that the film was sent to or that was played, in seconds. Where nothing is left to be
    /// read libmpv goes to the end, wherever it was sent: that doesn't count.
    double place() const { return place_; }

    /// Why a film of that length ended at its last place, as the end of a sentence; nothing where that is
    /// its end.
    std::optional<std::string> reason(const std::optional<double>& duration) const;

private:
    /// What tells one state of a file from another.
    struct Stamp {
        std::filesystem::file_time_type changed;
        std::uintmax_t size = 0;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    static std::optional<Stamp> stampOf(const std::string& path);
    bool hasFileChanged() const;

    // A file's path; empty for a URL.
    std::string path_;
    std::optional<Stamp> stamp_;
    double place_ = 0.0;
    bool isConnectionLost_ = false;
    bool isLiveStreamLost_ = false;
    bool isIncomplete_ = false;
};

} // namespace KivUICore::Player
