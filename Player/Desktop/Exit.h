#pragma once

#include <string>

namespace KivUICore::Player {

enum class ExitCode : int {
    Success = 0,

    /// The film can't be played, or a picture not written.
    Failure = 1,

    /// There is no display, or the command line is wrong.
    Usage = 2,
};

/// How the program ends: its code, and a text that was asked for or one line on what went wrong.
struct Exit {
    ExitCode code = ExitCode::Success;
    std::string text;
};

} // namespace KivUICore::Player
