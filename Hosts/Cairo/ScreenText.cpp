#include "Hosts/Cairo/ScreenText.h"

#include <memory>
#include <pango/pango.h>
#include <vector>

namespace KivUICore::Cairo {

namespace {

struct MemoryRelease {
    void operator()(void* memory) const { g_free(memory); }
};

constexpr const char* ellipsis = "…";

// Unicode's own measure for text in streams: no language needs more.
constexpr std::size_t mostCodePoints = 32;

void appendCodePoint(std::string& text, const char* at) {
    const char* end = g_utf8_next_char(at);
    text.append(at, end);
}

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::string validBeginning(std::string_view text) {
    constexpr std::size_t longestCodePoint = 4;
    std::size_t size = text.size();
    if (size > mostTextBytes) {
        size = mostTextBytes;
        while (size > mostTextBytes - longestCodePoint && isContinuation(text[size])) {
            --size;
        }
    }
    const std::unique_ptr<char, MemoryRelease> valid(
        g_utf8_make_valid(text.data(), static_cast<gssize>(size)));
    return valid.get();
}

std::vector<PangoLogAttr> breaksIn(const std::string& text) {
    std::vector<PangoLogAttr> breaks(static_cast<std::size_t>(g_utf8_strlen(text.c_str(), -1)) + 1);
    pango_get_log_attrs(text.c_str(), static_cast<int>(text.size()), -1, pango_language_get_default(),
                        breaks.data(), static_cast<int>(breaks.size()));
    return breaks;
}

// `isShorter` says that something was left out before.
std::string cut(const std::string& text, std::size_t mostCharacters, bool isShorter) {
    const std::vector<PangoLogAttr> breaks = breaksIn(text);
    std::string result;
    std::size_t characters = 0;
    std::size_t codePoints = 0;
    std::size_t index = 0;
    for (const char* at = text.c_str(); *at != '\0'; at = g_utf8_next_char(at)) {
        if (breaks[index++].is_cursor_position) {
            if (characters == mostCharacters) {
                isShorter = true;
                break;
            }
            ++characters;
            codePoints = 0;
        }
        if (codePoints++ < mostCodePoints) {
            appendCodePoint(result, at);
        }
    }
    return isShorter ? result + ellipsis : result;
}

// What opens or closes a stretch of another direction: nothing says that what is opened is closed.
bool turnsDirection(gunichar character) {
    return (character >= 0x202A && character <= 0x202E) || (character >= 0x2066 && character <= 0x2069);
}

bool isBlank(gunichar character) {
    return g_unichar_isspace(character) || !g_unichar_isdefined(character) || g_unichar_iscntrl(character) ||
           g_unichar_type(character) == G_UNICODE_LINE_SEPARATOR ||
           g_unichar_type(character) == G_UNICODE_PARAGRAPH_SEPARATOR;
}

struct Line {
    std::string text;
    bool isVisible;
};

Line joinLines(const std::string& text) {
    Line result{{}, false};
    bool isSpaceDue = false;
    for (const char* at = text.c_str(); *at != '\0'; at = g_utf8_next_char(at)) {
        const gunichar character = g_utf8_get_char(at);
        if (isBlank(character)) {
            isSpaceDue = !result.text.empty();
        } else if (!turnsDirection(character)) {
            result.text += isSpaceDue ? " " : "";
            appendCodePoint(result.text, at);
            result.isVisible = result.isVisible || !g_unichar_iszerowidth(character);
            isSpaceDue = false;
        }
    }
    return result;
}

} // namespace

std::string beginningOf(std::string_view text, std::size_t mostCharacters) {
    return cut(validBeginning(text), mostCharacters, text.size() > mostTextBytes);
}

std::string oneLine(std::string_view text) {
    constexpr std::size_t mostCharacters = 500;
    const Line line = joinLines(validBeginning(text));
    return line.isVisible ? cut(line.text, mostCharacters, text.size() > mostTextBytes) : std::string();
}

} // namespace KivUICore::Cairo
