#pragma once

#include <random>
#include <string>
#include <vector>

namespace KivUICore::Player {

/// Input without end or sense, as words for xdotool. The same seed gives the same.
class EventScript {
public:
    explicit EventScript(unsigned seed) : random_(seed) {}

    /// The next few events in or on a window of xdotool's, of which few ask that the player be closed; with
    /// the button up at their end.
    std::vector<std::string> nextWords(const std::string& window);

    int events() const { return events_; }

    /// A number below `count`, of the same row as all else that this picks.
    unsigned pick(unsigned count) { return static_cast<unsigned>(random_() % count); }

private:
    void addEvent();
    void addMove();
    void addClicks();
    void addDrag();
    void addKey();
    void addWindowAction();
    void add(const std::vector<std::string>& words);

    std::mt19937 random_;
    std::string window_;
    std::vector<std::string> words_;
    unsigned width_ = 640;
    unsigned height_ = 360;
    int events_ = 0;
};

} // namespace KivUICore::Player
