#include "Player/Desktop/FilmInterruption.h"

#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/OpeningLog.h"

#include <algorithm>
#include <array>
#include <system_error>

namespace KivUICore::Player {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 2> connectionSigns{"Stream ends prematurely", "Will reconnect at"};
constexpr std::array<std::string_view, 1> liveStreamSigns{"Failed to reload playlist"};
constexpr std::array<std::string_view, 3> incompleteSigns{"incomplete file?", "partial file",
                                                          "partial or corrupt file?"};

// What is left of a film in its last pictures, in seconds.
constexpr double lastPictures = 2.0;

bool isAtEnd(double position, const std::optional<double>& duration) {
    return duration && *duration - position <= lastPictures;
}

template <std::size_t Count>
bool holdsAny(std::string_view text, const std::array<std::string_view, Count>& signs) {
    return std::any_of(signs.begin(), signs.end(),
                       [text](std::string_view sign) { return text.find(sign) != std::string_view::npos; });
}

} // namespace

void FilmInterruption::begin(const std::string& location) {
    *this = {};
    path_ = localPath(location).value_or("");
    stamp_ = stampOf(path_);
}

void FilmInterruption::noteLog(const mpv_event_log_message& message) {
    const std::string_view prefix = message.prefix;
    const std::string_view text = message.text;
    if (prefix.starts_with("ffmpeg") || prefix == "mkv") {
        isConnectionLost_ =
            isConnectionLost_ || (holdsAny(text, connectionSigns) && !isEndOfUnknownLength(text));
        isLiveStreamLost_ = isLiveStreamLost_ || holdsAny(text, liveStreamSigns);
        isIncomplete_ = isIncomplete_ || holdsAny(text, incompleteSigns);
    }
}

void FilmInterruption::follow(double position, const std::optional<double>& duration) {
    const bool isCarried = isAtEnd(position, duration) && position - place_ > lastPictures;
    if (!isCarried) {
        place_ = position;
    }
}

// A length may be an estimate. What ends early is interrupted only where something else says so too.
std::optional<std::string> FilmInterruption::reason(const std::optional<double>& duration) const {
    if (isLiveStreamLost_) {
        return "the server sends no more of it";
    }
    if (isAtEnd(place_, duration)) {
        return std::nullopt;
    }
    if (isConnectionLost_) {
        return "the connection was lost";
    }
    if (duration && hasFileChanged()) {
        return "the file was changed or cut off while it was played";
    }
    if (duration && isIncomplete_) {
        return "the file is incomplete";
    }
    return std::nullopt;
}

std::optional<FilmInterruption::Stamp> FilmInterruption::stampOf(const std::string& path) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) {
        return std::nullopt;
    }
    const fs::file_time_type changed = fs::last_write_time(path, error);
    const std::uintmax_t size = error ? 0 : fs::file_size(path, error);
    return error ? std::nullopt : std::optional(Stamp{changed, size});
}

bool FilmInterruption::hasFileChanged() const { return stamp_ && stampOf(path_) != stamp_; }

} // namespace KivUICore::Player
