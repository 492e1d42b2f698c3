#include "Player/Overlay/Bars/AutoHidePolicy.h"

#include "KivUICore/KivBar.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace KivUICore::Overlay {

using KivUICore::KivBar;

namespace {

// In the order of the enumeration.
constexpr std::array<std::string_view, 6> names{
    "paused", "ended", "error", "menu", "pointer on a bar", "dragging",
};

} // namespace

AutoHidePolicy::AutoHidePolicy(std::vector<std::shared_ptr<KivBar>> bars, double delay)
    : bars_(std::move(bars)), delay_(delay) {
    countAnew();
}

void AutoHidePolicy::noteActivity() {
    showBars();
    if (!isHeld()) {
        countAnew();
    }
}

void AutoHidePolicy::setHold(Hold hold, bool holds) {
    if (std::exchange(holds_[static_cast<std::size_t>(hold)], holds) == holds) {
        return;
    }
    if (holds) {
        stopCounting();
        showBars();
    } else if (!isHeld()) {
        countAnew();
    }
}

bool AutoHidePolicy::isHeld() const { return std::find(holds_.begin(), holds_.end(), true) != holds_.end(); }

bool AutoHidePolicy::areBarsVisible() const {
    return std::any_of(bars_.begin(), bars_.end(),
                       [](const auto& bar) { return bar->view()->alpha() > 0.0; });
}

std::string AutoHidePolicy::reason() const {
    std::string reason;
    for (std::size_t index = 0; index < holds_.size(); ++index) {
        if (holds_[index]) {
            reason += (reason.empty() ? "" : ", ") + std::string(names[index]);
        }
    }
    return reason.empty() && areBarsVisible() ? "recent activity" : reason;
}

void AutoHidePolicy::showBars() {
    for (const std::shared_ptr<KivBar>& bar : bars_) {
        bar->show();
    }
}

// Without a delay the end of a fade arms nothing either.
void AutoHidePolicy::stopCounting() {
    for (const std::shared_ptr<KivBar>& bar : bars_) {
        bar->setDelay(0.0);
        if (const std::shared_ptr<Foundation::NSTimer> timer = bar->autoHideTimer()) {
            timer->invalidate();
        }
        bar->setAutoHideTimer(nullptr);
    }
}

void AutoHidePolicy::countAnew() {
    for (const std::shared_ptr<KivBar>& bar : bars_) {
        bar->setDelay(delay_);
        bar->resetAutoHide();
    }
}

} // namespace KivUICore::Overlay
