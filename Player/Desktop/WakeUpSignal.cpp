#include "Player/Desktop/WakeUpSignal.h"

namespace Player {

void WakeUpSignal::raise() {
    const std::lock_guard lock(mutex_);
    isRaised_ = true;
    changed_.notify_one();
}

void WakeUpSignal::wait() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return isRaised_; });
    isRaised_ = false;
}

} // namespace Player
