#pragma once

#include "Platform/UIKit/UIView.h"

#include <memory>

namespace UIKit {
class UILabel;
} // namespace UIKit

namespace KivUICore::Overlay {

/// What texts over the picture stand on. Lighter than black, for there may be no picture under it.
inline constexpr CoreGraphics::CGColor plateColor{0.15, 0.15, 0.17, 0.9};

/// A dark plate with round corners and a text in its middle, which is broken into lines where it is too long.
class PlateView : public UIKit::UIView {
public:
    using UIKit::UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    const std::shared_ptr<UIKit::UILabel>& label() const { return label_; }

    /// Points below the text that are kept free for something else, the plate's edge included.
    CoreGraphics::CGFloat footHeight() const { return footHeight_; }
    void setFootHeight(CoreGraphics::CGFloat height);

    /// Points to the right of the text that are kept free, the plate's edge included.
    void setTailWidth(CoreGraphics::CGFloat width);

    /// What the text, the foot and the tail need in at most `size`, both sides of which are above zero. An
    /// estimate.
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;

    void layoutSubviews() override;

    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

private:
    CoreGraphics::CGFloat bottomPadding() const;
    CoreGraphics::CGFloat rightPadding() const;
    CoreGraphics::CGRect textArea(const CoreGraphics::CGSize& size) const;

    std::shared_ptr<UIKit::UILabel> label_;
    CoreGraphics::CGFloat footHeight_ = 0.0;
    CoreGraphics::CGFloat tailWidth_ = 0.0;
};

} // namespace KivUICore::Overlay
