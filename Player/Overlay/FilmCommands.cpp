#include "Player/Overlay/FilmCommands.h"

#include <algorithm>

namespace Overlay {

// The last picture stands a little before the end.
double FilmCommands::position() const {
    const PlaybackState& state = playback_.state();
    const double present = state.hasEnded ? state.duration.value_or(state.position) : state.position;
    return seeks_.target().value_or(present);
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
