#pragma once

#include "Player/Overlay/Film/Playback.h"
#include "Player/Overlay/WindowControls.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace KivUICore::Overlay {

/// A film that does at once what it is told, but for seeks, which the test lets arrive. Writes down what it
/// is told.
class FakePlayback final : public Playback {
public:
    const PlaybackState& state() const override { return now; }
    void setChangeHandler(std::function<void()> handler) override { onChange = std::move(handler); }

    void play() override {
        story.emplace_back("play");
        now.isPaused = false;
        now.hasEnded = false;
    }
    void pause() override {
        story.emplace_back("pause");
        now.isPaused = true;
    }
    void setHeld(bool isHeld) override { held = isHeld; }
    void seek(double time, SeekPrecision precision) override {
        story.push_back((precision == SeekPrecision::Exact ? "exact " : "key frame ") + number(time));
        now.isSeeking = true;
        seekTarget = time;
    }
    void stepFrame(Direction direction) override {
        story.emplace_back(direction == Direction::Forward ? "step" : "step back");
        now.isPaused = true;
    }
    void setVolume(double volume) override {
        story.push_back("volume " + number(volume));
        now.volume = volume;
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
    }
    void selectAudioDevice(const std::string& identifier) override {
        story.push_back("device " + identifier);
    }
    void cancelOpening() override { story.emplace_back("cancel opening"); }
    void retry() override {
        story.emplace_back("retry");
        now.error.reset();
    }

    /// Tells of what the test changed in `now`.
    void tell() {
        if (onChange) {
            onChange();
        }
    }

    void arrive() {
        now.position = seekTarget;
        now.isSeeking = false;
        tell();
    }

    std::vector<std::string> takeStory() { return std::exchange(story, {}); }

    PlaybackState now;
    double seekTarget = 0.0;
    bool held = false;
    std::vector<std::string> story;
    std::function<void()> onChange;

private:
    // Up to two decimals.
    static std::string number(double value) {
        std::string text = std::to_string(value);
        text.erase(text.find('.') + 3);
        text.erase(text.find_last_not_of('0') + 1);
        return text.back() == '.' ? text.substr(0, text.size() - 1) : text;
    }
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
