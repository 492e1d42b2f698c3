#pragma once

#include "Player/Overlay/Film/Playback.h"
#include "Player/Overlay/WindowControls.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace KivUICore::Overlay {

/// A film that does what it is told, and writes it down. A test changes `now` and tells of it, or lets time
/// pass as it does for a real film.
class FakePlayback final : public Playback {
public:
    /// What is opened.
    struct Film {
        double duration = 100.0;
        std::vector<Track> tracks;

        /// In seconds; 0.0 where each picture is a key frame.
        double keyFrameDistance = 0.0;

        /// Why it can't be played.
        std::optional<PlaybackError> problem;
    };

    static constexpr double picturesPerSecond = 30.0;

    const PlaybackState& state() const override { return now; }
    void setChangeHandler(std::function<void()> handler) override { onChange = std::move(handler); }

    void play() override {
        story.emplace_back("play");
        if (now.hasEnded) {
            send(0.0, SeekPrecision::Exact);
        }
        now.isPaused = false;
    }
    void pause() override {
        story.emplace_back("pause");
        now.isPaused = true;
    }
    void setHeld(bool isHeld) override { held = isHeld; }
    void seek(double time, SeekPrecision precision) override {
        story.push_back((precision == SeekPrecision::Exact ? "exact " : "key frame ") + number(time));
        if (!now.isOpening && canSeek(now)) {
            send(nearestPlace(now, time), precision);
        }
    }
    void stepFrame(Direction direction) override {
        story.emplace_back(direction == Direction::Forward ? "step" : "step back");
        if (now.isOpening || !isPlayable(now)) {
            return;
        }
        now.isPaused = true;
        steps_ += direction == Direction::Forward ? 1 : -1;
    }
    void setVolume(double volume) override {
        story.push_back("volume " + number(volume));
        now.volume = std::clamp(volume, 0.0, 1.0);
    }
    void setMuted(bool muted) override {
        story.emplace_back(muted ? "mute" : "unmute");
        now.isMuted = muted;
    }
    void setSpeed(double speed) override {
        story.push_back("speed " + number(speed));
        now.speed = speed;
    }
    void selectTrack(TrackKind kind, std::optional<std::int64_t> identifier) override {
        story.push_back((kind == TrackKind::Audio ? "audio " : "subtitle ") +
                        (identifier ? std::to_string(*identifier) : "off"));
        for (Track& track : now.tracks) {
            track.isSelected = track.kind == kind ? track.identifier == identifier : track.isSelected;
        }
    }
    void selectAudioDevice(const std::string& identifier) override {
        story.push_back("device " + identifier);
        for (AudioDevice& device : now.audioDevices) {
            device.isSelected = device.identifier == identifier;
        }
    }
    void cancelOpening() override {
        story.emplace_back("cancel opening");
        now.nextFilm.reset();
        if (now.isOpening) {
            fail({PlaybackError::Kind::Unplayable, now.title, "opening it was cancelled"});
        }
    }
    void retry() override {
        story.emplace_back("retry");
        open(now.position);
    }

    /// Begins to open `film`, to be played from `start` in seconds.
    void open(double start) {
        now.error.reset();
        now.isOpening = now.isWaiting = true;
        now.isSeeking = now.hasEnded = false;
        now.position = start;
        now.duration.reset();
        now.tracks.clear();
    }

    /// Tells of what the test changed in `now`.
    void tell() {
        told_ = now;
        // It may replace itself.
        if (const std::function<void()> handler = onChange) {
            handler();
        }
    }

    /// Ends the opening, well or not.
    void finishOpening() {
        if (film.problem) {
            fail(*film.problem);
        } else {
            now.isOpening = now.isWaiting = false;
            now.duration = film.duration;
            now.tracks = film.tracks;
        }
        tell();
    }

    /// Ends the seek that is on its way.
    void arrive() {
        finishSeek();
        tell();
    }

    /// Lets so many seconds pass, and tells of what comes of them.
    void advance(double seconds) {
        if (now.isOpening) {
            return finishOpening();
        }
        if (now.isSeeking) {
            finishSeek();
        } else if (steps_ != 0) {
            moveTo(now.position + std::exchange(steps_, 0) / picturesPerSecond);
        } else if (!now.isPaused && !held && !now.hasEnded && !now.error) {
            moveTo(now.position + seconds * now.speed);
        }
        if (now != told_) {
            tell();
        }
    }

    std::vector<std::string> takeStory() { return std::exchange(story, {}); }

    Film film;
    PlaybackState now;
    double seekTarget = 0.0;
    bool held = false;
    std::vector<std::string> story;
    std::function<void()> onChange;

private:
    void send(double place, SeekPrecision precision) {
        now.isSeeking = now.isWaiting = true;
        now.hasEnded = false;
        const double distance = film.keyFrameDistance;
        const bool isCut = precision == SeekPrecision::KeyFrame && distance > 0.0;
        seekTarget = isCut ? std::floor(place / distance) * distance : place;
    }

    void finishSeek() {
        now.isSeeking = now.isWaiting = false;
        moveTo(seekTarget);
    }

    void moveTo(double place) {
        now.position = std::max(0.0, std::min(place, now.duration.value_or(place)));
        now.hasEnded = place >= now.duration.value_or(HUGE_VAL);
    }

    void fail(const PlaybackError& error) {
        now.error = error;
        now.isOpening = now.isWaiting = false;
    }

    // Up to two decimals.
    static std::string number(double value) {
        std::string text = std::to_string(value);
        text.erase(text.find('.') + 3);
        text.erase(text.find_last_not_of('0') + 1);
        return text.back() == '.' ? text.substr(0, text.size() - 1) : text;
    }

    PlaybackState told_;

    // Pictures to go on; back if negative.
    int steps_ = 0;
};

class FakeWindow final : public WindowControls {
public:
    bool isFullScreen() const override { return fullScreen; }
    void setFullScreen(bool wanted) override { fullScreen = wanted; }
    void setPointerHidden(bool hidden) override { pointerHidden = hidden; }
    void close() override { ++closed; }

    bool fullScreen = false;
    bool pointerHidden = false;
    int closed = 0;
};

} // namespace KivUICore::Overlay
