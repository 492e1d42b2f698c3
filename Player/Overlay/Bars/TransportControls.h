#pragma once

#include "KivUICore/Bottom/BottomBar.h"
#include "Player/Overlay/Bars/RowBar.h"
#include "Player/Overlay/Bars/TimeDisplay.h"

#include <functional>
#include <memory>
#include <optional>

namespace KivCore {
class KivPlayer;
} // namespace KivCore

namespace KivUICore {
class Button;
class SeekBar;
} // namespace KivUICore

namespace KivUICore::Overlay {

struct PlaybackState;
class TrackSlider;

/// The bottom bar and what is in it: play and pause, the time that has passed, the seek bar, the film's
/// length or what remains of it, mute, and full screen.
class TransportControls {
public:
    /// What the viewer does. All are set.
    struct Actions {
        std::function<void()> togglePlay;
        std::function<void()> toggleMute;
        std::function<void()> toggleFullScreen;
        std::function<void()> beganScrubbing;
        std::function<void()> scrubbed;
        std::function<void()> endedScrubbing;
    };

    /// The observers of `player` hear when the viewer takes hold of the seek bar's handle and lets go.
    TransportControls(const std::shared_ptr<UIKit::UIView>& host,
                      const std::shared_ptr<KivCore::KivPlayer>& player, const Actions& actions);
    TransportControls(const TransportControls&) = delete;
    TransportControls& operator=(const TransportControls&) = delete;
    ~TransportControls();

    const std::shared_ptr<RowBar<KivUICore::BottomBar>>& bar() const { return bar_; }

    /// Brings the controls up to date. `position` in seconds is where to show the film, which may be ahead of
    /// the state's own. While the viewer holds the handle it stays under the finger.
    void show(const PlaybackState& state, double position, bool isFullScreen);

    /// The handle's time in seconds.
    double scrubTime() const;
    bool isScrubbing() const;

    /// Whether the touch that took hold of the handle went down beside it, and brought it there.
    bool scrubBeganWithJump() const;

    /// Takes the handle out of the viewer's hand.
    void cancelScrub();

    /// Whether the handle was taken away last time, rather than let go.
    bool scrubWasCancelled() const;

    /// The time under a point of the host view; nothing beside the track, or while the film can't be sent
    /// there.
    std::optional<double> timeAt(const CoreGraphics::CGPoint& point) const;

    /// The point of the host view, on the upper edge of the bar, that is over that time on the track.
    CoreGraphics::CGPoint pointOver(double time) const;

private:
    enum class PlayIcon { None, Play, Pause, Replay };
    enum class LengthShown { Duration, Remaining };

    void layOutRow();
    bool isRouteButtonVisible() const;
    void showButtons(const PlaybackState& state, bool isFullScreen);
    void makeRoomForTimes();
    void showTrack(const PlaybackState& state, double position);
    void showTimes(double position);
    void moveHandle(double position);
    const UIKit::UIView& host() const;

    std::shared_ptr<TrackSlider> slider_;
    std::shared_ptr<KivUICore::Button> play_;
    std::shared_ptr<KivUICore::Button> mute_;
    std::shared_ptr<KivUICore::Button> fullScreen_;
    std::shared_ptr<KivUICore::SeekBar> seekBar_;
    TimeDisplay elapsed_;
    TimeDisplay length_;
    std::shared_ptr<RowBar<KivUICore::BottomBar>> bar_;

    LengthShown lengthShown_ = LengthShown::Duration;
    std::optional<double> duration_;
    bool isTrackEnabled_ = false;
    bool isPlayEnabled_ = true;
    bool hasRouteButton_ = false;
    int hourFigures_ = 0;
    double position_ = 0.0;
    PlayIcon shownPlayIcon_ = PlayIcon::None;
    std::optional<bool> showsMuted_;
    std::optional<bool> showsFullScreen_;
};

} // namespace KivUICore::Overlay
