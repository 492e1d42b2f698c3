#include "Player/Overlay/Film/SeekQueue.h"

#include <utility>

namespace KivUICore::Overlay {

void SeekQueue::seek(double time, SeekPrecision precision) {
    const Request request{time, precision};
    if (playback_.state().isSeeking) {
        waiting_ = request;
    } else {
        send(request);
    }
}

void SeekQueue::forget() {
    sent_.reset();
    waiting_.reset();
}

void SeekQueue::playbackDidChange() {
    if (playback_.state().isSeeking) {
        return;
    }
    sent_.reset();
    if (const std::optional<Request> next = std::exchange(waiting_, std::nullopt)) {
        send(*next);
    }
}

std::optional<double> SeekQueue::target() const { return waiting_ ? waiting_->time : sent_; }

void SeekQueue::send(const Request& request) {
    sent_ = request.time;
    playback_.seek(request.time, request.precision);
}

} // namespace KivUICore::Overlay
