#pragma once

#include <optional>
#include <string>

namespace KivUICore::Player {

/// The seconds of a time as people write it: "90", "90.5", "1:30" or "1:02:03". Minutes behind hours, and
/// seconds behind minutes, are below 60. Nothing for any other text.
std::optional<double> secondsOf(const std::string& text);

} // namespace KivUICore::Player
