#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace KivUICore {
class Label;
} // namespace KivUICore

namespace KivUICore::Overlay {

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

    /// The width in which every time with so many figures for the hours fits.
    CoreGraphics::CGFloat widthFor(int hourFigures, Sign sign) const;

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

/// With how many figures the hours of a time are shown, given in whole seconds: with none below an hour.
int hourFigures(std::int64_t seconds);

} // namespace KivUICore::Overlay
