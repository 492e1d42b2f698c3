#include "Hosts/SDL/DropInput.h"

#include <SDL_stdinc.h>
#include <memory>
#include <sstream>

namespace KivUICore::SDL {

namespace {

std::string trimmed(const std::string& text) {
    constexpr const char* blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

// Lines that begin with a number sign are remarks.
std::optional<std::string> firstAddress(const std::string& list) {
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        line = trimmed(line);
        if (!line.starts_with('#') && line.find("://") != std::string::npos) {
            return line;
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> DropInput::handle(const SDL_DropEvent& event) {
    if (event.type == SDL_DROPBEGIN) {
        hasTaken_ = false;
        return std::nullopt;
    }
    if (event.type == SDL_DROPCOMPLETE) {
        return finish();
    }
    const std::unique_ptr<char, decltype(&SDL_free)> text(event.file, SDL_free);
    if (!text || hasTaken_) {
        return std::nullopt;
    }
    const std::string location = event.type == SDL_DROPFILE ? text.get() : trimmed(text.get());
    hasTaken_ = !location.empty();
    return hasTaken_ ? std::optional(location) : std::nullopt;
}

std::optional<std::string> DropInput::finish() {
    return std::exchange(hasTaken_, false) ? std::nullopt : firstAddress(addresses_());
}

} // namespace KivUICore::SDL
