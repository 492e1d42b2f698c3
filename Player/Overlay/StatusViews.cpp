#include "Player/Overlay/StatusViews.h"

#include "KivUICore/KivBar.h"
#include "Platform/Foundation/NSTimer.h"
#include "Player/Overlay/MessageView.h"
#include "Player/Overlay/NoticeView.h"
#include "Player/Overlay/PlaybackState.h"
#include "Player/Overlay/SpinnerView.h"

#include <string_view>
#include <utility>

namespace Overlay {

using namespace CoreGraphics;
using Foundation::make;

namespace {

constexpr double patience = 0.5;

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// A name in quotes keeps its beginning and its end alone, so that a small window has room for what comes
// behind it. Lengths are in bytes, rounded up to whole characters.
std::string withShortName(std::string text) {
    constexpr std::size_t longestName = 36;
    constexpr std::size_t end = 16;
    const std::size_t open = text.find('\'');
    const std::size_t close = text.rfind("': ");
    if (open == std::string::npos || close == std::string::npos || close < open + 1 + longestName) {
        return text;
    }
    std::size_t from = open + 1 + longestName - end;
    std::size_t to = close - end;
    while (isContinuation(text[from])) {
        ++from;
    }
    while (isContinuation(text[to])) {
        --to;
    }
    return from < to ? text.replace(from, to - from, "…") : text;
}

// What comes behind the name.
std::string reasonIn(const std::string& problem) {
    constexpr std::string_view mark = "': ";
    const std::size_t close = problem.rfind(mark);
    return close == std::string::npos ? problem : problem.substr(close + mark.size());
}

std::string sentence(std::string text) {
    text = withShortName(std::move(text));
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z') {
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    }
    return text + ".";
}

void stop(std::shared_ptr<Foundation::NSTimer>& timer) {
    if (timer) {
        timer->invalidate();
        timer = nullptr;
    }
}

} // namespace

StatusViews::StatusViews(const std::shared_ptr<UIKit::UIView>& host, std::function<void()> retry)
    : host_(host), retry_(std::move(retry)), spinner_(make<SpinnerView>(CGRect())),
      message_(make<MessageView>(CGRect())), notice_(make<NoticeView>(CGRect())) {
    spinner_->sizeToFit();
    message_->setHidden(true);
    host->addSubview(spinner_);
    host->addSubview(message_);
    host->addSubview(notice_);
    layOut();
}

StatusViews::~StatusViews() {
    stop(waitingTimer_);
    stop(nextFilmTimer_);
    message_->clearAction();
}

void StatusViews::layOut() {
    const CGRect bounds = host_->bounds();
    const CGRect between = CGRectInset(bounds, 0.0, KivUICore::KivBar::barHeight());
    spinner_->setCenter({CGRectGetMidX(bounds), CGRectGetMidY(bounds)});
    message_->setFrame(between);
    notice_->setFrame(between);
    layOutMessage();
}

void StatusViews::show(const PlaybackState& state) {
    showError(state.error);
    showWaiting((state.isWaiting || state.isSeeking) && !state.error);
    showNextFilm(state.nextFilm);
}

void StatusViews::showNotice(const std::string& text) { notice_->show(text); }

void StatusViews::showProblem(const std::string& problem) { showNotice(sentence(problem)); }

void StatusViews::showError(const std::optional<std::string>& error) {
    if (error == error_) {
        return;
    }
    error_ = error;
    message_->setHidden(!error);
    if (error) {
        layOutMessage();
        message_->setAction("Try again", retry_);
    }
}

// In a low window there is room for the reason alone. The title names the film there too.
void StatusViews::layOutMessage() {
    constexpr CGFloat lowest = 240.0;
    if (error_) {
        const bool isLow = host_->bounds().size.height < lowest;
        message_->setText(sentence(isLow ? reasonIn(*error_) : *error_));
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
        nextFilmTimer_ = Foundation::NSTimer::scheduledTimerWithTimeInterval(
            patience, false,
            [this](Foundation::NSTimer& /*timer*/) { notice_->keep("Opening " + *nextFilm_ + "…"); });
    }
}

} // namespace Overlay
