#pragma once

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace UIKit {

class AnimationGroup;

/// What can travel. `Value` is a number that a subclass of a view animates for itself.
enum class AnimatedProperty { Alpha, Box, BoundsOrigin, Transform, BackgroundColor, Value };

/// A property's value as numbers; the unused ones are 0.
using AnimatedValues = std::array<double, 6>;

/// The properties of one view that are on their way, each in one group at most.
class PropertyAnimations {
public:
    bool isEmpty() const { return animations_.empty(); }

    /// What is shown of a property; nothing when it isn't on its way.
    std::optional<AnimatedValues> values(AnimatedProperty property) const;

    bool hasAnyOf(const AnimationGroup& group) const;

    /// Whether the group moves where the view reaches.
    bool hasGeometryOf(const AnimationGroup& group) const;

    /// Sends a property on its way. True when the group has not had it yet: where another group had, that is
    /// interrupted; where this one has, the way goes on to the new end.
    bool start(AnimatedProperty property, const AnimatedValues& from, const AnimatedValues& to,
               const std::shared_ptr<AnimationGroup>& group);

    /// Ends a property's way early, or all.
    void interrupt(AnimatedProperty property);
    void interruptAll();

    /// Ends the ways of a group whose time has passed.
    void finish(const AnimationGroup& group);

private:
    struct Animation {
        AnimatedProperty property;
        AnimatedValues from;
        AnimatedValues to;
        std::shared_ptr<AnimationGroup> group;

        AnimatedValues values() const;
    };

    std::vector<Animation>::iterator find(AnimatedProperty property);

    std::vector<Animation> animations_;
};

} // namespace UIKit
