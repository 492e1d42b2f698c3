#pragma once

namespace Foundation {

/// Where time comes from: the one place at which a host hands it in.
class Clock {
public:
    virtual ~Clock() = default;

    /// Seconds since a moment of the clock's own choosing. May jump or go backwards; the run loop copes.
    virtual double now() const = 0;
};

} // namespace Foundation
