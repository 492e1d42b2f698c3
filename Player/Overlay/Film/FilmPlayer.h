#pragma once

#include "KivCore/KivPlayer.h"

namespace KivUICore::Overlay {

/// The film as the seek bar sees it: one whose sound may go to another device.
class FilmPlayer : public KivCore::KivPlayer {
public:
    bool allowsAirPlay() const override { return true; }
};

} // namespace KivUICore::Overlay
