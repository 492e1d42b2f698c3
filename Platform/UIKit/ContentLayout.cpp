#include "Platform/UIKit/ContentLayout.h"

#include "Platform/UIKit/UIWindow.h"

#include <algorithm>
#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

CGSize sizeFittedInto(const CGSize& size, const CGSize& space) {
    if (!(size.width > 0.0 && size.height > 0.0 && space.width > 0.0 && space.height > 0.0)) {
        return {};
    }
    const CGFloat scale = std::min({1.0, space.width / size.width, space.height / size.height});
    return {size.width * scale, size.height * scale};
}

CGRect rectCenteredIn(const CGRect& rect, const CGSize& size) {
    return {{CGRectGetMidX(rect) - size.width / 2.0, CGRectGetMidY(rect) - size.height / 2.0}, size};
}

CGRect alignedToPixels(const CGRect& rect, const UIView& view) {
    const std::shared_ptr<UIWindow> window = view.window();
    if (!window) {
        return rect;
    }
    const CGRect inWindow = view.convertRectToView(rect, *window);
    const auto isSame = [](CGFloat a, CGFloat b) { return std::abs(a - b) < 1e-6; };
    if (!isSame(inWindow.size.width, rect.size.width) || !isSame(inWindow.size.height, rect.size.height)) {
        return rect;
    }
    const CGFloat scale = window->contentScale();
    const auto toPixel = [scale](CGFloat at) { return std::round(at * scale) / scale - at; };
    return CGRectOffset(rect, toPixel(inWindow.origin.x), toPixel(inWindow.origin.y));
}

} // namespace UIKit
