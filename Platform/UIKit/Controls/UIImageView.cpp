#include "Platform/UIKit/UIImageView.h"

#include "Platform/CoreGraphics/ContentLayout.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIImage.h"

namespace UIKit {

using namespace CoreGraphics;

const Foundation::Class& UIImageView::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIImageView, UIView>("UIKit.UIImageView")
            .initializer<const std::shared_ptr<UIImage>&>("initWithImage:")
            .property<&UIImageView::image, &UIImageView::setImage>("image")
            .build();
    return object;
}

bool UIImageView::init(const CGRect& frame) {
    setUserInteractionEnabled(false);
    return UIView::init(frame);
}

bool UIImageView::init(const std::shared_ptr<UIImage>& image) {
    image_ = image;
    return init(CGRect{{}, image ? image->size() : CGSize{}});
}

std::shared_ptr<UIImage> UIImageView::image() const { return image_; }

void UIImageView::setImage(const std::shared_ptr<UIImage>& image) {
    if (image != image_) {
        std::shared_ptr(image).swap(image_);
        setNeedsDisplay();
    }
}

CGSize UIImageView::sizeThatFits(const CGSize& /*size*/) const { return image_ ? image_->size() : CGSize{}; }

void UIImageView::drawRect(CGContext& context, const CGRect& /*rect*/) {
    if (image_) {
        const CGRect bounds = presentedBounds();
        image_->drawing()->draw(
            context, alignedToPixels(rectCenteredIn(bounds, sizeFittedInto(image_->size(), bounds.size))));
    }
}

} // namespace UIKit
