#include "Player/Desktop/MpvPlayback.h"

#include "Player/Desktop/FilmLocation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace KivUICore::Player {

namespace {

using Overlay::Direction;
using Overlay::PlaybackError;
using Overlay::SeekPrecision;
using Overlay::TrackKind;

// No seek ever counts that far.
constexpr std::uint64_t stepCommand = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t releaseCommand = stepCommand - 2;

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
    return result;
}

} // namespace

MpvPlayback::MpvPlayback(const Settings& settings) : client_(clientSettings(settings)) {
    state_.error = client_.failure();
    MpvProperties::observe(client_, settings.sound == Sound::Played ? MpvProperties::Devices::Listed
                                                                    : MpvProperties::Devices::Unlisted);
    if (settings.ipcServer) {
        listenAt(*settings.ipcServer);
    }
    properties_.refresh(client_);
    updateState();
}

void MpvPlayback::listenAt(const std::string& path) {
    socket_.emplace(path);
    client_.setText("input-ipc-server", path);
}

void MpvPlayback::open(const std::string& location, double start) {
    probe_.reset();
    opening_.begin(client_, location, start);
    updateState();
    wakeUp_();
}

void MpvPlayback::exchange(const std::string& location) {
    const bool isPlaying = !opening_.location().empty() && !opening_.failure();
    if (isPlaying && SubtitleFile::isNamedSo(location)) {
        addSubtitles(location);
    } else if (isPlaying) {
        probe_.emplace(location, wakeUp_);
        updateState();
        wakeUp_();
    } else {
        play();
        open(location, 0.0);
    }
}

