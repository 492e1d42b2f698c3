#pragma once

#include "Platform/MediaPlayer/MPRouteProvider.h"
#include "Player/Overlay/Film/Playback.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace UIKit {
class UIView;
} // namespace UIKit

namespace KivUICore::Overlay {

/// Offers the audio devices that a film's sound can go to as routes of the route button.
class AudioDeviceRoutes : public MediaPlayer::MPRouteProvider {
public:
    using Choose = std::function<void(const std::shared_ptr<UIKit::UIView>& anchor)>;

    /// `choose` lets the viewer choose. `playback` outlives the routes.
    AudioDeviceRoutes(Playback& playback, Choose choose) : playback_(playback), choose_(std::move(choose)) {}

    /// Call it after each change of the playback's state.
    void playbackDidChange();

    std::vector<MediaPlayer::MPRoute> routes() const override;
    void selectRoute(const std::string& identifier) override;
    void chooseRouteFromView(const std::shared_ptr<MediaPlayer::MPVolumeView>& view) override;

private:
    Playback& playback_;
    Choose choose_;
    std::vector<AudioDevice> told_;
};

} // namespace KivUICore::Overlay
