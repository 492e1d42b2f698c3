#include "Tests/Hostile/EventScript.h"

#include <algorithm>
#include <array>
#include <utility>

namespace KivUICore::Player {

namespace {

// The button that closes the player is in the window's upper left corner.
constexpr unsigned backWidth = 60;
constexpr unsigned backHeight = 50;

constexpr std::array keys{"space", "Left", "Right", "Up", "Down",   "m",   "f",         "comma", "period",
                          "Home",  "End",  "0",     "5",  "9",      "Tab", "Return",    "x",     "Prior",
                          "Next",  "F1",   "Shift", "e",  "Delete", "1",   "udiaeresis"};

} // namespace

std::vector<std::string> EventScript::nextWords(const std::string& window) {
    constexpr int portion = 25;
    window_ = window;
    for (int event = 0; event < portion; ++event) {
        addEvent();
    }
    return std::exchange(words_, {});
}

void EventScript::addEvent() {
    const unsigned kind = pick(100);
    if (kind < 40) {
        addMove();
    } else if (kind < 55) {
        addClicks();
    } else if (kind < 63) {
        addDrag();
    } else if (kind < 73) {
        add({"click", pick(2) == 0 ? "4" : "5"});
    } else if (kind < 93) {
        addKey();
    } else {
        addWindowAction();
    }
}

void EventScript::addMove() {
    add({"mousemove", "--window", window_, std::to_string(pick(width_)), std::to_string(pick(height_))});
}

void EventScript::addClicks() {
    // Half of them where the controls are.
    const unsigned y = pick(2) == 0 ? height_ - 1 - pick(backHeight) : pick(height_);
    const unsigned x =
        y < backHeight ? backWidth + pick(std::max(width_, backWidth + 1) - backWidth) : pick(width_);
    add({"mousemove", "--window", window_, std::to_string(x), std::to_string(y)});
    for (unsigned click = 0; click <= pick(3); ++click) {
        add({"click", "1"});
    }
}

void EventScript::addDrag() {
    // From anywhere but where a click would close the player.
    add({"mousemove", "--window", window_, std::to_string(pick(width_)),
         std::to_string(height_ - 1 - pick(14)), "mousedown", "1"});
    for (unsigned move = 0; move < 2 + pick(6); ++move) {
        addMove();
    }
    add({"mouseup", "1"});
}

// Escape comes seldom, for it closes the player where there is nothing else to leave.
void EventScript::addKey() {
    const bool leaves = pick(300) == 0;
    add({"key", "--window", window_, "--delay", "0", leaves ? "Escape" : keys.at(pick(keys.size()))});
}

void EventScript::addWindowAction() {
    switch (pick(5)) {
    case 0:
        add({"windowmove", window_, std::to_string(pick(400)), std::to_string(pick(300))});
        break;
    case 1:
        add({"windowminimize", window_, "windowactivate", window_});
        break;
    case 2:
        add({"windowactivate", window_});
        break;
    default:
        width_ = 64 + pick(1300);
        height_ = 64 + pick(800);
        add({"windowsize", window_, std::to_string(width_), std::to_string(height_)});
        break;
    }
}

void EventScript::add(const std::vector<std::string>& words) {
    words_.insert(words_.end(), words.begin(), words.end());
    ++events_;
}

} // namespace KivUICore::Player
