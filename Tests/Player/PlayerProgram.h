#pragma once

#include "Tests/Player/Process.h"

#include <memory>
#include <string>
#include <vector>

namespace Player {

/// Starts the player as a person would, with what belongs to the machine's desktop taken out of its
/// environment.
inline std::unique_ptr<Process> startPlayer(const std::vector<std::string>& arguments,
                                            const Environment& environment = {}) {
    std::vector<std::string> command{KIVPLAYER_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    Environment all{{"DISPLAY", {}},
                    {"WAYLAND_DISPLAY", {}},
                    {"XDG_RUNTIME_DIR", {}},
                    {"SDL_VIDEODRIVER", {}},
                    {"LSAN_OPTIONS", "print_suppressions=0:suppressions=" KIVPLAYER_LEAK_SUPPRESSIONS}};
    all.insert(all.end(), environment.begin(), environment.end());
    return std::make_unique<Process>(command, all);
}

} // namespace Player
