#pragma once

#include <cstdint>
#include <mpv/client.h>

namespace KivUICore::Player {

/// Follows the newest seek from the moment it is asked for until its picture is there, by libmpv's events.
class SeekProgress {
public:
    bool isSeeking() const { return stage_ != Stage::None; }

    /// A seek is asked for now. Returns the identifier for its command, never 0.
    std::uint64_t begin();

    void handle(const mpv_event& event);

private:
    enum class Stage {
        None,
        Asked,
        /// Accepted, but an earlier seek may have to show its picture first.
        Queued,
        Going,
    };

    void noteReply(const mpv_event& reply);
    void noteLog(const mpv_event_log_message& message);

    Stage stage_ = Stage::None;
    std::uint64_t newest_ = 0;
};

} // namespace KivUICore::Player
