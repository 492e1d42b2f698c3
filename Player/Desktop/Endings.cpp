#include "Player/Desktop/Endings.h"

#include <thread>
#include <utility>

namespace KivUICore::Player {

void Endings::begin(std::function<void()> end) {
    {
        const std::lock_guard lock(mutex_);
        ++running_;
    }
    std::thread([this, end = std::move(end)] {
        end();
        const std::lock_guard lock(mutex_);
        --running_;
        changed_.notify_all();
    }).detach();
}

void Endings::waitForAll(std::chrono::milliseconds bound) {
    std::unique_lock lock(mutex_);
    changed_.wait_for(lock, bound, [this] { return running_ == 0; });
}

bool Endings::isAny() const {
    const std::lock_guard lock(mutex_);
    return running_ > 0;
}

} // namespace KivUICore::Player
