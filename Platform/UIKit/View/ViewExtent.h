#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <memory>

namespace UIKit {

/// How far a view reaches together with what sticks out of it, kept until something in it changes. Takes
/// memory only where anything does stick out.
class ViewExtent {
public:
    bool isKnown() const { return state_ != State::Unknown; }

    /// Says whether there was anything to forget.
    bool forget() {
        const bool wasKnown = isKnown();
        state_ = State::Unknown;
        return wasKnown;
    }

    void keep(const CoreGraphics::CGRect& extent, const CoreGraphics::CGRect& bounds) {
        state_ = extent == bounds ? State::Bounds : State::Beyond;
        if (state_ == State::Beyond && !beyond_) {
            beyond_ = std::make_unique<CoreGraphics::CGRect>();
        }
        if (state_ == State::Beyond) {
            *beyond_ = extent;
        }
    }

    /// What is kept, for a view of these bounds.
    const CoreGraphics::CGRect& rect(const CoreGraphics::CGRect& bounds) const {
        return state_ == State::Beyond ? *beyond_ : bounds;
    }

private:
    enum class State : unsigned char { Unknown, Bounds, Beyond };

    std::unique_ptr<CoreGraphics::CGRect> beyond_;
    State state_ = State::Unknown;
};

} // namespace UIKit
