#pragma once

#include "Player/Desktop/Exit.h"

#include <functional>

namespace KivUICore::Player {

/// Runs the program and makes an exit with a sentence of what would end it without one: memory that is
/// refused, or a thread.
/// Where the system limits memory too much for the libraries beneath, which end a program in the midst, this
/// says so before anything begins.
Exit guarded(const std::function<Exit()>& program);

} // namespace KivUICore::Player
