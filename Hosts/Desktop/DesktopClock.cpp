#include "Hosts/Desktop/DesktopClock.h"

#include <chrono>

namespace Desktop {

double DesktopClock::now() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace Desktop
