#include "Platform/UIKit/Presentation/PopoverPlacement.h"

#include "Platform/CoreGraphics/ContentLayout.h"

#include <algorithm>
#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

namespace {

// Two rows of a table: less is no list any more.
constexpr CGFloat leastUsefulHeight = 88.0;
constexpr CGFloat gap = 2.0;

bool isFinite(const CGRect& rect) {
    return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
           std::isfinite(rect.size.height);
}

CGFloat within(CGFloat value, CGFloat least, CGFloat greatest) {
    return least <= greatest ? std::clamp(value, least, greatest) : (least + greatest) / 2.0;
}

CGSize sizeWithin(const CGSize& size, const CGSize& space) {
    return {std::clamp(size.width, 0.0, space.width), std::clamp(size.height, 0.0, space.height)};
}

bool opensBelow(CGFloat above, CGFloat below, UIPopoverArrowDirection permitted) {
    const bool up = (permitted & UIPopoverArrowDirectionUp) != 0;
    const bool down = (permitted & UIPopoverArrowDirectionDown) != 0;
    return up == down ? below >= above : up;
}

} // namespace

PopoverPlacement placePopover(const CGSize& window, const std::optional<CGRect>& anchor, const CGSize& size,
                              UIPopoverArrowDirection permitted) {
    const CGSize space{std::max(0.0, window.width - 2.0 * popoverMargin),
                       std::max(0.0, window.height - 2.0 * popoverMargin)};
    const CGSize greatest = sizeWithin(size, space);
    const PopoverPlacement centred{
        rectCenteredIn({{}, window}, greatest), UIPopoverArrowDirectionUnknown, {}};
    if (!anchor || !isFinite(*anchor)) {
        return centred;
    }
    const CGFloat lowest = popoverMargin + space.height;
    const CGFloat top = within(CGRectGetMinY(*anchor), popoverMargin, lowest);
    const CGFloat bottom = within(CGRectGetMaxY(*anchor), popoverMargin, lowest);
    const CGFloat above = top - gap - popoverArrowHeight - popoverMargin;
    const CGFloat below = lowest - bottom - gap - popoverArrowHeight;
    const bool isBelow = opensBelow(above, below, permitted);
    const CGFloat room = isBelow ? below : above;
    if (room < std::min(greatest.height, leastUsefulHeight)) {
        return centred;
    }
    const CGSize shown{greatest.width, std::min(greatest.height, room)};
    const CGFloat middle = CGRectGetMidX(*anchor);
    const CGFloat left =
        within(middle - shown.width / 2.0, popoverMargin, window.width - popoverMargin - shown.width);
    const CGFloat tip = isBelow ? bottom + gap : top - gap;
    const CGFloat y = isBelow ? tip + popoverArrowHeight : tip - popoverArrowHeight - shown.height;
    const CGFloat reach = popoverCornerRadius + popoverArrowWidth / 2.0;
    return {{{left, y}, shown},
            isBelow ? UIPopoverArrowDirectionUp : UIPopoverArrowDirectionDown,
            {within(middle, left + reach, left + shown.width - reach), tip}};
}

} // namespace UIKit
