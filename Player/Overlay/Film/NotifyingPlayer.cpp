#include "Player/Overlay/Film/NotifyingPlayer.h"

#include "Platform/Foundation/ClassBuilder.h"

#include <cmath>

namespace KivUICore::Overlay {

namespace {

// A film at play would tell of a time with every picture.
bool isTimeToTell(const PlaybackState& before, const PlaybackState& now) {
    const bool isPlaying = !now.isPaused && !now.hasEnded && !now.isSeeking && !before.isSeeking;
    return isPlaying ? std::floor(before.position) != std::floor(now.position)
                     : before.position != now.position;
}

bool doesOtherThing(const PlaybackState& before, const PlaybackState& now) {
    return before.isOpening != now.isOpening || before.isPaused != now.isPaused ||
           before.hasEnded != now.hasEnded || before.error.has_value() != now.error.has_value();
}

} // namespace

const Foundation::Class& NotifyingPlayer::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<NotifyingPlayer, KivPlayer>("Overlay.NotifyingPlayer").build();
    return object;
}

bool NotifyingPlayer::init(const PlaybackState& state) {
    state_ = state;
    return KivPlayer::init();
}

// All that changed is known before the first is told: an observer may bring the next state.
void NotifyingPlayer::follow(const PlaybackState& state) {
    const bool isOtherTime = isTimeToTell(state_, state);
    const bool isOtherThing = doesOtherThing(state_, state);
    const bool isOtherWait = state_.isWaiting != state.isWaiting;
    const bool isNewError = state.error && state_.error != state.error;
    const bool isNewEnd = state.hasEnded && !state_.hasEnded;
    state_ = state;

    const std::shared_ptr<NotifyingPlayer> alive = self(this);
    const std::shared_ptr<KivCore::KivEventNotifier> notifier = eventNotifier();
    const std::string error = isNewError ? sentenceOf(*state_.error) : std::string();
    if (isOtherTime) {
        notifier->notify("onKivTimeChange:", alive);
    }
    if (isOtherThing) {
        notifier->notify("onKivPlaybackStateChanged:", alive);
    }
    if (isOtherWait) {
        notifier->notify("onKivBufferingStateChanged:", alive);
    }
    if (isNewError) {
        notifier->notify("onKivError:error:", alive, error);
    }
    if (isNewEnd) {
        notifier->notify("onKivPlaybackEnded:", alive);
    }
}

} // namespace KivUICore::Overlay
