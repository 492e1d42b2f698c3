#include "Hosts/Headless/HeadlessHost.h"

#include "Platform/CoreGraphics/CGRecordingContext.h"

#include <algorithm>

namespace Headless {

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
    const double end = clock_.now() + seconds;
    runLoop_.turn();
    while (clock_.now() < end) {
        const double wait = runLoop_.timeUntilNextWork().value_or(end - clock_.now());
        clock_.set(std::min(end, clock_.now() + std::max(wait, leastStep)));
        runLoop_.turn();
    }
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
