#pragma once

namespace UIKit {

/// Where a pop-over's arrow points to, as bits: up from a pop-over below its anchor.
using UIPopoverArrowDirection = unsigned int;

inline constexpr UIPopoverArrowDirection UIPopoverArrowDirectionUnknown = 0;
inline constexpr UIPopoverArrowDirection UIPopoverArrowDirectionUp = 1U << 0U;
inline constexpr UIPopoverArrowDirection UIPopoverArrowDirectionDown = 1U << 1U;
inline constexpr UIPopoverArrowDirection UIPopoverArrowDirectionLeft = 1U << 2U;
inline constexpr UIPopoverArrowDirection UIPopoverArrowDirectionRight = 1U << 3U;
inline constexpr UIPopoverArrowDirection UIPopoverArrowDirectionAny = 15;

} // namespace UIKit
