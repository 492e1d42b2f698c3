#include "Player/Overlay/PlayerOverlay.h"

#include "Platform/UIKit/UIViewController.h"
#include "Player/Overlay/Film/AudioDeviceRoutes.h"
#include "Player/Overlay/Film/NotifyingPlayer.h"
#include "Player/Overlay/HostView.h"
#include "Player/Overlay/KeyCommand.h"
#include "Player/Overlay/Menus/MenuPresenter.h"
#include "Player/Overlay/WindowControls.h"

#include <cmath>

namespace KivUICore::Overlay {

using namespace CoreGraphics;
using Foundation::make;
using Hold = AutoHidePolicy::Hold;

namespace {

constexpr double hideDelay = 3.0;
constexpr double seekStep = 5.0;
constexpr double volumeStep = 0.05;
constexpr double percent = 100.0;

std::shared_ptr<HostView> fill(UIKit::UIView& root) {
    std::shared_ptr<HostView> view = make<HostView>(root.bounds());
    view->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleWidth |
                              UIKit::UIViewAutoresizingFlexibleHeight);
    root.addSubview(view);
    return view;
}

std::shared_ptr<UIKit::UIViewController> controllerOf(const std::shared_ptr<UIKit::UIView>& view) {
    std::shared_ptr<UIKit::UIViewController> controller = make<UIKit::UIViewController>();
    controller->setView(view);
    return controller;
}

} // namespace

PlayerOverlay::PlayerOverlay(const std::shared_ptr<UIKit::UIView>& root, Playback& playback,
                             WindowControls& window)
    : playback_(playback), window_(window), film_(playback), menus_(playback, film_), hostView_(fill(*root)),
      controller_(controllerOf(hostView_)),
      menu_(
          make<MenuPresenter>(controller_, menus_, [this] { policy_.setHold(Hold::Menu, menu_->isOpen()); })),
      routes_(std::make_shared<AudioDeviceRoutes>(
          playback, [this](const auto& anchor) { openMenu(MenuKind::AudioDevices, anchor); })),
      player_(make<NotifyingPlayer>(playback.state())),
      status_(
          hostView_, [this] { playback_.retry(); }, [this] { playback_.cancelOpening(); }),
      title_(
          hostView_, [this] { goBack(); }, [this] { openMenu(MenuKind::Main, title_.menuButton()); }),
      transport_(hostView_, player_, transportActions()), bubble_(hostView_),
      policy_({title_.bar(), transport_.bar()}, hideDelay) {
    // A bar that is told a new frame travels there over half a second. While somebody drags the window's edge
    // it would trail behind, so the bars follow by themselves, and a layout pass places what is in them.
    title_.bar()->view()->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleWidth);
    transport_.bar()->view()->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleWidth |
                                                  UIKit::UIViewAutoresizingFlexibleTopMargin);
    title_.bar()->setFadeHandler([this] { barsDidFade(); });
    transport_.bar()->setFadeHandler([this] { barsDidFade(); });
    hostView_->setTouchHandler([this] { policy_.noteActivity(); });
    hostView_->setDoubleTapHandler([this] { toggleFullScreen(); });
    hostView_->setLayoutHandler([this] { layOut(); });
    hostView_->setNeedsLayout();
    MediaPlayer::MPRouteProvider::install(routes_, hostView_);
    playback_.setChangeHandler([this] { playbackDidChange(); });
    refresh();
}

PlayerOverlay::~PlayerOverlay() {
    playback_.setChangeHandler(nullptr);
    menu_->close();
    hostView_->setLayoutHandler(nullptr);
    hostView_->removeFromSuperview();
}

std::shared_ptr<UIKit::UIView> PlayerOverlay::hostView() const { return hostView_; }

std::shared_ptr<NotifyingPlayer> PlayerOverlay::player() const { return player_; }

CGFloat PlayerOverlay::bottomInset() { return KivUICore::KivBar::barHeight(); }

