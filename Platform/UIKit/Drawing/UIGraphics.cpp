#include "Platform/UIKit/UIGraphics.h"

#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Platform/UIKit/UIImage.h"

#include <cmath>
#include <vector>

namespace UIKit {

using namespace CoreGraphics;

namespace {

std::vector<std::unique_ptr<CGRecordingContext>>& openContexts() {
    static std::vector<std::unique_ptr<CGRecordingContext>> contexts;
    return contexts;
}

bool isExtent(CGFloat length) { return length > 0.0 && std::isfinite(length); }

} // namespace

void UIGraphicsBeginImageContext(const CGSize& size) {
    openContexts().push_back(std::make_unique<CGRecordingContext>(size));
}

CGContext* UIGraphicsGetCurrentContext() {
    return openContexts().empty() ? nullptr : openContexts().back().get();
}

std::shared_ptr<UIImage> UIGraphicsGetImageFromCurrentImageContext() {
    if (openContexts().empty()) {
        return nullptr;
    }
    const CGRecordingContext& context = *openContexts().back();
    if (!isExtent(context.size().width) || !isExtent(context.size().height)) {
        return nullptr;
    }
    return Foundation::make<UIImage>(context.drawing());
}

void UIGraphicsEndImageContext() {
    if (!openContexts().empty()) {
        openContexts().pop_back();
    }
}

} // namespace UIKit
