#include "Platform/MediaPlayer/MPVolumeView.h"

#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/MediaPlayer/MPRouteProvider.h"
#include "Platform/MediaPlayer/RouteChanges.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UIImage.h"

namespace MediaPlayer {

using namespace CoreGraphics;

namespace {

// Wide enough for a finger even where it is drawn at four fifths, as in a bar.
constexpr CGSize fittingSize{55.0, 32.0};

// Above and below, touches are taken further: up to the whole height of a bar.
constexpr CGFloat reach = 9.0;

// A loudspeaker and the sound that comes out of it.
std::shared_ptr<const CGDrawing> routeDrawing() {
    constexpr CGColor white{1.0, 1.0, 1.0, 1.0};
    constexpr CGStroke line{1.75, CGLineCap::Round, CGLineJoin::Round};
    constexpr CGPoint source{13.0, 12.0};
    constexpr CGFloat spread = 0.7;

    CGPath outlines;
    outlines.addRoundedRect(CGRectMake(2.0, 2.0, 11.0, 20.0), 3.0);
    outlines.addEllipse(CGRectMake(4.75, 12.0, 5.5, 5.5));

    CGRecordingContext context({24.0, 24.0});
    context.strokePath(outlines, line, white);
    for (const CGFloat radius : {4.5, 8.5}) {
        CGPath wave;
        wave.addArc(source, radius, -spread, spread);
        context.strokePath(wave, line, white);
    }
    context.fillRoundedRect(CGRectMake(6.25, 5.75, 2.5, 2.5), 1.25, white);
    return context.drawing();
}

} // namespace

const Foundation::Class& MPVolumeView::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<MPVolumeView, UIKit::UIView>("MediaPlayer.MPVolumeView")
            .property<&MPVolumeView::showsVolumeSlider, &MPVolumeView::setShowsVolumeSlider>(
                "showsVolumeSlider")
            .property<&MPVolumeView::showsRouteButton, &MPVolumeView::setShowsRouteButton>("showsRouteButton")
            .method<&MPVolumeView::chooseRoute>("chooseRoute")
            .build();
    return object;
}

bool MPVolumeView::init(const CGRect& frame) {
    if (!UIView::init(frame)) {
        return false;
    }
    button_ = Foundation::make<UIKit::UIButton>(CGRectInset(bounds(), 0.0, -reach));
    button_->setImage(routeImage(), UIKit::UIControlStateNormal);
    button_->setAutoresizingMask(UIKit::UIViewAutoresizingFlexibleWidth |
                                 UIKit::UIViewAutoresizingFlexibleHeight);
    button_->addTarget(self(this), "chooseRoute", UIKit::UIControlEventTouchUpInside);
    addSubview(button_);
    update();
    RouteChanges::observe(self(this), [this] { update(); });
    return true;
}

std::shared_ptr<UIKit::UIImage> MPVolumeView::routeImage() {
    static const std::shared_ptr<const CGDrawing> drawing = routeDrawing();
    return Foundation::make<UIKit::UIImage>(drawing);
}

bool MPVolumeView::showsVolumeSlider() const { return showsVolumeSlider_; }

void MPVolumeView::setShowsVolumeSlider(bool shows) { showsVolumeSlider_ = shows; }

bool MPVolumeView::showsRouteButton() const { return showsRouteButton_; }

void MPVolumeView::setShowsRouteButton(bool shows) {
    showsRouteButton_ = shows;
    update();
}

bool MPVolumeView::isRouteButtonVisible() const { return !button_->isHidden(); }

CGSize MPVolumeView::sizeThatFits(const CGSize& /*size*/) const { return fittingSize; }

bool MPVolumeView::pointInside(const CGPoint& point) const {
    return isRouteButtonVisible() && CGRectContainsPoint(button_->frame(), point);
}

void MPVolumeView::didMoveToWindow() { update(); }

void MPVolumeView::update() {
    const std::shared_ptr<MPRouteProvider> provider = MPRouteProvider::providerFor(*this);
    button_->setHidden(!showsRouteButton_ || !provider || provider->routes().size() < 2);
}

void MPVolumeView::chooseRoute() {
    const std::shared_ptr<MPRouteProvider> provider = MPRouteProvider::providerFor(*this);
    // The routes may have gone while the button was held.
    if (provider && isRouteButtonVisible()) {
        provider->chooseRouteFromView(self(this));
    }
}

} // namespace MediaPlayer
