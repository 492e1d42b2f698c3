#include "Player/Overlay/HostView.h"

#include "Platform/UIKit/UITouch.h"

#include <cmath>
#include <utility>

namespace KivUICore::Overlay {

using UIKit::UITouch;

namespace {

constexpr double longestTap = 0.35;
constexpr CoreGraphics::CGFloat tapRadius = 24.0;

bool isNear(const UITouch& a, const UITouch& b) {
    return std::hypot(a.location.x - b.location.x, a.location.y - b.location.y) <= tapRadius &&
           b.timestamp - a.timestamp <= longestTap;
}

// What remembers a touch must not hold the view, which is the one that remembers.
UITouch withoutView(UITouch touch) {
    touch.view = nullptr;
    return touch;
}

} // namespace

void HostView::layoutSubviews() {
    if (const std::function<void()> handler = onLayout_) {
        handler();
    }
}

void HostView::touchesBegan(const UITouch& touch) {
    // One that a bar handed on is not meant for the picture.
    down_ = touch.view.get() == this ? std::optional(withoutView(touch)) : std::nullopt;
    if (const std::function<void()> handler = onTouch_) {
        handler();
    }
}

void HostView::touchesEnded(const UITouch& touch) {
    const std::optional<UITouch> down = std::exchange(down_, std::nullopt);
    const std::optional<UITouch> before = std::exchange(lastTap_, std::nullopt);
    if (!down || down->identifier != touch.identifier || !isNear(*down, touch)) {
        return;
    }
    if (!before || !isNear(*before, *down)) {
        lastTap_ = withoutView(touch);
    } else if (const std::function<void()> handler = onDoubleTap_) {
        handler();
    }
}

void HostView::touchesCancelled(const UITouch& /*touch*/) {
    down_.reset();
    lastTap_.reset();
}

} // namespace KivUICore::Overlay
