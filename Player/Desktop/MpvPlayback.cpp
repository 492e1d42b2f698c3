#include "Player/Desktop/MpvPlayback.h"

#include "Player/Desktop/FilmLocation.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace Player {

namespace {

using Overlay::Direction;
using Overlay::SeekPrecision;
using Overlay::TrackKind;

// No seek ever counts that far.
constexpr std::uint64_t stepCommand = std::numeric_limits<std::uint64_t>::max();

std::vector<MpvClient::Setting> clientSettings(const MpvPlayback::Settings& settings) {
    std::vector<MpvClient::Setting> result{
        {"vo", "libmpv"},
        // The host draws a frame when it is told to: drawing must not wait for the frame's time.
        {"video-timing-offset", "0"},
        {"pause", settings.start == MpvPlayback::Start::Paused ? "yes" : "no"},
        {"mute", settings.isMuted ? "yes" : "no"},
    };
    if (settings.sound == MpvPlayback::Sound::Discarded) {
        result.emplace_back("ao", "null");
    }
    if (settings.ipcServer) {
        result.emplace_back("input-ipc-server", *settings.ipcServer);
    }
    return result;
}

} // namespace

MpvPlayback::MpvPlayback(const Settings& settings)
    : socket_(settings.ipcServer), client_(clientSettings(settings)) {
    state_.error = client_.failure();
    MpvProperties::observe(client_, settings.sound == Sound::Played ? MpvProperties::Devices::Listed
                                                                    : MpvProperties::Devices::Unlisted);
    properties_.refresh(client_);
    updateState();
}

void MpvPlayback::open(const std::string& location, double start) {
    probe_.reset();
    opening_.begin(client_, location, start);
    updateState();
    wakeUp_();
}

void MpvPlayback::exchange(const std::string& location) {
    const bool isPlaying = !opening_.location().empty() && !opening_.failure();
    if (isPlaying) {
        probe_.emplace(location, wakeUp_);
        updateState();
        wakeUp_();
    } else {
        play();
        open(location, 0.0);
    }
}

void MpvPlayback::retry() {
    const std::string location = opening_.location();
    open(location, state_.position);
}

void MpvPlayback::setWakeUp(std::function<void()> wakeUp) {
    wakeUp_ = std::move(wakeUp);
    client_.setWakeUp(wakeUp_);
    if (probe_) {
        probe_->setWakeUp(wakeUp_);
    }
}

void MpvPlayback::update() {
    while (const mpv_event* event = client_.nextEvent()) {
        handle(*event);
    }
    opening_.conclude(client_);
    notePicture();
    finishStep();
    finishProbe();
    updateState();
    report();
}

void MpvPlayback::refresh() {
    properties_.refresh(client_);
    updateState();
}

void MpvPlayback::handle(const mpv_event& event) {
    opening_.handle(event, client_);
    properties_.handle(event);
    seek_.handle(event);
    switch (event.event_id) {
    case MPV_EVENT_FILE_LOADED:
        // A property that is the same as in the film before is not told again.
        properties_.position = opening_.start();
        properties_.refresh(client_);
        isPictureUnsure_ = true;
        break;
    case MPV_EVENT_VIDEO_RECONFIG:
    case MPV_EVENT_IDLE:
        isPictureUnsure_ = true;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        // Whether it has ended is told a little later than that the place sought is reached.
        properties_.isAtEnd = client_.flag("eof-reached").value_or(false);
        MpvProperties::observeEndAgain(client_);
        ++scene_;
        break;
    case MPV_EVENT_COMMAND_REPLY:
        if (event.reply_userdata == stepCommand && step_ == StepStage::Asked) {
            step_ = event.error < 0 ? StepStage::None : StepStage::Going;
        }
        break;
    case MPV_EVENT_LOG_MESSAGE:
        noteLog(*static_cast<const mpv_event_log_message*>(event.data));
        break;
    case MPV_EVENT_SHUTDOWN:
        isAskedToEnd_ = true;
        break;
    default:
        break;
    }
}

// Between two films the last picture of the first one stays.
void MpvPlayback::notePicture() {
    if (isPictureUnsure_ && (opening_.isLoaded() || opening_.failure())) {
        isPictureUnsure_ = false;
        scene_ += client_.number("vid") ? 0 : 1;
    }
}

// Each program that is connected has a prefix of its own; that one goes without a word is no matter.
void MpvPlayback::noteLog(const mpv_event_log_message& message) {
    if (onNotice_ && message.log_level <= MPV_LOG_LEVEL_ERROR && std::string_view(message.prefix) == "ipc") {
        const std::string_view text = message.text;
        onNotice_("cannot be reached by other programs: " + std::string(text.substr(0, text.find('\n'))));
    }
}

// To show the next picture, libmpv plays for a moment and pauses again.
void MpvPlayback::finishStep() {
    if (step_ != StepStage::Going) {
        return;
    }
    if (properties_.isAtEnd) {
        client_.setFlag("pause", true);
        step_ = StepStage::None;
    } else if (client_.flag("pause").value_or(true)) {
        properties_.isPaused = true;
        step_ = StepStage::None;
    }
}

