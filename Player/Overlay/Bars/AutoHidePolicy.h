#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace KivUICore {
class KivBar;
} // namespace KivUICore

namespace KivUICore::Overlay {

/// Hides bars together after a time without activity, by their own countdowns, unless something holds them.
/// Needs no window. Holds the bars.
class AutoHidePolicy {
public:
    /// What keeps bars visible while it lasts.
    enum class Hold { Paused, Ended, Error, Menu, PointerOnBar, Dragging };

    /// `delay` in seconds, above 0.0. Counting begins at once.
    AutoHidePolicy(std::vector<std::shared_ptr<KivUICore::KivBar>> bars, double delay);

    /// The viewer did something: the bars show, and the time runs anew.
    void noteActivity();

    /// A hold shows the bars. When the last one ends the time runs anew. Setting what is set does nothing.
    void setHold(Hold hold, bool holds);

    bool isHeld() const;

    /// False from the moment at which the bars begin to fade out.
    bool areBarsVisible() const;

    /// Why the bars are visible: the names of the holds ("paused, pointer on a bar"), or "recent activity".
    /// Empty when they are hidden.
    std::string reason() const;

private:
    static constexpr std::size_t holdCount = 6;

    void showBars();
    void stopCounting();
    void countAnew();

    std::vector<std::shared_ptr<KivUICore::KivBar>> bars_;
    double delay_;
    std::array<bool, holdCount> holds_{};
};

} // namespace KivUICore::Overlay
