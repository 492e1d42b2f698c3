#pragma once

namespace KivUICore::Player {

/// False where neither a sound device nor a sound server is in sight: to try them all the same fills the
/// error output with their libraries' complaints.
bool hasSoundOutput();

} // namespace KivUICore::Player
