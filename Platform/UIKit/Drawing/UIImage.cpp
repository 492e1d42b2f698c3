#include "Platform/UIKit/UIImage.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/Drawing/ImageContexts.h"

#include <utility>

namespace UIKit {

using namespace CoreGraphics;

const Foundation::Class& UIImage::classObject() {
    static const Foundation::Class& object = Foundation::ClassBuilder<UIImage, NSObject>("UIKit.UIImage")
                                                 .property<&UIImage::size>("size")
                                                 .method<&UIImage::drawInRect>("drawInRect:")
                                                 .build();
    return object;
}

bool UIImage::init(const std::shared_ptr<const CGImage>& pixels) {
    if (!pixels) {
        return false;
    }
    const CGRect all{{}, pixels->size()};
    return init(std::make_shared<const CGDrawing>(
        all.size, std::vector<CGDrawing::Operation>{CGDrawing::DrawImage{pixels, all}}));
}

bool UIImage::init(const std::shared_ptr<const CGDrawing>& drawing) {
    drawing_ = drawing;
    return drawing != nullptr && NSObject::init();
}

void UIImage::drawInRect(const CGRect& rect) const {
    if (CGContext* context = ImageContexts::current()) {
        drawing_->draw(*context, rect);
    }
}

} // namespace UIKit
