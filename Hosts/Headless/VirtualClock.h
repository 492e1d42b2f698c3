#pragma once

#include "Platform/Foundation/Clock.h"

namespace KivUICore::Headless {

/// A clock that goes where it is told: many small steps lead to the same time as one of their sum.
class VirtualClock : public Foundation::Clock {
public:
    double now() const override { return now_; }

    void advance(double seconds);
    void set(double now);

private:
    double now_ = 0.0;

    // By how much the sum of all steps is above `now_`, which is that sum rounded.
    double remainder_ = 0.0;
};

} // namespace KivUICore::Headless
