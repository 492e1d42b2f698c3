#pragma once

#include <cstdint>

namespace UIKit {

/// How an animation's progress follows its time, as bits. All other bits are passed over.
using UIViewAnimationOptions = std::uint32_t;

inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseInOut = 0U << 16U;
inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseIn = 1U << 16U;
inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseOut = 2U << 16U;
inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveLinear = 3U << 16U;

} // namespace UIKit
