#pragma once

#include "Player/Desktop/FilmInterruption.h"
#include "Player/Desktop/FilmOpening.h"
#include "Player/Desktop/FilmProbe.h"
#include "Player/Desktop/MpvClient.h"
#include "Player/Desktop/MpvProperties.h"
#include "Player/Desktop/SeekProgress.h"
#include "Player/Desktop/SocketFile.h"
#include "Player/Desktop/SubtitleFile.h"
#include "Player/Overlay/Film/Playback.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace KivUICore::Player {

/// Films played by libmpv, with their sound, one after the other. A film comes to rest at its end, on the
/// last picture, and goes on from any earlier place that is sought; it isn't paused there unless the viewer
/// had paused it.
class MpvPlayback final : public Overlay::Playback {
public:
    enum class Start { Running, Paused };
    enum class Sound { Played, Discarded };
    using NoticeHandler = std::function<void(const Overlay::PlaybackError&)>;

    struct Settings {
        Start start = Start::Running;
        Sound sound = Sound::Played;
        bool isMuted = false;

        /// Where to listen at once.
        std::optional<std::string> ipcServer = std::nullopt;
    };

    explicit MpvPlayback(const Settings& settings);

    /// What plays them.
    const MpvClient& client() const { return client_; }

    /// Makes a socket at `path` for other programs. It is there as long as the playback.
    void listenAt(const std::string& path);

    /// Begins to open a file or URL, to be played from `start` in seconds; one beyond the end is the end.
    /// What can't be played becomes the state's error.
    void open(const std::string& location, double start);

    /// Plays another film in place of this one as soon as it is known to be playable. Until then this one
    /// goes on, and for good if the other can't be played: the notice handler tells why. The newest wins.
    /// Same as `open` from the start where nothing is being played. A file of subtitles is added to the film
    /// that is there, and shown.
    void exchange(const std::string& location);

    /// Takes in what has happened since the last call. Call it after each wake-up.
    void update();

    /// Brings the state up to date with what libmpv would say at this moment.
    void refresh();

    /// `wakeUp` is called on any thread when there may be something to update; it must not call back.
    void setWakeUp(std::function<void()> wakeUp);

    /// Called in `update` with what a viewer should know about a film that isn't being played, or a program
    /// that can't be reached.
    void setNoticeHandler(NoticeHandler handler) { onNotice_ = std::move(handler); }

    /// Called in `update` with what a viewer should know of what went well: a line.
    void setNewsHandler(std::function<void(const std::string&)> handler) { onNews_ = std::move(handler); }

    /// True once the place where the film was to start is reached.
    bool isAtStart() const { return opening_.isAtStart(); }

    /// Another number whenever what was drawn last may be out of date though libmpv has no new frame: a film
    /// turned out to have no picture, or went to another place. The picture of that is offered for a fifth of
    /// a second only, and in a film at rest none follows.
    int scene() const { return scene_; }

    /// True after another program asked the player to end.
    bool isAskedToEnd() const { return isAskedToEnd_; }

    /// Keeps subtitles clear of the lower part of the window: `fraction` of its height.
    void setBottomInset(double fraction);

    const Overlay::PlaybackState& state() const override { return state_; }
    void setChangeHandler(std::function<void()> handler) override { onChange_ = std::move(handler); }

    void play() override;
    void pause() override;
    void setHeld(bool held) override;
    void seek(double time, Overlay::SeekPrecision precision) override;
    void stepFrame(Overlay::Direction direction) override;
    void setVolume(double volume) override;
    void setMuted(bool muted) override;
    void setSpeed(double speed) override;
    void selectTrack(Overlay::TrackKind kind, std::optional<std::int64_t> identifier) override;
    void selectAudioDevice(const std::string& identifier) override;
    void cancelOpening() override;
    void retry() override;

private:
    enum class StepStage { None, Asked, Going };

    void handle(const mpv_event& event);
    void noteLog(const mpv_event_log_message& message);
    void notePicture();
    void finishStep();
    void finishRelease(const mpv_event& event);
    void finishProbe();
    void addSubtitles(const std::string& location);
    void finishSubtitles(const SubtitleFile::Result& result);
    void updateState();
    void updateFilm();
    void followCache();
    void updateLength();
    bool isAtEnd() const;
    std::optional<Overlay::PlaybackError> failure() const;
    void report();

    void setPaused(bool paused);

    // Takes a value that was asked for as if it were there: libmpv tells of it a little later.
    template <class Value>
    void expect(Value& value, Value expected) {
        value = expected;
        updateState();
        wakeUp_();
    }

    template <class Value>
    void change(Value& value, const Value& newValue) {
        if (value != newValue) {
            value = newValue;
            isChanged_ = true;
        }
    }

    std::optional<SocketFile> socket_;
    MpvClient client_;
    std::function<void()> wakeUp_ = [] {};
    std::function<void()> onChange_;
    NoticeHandler onNotice_;
    std::function<void(const std::string&)> onNews_;
    Overlay::PlaybackState state_;
    bool isChanged_ = false;

    FilmOpening opening_;
    FilmInterruption interruption_;
    bool isCacheFollowed_ = false;
    MpvProperties properties_;
    SeekProgress seek_;
    std::optional<FilmProbe> probe_;
    SubtitleFile subtitles_;
    StepStage step_ = StepStage::None;

    // What the viewer wants while libmpv is paused for another reason, and until it did what it was told at
    // the end of that.
    std::optional<bool> isPausedBelow_;
    bool isHeld_ = false;
    int releases_ = 0;
    bool isAskedToEnd_ = false;
    bool isPictureUnsure_ = false;
    int scene_ = 0;
};

} // namespace KivUICore::Player
