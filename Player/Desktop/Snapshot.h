#pragma once

#include "Player/Desktop/Exit.h"

namespace KivUICore::Player {

struct Options;

/// Plays a film to the place asked for, with no window, and writes pictures of the film, the overlay and both
/// into the folder, which is made if missing.
Exit takeSnapshot(const Options& options);

} // namespace KivUICore::Player
