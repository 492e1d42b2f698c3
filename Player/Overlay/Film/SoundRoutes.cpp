#include "Player/Overlay/Film/SoundRoutes.h"

#include "Platform/MediaPlayer/MPVolumeView.h"

namespace KivUICore::Overlay {

using MediaPlayer::MPRoute;

void SoundRoutes::playbackDidChange() {
    if (told_ != playback_.state().audioDevices) {
        told_ = playback_.state().audioDevices;
        routesDidChange();
    }
}

std::vector<MPRoute> SoundRoutes::routes() const {
    std::vector<MPRoute> routes;
    for (const AudioDevice& device : playback_.state().audioDevices) {
        routes.push_back({device.name, device.identifier, device.isSelected});
    }
    return routes;
}

void SoundRoutes::selectRoute(const std::string& identifier) { playback_.selectAudioDevice(identifier); }

void SoundRoutes::chooseRouteFromView(const std::shared_ptr<MediaPlayer::MPVolumeView>& view) {
    choose_(view);
}

} // namespace KivUICore::Overlay
