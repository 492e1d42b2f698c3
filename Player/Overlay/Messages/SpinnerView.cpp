#include "Player/Overlay/Messages/SpinnerView.h"

#include "Platform/CoreGraphics/CGAffineTransform.h"
#include "Platform/Foundation/NSTimer.h"

#include <algorithm>
#include <numbers>

namespace KivUICore::Overlay {

using namespace CoreGraphics;

namespace {

constexpr CGFloat side = 48.0;
constexpr int spokeCount = 12;
constexpr double secondsPerTurn = 1.0;
constexpr CGRect spoke = CGRectMake(-1.5, -17.0, 3.0, 9.0);
constexpr CGFloat faintest = 0.2;
constexpr CGColor disc{0.0, 0.0, 0.0, 0.6};

CGFloat brightness(int spokesBehindLeader) {
    return std::max(faintest, 1.0 - static_cast<CGFloat>(spokesBehindLeader) / spokeCount);
}

} // namespace

bool SpinnerView::init(const CGRect& frame) {
    if (!UIView::init(frame)) {
        return false;
    }
    setUserInteractionEnabled(false);
    setHidden(true);
    return true;
}

CGSize SpinnerView::sizeThatFits(const CGSize& /*size*/) const { return {side, side}; }

void SpinnerView::startAnimating() {
    isAnimating_ = true;
    setHidden(false);
    startOrStopTurning();
}

void SpinnerView::stopAnimating() {
    isAnimating_ = false;
    setHidden(true);
    startOrStopTurning();
}

void SpinnerView::didMoveToWindow() { startOrStopTurning(); }

void SpinnerView::startOrStopTurning() {
    const bool turns = isAnimating_ && window();
    if (turns == (timer_ != nullptr)) {
        return;
    }
    if (!turns) {
        timer_->invalidate();
        timer_.reset();
        return;
    }
    // The window holds the view for as long as the timer runs.
    timer_ = Foundation::NSTimer::scheduledTimerWithTimeInterval(secondsPerTurn / spokeCount, true,
                                                                 [this](Foundation::NSTimer&) { turn(); });
}

void SpinnerView::turn() {
    leader_ = (leader_ + 1) % spokeCount;
    setNeedsDisplay();
}

void SpinnerView::drawRect(CGContext& context, const CGRect& /*rect*/) {
    const CGRect bounds = presentedBounds();
    const CGRect square =
        CGRectMake(CGRectGetMidX(bounds) - side / 2.0, CGRectGetMidY(bounds) - side / 2.0, side, side);
    context.fillRoundedRect(square, side / 2.0, disc);
    context.saveState();
    context.concatenate(CGAffineTransformMakeTranslation(CGRectGetMidX(square), CGRectGetMidY(square)));
    const CGAffineTransform toNext = CGAffineTransformMakeRotation(2.0 * std::numbers::pi / spokeCount);
    for (int index = 0; index < spokeCount; ++index) {
        const int behind = (leader_ - index + spokeCount) % spokeCount;
        context.fillRoundedRect(spoke, spoke.size.width / 2.0, {1.0, 1.0, 1.0, brightness(behind)});
        context.concatenate(toNext);
    }
    context.restoreState();
}

} // namespace KivUICore::Overlay
