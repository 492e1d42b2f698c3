#include "Hosts/Desktop/DropInput.h"

#include <SDL_stdinc.h>
#include <memory>
#include <utility>

namespace Desktop {

std::optional<std::string> DropInput::handle(const SDL_DropEvent& event) {
    if (event.type == SDL_DROPBEGIN || event.type == SDL_DROPCOMPLETE) {
        hasFile_ = false;
        return std::nullopt;
    }
    const std::unique_ptr<char, decltype(&SDL_free)> text(event.file, SDL_free);
    if (event.type != SDL_DROPFILE || !text || std::exchange(hasFile_, true)) {
        return std::nullopt;
    }
    return text.get();
}

} // namespace Desktop
