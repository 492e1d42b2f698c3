#include "Player/Desktop/ErrorLine.h"

#include "Player/Desktop/TerminalText.h"

#include <iostream>

namespace KivUICore::Player {

void printErrorLine(std::string_view text) { std::cerr << "kivplayer: " << terminalText(text) << '\n'; }

} // namespace KivUICore::Player
