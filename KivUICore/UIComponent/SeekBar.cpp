#include "KivUICore/UIComponent/SeekBar.h"

#include "KivUICore/UIComponent/Button.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/MediaPlayer/MPVolumeView.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UISlider.h"

namespace KivUICore {

using namespace CoreGraphics;
using KivCore::KivPlayer;
using KivCore::PlayerEventObserver;
using MediaPlayer::MPVolumeView;
using UIKit::UIControlState;
using UIKit::UIImage;
using UIKit::UISlider;

namespace {

constexpr CGFloat routeButtonScale = 0.8;
constexpr CGFloat routeButtonDrop = 4.0;

} // namespace

const Foundation::Class& SeekBar::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<SeekBar, UIComponent>("KivUICore.SeekBar")
            .initializer<const std::shared_ptr<UISlider>&, const std::shared_ptr<UIEventObserver>&,
                         const std::shared_ptr<KivPlayer>&>("initWithView:observer:player:")
            .property<&SeekBar::airplayButton, &SeekBar::setAirplayButton>("airplayButton")
            .property<&SeekBar::player, &SeekBar::setPlayer>("player")
            .property<&SeekBar::currentValue, &SeekBar::setCurrentValue>("currentValue")
            .property<&SeekBar::maximumValue, &SeekBar::setMaximumValue>("maximumValue")
            .method<&SeekBar::sync>("sync:")
            .method<&SeekBar::enable>("enable")
            .method<&SeekBar::disable>("disable")
            .method<&SeekBar::setMaximumTrackImage>("setMaximumTrackImage:controlState:")
            .method<&SeekBar::setMinimumTrackImage>("setMinimumTrackImage:controlState:")
            .method<&SeekBar::setThumbImage>("setThumbImage:controlState:")
            .method<&SeekBar::beganScrubbing>("beganScrubbing:")
            .method<&SeekBar::endedScrubbing>("endedScrubbing:")
            .method<&SeekBar::onValueChanged>("onValueChanged:")
            .method<&SeekBar::onSeekBegan>("onSeekBegan")
            .method<&SeekBar::onSeekEnd>("onSeekEnd")
            .build();
    return object;
}

bool SeekBar::init(const std::shared_ptr<UISlider>& view, const std::shared_ptr<UIEventObserver>& observer,
                   const std::shared_ptr<KivPlayer>& player) {
    require(player, "player", "init(view:observer:player:)");
    if (!UIComponent::init()) {
        return false;
    }
    airplayButton_ = nullptr;
    player_ = nullptr;
    setView(view);
    setObserver(observer);
    player_ = player;
    if (player_->allowsAirPlay()) {
        makeRouteButton();
    }
    registerActions();
    return true;
}

bool SeekBar::init() { Foundation::unimplementedInitializer("init()", "KivUICore.SeekBar"); }

void SeekBar::dealloc() {
    UIComponent::dealloc();
    airplayButton_.reset();
    player_.reset();
}

void SeekBar::makeRouteButton() {
    airplayButton_ = Foundation::make<MPVolumeView>();
    airplayButton_->setShowsVolumeSlider(false);
    airplayButton_->sizeToFit();
    airplayButton_->setTransform(CGAffineTransformMakeScale(routeButtonScale, routeButtonScale));
    const CGRect frame = airplayButton_->frame();
    airplayButton_->setFrame(CGRectOffset(frame, 0.0, routeButtonDrop));
}

void SeekBar::registerActions() {
    if (const std::shared_ptr<UISlider> control = slider()) {
        const std::shared_ptr<SeekBar> target = self(this);
        control->addTarget(target, "beganScrubbing:", UIKit::UIControlEventTouchDown);
        control->addTarget(target, "endedScrubbing:",
                           UIKit::UIControlEventTouchUpInside | UIKit::UIControlEventTouchUpOutside |
                               UIKit::UIControlEventTouchCancel);
        control->addTarget(target, "onValueChanged:", UIKit::UIControlEventValueChanged);
    }
}

