#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Player/Overlay/Bars/AutoHidePolicy.h"
#include "Player/Overlay/Bars/ScrubBubble.h"
#include "Player/Overlay/Bars/TitleControls.h"
#include "Player/Overlay/Bars/TransportControls.h"
#include "Player/Overlay/Film/FilmCommands.h"
#include "Player/Overlay/Menus/FilmMenus.h"
#include "Player/Overlay/Messages/StatusViews.h"

#include <memory>
#include <optional>
#include <string>

namespace UIKit {
class UIViewController;
struct UIKey;
} // namespace UIKit

namespace KivUICore::Overlay {

class HostView;
struct KeyCommand;
class MenuPresenter;
class AudioDeviceRoutes;
class NotifyingPlayer;
class WindowControls;

/// All that lies over a film: the bars with their controls, and what there is to say. A host hands in
/// touches, by way of the root's window, the pointer, keys and the wheel.
class PlayerOverlay {
public:
    /// Fills `root` with a host view, which follows its size. Takes the playback's change handler. `playback`
    /// and `window` outlive the overlay.
    PlayerOverlay(const std::shared_ptr<UIKit::UIView>& root, Playback& playback, WindowControls& window);
    PlayerOverlay(const PlayerOverlay&) = delete;
    PlayerOverlay& operator=(const PlayerOverlay&) = delete;
    ~PlayerOverlay();

    /// Points at the bottom of the picture that the overlay covers.
    static CoreGraphics::CGFloat bottomInset();

    std::shared_ptr<UIKit::UIView> hostView() const;

    /// The playback as the framework sees it: add observers to its notifier, and they hear what becomes of
    /// the film, once the overlay shows it, and when the viewer takes hold of the handle and lets go.
    std::shared_ptr<NotifyingPlayer> player() const;

    const TitleControls& titleControls() const { return title_; }
    const TransportControls& transportControls() const { return transport_; }
    const ScrubBubble& scrubBubble() const { return bubble_; }
    const AutoHidePolicy& autoHidePolicy() const { return policy_; }

    /// The pointer is at `location`, in the root's coordinates, whether its button is held or not; or it left
    /// the window.
    void pointerMoved(const CoreGraphics::CGPoint& location);
    void pointerLeft();

    /// True if the key meant something.
    bool handleKey(const UIKit::UIKey& key);

    /// The wheel was turned by so many notches, up if positive.
    void scrolled(CoreGraphics::CGFloat notches);

    /// The window went to full screen or came back.
    void windowDidChange();

    /// Shows a line for a while.
    void showNotice(const std::string& text);

    /// Shows for a while what went wrong. The film isn't affected.
    void showProblem(const PlaybackError& problem);

private:
    TransportControls::Actions transportActions();
    void layOut();
    void layOutBetweenBars();
    void playbackDidChange();
    Foundation::NSRunLoop::Scope inOwnTime() const;
    void refresh();
    void run(const KeyCommand& command);
    void goBack();
    void cancel();
    void toggleFullScreen();
    void changeVolume(double difference);
    void beginScrubbing();
    void scrub();
    void endScrubbing();
    void holdWhileOnBar();
    void updateBubble();
    void openMenu(MenuKind kind, const std::shared_ptr<UIKit::UIView>& anchor);
    void barsDidFade();

    Playback& playback_;
    WindowControls& window_;
    FilmCommands film_;
    FilmMenus menus_;
    std::shared_ptr<HostView> hostView_;
    std::shared_ptr<UIKit::UIViewController> controller_;
    std::shared_ptr<MenuPresenter> menu_;
    std::shared_ptr<AudioDeviceRoutes> routes_;
    std::shared_ptr<NotifyingPlayer> player_;
    StatusViews status_;
    TitleControls title_;
    TransportControls transport_;
    ScrubBubble bubble_;
    AutoHidePolicy policy_;
    std::optional<CoreGraphics::CGPoint> pointer_;
    bool isPointerHidden_ = false;

    // Whether the handle was moved since it was taken hold of: a mere press leaves the film where it is.
    bool hasScrubbed_ = false;

    // Where the film was then, in seconds.
    double placeBeforeScrub_ = 0.0;
};

} // namespace KivUICore::Overlay
