#include "Player/Overlay/Film/AudioDeviceRoutes.h"

#include "Platform/MediaPlayer/MPVolumeView.h"

namespace KivUICore::Overlay {

using MediaPlayer::MPRoute;

void AudioDeviceRoutes::playbackDidChange() {
    if (told_ != playback_.state().audioDevices) {
        told_ = playback_.state().audioDevices;
        routesDidChange();
    }
}

std::vector<MPRoute> AudioDeviceRoutes::routes() const {
    std::vector<MPRoute> routes;
    for (const AudioDevice& device : playback_.state().audioDevices) {
        routes.push_back({device.name, device.identifier, device.isSelected});
    }
    return routes;
}

void AudioDeviceRoutes::selectRoute(const std::string& identifier) {
    playback_.selectAudioDevice(identifier);
}

void AudioDeviceRoutes::chooseRouteFromView(const std::shared_ptr<MediaPlayer::MPVolumeView>& view) {
    choose_(view);
}

} // namespace KivUICore::Overlay
