#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace KivUICore::Player {

/// Lets one thread sleep until another has news. News that come early are kept.
class WakeUpSignal {
public:
    void raise();

    /// Returns after `raise` was called since the last time. False once `end` is past, raised or not.
    bool waitUntil(std::chrono::steady_clock::time_point end);

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isRaised_ = false;
};

} // namespace KivUICore::Player
