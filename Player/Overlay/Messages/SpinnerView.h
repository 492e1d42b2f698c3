#pragma once

#include "Platform/UIKit/UIView.h"

#include <memory>

namespace Foundation {
class NSTimer;
} // namespace Foundation

namespace KivUICore::Overlay {

/// Turning spokes on a dark disc: there is nothing to show yet. Hidden while it isn't animating, and at work
/// only while it is and a window can show it. Takes no touches.
class SpinnerView : public UIKit::UIView {
public:
    using UIKit::UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    void startAnimating();
    void stopAnimating();
    bool isAnimating() const { return isAnimating_; }

    /// Its size, whatever room there is.
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;

    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

protected:
    void didMoveToWindow() override;

private:
    void startOrStopTurning();
    void turn();

    std::shared_ptr<Foundation::NSTimer> timer_;
    bool isAnimating_ = false;

    // The spoke that is brightest.
    int leader_ = 0;
};

} // namespace KivUICore::Overlay
