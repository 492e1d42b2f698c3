#include "Player/Desktop/FilmOpening.h"

#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/MpvClient.h"

#include <string_view>

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

std::string describe(int error, const std::string& cause) {
    switch (error) {
    case MPV_ERROR_UNKNOWN_FORMAT:
        return "it is no film or sound that can be recognised";
    case MPV_ERROR_NOTHING_TO_PLAY:
        return "there is neither picture nor sound in it";
    case MPV_ERROR_LOADING_FAILED:
        return cause.empty() ? "it cannot be opened" : cause;
    default:
        return mpv_error_string(error);
    }
}

} // namespace

void FilmOpening::begin(MpvClient& client, const std::string& location, double start) {
    *this = {};
    location_ = location;
    start_ = start;
    if (client.failure()) {
        failure_ = client.failure();
        return;
    }
    if (!isUrl(location)) {
        if (const std::optional<std::string> reason = whyUnreadable(location)) {
            fail(*reason);
            return;
        }
    }
    client.setText("start", std::to_string(start));
    client.command({"loadfile", location.c_str()});
}

void FilmOpening::handle(const mpv_event& event) {
    switch (event.event_id) {
    case MPV_EVENT_START_FILE:
        endError_.reset();
        hasEnded_ = false;
        break;
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
        fail(describe(*endError_, cause_));
    } else if (!hasDecoded_ && (hasEnded_ || (isLoaded_ && client.flag("eof-reached").value_or(false)))) {
        fail("nothing in it can be decoded");
    }
}

void FilmOpening::fail(const std::string& reason) { failure_ = "cannot play '" + location_ + "': " + reason; }

bool hasDecodedAnything(const MpvClient& client) {
    return client.number("video-out-params/w") || client.number("audio-params/samplerate");
}

} // namespace Player
