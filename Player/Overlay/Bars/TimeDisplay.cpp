#include "Player/Overlay/Bars/TimeDisplay.h"

#include "KivUICore/UIComponent/Label.h"
#include "Platform/CoreGraphics/TextMetrics.h"
#include "Platform/UIKit/UIFont.h"
#include "Player/Overlay/Bars/TimeLabel.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace KivUICore::Overlay {

using Foundation::make;

TimeDisplay::TimeDisplay()
    : view_(make<TimeLabel>(CoreGraphics::CGRect())),
      component_(make<KivUICore::Label>(view_, std::shared_ptr<KivUICore::UIEventObserver>())) {}

TimeDisplay::~TimeDisplay() = default;

CoreGraphics::CGFloat TimeDisplay::widthFor(int hourFigures, Sign sign) const {
    constexpr CoreGraphics::CGFloat usual = 48.0;
    std::string text = "00:00";
    if (hourFigures > 0) {
        text = std::string(static_cast<std::size_t>(hourFigures), '0') + ":" + text;
    }
    if (sign == Sign::Minus) {
        text = "-" + text;
    }
    return std::max(usual, std::ceil(CoreGraphics::estimatedTextWidth(text, view_->font()->cgFont())));
}

void TimeDisplay::show(std::optional<std::int64_t> seconds, Sign sign) {
    if (seconds == shown_ && sign == sign_) {
        return;
    }
    shown_ = seconds;
    sign_ = sign;
    view_->setSign(sign == Sign::Minus ? "-" : "");
    if (seconds) {
        component_->updateLabelWithTime(static_cast<float>(*seconds));
    } else {
        view_->setText(std::nullopt);
    }
}

std::int64_t wholeSeconds(double time) {
    constexpr double longest = 1e9;
    return time > 0.0 ? static_cast<std::int64_t>(std::min(time, longest)) : 0;
}

int hourFigures(std::int64_t seconds) {
    constexpr std::int64_t secondsPerHour = 3600;
    constexpr int fewest = 2;
    const std::int64_t hours = seconds / secondsPerHour;
    return hours == 0 ? 0 : std::max(fewest, static_cast<int>(std::to_string(hours).size()));
}

} // namespace KivUICore::Overlay
