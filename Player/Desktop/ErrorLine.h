#pragma once

#include <string_view>

namespace KivUICore::Player {

/// Tells a person what went wrong: one line on the error output, whatever is in the text.
void printErrorLine(std::string_view text);

} // namespace KivUICore::Player
