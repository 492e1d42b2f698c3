#pragma once

#include "Player/Desktop/Exit.h"

#include <optional>
#include <string>
#include <variant>

namespace KivUICore::Player {

/// What the program was asked for on its command line.
struct Options {
    enum class Drawing { Automatic, OpenGL, Software };
    enum class Sound { On, Muted };

    /// A file's path or a URL.
    std::string location;

    /// A folder for pictures, which are taken instead of opening a window.
    std::optional<std::string> snapshotFolder;

    /// Seconds until the film must have shown its picture there.
    double timeout = 30.0;

    /// Where to start, in seconds, not negative.
    double start = 0.0;

    /// The window's size in points.
    int width = 1280;
    int height = 720;

    /// Pixels a point; what the screen says when not given.
    std::optional<double> scale;
    Drawing drawing = Drawing::Automatic;
    Sound sound = Sound::On;

    /// The path of a socket for other programs.
    std::optional<std::string> ipcServer;
};

/// The options, or why there is nothing to run.
std::variant<Options, Exit> parseOptions(int count, const char* const* arguments);

} // namespace KivUICore::Player
