#include "Player/Overlay/KeyCommand.h"

namespace KivUICore::Overlay {

namespace {

using Action = KeyCommand::Action;
using UIKit::UIKey;
using UIKit::UIKeyboardHIDUsage;

std::optional<KeyCommand> commandForCode(UIKeyboardHIDUsage code) {
    switch (code) {
    case UIKeyboardHIDUsage::LeftArrow:
        return KeyCommand{Action::SeekBackward};
    case UIKeyboardHIDUsage::RightArrow:
        return KeyCommand{Action::SeekForward};
    case UIKeyboardHIDUsage::UpArrow:
        return KeyCommand{Action::VolumeUp};
    case UIKeyboardHIDUsage::DownArrow:
        return KeyCommand{Action::VolumeDown};
    case UIKeyboardHIDUsage::Home:
        return KeyCommand{Action::GoToFraction};
    case UIKeyboardHIDUsage::End:
        return KeyCommand{Action::GoToEnd};
    case UIKeyboardHIDUsage::Escape:
        return KeyCommand{Action::Cancel};
    default:
        return std::nullopt;
    }
}

std::optional<KeyCommand> commandForCharacter(char character) {
    constexpr double tenths = 10.0;
    if (character >= '0' && character <= '9') {
        return KeyCommand{Action::GoToFraction, (character - '0') / tenths};
    }
    switch (character) {
    case ' ':
        return KeyCommand{Action::TogglePlay};
    case 'm':
        return KeyCommand{Action::ToggleMute};
    case 'f':
        return KeyCommand{Action::ToggleFullScreen};
    case ',':
        return KeyCommand{Action::StepBackward};
    case '.':
        return KeyCommand{Action::StepForward};
    case 'q':
        return KeyCommand{Action::Quit};
    default:
        return std::nullopt;
    }
}

bool repeats(Action action) {
    switch (action) {
    case Action::SeekBackward:
    case Action::SeekForward:
    case Action::VolumeUp:
    case Action::VolumeDown:
    case Action::StepBackward:
    case Action::StepForward:
        return true;
    default:
        return false;
    }
}

} // namespace

std::optional<KeyCommand> commandForKey(const UIKey& key) {
    std::optional<KeyCommand> command = commandForCode(key.keyCode);
    if (!command && key.characters.size() == 1) {
        command = commandForCharacter(key.characters.front());
    }
    return command && key.isRepeat && !repeats(command->action) ? std::nullopt : command;
}

bool movesFilm(Action action) {
    switch (action) {
    case Action::SeekBackward:
    case Action::SeekForward:
    case Action::GoToFraction:
    case Action::GoToEnd:
    case Action::StepBackward:
    case Action::StepForward:
        return true;
    default:
        return false;
    }
}

} // namespace KivUICore::Overlay
