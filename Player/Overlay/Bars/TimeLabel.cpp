#include "Player/Overlay/Bars/TimeLabel.h"

#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UITouch.h"

#include <utility>

namespace KivUICore::Overlay {

bool TimeLabel::init(const CoreGraphics::CGRect& frame) {
    constexpr CoreGraphics::CGFloat fontSize = 13.0;
    if (!UILabel::init(frame)) {
        return false;
    }
    setFont(UIKit::UIFont::monospacedDigitSystemFontOfSize(fontSize, UIKit::UIFontWeightMedium));
    setTextAlignment(CoreGraphics::CGTextAlignment::Center);
    return true;
}

void TimeLabel::setPressHandler(std::function<void()> handler) {
    onPress_ = std::move(handler);
    setUserInteractionEnabled(true);
}

void TimeLabel::setText(const std::optional<std::string>& text) {
    UILabel::setText(text ? std::optional(sign_ + *text) : std::nullopt);
}

void TimeLabel::touchesEnded(const UIKit::UITouch& touch) {
    const std::function<void()> handler = onPress_;
    if (handler && pointInside(touch.locationInView(*this))) {
        handler();
    }
}

} // namespace KivUICore::Overlay
