#pragma once

#include "KivCore/KivPlayer.h"
#include "Player/Overlay/Film/PlaybackState.h"

namespace KivUICore::Overlay {

/// A playback as the framework and its users see it: a player that tells its observers what becomes of the
/// film. That a seek began or ended is the seek bar's to tell, by the same notifier.
class NotifyingPlayer final : public KivCore::KivPlayer {
public:
    static const Foundation::Class& classObject();

    using KivPlayer::init;
    /// Nobody is told how the playback is at first.
    bool init(const PlaybackState& state);

    /// The film's sound may go to other audio devices, which are routes to the seek bar.
    bool allowsAirPlay() const override { return true; }

    /// What was told last. Stays so once the playback has gone.
    const PlaybackState& state() const { return state_; }

    /// Call it after each change of the playback's state. Tells the observers, in this order:
    /// - `onKivTimeChange:` at each second of a film at play, and at each place of one that isn't,
    /// - `onKivPlaybackStateChanged:` when it is opened, plays, pauses, ends, fails or goes on,
    /// - `onKivBufferingStateChanged:` when it begins to wait for data or has them,
    /// - `onKivError:error:` with a sentence (`std::string`) when it fails,
    /// - `onKivPlaybackEnded:` when it comes to its end.
    /// Any of them may end everything.
    void follow(const PlaybackState& state);

private:
    PlaybackState state_;
};

} // namespace KivUICore::Overlay
