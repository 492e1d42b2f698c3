#include "Player/Overlay/MessageView.h"

#include <utility>

namespace Overlay {

using namespace CoreGraphics;

void MessageView::setText(std::string text) {
    text_ = std::move(text);
    setNeedsDisplay();
}

void MessageView::drawRect(CGContext& context, const CGRect& /*rect*/) {
    constexpr CGFloat radius = 12.0;
    constexpr CGFloat padding = 16.0;
    // Lighter than black, for there is often no picture where there is a message.
    constexpr CGColor plate{0.17, 0.17, 0.19, 0.9};
    const CGTextStyle style{.font = {.size = 16.0, .weight = CGFontWeight::Medium},
                            .color = {1.0, 1.0, 1.0, 1.0},
                            .alignment = CGTextAlignment::Center,
                            .maximumLines = 0};
    context.fillRoundedRect(bounds(), radius, plate);
    context.drawText(text_, style, CGRectInset(bounds(), padding, padding));
}

} // namespace Overlay
