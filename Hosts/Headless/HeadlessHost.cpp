#include "Hosts/Headless/HeadlessHost.h"

#include "Platform/CoreGraphics/CGRecordingContext.h"

#include <algorithm>
#include <limits>

namespace Headless {

using namespace CoreGraphics;
using UIKit::UITouchIdentifier;
using UIKit::UITouchPhase;

namespace {

// Work that is due again at once, a timer that repeats without an interval for one, must not hold time up for
// ever.
constexpr double leastStep = 0.001;

// Sums of times are rounded: what is due at the very end must not slip behind it, and a wait may be too short
// to add up.
constexpr double tolerance = 1e-6;
constexpr double shortestWait = 1e-9;

} // namespace

HeadlessHost::HeadlessHost(const CGSize& size)
    : runLoop_(clock_), window_(Foundation::make<UIKit::UIWindow>(CGRect{{}, size})) {}

void HeadlessHost::advance(double seconds) {
    const double end = clock_.now() + seconds;
    runLoop_.turn();
    for (double next = nextMoment(); next <= end + tolerance; next = nextMoment()) {
        clock_.set(next);
        runLoop_.turn();
    }
    if (clock_.now() < end) {
        clock_.set(end);
        runLoop_.turn();
    }
}

double HeadlessHost::nextMoment() const {
    const double wait = runLoop_.timeUntilNextWork().value_or(std::numeric_limits<double>::infinity());
    return clock_.now() + (wait > 0.0 ? std::max(wait, shortestWait) : leastStep);
}

void HeadlessHost::touchDown(const CGPoint& location, UITouchIdentifier identifier) {
    window_->sendTouch(identifier, UITouchPhase::Began, location);
}

void HeadlessHost::touchMove(const CGPoint& location, UITouchIdentifier identifier) {
    window_->sendTouch(identifier, UITouchPhase::Moved, location);
}

void HeadlessHost::touchUp(const CGPoint& location, UITouchIdentifier identifier) {
    window_->sendTouch(identifier, UITouchPhase::Ended, location);
}

void HeadlessHost::touchCancel(UITouchIdentifier identifier) {
    window_->sendTouch(identifier, UITouchPhase::Cancelled, {});
}

void HeadlessHost::tap(const CGPoint& location) {
    touchDown(location);
    touchUp(location);
}

std::shared_ptr<const CGDrawing> HeadlessHost::draw() {
    CGRecordingContext context(window_->bounds().size);
    window_->display(context);
    return context.drawing();
}

} // namespace Headless
