#include "Platform/UIKit/Animation/AnimationCurve.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace UIKit;

constexpr AnimationCurve allCurves[] = {AnimationCurve::EaseInOut, AnimationCurve::EaseIn,
                                        AnimationCurve::EaseOut, AnimationCurve::Linear};

// One coordinate of a cubic Bézier curve by de Casteljau's construction.
double onCurve(double control1, double control2, double t) {
    const auto mix = [t](double from, double to) { return from + (to - from) * t; };
    const double a = mix(0.0, control1);
    const double b = mix(control1, control2);
    const double c = mix(control2, 1.0);
    return mix(mix(a, b), mix(b, c));
}

// The curve's y at a given x, found by halving.
double reference(double x1, double y1, double x2, double y2, double x) {
    double low = 0.0;
    double high = 1.0;
    for (int step = 0; step < 60; ++step) {
        const double middle = (low + high) / 2.0;
        (onCurve(x1, x2, middle) < x ? low : high) = middle;
    }
    return onCurve(y1, y2, (low + high) / 2.0);
}

TEST(AnimationCurveTest, CurvesStartAtNothingAndEndWithAll) {
    for (const AnimationCurve curve : allCurves) {
        EXPECT_EQ(easedProgress(curve, 0.0), 0.0);
        EXPECT_EQ(easedProgress(curve, 1.0), 1.0);
    }
}

TEST(AnimationCurveTest, TimeBeyondTheEndsIsCut) {
    for (const AnimationCurve curve : allCurves) {
        EXPECT_EQ(easedProgress(curve, -3.0), 0.0);
        EXPECT_EQ(easedProgress(curve, 7.0), 1.0);
        EXPECT_EQ(easedProgress(curve, std::numeric_limits<double>::infinity()), 1.0);
    }
}

TEST(AnimationCurveTest, ProgressNeverGoesBack) {
    for (const AnimationCurve curve : allCurves) {
        double last = 0.0;
        for (int step = 1; step <= 10000; ++step) {
            const double progress = easedProgress(curve, step / 10000.0);
            EXPECT_GE(progress, last) << step;
            last = progress;
        }
    }
}

TEST(AnimationCurveTest, CurvesFollowTheirControlPoints) {
    for (int step = 0; step <= 1000; ++step) {
        const double time = step / 1000.0;
        EXPECT_NEAR(easedProgress(AnimationCurve::EaseIn, time), reference(0.42, 0, 1, 1, time), 1e-9);
        EXPECT_NEAR(easedProgress(AnimationCurve::EaseOut, time), reference(0, 0, 0.58, 1, time), 1e-9);
        EXPECT_NEAR(easedProgress(AnimationCurve::EaseInOut, time), reference(0.42, 0, 0.58, 1, time), 1e-9);
        EXPECT_EQ(easedProgress(AnimationCurve::Linear, time), time);
    }
}

TEST(AnimationCurveTest, EaseInStartsSlowlyAndEaseOutMirrorsIt) {
    EXPECT_NEAR(easedProgress(AnimationCurve::EaseIn, 0.5), 0.31535681, 1e-8);
    EXPECT_NEAR(easedProgress(AnimationCurve::EaseInOut, 0.5), 0.5, 1e-12);
    for (int step = 0; step <= 100; ++step) {
        const double time = step / 100.0;
        EXPECT_NEAR(easedProgress(AnimationCurve::EaseOut, time),
                    1.0 - easedProgress(AnimationCurve::EaseIn, 1.0 - time), 1e-9);
    }
}

TEST(AnimationCurveTest, OptionsNameTheCurveWhateverElseTheySay) {
    EXPECT_EQ(animationCurve(0), AnimationCurve::EaseInOut);
    EXPECT_EQ(animationCurve(UIViewAnimationOptionCurveEaseInOut | 0xFFFCFFFFU), AnimationCurve::EaseInOut);
    EXPECT_EQ(animationCurve(UIViewAnimationOptionCurveEaseIn | 0x7U), AnimationCurve::EaseIn);
    EXPECT_EQ(animationCurve(UIViewAnimationOptionCurveEaseOut | 0x40000U), AnimationCurve::EaseOut);
    EXPECT_EQ(animationCurve(UIViewAnimationOptionCurveLinear), AnimationCurve::Linear);
}

} // namespace
