#include "Player/Overlay/Bars/TransportControls.h"

#include "KivUICore/UIComponent/Button.h"
#include "KivUICore/UIComponent/Label.h"
#include "KivUICore/UIComponent/SeekBar.h"
#include "Platform/MediaPlayer/MPVolumeView.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UIWindow.h"
#include "Player/Overlay/Bars/ScrubObserver.h"
#include "Player/Overlay/Bars/TimeLabel.h"
#include "Player/Overlay/Bars/TrackSlider.h"
#include "Player/Overlay/Film/PlaybackState.h"
#include "Player/Overlay/Looks/Icons.h"

#include <algorithm>
#include <cmath>

namespace KivUICore::Overlay {

using namespace CoreGraphics;
using Foundation::make;
using KivUICore::BottomBar;
using UIKit::UIControlStateNormal;

namespace {

std::shared_ptr<KivUICore::Button> makeButton(const std::function<void()>& action) {
    return make<KivUICore::Button>(make<UIKit::UIButton>(CGRect()), action);
}

} // namespace

TransportControls::TransportControls(const std::shared_ptr<UIKit::UIView>& host,
                                     const std::shared_ptr<KivCore::KivPlayer>& player,
                                     const Actions& actions)
    : slider_(make<TrackSlider>(CGRect())), play_(makeButton(actions.togglePlay)),
      mute_(makeButton(actions.toggleMute)), fullScreen_(makeButton(actions.toggleFullScreen)),
      bar_(make<RowBar<BottomBar>>(host)) {
    const ScrubObserver::Handlers handlers{actions.beganScrubbing, actions.scrubbed, actions.endedScrubbing};
    seekBar_ = make<KivUICore::SeekBar>(slider_, make<ScrubObserver>(handlers), player);
    seekBar_->disable();
    length_.view()->setPressHandler([this] {
        lengthShown_ = lengthShown_ == LengthShown::Duration ? LengthShown::Remaining : LengthShown::Duration;
        showTimes(position_);
    });
    bar_->addElementToView(play_, 1);
    bar_->addElementToView(elapsed_.component(), 1);
    bar_->addElementToView(seekBar_, 7);
    bar_->addElementToView(length_.component(), 1);
    bar_->addElementToView(mute_, 1);
    bar_->addElementToView(fullScreen_, 1);
    layOutRow();
}

TransportControls::~TransportControls() {
    bar_->setFadeHandler(nullptr);
    bar_->clean();
}

void TransportControls::layOutRow() {
    constexpr CGFloat button = 44.0;
    constexpr CGFloat track = 64.0;
    constexpr CGFloat shortestTrack = 44.0;
    constexpr auto fixed = RowItem::Width::Fixed;
    const CGFloat routeButton = hasRouteButton_ ? button : 0.0;
    const CGFloat elapsed = elapsed_.widthFor(hourFigures_, TimeDisplay::Sign::None);
    const CGFloat length = length_.widthFor(hourFigures_, TimeDisplay::Sign::Minus);
    // The bubble tells the length too, the keys mute, and a double click is full screen.
    bar_->setRow({{button, fixed, 0},
                  {elapsed, fixed, 1},
                  {track + routeButton, RowItem::Width::Flexible, 0, shortestTrack + routeButton},
                  {length, fixed, 4},
                  {button, fixed, 3},
                  {button, fixed, 2}});
}

// A film of unknown length may play for hours.
void TransportControls::makeRoomForTimes() {
    const int figures = hourFigures(std::max(wholeSeconds(duration_.value_or(0.0)), wholeSeconds(position_)));
    if (figures != hourFigures_) {
        hourFigures_ = figures;
        layOutRow();
    }
}

bool TransportControls::isRouteButtonVisible() const {
    return seekBar_->airplayButton()->isRouteButtonVisible();
}

void TransportControls::show(const PlaybackState& state, double position, bool isFullScreen) {
    showButtons(state, isFullScreen);
    if (isRouteButtonVisible() != hasRouteButton_) {
        hasRouteButton_ = !hasRouteButton_;
        layOutRow();
    }
    showTrack(state, position);
    position_ = isScrubbing() ? scrubTime() : position;
    makeRoomForTimes();
    moveHandle(position_);
    showTimes(position_);
}

void TransportControls::showTrack(const PlaybackState& state, double position) {
    if (state.duration != duration_) {
        duration_ = state.duration;
        seekBar_->setMaximumValue(static_cast<float>(duration_.value_or(1.0)));
        // In another film the handle has nowhere to travel from.
        if (!isScrubbing()) {
            seekBar_->setCurrentValue(duration_ ? static_cast<float>(position) : 0.0F);
        }
    }
    const bool isEnabled = duration_ && canSeek(state);
    if (isEnabled != isTrackEnabled_) {
        isTrackEnabled_ = isEnabled;
        if (isEnabled) {
            seekBar_->enable();
        } else {
            seekBar_->disable();
        }
    }
}

void TransportControls::showButtons(const PlaybackState& state, bool isFullScreen) {
    const PlayIcon playIcon = state.error      ? PlayIcon::Play
                              : state.hasEnded ? PlayIcon::Replay
                              : state.isPaused ? PlayIcon::Play
                                               : PlayIcon::Pause;
    if (isPlayable(state) != isPlayEnabled_) {
        isPlayEnabled_ = !isPlayEnabled_;
        if (isPlayEnabled_) {
            play_->enable();
        } else {
            play_->disable();
        }
    }
    if (playIcon != shownPlayIcon_) {
        shownPlayIcon_ = playIcon;
        play_->setImage(playIcon == PlayIcon::Replay ? replayIcon()
                        : playIcon == PlayIcon::Play ? Overlay::playIcon()
                                                     : pauseIcon(),
                        UIControlStateNormal);
    }
    if (state.isMuted != showsMuted_) {
        showsMuted_ = state.isMuted;
        mute_->setImage(state.isMuted ? mutedIcon() : soundIcon(), UIControlStateNormal);
    }
    if (isFullScreen != showsFullScreen_) {
        showsFullScreen_ = isFullScreen;
        fullScreen_->setImage(isFullScreen ? exitFullScreenIcon() : enterFullScreenIcon(),
                              UIControlStateNormal);
    }
}

void TransportControls::showTimes(double position) {
    const std::int64_t passed = wholeSeconds(position);
    elapsed_.show(passed);
    if (!duration_) {
        length_.show(std::nullopt);
    } else if (lengthShown_ == LengthShown::Duration) {
        length_.show(wholeSeconds(*duration_));
    } else {
        // Of whole seconds, so that both times together are the length.
        length_.show(std::max<std::int64_t>(0, wholeSeconds(*duration_) - passed), TimeDisplay::Sign::Minus);
    }
}

// A film at play moves the handle by far less than a pixel a frame: it waits until there is something to see.
void TransportControls::moveHandle(double position) {
    constexpr CGFloat leastMove = 0.25;
    if (isScrubbing() || !duration_) {
        return;
    }
    const auto value = static_cast<float>(position);
    const std::shared_ptr<UIKit::UIWindow> window = slider_->window();
    const CGFloat scale = window ? window->contentScale() : 1.0;
    const CGFloat way = slider_->thumbCenter(value).x - slider_->thumbCenter(slider_->value()).x;
    if (std::abs(way) * scale >= leastMove) {
        seekBar_->sync(value);
    }
}

double TransportControls::scrubTime() const { return seekBar_->currentValue(); }

bool TransportControls::isScrubbing() const { return slider_->isTracking(); }

bool TransportControls::scrubBeganWithJump() const { return slider_->jumpedToTouch(); }

void TransportControls::cancelScrub() {
    if (const std::shared_ptr<UIKit::UIWindow> window = slider_->window()) {
        window->cancelTouchesIn(*slider_);
    }
}

bool TransportControls::scrubWasCancelled() const { return slider_->wasCancelled(); }

const UIKit::UIView& TransportControls::host() const { return *bar_->superview(); }

std::optional<double> TransportControls::timeAt(const CGPoint& point) const {
    const CGPoint local = host().convertPointToView(point, *slider_);
    if (!isTrackEnabled_ || !CGRectContainsPoint(slider_->bounds(), local)) {
        return std::nullopt;
    }
    return slider_->valueAt(local.x);
}

CGPoint TransportControls::pointOver(double time) const {
    const CGPoint thumb = slider_->thumbCenter(static_cast<float>(time));
    return {slider_->convertPointToView(thumb, host()).x, CGRectGetMinY(bar_->view()->frame())};
}

} // namespace KivUICore::Overlay
