#include "Player/Desktop/FilmOpening.h"

#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/MpvClient.h"
#include "Player/Desktop/MpvLists.h"

#include <limits>
#include <string_view>
#include <utility>

namespace Player {

namespace {

// "tcp: Connection to tcp://127.0.0.1:1 failed: Connection refused" ends with what a person wants to know.
std::string lastPart(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('.')) {
        text.remove_suffix(1);
    }
    const std::size_t colon = text.rfind(": ");
    return std::string(colon == std::string_view::npos ? text : text.substr(colon + 2));
}

// No seek ever counts that far.
constexpr std::uint64_t openCommand = std::numeric_limits<std::uint64_t>::max() - 1;

} // namespace

void FilmOpening::begin(MpvClient& client, const std::string& location, double start) {
    takeOver(location);
    start_ = start;
    begin_ = client.time();
    if (client.failure()) {
        failure_ = client.failure();
        return;
    }
    if (!isUrl(location)) {
        if (const std::optional<std::string> reason = whyUnreadable(location)) {
            client.command({"stop"});
            fail(*reason);
            return;
        }
    }
    client.setText("start", std::to_string(start));
    client.command({"loadfile", location.c_str()}, openCommand);
    ++unanswered_;
    isAwaited_ = true;
}

void FilmOpening::takeOver(std::string location) {
    const int unanswered = unanswered_;
    *this = {};
    location_ = std::move(location);
    unanswered_ = unanswered;
}

void FilmOpening::handle(const mpv_event& event, const MpvClient& client) {
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        unanswered_ -= event.reply_userdata == openCommand ? 1 : 0;
        break;
    case MPV_EVENT_START_FILE:
        if (unanswered_ == 0 && !std::exchange(isAwaited_, false)) {
            const auto& start = *static_cast<const mpv_event_start_file*>(event.data);
            takeOver(locationOfEntry(client, start.playlist_entry_id).value_or(location_));
            begin_ = client.time();
        }
        break;
    default:
        if (!isAwaited_) {
            noteEvent(event);
        }
        break;
    }
}

void FilmOpening::noteEvent(const mpv_event& event) {
    switch (event.event_id) {
    case MPV_EVENT_FILE_LOADED:
        isLoaded_ = true;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        isAtStart_ = isLoaded_;
        break;
    case MPV_EVENT_LOG_MESSAGE:
        noteLog(*static_cast<const mpv_event_log_message*>(event.data));
        break;
    case MPV_EVENT_END_FILE: {
        const auto& end = *static_cast<const mpv_event_end_file*>(event.data);
        hasEnded_ = end.reason == MPV_END_FILE_REASON_EOF;
        if (end.reason == MPV_END_FILE_REASON_ERROR) {
            endError_ = end.error;
        }
        break;
    }
    default:
        break;
    }
}

// What a server answers is only a warning to the library, which may come round it.
void FilmOpening::noteLog(const mpv_event_log_message& message) {
    const std::string_view prefix = message.prefix;
    if (prefix != "ffmpeg" && prefix != "file") {
        return;
    }
    const std::string part = lastPart(message.text);
    if (message.log_level <= MPV_LOG_LEVEL_ERROR || part.starts_with("HTTP error")) {
        cause_ = part;
    }
}

void FilmOpening::conclude(const MpvClient& client) {
    if (failure_) {
        return;
    }
    hasDecoded_ = hasDecoded_ || (isLoaded_ && hasDecodedAnything(client));
    if (endError_) {
        fail(describeEnd(client));
    } else if (!hasDecoded_ && (hasEnded_ || (isLoaded_ && client.flag("eof-reached").value_or(false)))) {
        fail("nothing in it can be decoded");
    }
}

// That a server took too long is the one failure of it that the library doesn't tell.
std::string FilmOpening::describeSilence(const MpvClient& client) const {
    const std::int64_t patience = client.number("network-timeout").value_or(0);
    const bool isOver = client.time() - begin_ >= static_cast<double>(patience);
    return isUrl(location_) && patience > 0 && isOver
               ? "the server did not answer within " + std::to_string(patience) + " seconds"
               : "it cannot be opened";
}

std::string FilmOpening::describeEnd(const MpvClient& client) const {
    switch (*endError_) {
    case MPV_ERROR_UNKNOWN_FORMAT:
        return "it is no film or sound that can be recognised";
    case MPV_ERROR_NOTHING_TO_PLAY:
        return "there is neither picture nor sound in it";
    case MPV_ERROR_LOADING_FAILED:
        if (const auto unreadable = isUrl(location_) ? std::nullopt : whyUnreadable(location_)) {
            return *unreadable;
        }
        return cause_.empty() ? describeSilence(client) : cause_;
    default:
        return mpv_error_string(*endError_);
    }
}

void FilmOpening::fail(const std::string& reason) { failure_ = "cannot play '" + location_ + "': " + reason; }

bool hasDecodedAnything(const MpvClient& client) {
    return client.number("video-out-params/w") || client.number("audio-params/samplerate");
}

} // namespace Player
