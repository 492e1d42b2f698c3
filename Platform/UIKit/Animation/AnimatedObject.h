#pragma once

namespace UIKit {

class AnimationGroup;

/// What animations move: a view, as they see it.
class AnimatedObject {
public:
    /// Called before what is shown moves on with `group`, and again after it: what is left and what is
    /// reached must both be drawn again.
    virtual void presentationMoves(const AnimationGroup& group) = 0;

    /// What `group` moved is where it was to go.
    virtual void animationsEnded(const AnimationGroup& group) = 0;

protected:
    ~AnimatedObject() = default;
};

} // namespace UIKit
