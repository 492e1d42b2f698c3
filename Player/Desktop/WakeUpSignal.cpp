#include "Player/Desktop/WakeUpSignal.h"

namespace KivUICore::Player {

void WakeUpSignal::raise() {
    const std::lock_guard lock(mutex_);
    isRaised_ = true;
    changed_.notify_one();
}

bool WakeUpSignal::waitUntil(std::chrono::steady_clock::time_point end) {
    std::unique_lock lock(mutex_);
    changed_.wait_until(lock, end, [this] { return isRaised_; });
    isRaised_ = false;
    return std::chrono::steady_clock::now() < end;
}

} // namespace KivUICore::Player