std::shared_ptr<MPVolumeView> SeekBar::airplayButton() const { return airplayButton_; }

void SeekBar::setAirplayButton(const std::shared_ptr<MPVolumeView>& airplayButton) {
    std::shared_ptr(airplayButton).swap(airplayButton_);
}

std::shared_ptr<KivPlayer> SeekBar::player() const { return player_; }

void SeekBar::setPlayer(const std::shared_ptr<KivPlayer>& player) { std::shared_ptr(player).swap(player_); }

std::shared_ptr<UISlider> SeekBar::slider() const { return Foundation::as<UISlider>(view()); }

float SeekBar::currentValue() const {
    const std::shared_ptr<UISlider> control = slider();
    return control ? control->value() : 0.0F;
}

void SeekBar::setCurrentValue(float value) {
    if (const std::shared_ptr<UISlider> control = slider()) {
        control->setValue(value);
    }
}

float SeekBar::maximumValue() const {
    const std::shared_ptr<UISlider> control = slider();
    return control ? control->maximumValue() : 0.0F;
}

void SeekBar::setMaximumValue(float value) {
    if (const std::shared_ptr<UISlider> control = slider()) {
        control->setMaximumValue(value);
    }
}

void SeekBar::sync(float value) {
    if (const std::shared_ptr<UISlider> control = slider()) {
        control->setValue(value, true);
    }
}

void SeekBar::enable() {
    if (const std::shared_ptr<UISlider> control = slider()) {
        control->setEnabled(true);
    }
}

void SeekBar::disable() {
    if (const std::shared_ptr<UISlider> control = slider()) {
        control->setEnabled(false);
    }
}

void SeekBar::setMaximumTrackImage(const std::shared_ptr<UIImage>& image, UIControlState controlState) {
    const std::shared_ptr<UISlider> control = image ? slider() : nullptr;
    if (control) {
        control->setMaximumTrackImage(image, controlState);
    }
}

void SeekBar::setMinimumTrackImage(const std::shared_ptr<UIImage>& image, UIControlState controlState) {
    const std::shared_ptr<UISlider> control = image ? slider() : nullptr;
    if (control) {
        control->setMinimumTrackImage(image, controlState);
    }
}

void SeekBar::setThumbImage(const std::shared_ptr<UIImage>& image, UIControlState controlState) {
    const std::shared_ptr<UISlider> control = image ? slider() : nullptr;
    if (control) {
        control->setThumbImage(image, controlState);
    }
}

void SeekBar::onSeekBegan() {}

void SeekBar::onSeekEnd() {}

void SeekBar::beganScrubbing(const std::shared_ptr<NSObject>& /*sender*/) {
    tell("onSeekBegan:", "onSeekBegan");
}

void SeekBar::endedScrubbing(const std::shared_ptr<NSObject>& /*sender*/) {
    tell("onSeekFinished:", "onSeekEnd");
}

void SeekBar::onValueChanged(const std::shared_ptr<NSObject>& /*sender*/) {
    static const Foundation::SEL valueChanged("onValueChanged:");
    const std::shared_ptr<SeekBar> alive = self(this);
    if (const std::shared_ptr<UIEventObserver> told = observer()) {
        told->send(valueChanged, alive);
    }
}

// Without an application's observer the player's observers hear nothing either.
void SeekBar::tell(Foundation::SEL operation, Foundation::SEL playerOperation) {
    const std::shared_ptr<SeekBar> alive = self(this);
    const std::shared_ptr<UIEventObserver> told = observer();
    if (!told) {
        return;
    }
    told->send(operation, alive);
    const std::shared_ptr<KivPlayer> seeking = player_;
    const std::shared_ptr<KivCore::KivEventNotifier> notifier = seeking ? seeking->eventNotifier() : nullptr;
    if (!notifier) {
        return;
    }
    notifier->notifyObservers([playerOperation](const std::shared_ptr<PlayerEventObserver>& each) {
        if (each->respondsToSelector(playerOperation)) {
            each->send(playerOperation);
        }
    });
}

} // namespace KivUICore
