#include "Player/Overlay/Messages/NoticeView.h"

#include "Platform/Foundation/NSTimer.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Looks/PlateView.h"

#include <algorithm>
#include <cmath>

namespace KivUICore::Overlay {

using namespace CoreGraphics;

namespace {

constexpr CGFloat margin = 12.0;
constexpr CGFloat widest = 560.0;
constexpr int mostLines = 3;

constexpr double shortestStay = 2.0;
constexpr double longestStay = 8.0;
constexpr double bytesReadPerSecond = 16.0;
constexpr double fadeDuration = 0.3;

double stay(const std::string& text) {
    return std::clamp(static_cast<double>(text.size()) / bytesReadPerSecond, shortestStay, longestStay);
}

} // namespace

bool NoticeView::init(const CGRect& frame) {
    plate_ = Foundation::make<PlateView>(CGRect{});
    plate_->label()->setNumberOfLines(mostLines);
    plate_->setHidden(true);
    if (!UIView::init(frame)) {
        return false;
    }
    setUserInteractionEnabled(false);
    addSubview(plate_);
    return true;
}

void NoticeView::dealloc() {
    stopWaiting();
    UIView::dealloc();
}

bool NoticeView::isShowing() const { return !plate_->isHidden(); }

void NoticeView::layoutSubviews() {
    const CGSize area = bounds().size;
    const CGSize room{std::clamp(area.width - 2.0 * margin, 0.0, widest),
                      std::max(0.0, area.height - 2.0 * margin)};
    const CGSize size = plate_->sizeThatFits(room);
    plate_->setFrame({{std::round((area.width - size.width) / 2.0), margin}, size});
}

void NoticeView::show(const std::string& text) {
    stopWaiting();
    if (text.empty()) {
        endPassing();
        return;
    }
    isPassing_ = true;
    showNow(text);
    const std::weak_ptr<NoticeView> weak = self(this);
    timer_ =
        Foundation::NSTimer::scheduledTimerWithTimeInterval(stay(text), false, [weak](Foundation::NSTimer&) {
            if (const auto view = weak.lock()) {
                view->fadeAway();
            }
        });
}

void NoticeView::keep(const std::string& text) {
    kept_ = text;
    if (!isPassing_) {
        showNow(kept_);
    }
}

void NoticeView::showNow(const std::string& text) {
    plate_->label()->setText(text);
    plate_->setAlpha(1.0);
    plate_->setHidden(text.empty());
    setNeedsLayout();
}

void NoticeView::endPassing() {
    isPassing_ = false;
    showNow(kept_);
}

void NoticeView::stopWaiting() {
    if (timer_) {
        timer_->invalidate();
        timer_.reset();
    }
}

void NoticeView::fadeAway() {
    timer_.reset();
    const std::weak_ptr<NoticeView> weak = self(this);
    UIView::animateWithDuration(
        fadeDuration, 0.0, UIKit::UIViewAnimationOptionCurveEaseIn, [this] { plate_->setAlpha(0.0); },
        [weak](bool finished) {
            const auto view = weak.lock();
            if (view && finished) {
                view->endPassing();
            }
        });
}

} // namespace KivUICore::Overlay
