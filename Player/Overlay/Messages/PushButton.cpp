#include "Player/Overlay/Messages/PushButton.h"

namespace KivUICore::Overlay {

using namespace CoreGraphics;

void PushButton::drawRect(CGContext& context, const CGRect& rect) {
    constexpr CGFloat radius = 8.0;
    constexpr CGFloat inset = 2.0;
    constexpr CGColor raised{1.0, 1.0, 1.0, 0.16};
    context.fillRoundedRect(CGRectInset(alignedToPixels(presentedBounds()), inset, inset), radius, raised);
    UIButton::drawRect(context, rect);
}

} // namespace KivUICore::Overlay
