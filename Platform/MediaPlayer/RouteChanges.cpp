#include "Platform/MediaPlayer/RouteChanges.h"

#include <utility>
#include <vector>

namespace MediaPlayer {

namespace {

struct Observation {
    std::weak_ptr<void> observer;
    std::function<void()> changed;
};

std::vector<Observation>& observations() {
    static std::vector<Observation> all;
    return all;
}

} // namespace

void RouteChanges::observe(const std::weak_ptr<void>& observer, std::function<void()> changed) {
    std::erase_if(observations(), [](const Observation& each) { return each.observer.expired(); });
    observations().push_back({observer, std::move(changed)});
}

void RouteChanges::tell() {
    const std::vector<Observation> snapshot = observations();
    for (const Observation& each : snapshot) {
        if (const std::shared_ptr<void> alive = each.observer.lock()) {
            each.changed();
        }
    }
}

} // namespace MediaPlayer
