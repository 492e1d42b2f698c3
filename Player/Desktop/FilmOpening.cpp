#include "Player/Desktop/FilmOpening.h"

#include "Player/Desktop/FilmLocation.h"
#include "Player/Desktop/MpvClient.h"
#include "Player/Desktop/MpvLists.h"

#include <limits>
#include <utility>

namespace KivUICore::Player {

namespace {

// No seek ever counts that far.
constexpr std::uint64_t openCommand = std::numeric_limits<std::uint64_t>::max() - 1;

// Each takes the library a millisecond or more, and a server's much more.
constexpr int mostTries = 1000;

} // namespace

void FilmOpening::begin(MpvClient& client, const std::string& location, double start) {
    takeOver(location);
    start_ = start;
    begin_ = client.time();
    if (client.failure()) {
        failure_ = client.failure();
        return;
    }
    if (const auto reason = isLocal() ? whyUnreadable(*localPath(location)) : std::nullopt) {
        client.command({"stop"});
        fail(*reason);
        return;
    }
    client.setLogDetail(isLocal() ? MpvClient::LogDetail::Problems : MpvClient::LogDetail::Network);
    client.setText("start", std::to_string(start));
    client.command({"loadfile", location.c_str()}, openCommand);
    ++unanswered_;
    isAwaited_ = true;
}

bool FilmOpening::isLocal() const { return localPath(location_).has_value(); }

void FilmOpening::takeOver(std::string location) {
    const int unanswered = unanswered_;
    *this = {};
    location_ = std::move(location);
    unanswered_ = unanswered;
}

void FilmOpening::handle(const mpv_event& event, MpvClient& client) {
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        unanswered_ -= event.reply_userdata == openCommand ? 1 : 0;
        break;
    case MPV_EVENT_START_FILE:
        if (unanswered_ == 0 && !std::exchange(isAwaited_, false)) {
            noteStart(static_cast<const mpv_event_start_file*>(event.data)->playlist_entry_id, client);
        }
        break;
    case MPV_EVENT_QUEUE_OVERFLOW:
        if (unanswered_ == 0) {
            catchUp(client);
        }
        break;
    case MPV_EVENT_HOOK:
        answer(*static_cast<const mpv_event_hook*>(event.data), client);
        break;
    default:
        if (!isAwaited_) {
            noteEvent(event, client);
        }
        break;
    }
}

void FilmOpening::answer(const mpv_event_hook& question, const MpvClient& client) {
    entryLocation_ = client.text("path").value_or("");
    const std::optional<SourceRules::Refusal> refusal = SourceRules::answer(client.handle(), question);
    if (refusal && !isAwaited_) {
        refusal_ = refusal;
        hasRefused_ = true;
    }
}

// The entries of a list are tried under the list's name: there may be thousands before one can be played.
void FilmOpening::noteStart(std::int64_t entry, const MpvClient& client) {
    if (isLoaded_ || !lists_.includes(entry)) {
        takeOver(locationOfEntry(client, entry).value_or(location_));
        begin_ = client.time();
    } else {
        isOneOfMany_ = isOneOfMany_ || lists_.includes(entry_);
        isIdle_ = false;
        ++tries_;
    }
    entry_ = entry;
}

// Events were lost. What is so now is all that can be known.
void FilmOpening::catchUp(const MpvClient& client) {
    isAwaited_ = false;
    isOneOfMany_ = true;
    isIdle_ = client.flag("idle-active").value_or(false);
    if (isIdle_) {
        endError_ = endError_.value_or(MPV_ERROR_LOADING_FAILED);
    } else if (client.number("track-list/count").value_or(0) > 0) {
        nameEntry();
        isLoaded_ = true;
        isAtStart_ = !client.flag("seeking").value_or(true);
    }
}

void FilmOpening::nameEntry() {
    if (isOfList() && !entryLocation_.empty()) {
        location_ = entryLocation_;
    }
}

void FilmOpening::noteEvent(const mpv_event& event, MpvClient& client) {
    switch (event.event_id) {
    case MPV_EVENT_IDLE:
        isIdle_ = true;
        break;
    case MPV_EVENT_FILE_LOADED:
        isLoaded_ = true;
        client.setLogDetail(MpvClient::LogDetail::Problems);
        endError_.reset();
        nameEntry();
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        isAtStart_ = isLoaded_;
        break;
    case MPV_EVENT_LOG_MESSAGE:
        noteLog(*static_cast<const mpv_event_log_message*>(event.data));
        break;
    case MPV_EVENT_END_FILE:
        noteEnd(*static_cast<const mpv_event_end_file*>(event.data));
        break;
    default:
        break;
    }
}

