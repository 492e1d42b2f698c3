#pragma once

#include "KivCore/KivPlayer.h"
#include "KivCore/PlayerEventObserver.h"
#include "KivUICore/UIComponent/UIComponent.h"
#include "Platform/Foundation/Protocol.h"
#include "Platform/UIKit/UIControlEvents.h"

#include <memory>

namespace MediaPlayer {
class MPVolumeView;
}

namespace UIKit {
class UIImage;
class UISlider;
} // namespace UIKit

namespace KivUICore {

/// A slider that shows and sets a playback position. It tells the observer what the user does with it and the
/// player's own observers that a seek began and ended, but never seeks: the application does, and moves the
/// slider with `sync`. While its view is no slider its operations do nothing and its values are 0.0.
class SeekBar : public Foundation::Adopting<UIComponent, KivCore::PlayerEventObserver> {
public:
    static const Foundation::Class& classObject();

    /// Wraps `view`, tells `observer`, and makes a route button if the player asks for one. Without a player,
    /// a fatal report.
    bool init(const std::shared_ptr<UIKit::UISlider>& view, const std::shared_ptr<UIEventObserver>& observer,
              const std::shared_ptr<KivCore::KivPlayer>& player);

    /// Not supported: stops the program with a report.
    bool init() override;

    /// The route button, made when the player wanted one; in no view until a bar or the application puts it
    /// there.
    std::shared_ptr<MediaPlayer::MPVolumeView> airplayButton() const;
    void setAirplayButton(const std::shared_ptr<MediaPlayer::MPVolumeView>& airplayButton);

    /// Whose observers hear of seeks.
    std::shared_ptr<KivCore::KivPlayer> player() const;
    void setPlayer(const std::shared_ptr<KivCore::KivPlayer>& player);

    /// The slider's value; set without animation.
    float currentValue() const;
    void setCurrentValue(float value);

    float maximumValue() const;
    void setMaximumValue(float value);

    /// Moves the slider to `value`, animated, also in the middle of a scrub.
    void sync(float value);

    void enable();
    void disable();

    /// Nothing given leaves the image for that state as it is.
    void setMaximumTrackImage(const std::shared_ptr<UIKit::UIImage>& image,
                              UIKit::UIControlState controlState);
    void setMinimumTrackImage(const std::shared_ptr<UIKit::UIImage>& image,
                              UIKit::UIControlState controlState);
    void setThumbImage(const std::shared_ptr<UIKit::UIImage>& image, UIKit::UIControlState controlState);

    /// What a player tells its observers: nothing to do here.
    void onSeekBegan();
    void onSeekEnd();

protected:
    void dealloc() override;

private:
    std::shared_ptr<UIKit::UISlider> slider() const;
    void makeRouteButton();
    void registerActions();
    void tell(Foundation::SEL operation, Foundation::SEL playerOperation);

    void beganScrubbing(const std::shared_ptr<NSObject>& sender);
    void endedScrubbing(const std::shared_ptr<NSObject>& sender);
    void onValueChanged(const std::shared_ptr<NSObject>& sender);

    std::shared_ptr<MediaPlayer::MPVolumeView> airplayButton_;
    std::shared_ptr<KivCore::KivPlayer> player_;
};

} // namespace KivUICore
