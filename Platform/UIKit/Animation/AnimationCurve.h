#pragma once

#include "Platform/UIKit/UIViewAnimationOptions.h"

namespace UIKit {

/// How an animation's progress follows its time.
enum class AnimationCurve { EaseInOut, EaseIn, EaseOut, Linear };

/// The curve among the option bits; all other bits are passed over.
AnimationCurve animationCurve(UIViewAnimationOptions options);

/// Progress from 0 to 1 at `time` from 0 to 1, which is cut to that range.
double easedProgress(AnimationCurve curve, double time);

} // namespace UIKit
