#pragma once

#include "Platform/UIKit/UIKey.h"

#include <optional>

namespace KivUICore::Overlay {

/// What a key asks for.
struct KeyCommand {
    enum class Action {
        TogglePlay,
        SeekBackward,
        SeekForward,
        VolumeUp,
        VolumeDown,
        ToggleMute,
        ToggleFullScreen,
        /// Takes back what the viewer is in: a drag, or else full screen.
        Cancel,
        GoToFraction,
        GoToEnd,
        StepBackward,
        StepForward,
        Quit,
    };

    Action action = Action::TogglePlay;

    /// The part of the film that GoToFraction goes to, from 0.0 to 0.9.
    double fraction = 0.0;

    friend bool operator==(const KeyCommand&, const KeyCommand&) = default;
};

/// Nothing for a key that asks for nothing, and for the repetitions of one that does something only once.
std::optional<KeyCommand> commandForKey(const UIKit::UIKey& key);

/// Whether an action takes the film to another place.
bool movesFilm(KeyCommand::Action action);

} // namespace KivUICore::Overlay
