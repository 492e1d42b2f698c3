#pragma once

#include "Platform/UIKit/UIView.h"

#include <memory>

namespace UIKit {

class UIImage;

/// An image in the middle of a view, at its own size, or smaller in the same shape where that doesn't fit. It
/// takes no touches unless they are enabled.
class UIImageView : public UIView {
public:
    static const Foundation::Class& classObject();

    bool init(const CoreGraphics::CGRect& frame) override;

    /// As large as the image.
    virtual bool init(const std::shared_ptr<UIImage>& image);
    using UIView::init;

    /// Nothing at first.
    virtual std::shared_ptr<UIImage> image() const;
    virtual void setImage(const std::shared_ptr<UIImage>& image);

    /// The image's; none without one.
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;
    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

private:
    std::shared_ptr<UIImage> image_;
};

} // namespace UIKit
