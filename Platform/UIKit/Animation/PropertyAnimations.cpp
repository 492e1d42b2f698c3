#include "Platform/UIKit/Animation/PropertyAnimations.h"

#include "Platform/UIKit/Animation/AnimationGroup.h"

#include <algorithm>
#include <cstddef>

namespace UIKit {

AnimatedValues PropertyAnimations::Animation::values() const {
    const double progress = group->progress();
    if (progress >= 1.0) {
        return to;
    }
    AnimatedValues values{};
    for (std::size_t index = 0; index < values.size(); ++index) {
        values[index] = from[index] + (to[index] - from[index]) * progress;
    }
    return values;
}

std::vector<PropertyAnimations::Animation>::iterator PropertyAnimations::find(AnimatedProperty property) {
    return std::find_if(animations_.begin(), animations_.end(),
                        [property](const Animation& each) { return each.property == property; });
}

std::optional<AnimatedValues> PropertyAnimations::values(AnimatedProperty property) const {
    for (const Animation& each : animations_) {
        if (each.property == property) {
            return each.values();
        }
    }
    return std::nullopt;
}

bool PropertyAnimations::hasAnyOf(const AnimationGroup& group) const {
    return std::any_of(animations_.begin(), animations_.end(),
                       [&group](const Animation& each) { return each.group.get() == &group; });
}

bool PropertyAnimations::hasGeometryOf(const AnimationGroup& group) const {
    return std::any_of(animations_.begin(), animations_.end(), [&group](const Animation& each) {
        return each.group.get() == &group &&
               (each.property == AnimatedProperty::Box || each.property == AnimatedProperty::BoundsOrigin ||
                each.property == AnimatedProperty::Transform);
    });
}

bool PropertyAnimations::start(AnimatedProperty property, const AnimatedValues& from,
                               const AnimatedValues& to, const std::shared_ptr<AnimationGroup>& group) {
    const auto present = find(property);
    if (present != animations_.end() && present->group == group) {
        present->to = to;
        return false;
    }
    if (present != animations_.end()) {
        present->group->interrupt();
        present->from = from;
        present->to = to;
        present->group = group;
    } else {
        animations_.push_back({property, from, to, group});
    }
    return true;
}

void PropertyAnimations::interrupt(AnimatedProperty property) {
    const auto present = find(property);
    if (present != animations_.end()) {
        present->group->interrupt();
        animations_.erase(present);
    }
}

void PropertyAnimations::interruptAll() {
    for (const Animation& each : animations_) {
        each.group->interrupt();
    }
    animations_.clear();
}

void PropertyAnimations::finish(const AnimationGroup& group) {
    std::erase_if(animations_, [&group](const Animation& each) { return each.group.get() == &group; });
}

} // namespace UIKit
