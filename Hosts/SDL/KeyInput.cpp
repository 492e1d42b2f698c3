#include "Hosts/SDL/KeyInput.h"

#include <string>
#include <string_view>

namespace KivUICore::SDL {

namespace {

using UIKit::UIKeyboardHIDUsage;

UIKeyboardHIDUsage named(SDL_Keycode key) {
    switch (key) {
    case SDLK_RETURN:
    case SDLK_RETURN2:
    case SDLK_KP_ENTER:
        return UIKeyboardHIDUsage::ReturnOrEnter;
    case SDLK_ESCAPE:
        return UIKeyboardHIDUsage::Escape;
    case SDLK_HOME:
        return UIKeyboardHIDUsage::Home;
    case SDLK_END:
        return UIKeyboardHIDUsage::End;
    case SDLK_PAGEUP:
        return UIKeyboardHIDUsage::PageUp;
    case SDLK_PAGEDOWN:
        return UIKeyboardHIDUsage::PageDown;
    case SDLK_LEFT:
        return UIKeyboardHIDUsage::LeftArrow;
    case SDLK_RIGHT:
        return UIKeyboardHIDUsage::RightArrow;
    case SDLK_UP:
        return UIKeyboardHIDUsage::UpArrow;
    case SDLK_DOWN:
        return UIKeyboardHIDUsage::DownArrow;
    default:
        return UIKeyboardHIDUsage::None;
    }
}

// What the keypad's keys from 1 to 9, 0 and the period are while Num Lock is off.
constexpr SDL_Keycode unlockedKeypad[] = {SDLK_END,     SDLK_DOWN,    SDLK_PAGEDOWN, SDLK_LEFT,
                                          SDLK_UNKNOWN, SDLK_RIGHT,   SDLK_HOME,     SDLK_UP,
                                          SDLK_PAGEUP,  SDLK_UNKNOWN, SDLK_UNKNOWN};
constexpr std::string_view keypadCharacters = "1234567890.";

bool isLockable(SDL_Scancode key) { return key >= SDL_SCANCODE_KP_1 && key <= SDL_SCANCODE_KP_PERIOD; }

std::string keypadCharacter(SDL_Keycode key) {
    switch (key) {
    case SDLK_KP_DIVIDE:
        return "/";
    case SDLK_KP_MULTIPLY:
        return "*";
    case SDLK_KP_MINUS:
        return "-";
    case SDLK_KP_PLUS:
        return "+";
    case SDLK_KP_EQUALS:
        return "=";
    case SDLK_KP_COMMA:
        return ",";
    default:
        return {};
    }
}

std::string utf8(char32_t character) {
    const auto tail = [character](int shift) {
        return static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        return {static_cast<char>(character)};
    }
    if (character < 0x800) {
        return {static_cast<char>(0xC0 | character >> 6), tail(0)};
    }
    if (character < 0x10000) {
        return {static_cast<char>(0xE0 | character >> 12), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0 | character >> 18), tail(12), tail(6), tail(0)};
}

// A key that writes something has the character without modifiers as its code.
std::string written(SDL_Keycode key) {
    constexpr SDL_Keycode lastCharacter = 0x10FFFF;
    const bool isCharacter = key >= SDLK_SPACE && key != SDLK_DELETE && key <= lastCharacter;
    return isCharacter ? utf8(static_cast<char32_t>(key)) : keypadCharacter(key);
}

} // namespace

std::optional<UIKit::UIKey> keyOf(const SDL_KeyboardEvent& event) {
    if ((event.keysym.mod & (KMOD_CTRL | KMOD_ALT | KMOD_GUI)) != 0) {
        return std::nullopt;
    }
    UIKit::UIKey key;
    key.isRepeat = event.repeat != 0;
    if (isLockable(event.keysym.scancode)) {
        const auto index = static_cast<std::size_t>(event.keysym.scancode - SDL_SCANCODE_KP_1);
        if ((event.keysym.mod & KMOD_NUM) != 0) {
            key.characters = keypadCharacters[index];
        } else {
            key.keyCode = named(unlockedKeypad[index]);
        }
    } else {
        key.keyCode = named(event.keysym.sym);
        key.characters = written(event.keysym.sym);
    }
    const bool isKnown = key.keyCode != UIKeyboardHIDUsage::None || !key.characters.empty();
    return isKnown ? std::optional(key) : std::nullopt;
}

} // namespace KivUICore::SDL
