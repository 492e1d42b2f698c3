#pragma once

#include "KivCore/KivPlayer.h"

namespace KivUICore::Overlay {

/// What the seek bar knows of the player: its sound may go to other audio devices, which are routes to the
/// bar.
class RoutedPlayer : public KivCore::KivPlayer {
public:
    bool allowsAirPlay() const override { return true; }
};

} // namespace KivUICore::Overlay
