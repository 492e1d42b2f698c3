#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>

namespace KivUICore::Player {

/// Things that end on threads of their own, as that may take long. It lives as long as any of them.
class Endings {
public:
    /// Runs `end`, which must not throw, on another thread.
    void begin(std::function<void()> end);

    /// Returns when all have ended, or after `bound`.
    void waitForAll(std::chrono::milliseconds bound);

    bool isAny() const;

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    int running_ = 0;
};

} // namespace KivUICore::Player
