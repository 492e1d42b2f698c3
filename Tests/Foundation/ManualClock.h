#pragma once

#include "Platform/Foundation/Clock.h"

/// A clock that shows what it is told to.
class ManualClock : public Foundation::Clock {
public:
    double now() const override { return time; }

    double time = 0.0;
};
