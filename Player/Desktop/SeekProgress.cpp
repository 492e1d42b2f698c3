#include "Player/Desktop/SeekProgress.h"

#include <string_view>

namespace KivUICore::Player {

std::uint64_t SeekProgress::begin() {
    stage_ = Stage::Asked;
    return ++newest_;
}

void SeekProgress::handle(const mpv_event& event) {
    switch (event.event_id) {
    case MPV_EVENT_COMMAND_REPLY:
        noteReply(event);
        break;
    case MPV_EVENT_SEEK:
        stage_ = stage_ == Stage::Queued ? Stage::Going : stage_;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        stage_ = stage_ == Stage::Going ? Stage::None : stage_;
        break;
    case MPV_EVENT_END_FILE:
    case MPV_EVENT_QUEUE_OVERFLOW:
        // A seek whose reply is still to come may be meant for the film after this one. Of any other the end
        // may be among the events that were lost.
        stage_ = stage_ == Stage::Asked ? stage_ : Stage::None;
        break;
    case MPV_EVENT_LOG_MESSAGE:
        noteLog(*static_cast<const mpv_event_log_message*>(event.data));
        break;
    default:
        break;
    }
}

void SeekProgress::noteReply(const mpv_event& reply) {
    if (stage_ == Stage::Asked && reply.reply_userdata == newest_) {
        stage_ = reply.error < 0 ? Stage::None : Stage::Queued;
    }
}

// The one failure after a seek was accepted, and the library tells of it in no other way.
void SeekProgress::noteLog(const mpv_event_log_message& message) {
    if (stage_ == Stage::Queued && std::string_view(message.text).starts_with("Cannot seek in this stream")) {
        stage_ = Stage::None;
    }
}

} // namespace KivUICore::Player
