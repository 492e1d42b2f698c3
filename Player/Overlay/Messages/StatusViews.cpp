#include "Player/Overlay/Messages/StatusViews.h"

#include "Platform/Foundation/NSTimer.h"
#include "Player/Overlay/Film/PlaybackState.h"
#include "Player/Overlay/Looks/Icons.h"
#include "Player/Overlay/Messages/MessageView.h"
#include "Player/Overlay/Messages/NoticeView.h"
#include "Player/Overlay/Messages/SpinnerView.h"

#include <utility>

namespace KivUICore::Overlay {

using namespace CoreGraphics;
using Foundation::make;

namespace {

constexpr double patience = 0.5;
constexpr double openingPatience = 1.5;

void stop(std::shared_ptr<Foundation::NSTimer>& timer) {
    if (timer) {
        timer->invalidate();
        timer = nullptr;
    }
}

} // namespace

StatusViews::StatusViews(const std::shared_ptr<UIKit::UIView>& host, std::function<void()> retry,
                         std::function<void()> cancel)
    : host_(host), retry_(std::move(retry)), cancel_(std::move(cancel)),
      spinner_(make<SpinnerView>(CGRect())), message_(make<MessageView>(CGRect())),
      notice_(make<NoticeView>(CGRect())) {
    spinner_->sizeToFit();
    message_->setHidden(true);
    host->addSubview(spinner_);
    host->addSubview(message_);
    host->addSubview(notice_);
}

StatusViews::~StatusViews() {
    stop(openingTimer_);
    stop(waitingTimer_);
    stop(nextFilmTimer_);
    message_->clearAction();
}

void StatusViews::layOut(const CGRect& room) {
    constexpr CGFloat lowestForText = 40.0;
    spinner_->setCenter({CGRectGetMidX(room), CGRectGetMidY(room)});
    spinner_->setAlpha(room.size.height < spinner_->bounds().size.height ? 0.0 : 1.0);
    message_->setFrame(room);
    message_->setAlpha(room.size.height < lowestForText ? 0.0 : 1.0);
    notice_->setFrame(room);
    notice_->setAlpha(room.size.height < lowestForText ? 0.0 : 1.0);
    layOutMessage();
}

void StatusViews::show(const PlaybackState& state) {
    showError(state.error);
    showOpening(state.isOpening ? std::optional(state.title) : std::nullopt);
    showWaiting((state.isWaiting || state.isSeeking) && !state.error);
    showNextFilm(state.nextFilm);
}

void StatusViews::showNotice(const std::string& text) { notice_->show(text); }

void StatusViews::showProblem(const PlaybackError& problem) { showNotice(sentenceOf(problem)); }

void StatusViews::showError(const std::optional<PlaybackError>& error) {
    if (error == error_) {
        return;
    }
    error_ = error;
    updateMessage();
}

void StatusViews::showOpening(const std::optional<std::string>& name) {
    if (name == opening_) {
        return;
    }
    const bool isOther = name.has_value() != opening_.has_value();
    opening_ = name;
    if (!isOther) {
        layOutMessage();
        return;
    }
    stop(openingTimer_);
    if (name) {
        openingTimer_ = Foundation::NSTimer::scheduledTimerWithTimeInterval(
            openingPatience, false, [this](Foundation::NSTimer& /*timer*/) { setSlow(true); });
    } else {
        setSlow(false);
    }
}

// The message stands where the spinner does.
void StatusViews::setSlow(bool isSlow) {
    if (std::exchange(isSlow_, isSlow) != isSlow) {
        spinner_->setHidden(isSlow);
        updateMessage();
    }
}

void StatusViews::updateMessage() {
    message_->setHidden(!error_ && !isSlow_);
    layOutMessage();
    if (error_) {
        const bool isInterrupted = error_->kind == PlaybackError::Kind::Interrupted;
        message_->setAction(retryIcon(), isInterrupted ? "Go on" : "Try again", retry_);
    } else if (isSlow_) {
        message_->setAction(cancelIcon(), "Cancel", cancel_);
    }
}

// In a low window there is room for the reason alone. The title names the film there too.
void StatusViews::layOutMessage() {
    constexpr CGFloat lowest = 240.0;
    const bool isLow = host_->bounds().size.height < lowest;
    if (error_) {
        message_->setText(isLow ? reasonSentenceOf(*error_) : sentenceOf(*error_));
    } else if (isSlow_) {
        message_->setText(isLow ? "Opening…" : "Opening " + *opening_ + "…");
    }
}

// Most waits are over before anybody would notice.
void StatusViews::showWaiting(bool isWaiting) {
    if (isWaiting == isWaiting_) {
        return;
    }
    isWaiting_ = isWaiting;
    stop(waitingTimer_);
    if (isWaiting) {
        waitingTimer_ = Foundation::NSTimer::scheduledTimerWithTimeInterval(
            patience, false, [this](Foundation::NSTimer& /*timer*/) { spinner_->startAnimating(); });
    } else {
        spinner_->stopAnimating();
    }
}

void StatusViews::showNextFilm(const std::optional<std::string>& name) {
    if (name == nextFilm_) {
        return;
    }
    nextFilm_ = name;
    stop(nextFilmTimer_);
    notice_->keep("");
    if (name) {
        // What was said about a film before this one is past.
        notice_->show("");
        nextFilmTimer_ = Foundation::NSTimer::scheduledTimerWithTimeInterval(
            patience, false,
            [this](Foundation::NSTimer& /*timer*/) { notice_->keep("Opening " + *nextFilm_ + "…"); });
    }
}

} // namespace KivUICore::Overlay
