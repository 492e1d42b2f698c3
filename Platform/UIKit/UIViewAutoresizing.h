#pragma once

namespace UIKit {

/// Which of a view's distances give way when its superview changes size, as bits.
using UIViewAutoresizing = unsigned int;

inline constexpr UIViewAutoresizing UIViewAutoresizingNone = 0;
inline constexpr UIViewAutoresizing UIViewAutoresizingFlexibleLeftMargin = 1U << 0U;
inline constexpr UIViewAutoresizing UIViewAutoresizingFlexibleWidth = 1U << 1U;
inline constexpr UIViewAutoresizing UIViewAutoresizingFlexibleRightMargin = 1U << 2U;
inline constexpr UIViewAutoresizing UIViewAutoresizingFlexibleTopMargin = 1U << 3U;
inline constexpr UIViewAutoresizing UIViewAutoresizingFlexibleHeight = 1U << 4U;
inline constexpr UIViewAutoresizing UIViewAutoresizingFlexibleBottomMargin = 1U << 5U;

} // namespace UIKit
