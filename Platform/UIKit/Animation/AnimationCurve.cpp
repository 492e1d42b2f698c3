#include "Platform/UIKit/Animation/AnimationCurve.h"

#include <algorithm>
#include <cmath>

namespace UIKit {

namespace {

// One coordinate of a cubic curve from 0 to 1 with the given controls.
double bezier(double control1, double control2, double t) {
    const double s = 1.0 - t;
    return 3.0 * s * s * t * control1 + 3.0 * s * t * t * control2 + t * t * t;
}

double bezierSlope(double control1, double control2, double t) {
    const double s = 1.0 - t;
    return 3.0 * s * s * control1 + 6.0 * s * t * (control2 - control1) + 3.0 * t * t * (1.0 - control2);
}

// The curve's y where its x is `time`. Its y controls are 0 and 1, so that progress starts and ends level or
// straight.
double solve(double x1, double x2, double time) {
    double t = time;
    for (int step = 0; step < 8; ++step) {
        const double slope = bezierSlope(x1, x2, t);
        if (slope < 1e-6) {
            break;
        }
        t = std::clamp(t - (bezier(x1, x2, t) - time) / slope, 0.0, 1.0);
    }
    return bezier(0.0, 1.0, t);
}

} // namespace

AnimationCurve animationCurve(UIViewAnimationOptions options) {
    constexpr UIViewAnimationOptions mask = 3U << 16U;
    switch (options & mask) {
    case UIViewAnimationOptionCurveEaseIn:
        return AnimationCurve::EaseIn;
    case UIViewAnimationOptionCurveEaseOut:
        return AnimationCurve::EaseOut;
    case UIViewAnimationOptionCurveLinear:
        return AnimationCurve::Linear;
    default:
        return AnimationCurve::EaseInOut;
    }
}

double easedProgress(AnimationCurve curve, double time) {
    const double clamped = std::clamp(time, 0.0, 1.0);
    switch (curve) {
    case AnimationCurve::EaseInOut:
        return solve(0.42, 0.58, clamped);
    case AnimationCurve::EaseIn:
        return solve(0.42, 1.0, clamped);
    case AnimationCurve::EaseOut:
        return solve(0.0, 0.58, clamped);
    case AnimationCurve::Linear:
        break;
    }
    return clamped;
}

} // namespace UIKit
