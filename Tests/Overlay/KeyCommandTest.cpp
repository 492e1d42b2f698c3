#include "Player/Overlay/KeyCommand.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace KivUICore::Overlay {

namespace {

using Action = KeyCommand::Action;
using UIKit::UIKey;
using UIKit::UIKeyboardHIDUsage;

KeyCommand commandFor(const UIKey& key) {
    const std::optional<KeyCommand> command = commandForKey(key);
    EXPECT_TRUE(command.has_value()) << key.characters << " " << static_cast<int>(key.keyCode);
    return command.value_or(KeyCommand());
}

TEST(KeyCommandTest, EveryKeyHasItsMeaning) {
    const std::vector<std::pair<UIKey, Action>> keys{
        {{UIKeyboardHIDUsage::None, " "}, Action::TogglePlay},
        {{UIKeyboardHIDUsage::LeftArrow, ""}, Action::SeekBackward},
        {{UIKeyboardHIDUsage::RightArrow, ""}, Action::SeekForward},
        {{UIKeyboardHIDUsage::UpArrow, ""}, Action::VolumeUp},
        {{UIKeyboardHIDUsage::DownArrow, ""}, Action::VolumeDown},
        {{UIKeyboardHIDUsage::None, "m"}, Action::ToggleMute},
        {{UIKeyboardHIDUsage::None, "f"}, Action::ToggleFullScreen},
        {{UIKeyboardHIDUsage::Escape, ""}, Action::Cancel},
        {{UIKeyboardHIDUsage::Home, ""}, Action::GoToFraction},
        {{UIKeyboardHIDUsage::End, ""}, Action::GoToEnd},
        {{UIKeyboardHIDUsage::None, ","}, Action::StepBackward},
        {{UIKeyboardHIDUsage::None, "."}, Action::StepForward},
        {{UIKeyboardHIDUsage::None, "q"}, Action::Quit},
    };
    for (const auto& [key, action] : keys) {
        EXPECT_EQ(commandFor(key).action, action) << key.characters << " " << static_cast<int>(key.keyCode);
    }
}

TEST(KeyCommandTest, FiguresGoToTenthsOfTheFilmAndHomeToItsStart) {
    for (int figure = 0; figure <= 9; ++figure) {
        EXPECT_EQ(commandFor({UIKeyboardHIDUsage::None, std::to_string(figure)}),
                  (KeyCommand{Action::GoToFraction, figure / 10.0}));
    }
    EXPECT_EQ(commandFor({UIKeyboardHIDUsage::Home, ""}), (KeyCommand{Action::GoToFraction, 0.0}));
}

TEST(KeyCommandTest, OtherKeysMeanNothing) {
    for (const char* characters : {"", "x", "ä", "10", "\n"}) {
        EXPECT_EQ(commandForKey({UIKeyboardHIDUsage::None, characters}), std::nullopt) << characters;
    }
    EXPECT_EQ(commandForKey({UIKeyboardHIDUsage::PageUp, ""}), std::nullopt);
}

TEST(KeyCommandTest, OnlyWhatGoesStepByStepRepeats) {
    constexpr bool isRepeat = true;
    for (const UIKeyboardHIDUsage code : {UIKeyboardHIDUsage::LeftArrow, UIKeyboardHIDUsage::RightArrow,
                                          UIKeyboardHIDUsage::UpArrow, UIKeyboardHIDUsage::DownArrow}) {
        EXPECT_TRUE(commandForKey({code, "", isRepeat}).has_value());
    }
    for (const char* characters : {",", "."}) {
        EXPECT_TRUE(commandForKey({UIKeyboardHIDUsage::None, characters, isRepeat}).has_value());
    }
    for (const char* characters : {" ", "m", "f", "q", "5"}) {
        EXPECT_FALSE(commandForKey({UIKeyboardHIDUsage::None, characters, isRepeat}).has_value());
    }
    EXPECT_FALSE(commandForKey({UIKeyboardHIDUsage::Escape, "", isRepeat}).has_value());
}

} // namespace

} // namespace KivUICore::Overlay
