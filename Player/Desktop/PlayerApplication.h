#pragma once

#include "Hosts/SDL/DesktopWindow.h"
#include "Hosts/SDL/EventLoop.h"
#include "Hosts/SDL/SteadyClock.h"
#include "Hosts/SDL/WindowDelegate.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Player/Desktop/Exit.h"
#include "Player/Desktop/MpvPicture.h"
#include "Player/Desktop/MpvPlayback.h"
#include "Player/Desktop/Options.h"
#include "Player/Overlay/PlayerOverlay.h"
#include "Player/Overlay/WindowControls.h"

#include <memory>
#include <optional>
#include <string>

namespace KivUICore::Player {

/// The player in its window.
class PlayerApplication : private SDL::WindowDelegate, private Overlay::WindowControls {
public:
    explicit PlayerApplication(const Options& options);

    /// Plays until the window is closed. What can't be played is told on the error output and in the window.
    Exit run();

private:
    void open();
    void filmHasNews();
    void tellNotice(const Overlay::PlaybackError& problem);

    void windowWasResized() override;
    void fullScreenDidChange() override;
    void windowShouldClose() override;
    void windowWasDestroyed() override;
    void connectionWasCut() override;
    void keyWentDown(const UIKit::UIKey& key) override;
    void pointerMoved(const CoreGraphics::CGPoint& location) override;
    void pointerLeft() override;
    void wheelTurned(CoreGraphics::CGFloat notches) override;
    void fileWasDropped(const std::string& location) override;

    bool isFullScreen() const override;
    void setFullScreen(bool fullScreen) override;
    void setPointerHidden(bool hidden) override;
    void close() override;

    Options options_;
    SDL::SteadyClock clock_;
    Foundation::NSRunLoop runLoop_{clock_};
    MpvPlayback playback_;
    MpvPicture picture_{playback_};
    std::unique_ptr<SDL::DesktopWindow> window_;
    std::optional<Overlay::PlayerOverlay> overlay_;
    std::optional<SDL::EventLoop> loop_;

    // What was told last.
    std::optional<Overlay::PlaybackError> error_;
    std::string title_;
};

} // namespace KivUICore::Player
