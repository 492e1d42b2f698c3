#include "Hosts/SDL/WheelInput.h"

namespace KivUICore::SDL {

WheelTurn wheelTurnOf(const SDL_MouseWheelEvent& event) {
    constexpr CoreGraphics::CGFloat pointsANotch = 40.0;
    // An event that some program made up may have the whole notches alone.
    const bool isPrecise = event.preciseX != 0.0F || event.preciseY != 0.0F;
    const CoreGraphics::CGFloat right = isPrecise ? static_cast<double>(event.preciseX) : event.x;
    const CoreGraphics::CGFloat away = isPrecise ? static_cast<double>(event.preciseY) : event.y;
    return {.notches = event.direction == SDL_MOUSEWHEEL_FLIPPED ? -away : away,
            .delta = {-right * pointsANotch, away * pointsANotch}};
}

} // namespace KivUICore::SDL
