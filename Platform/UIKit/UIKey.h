#pragma once

#include <string>

namespace UIKit {

/// Keys that stand for no character, by the numbers of the USB keyboard page.
enum class UIKeyboardHIDUsage : int {
    None = 0,
    ReturnOrEnter = 0x28,
    Escape = 0x29,
    Home = 0x4A,
    PageUp = 0x4B,
    End = 0x4D,
    PageDown = 0x4E,
    RightArrow = 0x4F,
    LeftArrow = 0x50,
    DownArrow = 0x51,
    UpArrow = 0x52,
};

/// A key that went down, or is held long enough to repeat.
struct UIKey {
    /// None for a key that is not among those above.
    UIKeyboardHIDUsage keyCode = UIKeyboardHIDUsage::None;

    /// What the key writes in the person's own layout, without modifiers, as UTF-8: "m", " ", "5". Empty for
    /// keys that write nothing.
    std::string characters;

    bool isRepeat = false;
};

} // namespace UIKit
