#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <SDL_events.h>

namespace KivUICore::SDL {

/// One movement of the wheel.
struct WheelTurn {
    /// How far it was turned away from the person, or towards them below zero.
    CoreGraphics::CGFloat notches = 0.0;

    /// How far what is under the pointer should go, in points.
    CoreGraphics::CGPoint delta;
};

/// The movement that an SDL event tells of, in parts of a notch where the device can. Where the system turns
/// the wheel's meaning round for what is scrolled, the notches remain what the hand does.
WheelTurn wheelTurnOf(const SDL_MouseWheelEvent& event);

} // namespace KivUICore::SDL
