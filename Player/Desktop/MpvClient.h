#pragma once

#include "Player/Overlay/Film/PlaybackError.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <mpv/client.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KivUICore::Player {

/// One instance of libmpv, set up to be embedded. Where it can't be started, all of it does nothing and
/// `failure` tells why.
class MpvClient {
public:
    using Setting = std::pair<std::string, std::string>;

    /// `settings` come on top of what every instance has, or in its place.
    explicit MpvClient(const std::vector<Setting>& settings);
    MpvClient(const MpvClient&) = delete;
    MpvClient& operator=(const MpvClient&) = delete;

    /// Waits for the library to end, but not for long: it may be kept waiting itself, by a name server or a
    /// disk, and then ends by itself later.
    ~MpvClient();

    /// Whether an instance that was let go has not ended yet.
    static bool isAnyEnding();

    /// Lets the library go without waiting for it. Nothing else can be done afterwards.
    void abandon();

    const std::optional<Overlay::PlaybackError>& failure() const { return failure_; }

    /// Null where it can't be started.
    mpv_handle* handle() const { return handle_.get(); }

    /// `wakeUp` is called on any thread when there may be events; it must not call back.
    void setWakeUp(std::function<void()> wakeUp);

    /// Hands the events at hand to `handle`, one after the other, which isn't kept. There may be more of them
    /// than there is time for: after a moment the rest are left, and the wake-up is called for them.
    void takeEvents(const std::function<void(const mpv_event&)>& handle);

    /// Asks for a command and returns at once. Its result comes as an event that carries `identifier`.
    void command(std::initializer_list<const char*> words, std::uint64_t identifier = 0);

    /// Change a property soon; a value that the library doesn't want changes nothing. That it was done comes
    /// as an event that carries `identifier`.
    void setFlag(const char* name, bool value, std::uint64_t identifier = 0);
    void setNumber(const char* name, double value);
    void setText(const char* name, const std::string& value);

    /// How much the library tells as log messages, from now on.
    enum class LogDetail {
        Problems,
        /// Also what it says to servers, and they to it.
        Network,
    };
    void setLogDetail(LogDetail detail);

    /// Seconds since some moment in the past.
    double time() const;

    /// What a property is now; nothing while it has no value.
    std::optional<bool> flag(const char* name) const;
    std::optional<std::int64_t> number(const char* name) const;
    std::optional<std::string> text(const char* name) const;

private:
    struct Release {
        void operator()(mpv_handle* handle) const;
    };

    const mpv_event* nextEvent();
    void start(const std::vector<Setting>& settings);
    void fail(const std::string& reason);

    std::function<void()> wakeUp_ = [] {};
    std::unique_ptr<mpv_handle, Release> handle_;
    std::optional<Overlay::PlaybackError> failure_;
};

} // namespace KivUICore::Player