TransportControls::Actions PlayerOverlay::transportActions() {
    const auto active = [this](void (FilmCommands::*command)()) {
        return [this, command] {
            policy_.noteActivity();
            (film_.*command)();
        };
    };
    return {.togglePlay = active(&FilmCommands::togglePlay),
            .toggleMute = active(&FilmCommands::toggleMute),
            .toggleFullScreen = [this] { toggleFullScreen(); },
            .beganScrubbing = [this] { beginScrubbing(); },
            .scrubbed = [this] { scrub(); },
            .endedScrubbing = [this] { endScrubbing(); }};
}

void PlayerOverlay::beginScrubbing() {
    hasScrubbed_ = false;
    placeBeforeScrub_ = film_.position();
    playback_.setHeld(true);
    policy_.setHold(Hold::Dragging, true);
    if (transport_.scrubBeganWithJump()) {
        scrub();
    }
}

void PlayerOverlay::scrub() {
    hasScrubbed_ = true;
    film_.seek(transport_.scrubTime(), SeekPrecision::KeyFrame);
    refresh();
}

// A handle that was taken away from the viewer leaves the film as it was, or has lost it to another one.
void PlayerOverlay::endScrubbing() {
    const PlaybackState& state = playback_.state();
    if (hasScrubbed_ && !state.isOpening && !state.error) {
        film_.seek(transport_.scrubWasCancelled() ? placeBeforeScrub_ : transport_.scrubTime(),
                   SeekPrecision::Exact);
    }
    playback_.setHeld(false);
    policy_.setHold(Hold::Dragging, false);
    refresh();
}

void PlayerOverlay::layOut() {
    title_.bar()->layOut();
    transport_.bar()->layOut();
    layOutBetweenBars();
    updateBubble();
    holdWhileOnBar();
}

// In a low window the film and the controls come before its title, and in the lowest the film before both.
void PlayerOverlay::layOutBetweenBars() {
    const CGFloat bar = KivUICore::KivBar::barHeight();
    const CGFloat lowestWithControls = bar + 8.0;
    const CGFloat lowestWithTitle = 3.0 * bar;
    const CGRect bounds = hostView_->bounds();
    const CGFloat top = bounds.size.height < lowestWithTitle ? 0.0 : bar;
    const CGFloat bottom = bounds.size.height < lowestWithControls ? 0.0 : bar;
    title_.bar()->view()->setHidden(top == 0.0);
    transport_.bar()->view()->setHidden(bottom == 0.0);
    status_.layOut(CGRectMake(0.0, top, bounds.size.width, bounds.size.height - top - bottom));
}

// The film

void PlayerOverlay::playbackDidChange() {
    film_.playbackDidChange();
    refresh();
    const Foundation::NSRunLoop::Scope current = inOwnTime();
    // Comes last: an observer may end the overlay.
    player_->follow(playback_.state());
}

// The player tells of a change in nobody's time.
Foundation::NSRunLoop::Scope PlayerOverlay::inOwnTime() const {
    return Foundation::NSRunLoop::Scope(&hostView_->runLoop());
}

void PlayerOverlay::refresh() {
    const Foundation::NSRunLoop::Scope current = inOwnTime();
    const PlaybackState& state = playback_.state();
    policy_.setHold(Hold::Paused, state.isPaused);
    policy_.setHold(Hold::Ended, state.hasEnded);
    policy_.setHold(Hold::Error, state.error.has_value());
    routes_->playbackDidChange();
    if (menus_.playbackDidChange()) {
        menu_->menusDidChange();
    }
    status_.show(state);
    title_.show(state.title);
    transport_.show(state, film_.position(), window_.isFullScreen());
    updateBubble();
}

// The viewer

void PlayerOverlay::pointerMoved(const CGPoint& location) {
    // Some systems report a pointer that rests, when what is under it changes.
    if (pointer_ == location) {
        return;
    }
    pointer_ = location;
    const Foundation::NSRunLoop::Scope current = inOwnTime();
    hostView_->layoutIfNeeded();
    policy_.noteActivity();
    holdWhileOnBar();
    updateBubble();
}

void PlayerOverlay::pointerLeft() {
    pointer_.reset();
    holdWhileOnBar();
    updateBubble();
}

