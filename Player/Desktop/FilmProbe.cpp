#include "Player/Desktop/FilmProbe.h"

#include <utility>

namespace KivUICore::Player {

FilmProbe::FilmProbe(const std::string& location, std::function<void()> wakeUp)
    : client_({{"vo", "null"},
               {"ao", "null"},
               {"pause", "yes"},
               {"hwdec", "no"},
               {"cache", "no"},
               {"demuxer-readahead-secs", "0"},
               {"vd-lavc-threads", "1"}}) {
    client_.setWakeUp(std::move(wakeUp));
    opening_.begin(client_, location, 0.0);
}

void FilmProbe::update() {
    client_.takeEvents([this](const mpv_event& event) { opening_.handle(event, client_); });
    opening_.conclude(client_);
}

} // namespace KivUICore::Player
