#pragma once

#include "Platform/Foundation/Clock.h"

namespace Headless {

/// A clock that goes where it is told.
class VirtualClock : public Foundation::Clock {
public:
    double now() const override { return now_; }

    void advance(double seconds) { now_ += seconds; }
    void set(double now) { now_ = now; }

private:
    double now_ = 0.0;
};

} // namespace Headless
