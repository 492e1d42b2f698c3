#include "Hosts/Headless/HeadlessHost.h"

#include "Platform/CoreGraphics/CGRecordingContext.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace KivUICore::Headless {

using namespace CoreGraphics;
using UIKit::UITouchIdentifier;
using UIKit::UITouchPhase;

namespace {

// Work that is due again at once, a timer that repeats without an interval for one, must not hold time up for
// ever.
constexpr double leastStep = 0.001;

} // namespace

HeadlessHost::HeadlessHost(const CGSize& size)
    : runLoop_(clock_), window_(Foundation::make<UIKit::UIWindow>(CGRect{{}, size})) {}

void HeadlessHost::advance(double seconds) {
    VirtualClock end = clock_;
    end.advance(seconds);
    runLoop_.turn();
    const double lastMoment = end.now() + Foundation::NSRunLoop::tolerance;
    for (double next = nextMoment(); next <= lastMoment; next = nextMoment()) {
        if (next < end.now()) {
            clock_.set(next);
        } else {
            clock_ = end;
        }
        runLoop_.turn();
    }
    if (clock_.now() < end.now()) {
        clock_ = end;
        runLoop_.turn();
    }
    window_->layoutIfNeeded();
}

double HeadlessHost::nextMoment() const {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const double wait = runLoop_.timeUntilNextWork().value_or(infinity);
    const double next = clock_.now() + (wait > 0.0 ? wait : leastStep);
    // A wait may be too short to add up.
    return std::max(next, std::nextafter(clock_.now(), infinity));
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

} // namespace KivUICore::Headless
