#pragma once

#include "KivUICore/KivUICore.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace KivUICoreTests {

/// What happened, in order.
using Story = std::vector<std::string>;

/// An application's observer: it writes down what it is told and may do something about it.
class Watcher : public Foundation::Adopting<Foundation::NSObject, KivUICore::UIEventObserver> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<Watcher, Foundation::NSObject>("Tests.Watcher")
                .adopts<KivUICore::UIEventObserver>()
                .build();
        return object;
    }

    using NSObject::init;
    bool init(Story& story) {
        story_ = &story;
        return NSObject::init();
    }

    void onButtonPress(const std::shared_ptr<KivUICore::Button>& /*button*/) override {
        note("onButtonPress:");
    }
    void onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override {
        noteSeek("onSeekBegan:", seekBar);
    }
    void onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override {
        noteSeek("onSeekFinished:", seekBar);
    }
    void onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override {
        noteSeek("onValueChanged:", seekBar);
    }
    void onPopOverButtonPress(std::int64_t row) override {
        note("onPopOverButtonPress: " + std::to_string(row));
    }
    void popOverShouldPresent() override { note("popOverShouldPresent"); }
    void onPopOverDismiss() override { note("onPopOverDismiss"); }

    /// What it does when it is told something, after writing it down.
    std::function<void(const std::string& operation)> reaction;

    /// What it does while it is torn down.
    std::function<void()> farewell;

    std::weak_ptr<KivUICore::SeekBar> lastSeekBar;

protected:
    void dealloc() override {
        if (farewell) {
            farewell();
        }
        NSObject::dealloc();
    }

private:
    void note(const std::string& operation) {
        if (story_) {
            story_->push_back(operation);
        }
        if (reaction) {
            const auto react = reaction;
            react(operation);
        }
    }

    void noteSeek(const std::string& operation, const std::shared_ptr<KivUICore::SeekBar>& seekBar) {
        lastSeekBar = seekBar;
        note(operation);
    }

    Story* story_ = nullptr;
};

/// One of a player's own observers, which knows of seeks.
class PlayerWatcher : public Foundation::Adopting<Foundation::NSObject, KivCore::PlayerEventObserver> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<PlayerWatcher, Foundation::NSObject>("Tests.PlayerWatcher")
                .method<&PlayerWatcher::onSeekBegan>("onSeekBegan")
                .method<&PlayerWatcher::onSeekEnd>("onSeekEnd")
                .build();
        return object;
    }

    using NSObject::init;
    bool init(Story& story) {
        story_ = &story;
        return NSObject::init();
    }

    void onSeekBegan() { note("player: onSeekBegan"); }
    void onSeekEnd() { note("player: onSeekEnd"); }

    std::function<void()> reaction;

private:
    void note(const std::string& operation) {
        story_->push_back(operation);
        if (reaction) {
            const auto react = reaction;
            react();
        }
    }

    Story* story_ = nullptr;
};

/// One of a player's own observers that implements nothing.
class SilentPlayerWatcher : public Foundation::Adopting<Foundation::NSObject, KivCore::PlayerEventObserver> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<SilentPlayerWatcher, Foundation::NSObject>("Tests.SilentPlayerWatcher")
                .build();
        return object;
    }
};

/// A player that says whether it wants a route button, and counts how often it is asked.
class Player : public KivCore::KivPlayer {
public:
    using KivPlayer::init;
    bool init(bool allowsAirPlay) {
        allowsAirPlay_ = allowsAirPlay;
        return KivPlayer::init();
    }

    bool allowsAirPlay() const override {
        ++questions;
        return allowsAirPlay_;
    }
    std::shared_ptr<KivCore::KivEventNotifier> eventNotifier() const override {
        return hasNotifier ? KivPlayer::eventNotifier() : nullptr;
    }

    mutable int questions = 0;
    bool hasNotifier = true;

private:
    bool allowsAirPlay_ = false;
};

} // namespace KivUICoreTests
