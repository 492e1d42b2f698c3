#pragma once

#include "Platform/UIKit/UIKey.h"

#include <SDL_events.h>
#include <optional>

namespace KivUICore::SDL {

/// The key of an SDL event for a key that went down. Nothing for a key that is part of a command of the
/// desktop's, with Control, Alt or the logo key held, and for one that views know no name for.
std::optional<UIKit::UIKey> keyOf(const SDL_KeyboardEvent& event);

} // namespace KivUICore::SDL
