#include "Hosts/Headless/VirtualClock.h"

namespace KivUICore::Headless {

void VirtualClock::advance(double seconds) {
    const double step = seconds + remainder_;
    const double sum = now_ + step;
    // What each of the two lost when they were added.
    const double stepTaken = sum - now_;
    const double lostOfNow = now_ - (sum - stepTaken);
    const double lostOfStep = step - stepTaken;
    now_ = sum;
    remainder_ = lostOfNow + lostOfStep;
}

void VirtualClock::set(double now) {
    now_ = now;
    remainder_ = 0.0;
}

} // namespace KivUICore::Headless
