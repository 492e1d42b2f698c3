#pragma once

#include "Platform/Foundation/Protocol.h"

#include <cstdint>
#include <memory>

namespace KivUICore {

class Button;
class SeekBar;

/// Where controls report what the user does: an application's class adopts it and is given to the controls.
/// All operations are required. They reach the adopter through message dispatch, so its class lists them:
/// `ClassBuilder<Watcher, NSObject>("Example.Watcher").adopts<UIEventObserver>()`.
class UIEventObserver : public Foundation::Protocol {
public:
    /// For the application's own use: a button runs its action and sends nothing.
    virtual void onButtonPress(const std::shared_ptr<Button>& button) = 0;

    /// The user takes hold of the slider, lets go of it, or moves it in between. The seek bar tells its
    /// value.
    virtual void onSeekBegan(const std::shared_ptr<SeekBar>& seekBar) = 0;
    virtual void onSeekFinished(const std::shared_ptr<SeekBar>& seekBar) = 0;
    virtual void onValueChanged(const std::shared_ptr<SeekBar>& seekBar) = 0;

    /// An entry of a pop-over menu was chosen: its row, from 0.
    virtual void onPopOverButtonPress(std::int64_t row) = 0;

    /// A pop-over menu is about to be shown, or was closed from outside.
    virtual void popOverShouldPresent() = 0;
    virtual void onPopOverDismiss() = 0;

    template <class Builder>
    static void describe(Builder& builder) {
        builder.template method<&UIEventObserver::onButtonPress>("onButtonPress:");
        builder.template method<&UIEventObserver::onSeekBegan>("onSeekBegan:");
        builder.template method<&UIEventObserver::onSeekFinished>("onSeekFinished:");
        builder.template method<&UIEventObserver::onValueChanged>("onValueChanged:");
        builder.template method<&UIEventObserver::onPopOverButtonPress>("onPopOverButtonPress:");
        builder.template method<&UIEventObserver::popOverShouldPresent>("popOverShouldPresent");
        builder.template method<&UIEventObserver::onPopOverDismiss>("onPopOverDismiss");
    }

protected:
    ~UIEventObserver() = default;
};

} // namespace KivUICore
