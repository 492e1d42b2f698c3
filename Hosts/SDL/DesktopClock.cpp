#include "Hosts/SDL/DesktopClock.h"

#include <chrono>

namespace KivUICore::SDL {

double DesktopClock::now() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace KivUICore::SDL
