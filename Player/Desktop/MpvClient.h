#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <mpv/client.h>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Player {

/// One instance of libmpv, set up to be embedded. Where it can't be started, all of it does nothing and
/// `failure` tells why.
class MpvClient {
public:
    using Setting = std::pair<std::string, std::string>;

    /// `settings` come on top of what every instance has, or in its place.
    explicit MpvClient(const std::vector<Setting>& settings);
    MpvClient(const MpvClient&) = delete;
    MpvClient& operator=(const MpvClient&) = delete;
    ~MpvClient();

    const std::optional<std::string>& failure() const { return failure_; }

    /// Null where it can't be started.
    mpv_handle* handle() const { return handle_.get(); }

    /// `wakeUp` is called on any thread when there may be events; it must not call back.
    void setWakeUp(std::function<void()> wakeUp);

    /// The next event at hand, valid until the next call; null when there is none.
    const mpv_event* nextEvent();

    /// Asks for a command and returns at once. Its result comes as an event that carries `identifier`.
    void command(std::initializer_list<const char*> words, std::uint64_t identifier = 0);

    /// Change a property soon; a value that the library doesn't want changes nothing.
    void setFlag(const char* name, bool value);
    void setNumber(const char* name, double value);
    void setText(const char* name, const std::string& value);

    /// Seconds since some moment in the past.
    double time() const;

    /// What a property is now; nothing while it has no value.
    std::optional<bool> flag(const char* name) const;
    std::optional<std::int64_t> number(const char* name) const;

private:
    struct Release {
        void operator()(mpv_handle* handle) const { mpv_terminate_destroy(handle); }
    };

    void start(const std::vector<Setting>& settings);
    void fail(const std::string& reason);

    std::function<void()> wakeUp_ = [] {};
    std::unique_ptr<mpv_handle, Release> handle_;
    std::optional<std::string> failure_;
};

} // namespace Player
