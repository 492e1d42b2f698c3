#pragma once

#include "Platform/UIKit/UIView.h"

#include <memory>

namespace UIKit {
class UIButton;
class UIImage;
} // namespace UIKit

namespace MediaPlayer {

/// The button with which the user chooses where sound and picture go. It shows, and takes touches, only while
/// the MPRouteProvider that is installed around it has more than one route; a tap asks the provider to let
/// the user choose.
class MPVolumeView : public UIKit::UIView {
public:
    static const Foundation::Class& classObject();

    using UIKit::UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// Kept as set, true at first. There is no volume slider in the view either way: what plays has its own
    /// volume control.
    virtual bool showsVolumeSlider() const;
    virtual void setShowsVolumeSlider(bool shows);

    /// True at first; whether the button may show at all.
    virtual bool showsRouteButton() const;
    virtual void setShowsRouteButton(bool shows);

    /// True while the button shows.
    bool isRouteButtonVisible() const;

    /// What suits the route button.
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;

    bool pointInside(const CoreGraphics::CGPoint& point) const override;

protected:
    void didMoveToWindow() override;

private:
    static std::shared_ptr<UIKit::UIImage> routeImage();

    void update();
    void chooseRoute();

    std::shared_ptr<UIKit::UIButton> button_;
    bool showsVolumeSlider_ = true;
    bool showsRouteButton_ = true;
};

} // namespace MediaPlayer
