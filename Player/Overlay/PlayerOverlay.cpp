#include "Player/Overlay/PlayerOverlay.h"

#include "KivUICore/Bottom/BottomBar.h"
#include "KivUICore/TopBar/TopBar.h"
#include "Player/Overlay/MessageView.h"

#include <algorithm>

namespace Overlay {

using namespace CoreGraphics;
using Foundation::make;

PlayerOverlay::PlayerOverlay(const std::shared_ptr<UIKit::UIView>& root)
    : hostView_(make<UIKit::UIView>(root->bounds())) {
    hostView_->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleWidth |
                                   UIKit::UIViewAutoresizingFlexibleHeight);
    root->addSubview(hostView_);
    topBar_ = make<KivUICore::TopBar>(hostView_);
    bottomBar_ = make<KivUICore::BottomBar>(hostView_);

    // A bar travels to a new frame over half a second. While somebody drags the window's edge it would trail
    // behind, so the edges follow by themselves and what travels is what is inside.
    topBar_->view()->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleWidth);
    bottomBar_->view()->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleWidth |
                                            UIKit::UIViewAutoresizingFlexibleTopMargin);
}

PlayerOverlay::~PlayerOverlay() = default;

CGFloat PlayerOverlay::bottomInset() { return KivUICore::KivBar::barHeight(); }

void PlayerOverlay::hostViewWasResized() {
    topBar_->updateBarFrameWithFrame(hostView_->frame());
    bottomBar_->updateBarFrameWithFrame(hostView_->frame());
}

void PlayerOverlay::showMessage(const std::string& text) {
    constexpr CGFloat widest = 640.0;
    constexpr CGFloat height = 96.0;
    constexpr CGFloat margin = 24.0;
    if (!message_) {
        const CGRect host = hostView_->bounds();
        const CGFloat width = std::clamp(CGRectGetWidth(host) - 2.0 * margin, 0.0, widest);
        message_ = make<MessageView>(CGRectMake((CGRectGetWidth(host) - width) / 2.0,
                                                (CGRectGetHeight(host) - height) / 2.0, width, height));
        message_->setAutoresizingMask(
            UIKit::UIViewAutoresizingFlexibleLeftMargin | UIKit::UIViewAutoresizingFlexibleRightMargin |
            UIKit::UIViewAutoresizingFlexibleTopMargin | UIKit::UIViewAutoresizingFlexibleBottomMargin);
        message_->setUserInteractionEnabled(false);
        hostView_->addSubview(message_);
    }
    message_->setText(text);
}

} // namespace Overlay
