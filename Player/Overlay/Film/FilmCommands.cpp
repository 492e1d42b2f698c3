#include "Player/Overlay/Film/FilmCommands.h"

#include <algorithm>
#include <utility>

namespace KivUICore::Overlay {

double FilmCommands::position() const {
    const PlaybackState& state = playback_.state();
    if (state.isOpening && !wish_.fraction) {
        return std::max(0.0, state.position + wish_.seconds);
    }
    return latestSeek_.target().value_or(state.hasEnded ? endPosition() : state.position);
}

// The last picture stands a little before the end. A film that breaks off long before is at the break, and
// what goes back from there starts from there.
double FilmCommands::endPosition() const {
    constexpr double lastPicture = 2.0;
    const PlaybackState& state = playback_.state();
    const double end = state.duration.value_or(state.position);
    return end - state.position > lastPicture ? state.position : end;
}

void FilmCommands::togglePlay() {
    const PlaybackState& state = playback_.state();
    if (state.error) {
        playback_.retry();
    } else if (state.isPaused || state.hasEnded) {
        playback_.play();
    } else {
        playback_.pause();
    }
}

void FilmCommands::toggleMute() { playback_.setMuted(!playback_.state().isMuted); }

void FilmCommands::seek(double time, SeekPrecision precision) {
    const PlaybackState& state = playback_.state();
    if (canSeek(state)) {
        steps_ = 0;
        latestSeek_.seek(nearestPlace(state, time), precision);
    }
}

void FilmCommands::seekBy(double seconds) {
    if (playback_.state().isOpening) {
        wish_.seconds += seconds;
        steps_ = 0;
        return;
    }
    seek(position() + seconds, SeekPrecision::Exact);
}

void FilmCommands::seekToFraction(double fraction) {
    if (playback_.state().isOpening) {
        wish_ = {.fraction = fraction};
        steps_ = 0;
    } else if (const std::optional<double> duration = playback_.state().duration) {
        seek(*duration * fraction, SeekPrecision::Exact);
    }
}

void FilmCommands::stepFrame(Direction direction) {
    if (!isPlayable(playback_.state())) {
        return;
    }
    steps_ += direction == Direction::Forward ? 1 : -1;
    makeSteps();
}

void FilmCommands::playbackDidChange() {
    const bool isOpening = playback_.state().isOpening;
    if (isOpening && !wasOpening_) {
        latestSeek_.forget();
    }
    wasOpening_ = isOpening;
    latestSeek_.playbackDidChange();
    if (!isOpening) {
        fulfilWish();
    }
    makeSteps();
}

void FilmCommands::fulfilWish() {
    const Wish wish = std::exchange(wish_, {});
    if (!isPlayable(playback_.state())) {
        steps_ = 0;
        return;
    }
    const int steps = steps_;
    if (wish.fraction) {
        seekToFraction(*wish.fraction);
    }
    if (wish.seconds != 0.0) {
        seekBy(wish.seconds);
    }
    steps_ = steps;
}

bool FilmCommands::isOnItsWay() const {
    return playback_.state().isOpening || playback_.state().isSeeking || latestSeek_.target();
}

// A film that is on its way would lose them.
void FilmCommands::makeSteps() {
    while (steps_ != 0 && !isOnItsWay()) {
        const bool isForward = steps_ > 0;
        steps_ -= isForward ? 1 : -1;
        playback_.stepFrame(isForward ? Direction::Forward : Direction::Backward);
    }
}

double FilmCommands::changeVolume(double difference) {
    const double volume = std::clamp(playback_.state().volume + difference, 0.0, 1.0);
    playback_.setVolume(volume);
    if (difference > 0.0 && playback_.state().isMuted) {
        playback_.setMuted(false);
    }
    return volume;
}

} // namespace KivUICore::Overlay