void MpvPlayback::finishProbe() {
    if (!probe_) {
        return;
    }
    probe_->update();
    if (probe_->isPlayable()) {
        const std::string location = probe_->location();
        play();
        open(location, 0.0);
    } else if (const std::optional<std::string> reason = probe_->failure()) {
        probe_.reset();
        if (onNotice_) {
            onNotice_(*reason);
        }
    }
}

void MpvPlayback::updateState() {
    updateFilm();
    change(state_.error, client_.failure() ? client_.failure() : opening_.failure());
    change(state_.isPaused, properties_.isPaused || step_ != StepStage::None);
    change(state_.isSeeking, seek_.isSeeking());
    change(state_.hasEnded, properties_.isAtEnd && !seek_.isSeeking() && opening_.isLoaded());
    change(state_.isOpening, !opening_.location().empty() && !state_.error && !opening_.isAtStart());
    change(state_.isWaiting,
           state_.isOpening || (!state_.error && (properties_.isWaitingForData || seek_.isSeeking())));
    change(state_.volume, properties_.volume);
    change(state_.isMuted, properties_.isMuted);
    change(state_.speed, properties_.speed);
    change(state_.audioDevices, properties_.audioDevices);
    change(state_.nextFilm, probe_ ? std::optional(nameOf(probe_->location())) : std::nullopt);
}

// What is said of a film before this one is loaded may still be about the one before it.
void MpvPlayback::updateFilm() {
    const bool isLoaded = opening_.isLoaded();
    if (isLoaded && properties_.title) {
        change(state_.title, *properties_.title);
    } else {
        change(state_.title, nameOf(opening_.location()));
    }
    change(state_.duration, isLoaded ? properties_.duration : std::nullopt);
    const double position = isLoaded ? properties_.position : opening_.start();
    change(state_.position, std::min(position, state_.duration.value_or(position)));
    static const MpvProperties nothing;
    change(state_.tracks, (isLoaded ? properties_ : nothing).tracks);
    change(state_.chapters, (isLoaded ? properties_ : nothing).chapters);
}

// The handler may replace itself.
void MpvPlayback::report() {
    if (std::exchange(isChanged_, false) && onChange_) {
        const std::function<void()> handler = onChange_;
        handler();
    }
}

void MpvPlayback::setBottomInset(double fraction) {
    // Margins are counted in a picture of 720 lines.
    constexpr double lines = 720.0;
    constexpr double usualMargin = 22.0;
    constexpr double largestMargin = 300.0;
    const double margin = std::clamp(usualMargin + fraction * lines, 0.0, largestMargin);
    client_.setText("sub-margin-y", std::to_string(static_cast<int>(margin)));
}

void MpvPlayback::play() {
    step_ = StepStage::None;
    if (state_.hasEnded) {
        seek(0.0, SeekPrecision::Exact);
    }
    setPaused(false);
}

void MpvPlayback::pause() {
    step_ = StepStage::None;
    setPaused(true);
}

void MpvPlayback::setPaused(bool paused) {
    client_.setFlag("pause", paused);
    expect(properties_.isPaused, paused);
}

void MpvPlayback::seek(double time, SeekPrecision precision) {
    if (!opening_.isLoaded() || state_.error) {
        return;
    }
    const double latest = state_.duration.value_or(std::numeric_limits<double>::max());
    const std::string target = std::to_string(std::min(std::max(0.0, time), latest));
    const char* flags = precision == SeekPrecision::Exact ? "absolute+exact" : "absolute+keyframes";
    client_.command({"seek", target.c_str(), flags}, seek_.begin());
    updateState();
    wakeUp_();
}

void MpvPlayback::stepFrame(Direction direction) {
    if (!opening_.isLoaded() || state_.error) {
        return;
    }
    if (direction == Direction::Backward) {
        client_.command({"frame-back-step"});
        return;
    }
    if (!state_.hasEnded) {
        step_ = StepStage::Asked;
        client_.command({"frame-step"}, stepCommand);
        updateState();
        wakeUp_();
    }
}

void MpvPlayback::setVolume(double volume) {
    constexpr double loudest = 100.0;
    const double inRange = std::clamp(volume, 0.0, 1.0);
    client_.setNumber("volume", inRange * loudest);
    expect(properties_.volume, inRange);
}

void MpvPlayback::setMuted(bool muted) {
    client_.setFlag("mute", muted);
    expect(properties_.isMuted, muted);
}

void MpvPlayback::setSpeed(double speed) {
    client_.setNumber("speed", speed);
    expect(properties_.speed, speed);
}

void MpvPlayback::selectTrack(TrackKind kind, std::optional<std::int64_t> identifier) {
    client_.setText(kind == TrackKind::Audio ? "aid" : "sid",
                    identifier ? std::to_string(*identifier) : "no");
}

void MpvPlayback::selectAudioDevice(const std::string& identifier) {
    client_.setText("audio-device", identifier);
}

} // namespace Player
