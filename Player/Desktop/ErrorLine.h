#pragma once

#include <string_view>

namespace Player {

/// Tells a person what went wrong: one line on the error output, whatever is in the text.
void printErrorLine(std::string_view text);

} // namespace Player
