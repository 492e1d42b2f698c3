#pragma once

#include <string>
#include <string_view>

namespace KivUICore::Player {

/// `text` fit for a line on a terminal, wherever it comes from: a file's name, a server's answer or a library
/// may hold commands for the terminal, signs that turn the order of what follows, or no text at all. What is
/// no visible character becomes a question mark, and a very long text keeps its beginning and its end.
std::string terminalText(std::string_view text);

} // namespace KivUICore::Player
