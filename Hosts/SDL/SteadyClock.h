#pragma once

#include "Platform/Foundation/Clock.h"

namespace KivUICore::SDL {

/// The machine's steady clock, which only ever goes forwards.
class SteadyClock final : public Foundation::Clock {
public:
    double now() const override;
};

} // namespace KivUICore::SDL
