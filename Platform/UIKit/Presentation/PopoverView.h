#pragma once

#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/UIKit/Presentation/PopoverPlacement.h"
#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"

#include <memory>

namespace UIKit {

/// The plate of a pop-over: round corners, an arrow, and in it a content that is cut at the corners. Touches
/// that nobody inside takes end here.
class PopoverView : public UIView {
public:
    bool init(const CoreGraphics::CGRect& frame) override;
    using UIView::init;

    /// Puts `content` in, to fill the plate.
    void setContent(const std::shared_ptr<UIView>& content);

    /// `placement` in the superview's coordinates.
    void setPlacement(const PopoverPlacement& placement);

    /// Fills plate and arrow. Nothing stands for light grey, nearly opaque, which shows dark text over any
    /// picture.
    void setFillColor(const std::shared_ptr<UIColor>& color);

    /// On the plate or around its arrow.
    bool pointInside(const CoreGraphics::CGPoint& point) const override;
    void touchesBegan(const UITouch& /*touch*/) override {}
    void touchesMoved(const UITouch& /*touch*/) override {}
    void touchesEnded(const UITouch& /*touch*/) override {}
    void touchesCancelled(const UITouch& /*touch*/) override {}
    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

private:
    class ContentClip;

    std::shared_ptr<ContentClip> clip_;
    std::shared_ptr<UIColor> fillColor_;
    CoreGraphics::CGPath outline_;
    CoreGraphics::CGRect arrowRect_;
};

} // namespace UIKit
