#include "Player/Desktop/ErrorLine.h"

#include <algorithm>
#include <iostream>

namespace Player {

// A file's name may hold line breaks, and what a terminal takes for commands.
void printErrorLine(std::string text) {
    const auto isControl = [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; };
    std::replace_if(text.begin(), text.end(), isControl, '?');
    std::cerr << "kivplayer: " << text << '\n';
}

} // namespace Player
