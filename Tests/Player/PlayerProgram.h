#pragma once

#include "Tests/Player/Process.h"

#include <memory>
#include <string>
#include <vector>

namespace KivUICore::Player {

/// Starts the player as a person would, with what belongs to the machine's desktop taken out of its
/// environment. `limits` is what its shell does before, such as "ulimit -f 8".
inline std::unique_ptr<Process> startPlayer(const std::vector<std::string>& arguments,
                                            const Environment& environment = {},
                                            const std::string& limits = {}) {
    std::vector<std::string> command{KIVPLAYER_PROGRAM};
    if (!limits.empty()) {
        command.insert(command.begin(), {"sh", "-c", limits + "; exec \"$0\" \"$@\""});
    }
    command.insert(command.end(), arguments.begin(), arguments.end());
    Environment all{{"DISPLAY", {}},
                    {"WAYLAND_DISPLAY", {}},
                    {"XDG_RUNTIME_DIR", {}},
                    {"SDL_VIDEODRIVER", {}},
                    {"GDK_SCALE", {}},
                    {"LSAN_OPTIONS", "print_suppressions=0:suppressions=" KIVPLAYER_LEAK_SUPPRESSIONS}};
    all.insert(all.end(), environment.begin(), environment.end());
    return std::make_unique<Process>(command, all);
}

} // namespace KivUICore::Player
