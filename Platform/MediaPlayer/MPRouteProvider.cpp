#include "Platform/MediaPlayer/MPRouteProvider.h"

#include "Platform/MediaPlayer/MPVolumeView.h"

namespace MediaPlayer {

namespace {

std::weak_ptr<MPRouteProvider>& installedProvider() {
    static std::weak_ptr<MPRouteProvider> provider;
    return provider;
}

} // namespace

std::shared_ptr<MPRouteProvider> MPRouteProvider::installed() { return installedProvider().lock(); }

void MPRouteProvider::install(const std::shared_ptr<MPRouteProvider>& provider) {
    installedProvider() = provider;
    MPVolumeView::updateAll();
}

void MPRouteProvider::routesDidChange() const {
    if (installed().get() == this) {
        MPVolumeView::updateAll();
    }
}

} // namespace MediaPlayer
