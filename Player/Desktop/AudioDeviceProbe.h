#pragma once

namespace KivUICore::Player {

/// False where neither an audio device nor an audio server is in sight: to try them all the same fills the
/// error output with their libraries' complaints.
bool hasAudioDevice();

} // namespace KivUICore::Player
