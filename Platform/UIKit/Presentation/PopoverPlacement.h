#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/UIKit/UIPopoverArrowDirection.h"

#include <optional>

namespace UIKit {

/// Where a pop-over lies in its window.
struct PopoverPlacement {
    /// What its content fills.
    CoreGraphics::CGRect content;

    /// Unknown for a pop-over without an arrow.
    UIPopoverArrowDirection arrowDirection = UIPopoverArrowDirectionUnknown;

    /// Of the arrow, which reaches from the content to its anchor.
    CoreGraphics::CGPoint arrowTip;

    friend bool operator==(const PopoverPlacement&, const PopoverPlacement&) = default;
};

/// In points: from a pop-over to the edges of the window, of the arrow, and of the round corners.
inline constexpr CoreGraphics::CGFloat popoverMargin = 10.0;
inline constexpr CoreGraphics::CGFloat popoverArrowHeight = 10.0;
inline constexpr CoreGraphics::CGFloat popoverArrowWidth = 22.0;
inline constexpr CoreGraphics::CGFloat popoverCornerRadius = 10.0;

/// Places a content of `size` above or below `anchor`, on the side with more room among those that
/// `permitted` has (both if neither), centred on it and within the margins of a window of size `window`. A
/// content that is too large becomes smaller. Where neither side has room for a few rows, or there is no
/// anchor, it is laid over the middle of the window, without an arrow.
PopoverPlacement placePopover(const CoreGraphics::CGSize& window,
                              const std::optional<CoreGraphics::CGRect>& anchor,
                              const CoreGraphics::CGSize& size, UIPopoverArrowDirection permitted);

} // namespace UIKit
