#include "Player/Overlay/Film/PlaybackState.h"

#include <algorithm>

namespace KivUICore::Overlay {

bool isPlayable(const PlaybackState& state) {
    return !state.error || state.error->kind == PlaybackError::Kind::Interrupted;
}

bool canSeek(const PlaybackState& state) { return state.isSeekable && isPlayable(state); }

double nearestPlace(const PlaybackState& state, double time) {
    double nearest = std::max(0.0, time);
    if (state.duration) {
        nearest = std::min(nearest, *state.duration);
    }
    if (state.seekableRange) {
        nearest = std::min(std::max(nearest, state.seekableRange->start), state.seekableRange->end);
    }
    return nearest;
}

} // namespace KivUICore::Overlay
