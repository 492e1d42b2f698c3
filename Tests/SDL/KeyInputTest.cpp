#include "Hosts/SDL/KeyInput.h"

#include <gtest/gtest.h>

namespace KivUICore::SDL {

namespace {

using UIKit::UIKeyboardHIDUsage;

std::optional<UIKit::UIKey> key(SDL_Keycode code, Uint16 modifiers = KMOD_NONE,
                                SDL_Scancode scancode = SDL_SCANCODE_A, Uint8 repeat = 0) {
    SDL_KeyboardEvent event{};
    event.type = SDL_KEYDOWN;
    event.repeat = repeat;
    event.keysym.sym = code;
    event.keysym.scancode = scancode;
    event.keysym.mod = modifiers;
    return keyOf(event);
}

std::string characters(SDL_Keycode code, Uint16 modifiers = KMOD_NONE) {
    return key(code, modifiers).value_or(UIKit::UIKey{}).characters;
}

UIKeyboardHIDUsage usage(SDL_Keycode code) { return key(code).value_or(UIKit::UIKey{}).keyCode; }

TEST(KeyInput, KeyThatWritesIsItsCharacterInAnyScript) {
    EXPECT_EQ(characters(SDLK_m), "m");
    EXPECT_EQ(characters(SDLK_SPACE), " ");
    EXPECT_EQ(characters(SDLK_5), "5");
    EXPECT_EQ(characters(SDLK_COMMA), ",");
    EXPECT_EQ(characters(0xE4), "ä");
    EXPECT_EQ(characters(0x44C), "ь");
    EXPECT_EQ(characters(0x20AC), "€");
    EXPECT_EQ(characters(0x1F3AC), "🎬");
    EXPECT_EQ(key(SDLK_m)->keyCode, UIKeyboardHIDUsage::None);
}

TEST(KeyInput, KeyThatWritesNothingHasAName) {
    EXPECT_EQ(usage(SDLK_ESCAPE), UIKeyboardHIDUsage::Escape);
    EXPECT_EQ(usage(SDLK_RETURN), UIKeyboardHIDUsage::ReturnOrEnter);
    EXPECT_EQ(usage(SDLK_KP_ENTER), UIKeyboardHIDUsage::ReturnOrEnter);
    EXPECT_EQ(usage(SDLK_HOME), UIKeyboardHIDUsage::Home);
    EXPECT_EQ(usage(SDLK_END), UIKeyboardHIDUsage::End);
    EXPECT_EQ(usage(SDLK_PAGEUP), UIKeyboardHIDUsage::PageUp);
    EXPECT_EQ(usage(SDLK_PAGEDOWN), UIKeyboardHIDUsage::PageDown);
    EXPECT_EQ(usage(SDLK_LEFT), UIKeyboardHIDUsage::LeftArrow);
    EXPECT_EQ(usage(SDLK_RIGHT), UIKeyboardHIDUsage::RightArrow);
    EXPECT_EQ(usage(SDLK_UP), UIKeyboardHIDUsage::UpArrow);
    EXPECT_EQ(usage(SDLK_DOWN), UIKeyboardHIDUsage::DownArrow);
    EXPECT_EQ(characters(SDLK_ESCAPE), "");
    EXPECT_EQ(characters(SDLK_HOME), "");
}

TEST(KeyInput, KeyWithoutNameOrCharacterIsNone) {
    for (const SDL_Keycode code :
         {SDLK_F5, SDLK_DELETE, SDLK_BACKSPACE, SDLK_TAB, SDLK_LSHIFT, SDLK_UNKNOWN}) {
        EXPECT_FALSE(key(code)) << code;
    }
}

TEST(KeyInput, CommandsOfTheDesktopAreLeftToIt) {
    for (const int modifier : {KMOD_LCTRL, KMOD_RCTRL, KMOD_LALT, KMOD_RALT, KMOD_LGUI, KMOD_RGUI}) {
        EXPECT_FALSE(key(SDLK_q, static_cast<Uint16>(modifier))) << modifier;
        EXPECT_FALSE(key(SDLK_LEFT, static_cast<Uint16>(modifier | KMOD_NUM))) << modifier;
    }
}

TEST(KeyInput, ShiftAndLocksChangeNothing) {
    EXPECT_EQ(characters(SDLK_m, KMOD_LSHIFT), "m");
    EXPECT_EQ(characters(SDLK_m, KMOD_CAPS), "m");
    EXPECT_EQ(characters(SDLK_m, KMOD_NUM), "m");
}

TEST(KeyInput, KeypadWritesWhileItIsLockedAndMovesWhileItIsNot) {
    const auto keypad = [](SDL_Keycode code, SDL_Scancode scancode, int modifiers) {
        return key(code, static_cast<Uint16>(modifiers), scancode);
    };
    EXPECT_EQ(keypad(SDLK_KP_4, SDL_SCANCODE_KP_4, KMOD_NUM)->characters, "4");
    EXPECT_EQ(keypad(SDLK_KP_4, SDL_SCANCODE_KP_4, KMOD_NUM)->keyCode, UIKeyboardHIDUsage::None);
    EXPECT_EQ(keypad(SDLK_KP_0, SDL_SCANCODE_KP_0, KMOD_NUM)->characters, "0");
    EXPECT_EQ(keypad(SDLK_KP_PERIOD, SDL_SCANCODE_KP_PERIOD, KMOD_NUM)->characters, ".");
    EXPECT_EQ(keypad(SDLK_KP_1, SDL_SCANCODE_KP_1, 0)->keyCode, UIKeyboardHIDUsage::End);
    EXPECT_EQ(keypad(SDLK_KP_4, SDL_SCANCODE_KP_4, 0)->keyCode, UIKeyboardHIDUsage::LeftArrow);
    EXPECT_EQ(keypad(SDLK_KP_6, SDL_SCANCODE_KP_6, 0)->keyCode, UIKeyboardHIDUsage::RightArrow);
    EXPECT_EQ(keypad(SDLK_KP_7, SDL_SCANCODE_KP_7, 0)->keyCode, UIKeyboardHIDUsage::Home);
    EXPECT_EQ(keypad(SDLK_KP_8, SDL_SCANCODE_KP_8, 0)->keyCode, UIKeyboardHIDUsage::UpArrow);
    EXPECT_EQ(keypad(SDLK_KP_4, SDL_SCANCODE_KP_4, 0)->characters, "");
    EXPECT_FALSE(keypad(SDLK_KP_5, SDL_SCANCODE_KP_5, 0));
    EXPECT_FALSE(keypad(SDLK_KP_0, SDL_SCANCODE_KP_0, 0));
    EXPECT_EQ(keypad(SDLK_KP_PLUS, SDL_SCANCODE_KP_PLUS, 0)->characters, "+");
}

TEST(KeyInput, HeldKeyRepeats) {
    EXPECT_FALSE(key(SDLK_LEFT)->isRepeat);
    EXPECT_TRUE(key(SDLK_LEFT, KMOD_NONE, SDL_SCANCODE_LEFT, 1)->isRepeat);
}

} // namespace

} // namespace KivUICore::SDL
