#pragma once

#include <memory>

namespace UIKit {
class UIImage;
} // namespace UIKit

namespace KivUICore::Overlay {

// The pictures on the overlay's buttons: drawings of 24 by 24 points, each made once and shared. Straight
// edges lie on even points, so that they are sharp at one and a half pixels a point too.

std::shared_ptr<UIKit::UIImage> playIcon();
std::shared_ptr<UIKit::UIImage> pauseIcon();
std::shared_ptr<UIKit::UIImage> replayIcon();
std::shared_ptr<UIKit::UIImage> retryIcon();
std::shared_ptr<UIKit::UIImage> cancelIcon();
std::shared_ptr<UIKit::UIImage> backIcon();
std::shared_ptr<UIKit::UIImage> soundIcon();
std::shared_ptr<UIKit::UIImage> mutedIcon();
std::shared_ptr<UIKit::UIImage> enterFullScreenIcon();
std::shared_ptr<UIKit::UIImage> exitFullScreenIcon();
std::shared_ptr<UIKit::UIImage> menuIcon();

/// Marks an entry of a menu: dark, for menus are light.
std::shared_ptr<UIKit::UIImage> tickIcon();

/// As large as a tick, and nothing to see: it keeps the entries without one in line with those that have it.
std::shared_ptr<UIKit::UIImage> emptyIcon();

} // namespace KivUICore::Overlay