void FilmOpening::noteEnd(const mpv_event_end_file& end) {
    hasEnded_ = end.reason == MPV_END_FILE_REASON_EOF;
    if (end.reason == MPV_END_FILE_REASON_ERROR) {
        endError_ = end.error;
    } else if (end.reason == MPV_END_FILE_REASON_REDIRECT) {
        lists_.noteList(end);
    }
}

void FilmOpening::noteLog(const mpv_event_log_message& message) {
    const std::optional<SourceRules::Refusal> refusal = SourceRules::refusalIn(message.text);
    if (refusal && !hasRefused_) {
        refusal_ = refusal;
    }
    log_.note(message);
}

void FilmOpening::conclude(MpvClient& client) {
    if (failure_) {
        return;
    }
    // Not earlier: the library answers nothing while its first picture waits to be drawn.
    hasDecoded_ = hasDecoded_ || (isAtStart_ && hasDecodedAnything(client));
    if (lists_.isEndless()) {
        client.command({"stop"});
        fail("it leads from one list to the next without end");
    } else if (tries_ > mostTries && !isLoaded_) {
        client.command({"stop"});
        fail("none of the first " + std::to_string(mostTries) + " films in it can be played");
    } else if (isInVain(client)) {
        failInVain(client);
    }
}

// While the library isn't idle it goes on to the next entry of a list.
bool FilmOpening::isInVain(const MpvClient& client) const {
    const bool isOver = isIdle_ && (endError_ || (!hasDecoded_ && (hasEnded_ || lists_.hasLists())));
    return isOver || (!hasDecoded_ && isAtStart_ && client.flag("eof-reached").value_or(false));
}

void FilmOpening::failInVain(const MpvClient& client) {
    if (isLoaded_ && !endError_) {
        fail("nothing in it can be decoded");
    } else if (lists_.hasLists() && lists_.isEmpty()) {
        fail("there is nothing in it to play");
    } else if (isOneOfMany_ || !endError_) {
        fail("nothing in it can be played");
    } else {
        if (!refusal_ || refusal_->culprit == SourceRules::Culprit::Film) {
            nameEntry();
        }
        fail(describeEnd(client));
    }
}

// That a server took too long is the one failure of it that the library doesn't tell.
std::optional<std::string> FilmOpening::describeSilence(const MpvClient& client) const {
    const std::int64_t patience = client.number("network-timeout").value_or(0);
    const bool isOver = client.time() - begin_ >= static_cast<double>(patience);
    return !isLocal() && patience > 0 && isOver
               ? std::optional("the server did not answer within " + std::to_string(patience) + " seconds")
               : std::nullopt;
}

std::string FilmOpening::describeLoading(const MpvClient& client) const {
    for (const auto& reason : {isLocal() ? whyUnreadable(*localPath(location_)) : std::nullopt,
                               log_.problem(), describeSilence(client), log_.whyNotOpened()}) {
        if (reason) {
            return *reason;
        }
    }
    return "it cannot be opened";
}

std::string FilmOpening::describeEnd(const MpvClient& client) const {
    constexpr const char* noDecoder =
        "no decoder fits what is in it: it may be damaged, protected or of a rare kind";
    if (refusal_) {
        return refusal_->reason;
    }
    switch (*endError_) {
    case MPV_ERROR_UNKNOWN_FORMAT:
        return log_.whyNotRecognised().value_or("it is no film or sound that can be recognised");
    case MPV_ERROR_NOTHING_TO_PLAY:
        return log_.lacksDecoder() ? noDecoder : "there is neither picture nor sound in it";
    case MPV_ERROR_LOADING_FAILED:
        return describeLoading(client);
    case MPV_ERROR_AO_INIT_FAILED:
        return "the sound output cannot be started; is another program using it?";
    case MPV_ERROR_VO_INIT_FAILED:
        return "the picture output cannot be started";
    case MPV_ERROR_NOMEM:
        return "there is not enough memory";
    default:
        return noDecoder;
    }
}

void FilmOpening::cancel(MpvClient& client) {
    client.command({"stop"}, openCommand);
    ++unanswered_;
    isAwaited_ = false;
    fail("opening it was cancelled");
}

void FilmOpening::fail(const std::string& reason) {
    failure_ = {Overlay::PlaybackError::Kind::Unplayable, shownLocation(location_), withoutSecrets(reason)};
}

bool hasDecodedAnything(const MpvClient& client) {
    return client.number("video-out-params/w") || client.number("audio-params/samplerate");
}

} // namespace KivUICore::Player
