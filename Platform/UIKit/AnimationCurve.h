#pragma once

#include <cstdint>

namespace UIKit {

using UIViewAnimationOptions = std::uint32_t;

inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseInOut = 0U << 16U;
inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseIn = 1U << 16U;
inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseOut = 2U << 16U;
inline constexpr UIViewAnimationOptions UIViewAnimationOptionCurveLinear = 3U << 16U;

/// How an animation's progress follows its time.
enum class AnimationCurve { EaseInOut, EaseIn, EaseOut, Linear };

/// The curve among the option bits; all other bits are passed over.
AnimationCurve animationCurve(UIViewAnimationOptions options);

/// Progress from 0 to 1 at `time` from 0 to 1, which is cut to that range.
double easedProgress(AnimationCurve curve, double time);

} // namespace UIKit
