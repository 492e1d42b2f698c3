#include "Player/Overlay/FilmCommands.h"

#include <algorithm>

namespace Overlay {

double FilmCommands::position() const {
    return seeks_.target().value_or(playback_.state().hasEnded ? endPosition() : playback_.state().position);
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
    if (state.isPaused || state.hasEnded) {
        playback_.play();
    } else {
        playback_.pause();
    }
}

void FilmCommands::toggleMute() { playback_.setMuted(!playback_.state().isMuted); }

void FilmCommands::seekBy(double seconds) {
    double time = std::max(0.0, position() + seconds);
    if (const std::optional<double> duration = playback_.state().duration) {
        time = std::min(time, *duration);
    }
    seek(time, SeekPrecision::Exact);
}

void FilmCommands::seekToFraction(double fraction) {
    if (const std::optional<double> duration = playback_.state().duration) {
        seek(*duration * fraction, SeekPrecision::Exact);
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

} // namespace Overlay
