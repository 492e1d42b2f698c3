#pragma once

#include "Platform/UIKit/UIView.h"

#include <memory>

namespace UIKit {
class UILabel;
} // namespace UIKit

namespace KivUICore::Overlay {

/// A short text, such as a time, on a small plate whose arrow points down at a place. Takes no touches.
class TimeBubbleView : public UIKit::UIView {
public:
    using UIKit::UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// Where the text is set, before the bubble is placed.
    const std::shared_ptr<UIKit::UILabel>& label() const { return label_; }

    /// Takes the size that fits the text and a place right above `tip`, no further to the sides than `within`
    /// (both in the superview's coordinates). The arrow points at the tip, as nearly as the plate's corners
    /// allow.
    void pointAt(const CoreGraphics::CGPoint& tip, const CoreGraphics::CGRect& within);

    /// Whatever room there is: the text is short.
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;

    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

private:
    std::shared_ptr<UIKit::UILabel> label_;

    // Where the arrow points, from the view's left edge.
    CoreGraphics::CGFloat arrow_ = 0.0;
};

} // namespace KivUICore::Overlay
