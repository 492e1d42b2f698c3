#pragma once

#include <string>

namespace Player {

/// Tells a person what went wrong: one line on the error output, whatever is in the text.
void printErrorLine(std::string text);

} // namespace Player
