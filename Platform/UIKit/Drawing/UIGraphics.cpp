#include "Platform/UIKit/UIGraphics.h"

#include "Platform/UIKit/Drawing/ImageContexts.h"
#include "Platform/UIKit/UIImage.h"

#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

namespace {

bool isExtent(CGFloat length) { return length > 0.0 && std::isfinite(length); }

} // namespace

void UIGraphicsBeginImageContext(const CGSize& size) { ImageContexts::open(size); }

CGContext* UIGraphicsGetCurrentContext() { return ImageContexts::current(); }

std::shared_ptr<UIImage> UIGraphicsGetImageFromCurrentImageContext() {
    const CGRecordingContext* context = ImageContexts::current();
    if (!context || !isExtent(context->size().width) || !isExtent(context->size().height)) {
        return nullptr;
    }
    return Foundation::make<UIImage>(context->drawing());
}

void UIGraphicsEndImageContext() { ImageContexts::close(); }

} // namespace UIKit
