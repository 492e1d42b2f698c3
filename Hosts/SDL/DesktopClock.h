#pragma once

#include "Platform/Foundation/Clock.h"

namespace KivUICore::SDL {

/// The machine's own clock, which only ever goes forwards.
class DesktopClock final : public Foundation::Clock {
public:
    double now() const override;
};

} // namespace KivUICore::SDL
