#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <memory>
#include <string>

namespace KivUICore {
class BottomBar;
class KivBar;
class TopBar;
} // namespace KivUICore

namespace UIKit {
class UIView;
} // namespace UIKit

namespace Overlay {

class MessageView;

/// What lies over the film: a bar along the top, one along the bottom, and a message when there is something
/// to say.
class PlayerOverlay {
public:
    /// Fills `root` with a host view, which follows its size, and puts the bars into that.
    explicit PlayerOverlay(const std::shared_ptr<UIKit::UIView>& root);
    PlayerOverlay(const PlayerOverlay&) = delete;
    PlayerOverlay& operator=(const PlayerOverlay&) = delete;
    ~PlayerOverlay();

    /// Points at the bottom of the picture that the overlay covers.
    static CoreGraphics::CGFloat bottomInset();

    const std::shared_ptr<UIKit::UIView>& hostView() const { return hostView_; }
    const std::shared_ptr<KivUICore::TopBar>& topBar() const { return topBar_; }
    const std::shared_ptr<KivUICore::BottomBar>& bottomBar() const { return bottomBar_; }

    /// Lays the bars out anew. Call it after each change of the root's size.
    void hostViewWasResized();

    /// Shows `text` in the middle of the picture from now on.
    void showMessage(const std::string& text);

private:
    std::shared_ptr<UIKit::UIView> hostView_;
    std::shared_ptr<KivUICore::TopBar> topBar_;
    std::shared_ptr<KivUICore::BottomBar> bottomBar_;
    std::shared_ptr<MessageView> message_;
};

} // namespace Overlay
