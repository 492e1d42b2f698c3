#include "Player/Desktop/TerminalText.h"

#include <cstddef>
#include <glib.h>

namespace KivUICore::Player {

namespace {

bool isVisible(gunichar character) {
    // These two join letters or keep them apart; scripts and pictures of several signs need them.
    constexpr gunichar nonJoiner = 0x200C;
    constexpr gunichar joiner = 0x200D;
    switch (g_unichar_type(character)) {
    case G_UNICODE_FORMAT:
        return character == nonJoiner || character == joiner;
    case G_UNICODE_CONTROL:
    case G_UNICODE_LINE_SEPARATOR:
    case G_UNICODE_PARAGRAPH_SEPARATOR:
    case G_UNICODE_SURROGATE:
        return false;
    default:
        return true;
    }
}

std::string visible(std::string_view text) {
    constexpr auto invalid = static_cast<gunichar>(-2);
    std::string result;
    while (!text.empty()) {
        const gunichar character = g_utf8_get_char_validated(text.data(), static_cast<gssize>(text.size()));
        const bool isCharacter = character < invalid;
        const std::size_t length =
            isCharacter ? static_cast<std::size_t>(g_utf8_next_char(text.data()) - text.data()) : 1;
        if (isCharacter && isVisible(character)) {
            result += text.substr(0, length);
        } else {
            result += '?';
        }
        text.remove_prefix(length);
    }
    return result;
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

} // namespace

// What went wrong stands at the end of a line, and what it is about at the beginning.
std::string terminalText(std::string_view text) {
    constexpr std::size_t beginning = 1200;
    constexpr std::size_t end = 400;
    constexpr std::size_t longestCharacter = 4;
    if (text.size() <= beginning + end) {
        return visible(text);
    }
    std::size_t from = beginning;
    while (from > beginning - longestCharacter && isContinuation(text[from])) {
        --from;
    }
    std::size_t to = text.size() - end;
    while (to < text.size() - end + longestCharacter && isContinuation(text[to])) {
        ++to;
    }
    return visible(text.substr(0, from)) + "…" + visible(text.substr(to));
}

} // namespace KivUICore::Player
