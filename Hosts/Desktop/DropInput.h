#pragma once

#include <SDL_events.h>
#include <optional>
#include <string>

namespace Desktop {

/// Picks the first of the files that are dropped together.
class DropInput {
public:
    /// The file's path if the event brings the first one. Frees what the event owns.
    std::optional<std::string> handle(const SDL_DropEvent& event);

private:
    bool hasFile_ = false;
};

} // namespace Desktop