void PlayerOverlay::updateBubble() {
    const std::optional<double> time = transport_.isScrubbing() ? std::optional(transport_.scrubTime())
                                       : pointer_               ? transport_.timeAt(*pointer_)
                                                                : std::nullopt;
    if (time) {
        bubble_.show(*time, transport_.pointOver(*time));
    } else {
        bubble_.hide();
    }
}

void PlayerOverlay::holdWhileOnBar() {
    const auto isOn = [this](const KivUICore::KivBar& bar) {
        return pointer_ && !bar.view()->isHidden() && CGRectContainsPoint(bar.view()->frame(), *pointer_);
    };
    policy_.setHold(Hold::PointerOnBar, isOn(*title_.bar()) || isOn(*transport_.bar()));
}

bool PlayerOverlay::handleKey(const UIKit::UIKey& key) {
    const std::optional<KeyCommand> command = commandForKey(key);
    // While the handle is held, the film goes where the handle is.
    if (command && !(transport_.isScrubbing() && movesFilm(command->action))) {
        run(*command);
    }
    return command.has_value();
}

void PlayerOverlay::run(const KeyCommand& command) {
    using Action = KeyCommand::Action;
    switch (command.action) {
    case Action::TogglePlay:
        film_.togglePlay();
        break;
    case Action::SeekBackward:
        film_.seekBy(-seekStep);
        break;
    case Action::SeekForward:
        film_.seekBy(seekStep);
        break;
    case Action::VolumeUp:
        return changeVolume(volumeStep);
    case Action::VolumeDown:
        return changeVolume(-volumeStep);
    case Action::ToggleMute:
        film_.toggleMute();
        break;
    case Action::ToggleFullScreen:
        return toggleFullScreen();
    case Action::Cancel:
        return cancel();
    case Action::GoToFraction:
        film_.seekToFraction(command.fraction);
        break;
    case Action::GoToEnd:
        film_.seekToFraction(1.0);
        break;
    case Action::StepBackward:
        film_.stepFrame(Direction::Backward);
        break;
    case Action::StepForward:
        film_.stepFrame(Direction::Forward);
        break;
    case Action::Quit:
        return window_.close();
    }
    policy_.noteActivity();
    refresh();
}

void PlayerOverlay::scrolled(CGFloat notches) { changeVolume(notches * volumeStep); }

void PlayerOverlay::changeVolume(double difference) {
    const Foundation::NSRunLoop::Scope current = inOwnTime();
    const double volume = film_.changeVolume(difference);
    const char* muted = playback_.state().isMuted ? ", muted" : "";
    status_.showNotice("Volume " + std::to_string(std::lround(volume * percent)) + " %" + muted);
}

void PlayerOverlay::goBack() {
    if (window_.isFullScreen()) {
        toggleFullScreen();
    } else {
        window_.close();
    }
}

// One thing at a time, and never the player: it would be gone by one press too many.
void PlayerOverlay::cancel() {
    if (transport_.isScrubbing()) {
        transport_.cancelScrub();
    } else if (playback_.state().isOpening || playback_.state().nextFilm) {
        playback_.cancelOpening();
    } else if (window_.isFullScreen()) {
        toggleFullScreen();
    }
}

void PlayerOverlay::toggleFullScreen() {
    policy_.noteActivity();
    window_.setFullScreen(!window_.isFullScreen());
}

void PlayerOverlay::openMenu(MenuKind kind, const std::shared_ptr<UIKit::UIView>& anchor) {
    policy_.noteActivity();
    menu_->open(kind, anchor);
}

void PlayerOverlay::windowDidChange() { refresh(); }

void PlayerOverlay::barsDidFade() {
    const bool hides = !policy_.areBarsVisible();
    if (hides != isPointerHidden_) {
        isPointerHidden_ = hides;
        window_.setPointerHidden(hides);
    }
}

void PlayerOverlay::showNotice(const std::string& text) {
    const Foundation::NSRunLoop::Scope current = inOwnTime();
    status_.showNotice(text);
}

void PlayerOverlay::showProblem(const PlaybackError& problem) {
    const Foundation::NSRunLoop::Scope current = inOwnTime();
    status_.showProblem(problem);
}

} // namespace KivUICore::Overlay
