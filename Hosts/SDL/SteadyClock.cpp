#include "Hosts/SDL/SteadyClock.h"

#include <chrono>

namespace KivUICore::SDL {

double SteadyClock::now() const {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

} // namespace KivUICore::SDL
