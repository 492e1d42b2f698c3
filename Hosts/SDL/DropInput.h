#pragma once

#include <SDL_events.h>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace KivUICore::SDL {

/// Picks the first of the files, addresses or lines of text that are dropped together.
class DropInput {
public:
    /// `addresses` says what is dropped as a list of addresses in lines: SDL keeps those to itself that are
    /// no files of this machine.
    explicit DropInput(std::function<std::string()> addresses) : addresses_(std::move(addresses)) {}

    /// What is dropped if the event brings the first of it. Frees what the event owns.
    std::optional<std::string> handle(const SDL_DropEvent& event);

private:
    std::optional<std::string> finish();

    std::function<std::string()> addresses_;
    bool hasTaken_ = false;
};

} // namespace KivUICore::SDL
