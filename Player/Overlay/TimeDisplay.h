#pragma once

#include <cstdint>
#include <memory>
#include <optional>

namespace KivUICore {
class Label;
} // namespace KivUICore

namespace Overlay {

class TimeLabel;

/// A time in a bar, written anew only when its whole seconds change.
class TimeDisplay {
public:
    enum class Sign { None, Minus };

    TimeDisplay();
    TimeDisplay(const TimeDisplay&) = delete;
    TimeDisplay& operator=(const TimeDisplay&) = delete;
    ~TimeDisplay();

    const std::shared_ptr<TimeLabel>& view() const { return view_; }

    /// The control that a bar places.
    const std::shared_ptr<KivUICore::Label>& component() const { return component_; }

    /// Whole seconds, not negative; nothing shows no text.
    void show(std::optional<std::int64_t> seconds, Sign sign = Sign::None);

private:
    std::shared_ptr<TimeLabel> view_;
    std::shared_ptr<KivUICore::Label> component_;
    std::optional<std::int64_t> shown_;
    Sign sign_ = Sign::None;
};

/// The whole seconds in a time that may be anything: none if it is not a number or negative.
std::int64_t wholeSeconds(double time);

} // namespace Overlay
