#include "Player/Overlay/TimeDisplay.h"

#include "KivUICore/UIComponent/Label.h"
#include "Player/Overlay/TimeLabel.h"

#include <algorithm>

namespace Overlay {

using Foundation::make;

TimeDisplay::TimeDisplay()
    : view_(make<TimeLabel>(CoreGraphics::CGRect())),
      component_(make<KivUICore::Label>(view_, std::shared_ptr<KivUICore::UIEventObserver>())) {}

TimeDisplay::~TimeDisplay() = default;

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

} // namespace Overlay