void MpvPlayback::cancelOpening() {
    if (state_.isOpening) {
        opening_.cancel(client_);
    }
    probe_.reset();
    updateState();
    wakeUp_();
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
    client_.takeEvents([this](const mpv_event& event) { handle(event); });
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
    const bool wasAtStart = opening_.isAtStart();
    const std::optional<bool> hadPicture = properties_.hasPicture;
    const double formerPosition = properties_.position;
    opening_.handle(event, client_);
    properties_.handle(event);
    seek_.handle(event);
    if (const std::optional<SubtitleFile::Result> result = subtitles_.handle(event)) {
        finishSubtitles(*result);
    }
    switch (event.event_id) {
    case MPV_EVENT_START_FILE:
        interruption_.begin(opening_.location());
        break;
    case MPV_EVENT_FILE_LOADED:
        properties_.beginFilm(client_, opening_.start());
        // Only now it is known which one it is.
        if (opening_.isOfList()) {
            interruption_.begin(opening_.location());
        }
        interruption_.sendTo(opening_.start());
        isPictureUnsure_ = true;
        break;
    case MPV_EVENT_QUEUE_OVERFLOW:
        properties_.refresh(client_);
        step_ = StepStage::None;
        isPictureUnsure_ = true;
        ++scene_;
        break;
    case MPV_EVENT_VIDEO_RECONFIG:
    case MPV_EVENT_IDLE:
        isPictureUnsure_ = true;
        break;
    case MPV_EVENT_PROPERTY_CHANGE:
        isPictureUnsure_ = isPictureUnsure_ || properties_.hasPicture != hadPicture;
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        if (!wasAtStart && opening_.isAtStart()) {
            properties_.refresh(client_);
        }
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
    case MPV_EVENT_SET_PROPERTY_REPLY:
        finishRelease(event);
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
    // While a place is sought what is said of the former one may still be on its way.
    if (properties_.position != formerPosition && opening_.isAtStart() && !seek_.isSeeking()) {
        interruption_.follow(properties_.position, properties_.duration);
    }
    followCache();
}

// The cache changes all the time and matters only where nothing else can be sought.
void MpvPlayback::followCache() {
    if (isCacheFollowed_ == properties_.isSeekable) {
        isCacheFollowed_ = !isCacheFollowed_;
        MpvProperties::observeCache(client_, isCacheFollowed_ ? MpvProperties::Cache::Followed
                                                              : MpvProperties::Cache::Left);
    }
}

// Between two films the last picture of the first one stays.
void MpvPlayback::notePicture() {
    const bool isKnown = opening_.failure() || (opening_.isLoaded() && properties_.hasPicture);
    if (isPictureUnsure_ && isKnown) {
        isPictureUnsure_ = false;
        scene_ += properties_.hasPicture.value_or(false) ? 0 : 1;
    }
}

// Each program that is connected has a prefix of its own; that one goes without a word is no matter.
void MpvPlayback::noteLog(const mpv_event_log_message& message) {
    interruption_.noteLog(message);
    if (onNotice_ && message.log_level <= MPV_LOG_LEVEL_ERROR && std::string_view(message.prefix) == "ipc") {
        const std::string_view text = message.text;
        onNotice_({PlaybackError::Kind::Unreachable, {}, std::string(text.substr(0, text.find('\n')))});
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
    } else if (const std::optional<PlaybackError> problem = probe_->failure()) {
        probe_.reset();
        if (onNotice_) {
            onNotice_(*problem);
        }
    }
}

void MpvPlayback::addSubtitles(const std::string& location) {
    const std::optional<std::string> unreadable = isUrl(location) ? std::nullopt : whyUnreadable(location);
    if (unreadable) {
        finishSubtitles({location, unreadable});
    } else if (!opening_.isLoaded()) {
        finishSubtitles({location, "the film is not there yet"});
    } else {
        subtitles_.add(client_, location);
    }
}

void MpvPlayback::finishSubtitles(const SubtitleFile::Result& result) {
    if (result.reason && onNotice_) {
        onNotice_({Overlay::PlaybackError::Kind::NoSubtitles, result.location, *result.reason});
    } else if (!result.reason && onNews_) {
        onNews_("Subtitles: " + nameOf(result.location));
    }
}

void MpvPlayback::updateState() {
    change(state_.error, failure());
    updateFilm();
    change(state_.isPaused, isPausedBelow_.value_or(properties_.isPaused) || step_ != StepStage::None);
    change(state_.isSeeking, seek_.isSeeking());
    change(state_.hasEnded, isAtEnd() && !state_.error);
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
    // For a film without a title libmpv makes one up, in which keys and passwords of a URL may stand.
    if (isLoaded && properties_.title && properties_.title != properties_.fileName) {
        change(state_.title, *properties_.title);
    } else {
        change(state_.title, nameOf(opening_.location()));
    }
    updateLength();
    const bool isInterrupted = state_.error && state_.error->kind == PlaybackError::Kind::Interrupted;
    const double place = isInterrupted ? interruption_.place() : properties_.position;
    const double position = isLoaded ? place : opening_.start();
    change(state_.position, std::min(position, state_.duration.value_or(position)));
    static const MpvProperties nothing;
    change(state_.tracks, (isLoaded ? properties_ : nothing).tracks);
    change(state_.chapters, (isLoaded ? properties_ : nothing).chapters);
}

// The length of what has no end yet is how far it was read: further than it can be played.
void MpvPlayback::updateLength() {
    constexpr double tolerance = 1.0;
    const bool isLoaded = opening_.isLoaded();
    const FilmCache& cache = properties_.cache;
    const auto atHand =
        isLoaded && !properties_.isSeekable ? rangeAround(cache, properties_.position) : std::nullopt;
    change(state_.isSeekable, !isLoaded || properties_.isSeekable || atHand);
    change(state_.seekableRange, atHand);
    std::optional<double> duration = isLoaded ? properties_.duration : std::nullopt;
    if (duration && atHand && !cache.isComplete && *duration <= cache.end.value_or(0.0) + tolerance) {
        duration = std::max(atHand->end, properties_.position);
    }
    change(state_.duration, duration);
}

bool MpvPlayback::isAtEnd() const { return properties_.isAtEnd && !seek_.isSeeking() && opening_.isLoaded(); }

std::optional<PlaybackError> MpvPlayback::failure() const {
    if (client_.failure()) {
        return client_.failure();
    }
    if (opening_.failure() || !isAtEnd()) {
        return opening_.failure();
    }
    const auto reason = interruption_.reason(properties_.duration);
    return reason ? std::optional(PlaybackError{PlaybackError::Kind::Interrupted,
                                                shownLocation(opening_.location()), *reason})
                  : std::nullopt;
}

// The handler may replace itself.
void MpvPlayback::report() {
    if (std::exchange(isChanged_, false) && onChange_) {
        const std::function<void()> handler = onChange_;
        handler();
    }
}

// The library counts it in whole percents of the window, black edges included.
void MpvPlayback::setBottomInset(double fraction) {
    constexpr double percent = 100.0;
    const double position = std::floor(percent * (1.0 - std::clamp(fraction, 0.0, 1.0)));
    client_.setText("sub-pos", std::to_string(static_cast<int>(position)));
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
    if (isPausedBelow_) {
        isPausedBelow_ = paused;
    }
    if (!isHeld_) {
        client_.setFlag("pause", paused);
        properties_.isPaused = paused;
    }
    updateState();
    wakeUp_();
}

void MpvPlayback::setHeld(bool held) {
    if (std::exchange(isHeld_, held) == held) {
        return;
    }
    if (held) {
        isPausedBelow_ = state_.isPaused;
        client_.setFlag("pause", true);
    } else {
        ++releases_;
        client_.setFlag("pause", *isPausedBelow_, releaseCommand);
    }
}

void MpvPlayback::finishRelease(const mpv_event& event) {
    if (event.reply_userdata == releaseCommand && --releases_ == 0 && !isHeld_) {
        properties_.isPaused = *std::exchange(isPausedBelow_, std::nullopt);
    }
}

void MpvPlayback::seek(double time, SeekPrecision precision) {
    if (!opening_.isLoaded() || !canSeek(state_)) {
        return;
    }
    const double place = nearestPlace(state_, time);
    interruption_.sendTo(place);
    const std::string target = std::to_string(place);
    const char* flags = precision == SeekPrecision::Exact ? "absolute+exact" : "absolute+keyframes";
    client_.command({"seek", target.c_str(), flags}, seek_.begin());
    updateState();
    wakeUp_();
}

void MpvPlayback::stepFrame(Direction direction) {
    if (!opening_.isLoaded() || !isPlayable(state_)) {
        return;
    }
    if (direction == Direction::Backward) {
        pause();
        client_.command({"frame-back-step"});
        return;
    }
    if (!isAtEnd()) {
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

} // namespace KivUICore::Player
