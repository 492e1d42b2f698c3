#include "Player/Overlay/Film/LatestSeek.h"

#include <utility>

namespace KivUICore::Overlay {

void LatestSeek::seek(double time, SeekPrecision precision) {
    const Request request{time, precision};
    if (playback_.state().isSeeking) {
        waiting_ = request;
    } else {
        send(request);
    }
}

void LatestSeek::forget() {
    sent_.reset();
    waiting_.reset();
}

void LatestSeek::playbackDidChange() {
    if (playback_.state().isSeeking) {
        return;
    }
    sent_.reset();
    if (const std::optional<Request> next = std::exchange(waiting_, std::nullopt)) {
        send(*next);
    }
}

std::optional<double> LatestSeek::target() const { return waiting_ ? waiting_->time : sent_; }

void LatestSeek::send(const Request& request) {
    sent_ = request.time;
    playback_.seek(request.time, request.precision);
}

} // namespace KivUICore::Overlay
