#pragma once

#include "KivUICore/KivBar.h"

#include <memory>

namespace KivUICore {

/// A bar along the bottom edge of its superview, as wide as the superview is when the bar is made. It doesn't
/// follow the superview's size by itself: hand it the new frame by `updateBarFrameWithFrame`.
class BottomBar : public KivBar {
public:
    BottomBar() : KivBar(Edge::Bottom) {}

    static const Foundation::Class& classObject();

    using KivBar::init;

    /// A bar of the default height.
    bool init(const std::shared_ptr<UIKit::UIView>& superview);

    /// `height` in points, used as given.
    bool init(const std::shared_ptr<UIKit::UIView>& superview, CoreGraphics::CGFloat height);

    /// Not supported: each stops the program with a report.
    bool init(const std::shared_ptr<UIKit::UIView>& superview, const CoreGraphics::CGRect& frame) override;
    bool init(const std::shared_ptr<UIKit::UIView>& superview, const CoreGraphics::CGRect& frame,
              const std::shared_ptr<UIKit::UIColor>& backgroundColor) override;
    bool init(const std::shared_ptr<UIKit::UIView>& superview, const CoreGraphics::CGRect& frame,
              const std::shared_ptr<UIKit::UIImage>& backgroundImage) override;
    bool init(const std::shared_ptr<UIKit::UIView>& superview,
              const std::shared_ptr<UIKit::UIView>& view) override;
};

} // namespace KivUICore
