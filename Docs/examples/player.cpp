#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"

#include <algorithm>
#include <iostream>

using Foundation::make;

namespace {

/// Plays a film that nobody sees: a timer moves the position.
class FilmPlayer : public KivCore::KivPlayer {
public:
    static constexpr float duration = 100;

    float position() const { return position_; }
    bool isPlaying() const { return timer_ != nullptr; }

    void play() {
        timer_ = Foundation::NSTimer::scheduledTimerWithTimeInterval(
            0.25, true, [this](Foundation::NSTimer&) { seek(position_ + 0.25F); });
    }

    void pause() {
        timer_->invalidate();
        timer_ = nullptr;
    }

    void seek(float position) {
        position_ = std::clamp(position, 0.0F, duration);
        eventNotifier()->notify("onKivTimeChange:", self(this));
    }

protected:
    void dealloc() override {
        if (isPlaying()) {
            pause();
        }
        KivPlayer::dealloc();
    }

private:
    float position_ = 0;
    std::shared_ptr<Foundation::NSTimer> timer_;
};

/// A bottom bar with a button, the time and a seek bar. It watches both sides: the controls, to tell the
/// player what the viewer wants, and the player, to show where the film is.
class Controls : public Foundation::Adopting<Foundation::NSObject, KivUICore::UIEventObserver,
                                             KivCore::PlayerEventObserver> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<Controls, NSObject>("Example.Controls")
                .adopts<KivUICore::UIEventObserver>()
                .method<&Controls::timeChanged>("onKivTimeChange:")
                .build();
        return object;
    }

    using NSObject::init;
    bool init(const std::shared_ptr<UIKit::UIView>& host, const std::shared_ptr<FilmPlayer>& player) {
        player_ = player;
        slider_ = make<UIKit::UISlider>();
        playButton_ = make<KivUICore::Button>(make<UIKit::UIButton>(), [this] { togglePlay(); });
        playButton_->setText("Play", UIKit::UIControlStateNormal);
        timeLabel_ = make<KivUICore::Label>(make<UIKit::UILabel>(), self(this));
        seekBar_ = make<KivUICore::SeekBar>(slider_, self(this), player);
        seekBar_->setMaximumValue(FilmPlayer::duration);

        bar_ = make<KivUICore::BottomBar>(host);
        bar_->addElementToView(playButton_, 2);
        bar_->addElementToView(timeLabel_, 2);
        bar_->addElementToView(seekBar_, 8);
        bar_->setAutoHide(3);

        player->eventNotifier()->addObserver(self(this));
        timeChanged(player);
        return NSObject::init();
    }

    /// The controls hold the seek bar, which holds its observer, the controls: this opens the circle.
    void close() { bar_->clean(); }

    const std::shared_ptr<KivUICore::BottomBar>& bar() const { return bar_; }
    const std::shared_ptr<UIKit::UISlider>& slider() const { return slider_; }
    std::string time() const { return timeLabel_->textLabel()->text().value_or(""); }

    // What the player tells.
    void timeChanged(const std::shared_ptr<KivCore::KivPlayer>& /*player*/) {
        timeLabel_->updateLabelWithTime(player_->position());
        if (!slider_->isTracking()) {
            seekBar_->sync(player_->position());
        }
    }

    // What the controls tell.
    void onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) override {}
    void onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override {
        bar_->resetAutoHide();
        player_->seek(seekBar->currentValue());
    }
    void onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& seekBar) override {
        player_->seek(seekBar->currentValue());
    }
    void onButtonPress(const std::shared_ptr<KivUICore::Button>& /*button*/) override {}
    void onPopOverButtonPress(std::int64_t /*row*/) override {}
    void popOverShouldPresent() override {}
    void onPopOverDismiss() override {}

private:
    void togglePlay() {
        bar_->resetAutoHide();
        player_->isPlaying() ? player_->pause() : player_->play();
        playButton_->setText(player_->isPlaying() ? "Pause" : "Play", UIKit::UIControlStateNormal);
    }

    std::shared_ptr<FilmPlayer> player_;
    std::shared_ptr<UIKit::UISlider> slider_;
    std::shared_ptr<KivUICore::Button> playButton_;
    std::shared_ptr<KivUICore::Label> timeLabel_;
    std::shared_ptr<KivUICore::SeekBar> seekBar_;
    std::shared_ptr<KivUICore::BottomBar> bar_;
};

} // namespace

int main() {
    KivUICore::Headless::HeadlessHost host({640, 360});
    auto player = make<FilmPlayer>();
    auto controls = make<Controls>(host.window(), player);

    host.tap({50, 340});
    host.advance(2);
    std::cout << "Played for two seconds: " << controls->time() << '\n';

    // The thumb is at two percent of its way; the finger takes it to the middle.
    const auto track = controls->slider()->convertRectToView(controls->slider()->bounds(), *host.window());
    host.touchDown({track.origin.x + 16, 340});
    host.touchMove({track.origin.x + track.size.width / 2, 340});
    host.touchUp({track.origin.x + track.size.width / 2, 340});
    std::cout << "Dragged to the middle: " << controls->time() << '\n';

    host.advance(4);
    std::cout << "Left alone for four seconds: " << controls->time() << ", and the bar's alpha is "
              << controls->bar()->view()->alpha() << '\n';
    controls->close();
}
