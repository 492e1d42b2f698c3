#include "Platform/UIKit/UIFont.h"

#include "Platform/CoreGraphics/TextMetrics.h"
#include "Platform/Foundation/ClassBuilder.h"

#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

const Foundation::Class& UIFont::classObject() {
    using Font = std::shared_ptr<UIFont>;
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIFont, NSObject>("UIKit.UIFont")
            .classMethod<static_cast<Font (*)(CGFloat)>(&UIFont::systemFontOfSize)>("systemFontOfSize:")
            .classMethod<static_cast<Font (*)(CGFloat, UIFontWeight)>(&UIFont::systemFontOfSize)>(
                "systemFontOfSize:weight:")
            .classMethod<&UIFont::boldSystemFontOfSize>("boldSystemFontOfSize:")
            .classMethod<&UIFont::monospacedDigitSystemFontOfSize>("monospacedDigitSystemFontOfSize:weight:")
            .method<&UIFont::fontWithSize>("fontWithSize:")
            .property<&UIFont::pointSize>("pointSize")
            .property<&UIFont::lineHeight>("lineHeight")
            .build();
    return object;
}

bool UIFont::init(const CGFont& font) {
    font_ = font;
    if (!(font.size > 0.0) || !std::isfinite(font.size)) {
        font_.size = CGFont{}.size;
    }
    return NSObject::init();
}

std::shared_ptr<UIFont> UIFont::systemFontOfSize(CGFloat size) {
    return systemFontOfSize(size, UIFontWeightRegular);
}

std::shared_ptr<UIFont> UIFont::systemFontOfSize(CGFloat size, UIFontWeight weight) {
    return Foundation::make<UIFont>(CGFont{size, weight, CGFigures::Proportional});
}

std::shared_ptr<UIFont> UIFont::boldSystemFontOfSize(CGFloat size) {
    return systemFontOfSize(size, UIFontWeightBold);
}

std::shared_ptr<UIFont> UIFont::monospacedDigitSystemFontOfSize(CGFloat size, UIFontWeight weight) {
    return Foundation::make<UIFont>(CGFont{size, weight, CGFigures::Monospaced});
}

std::shared_ptr<UIFont> UIFont::fontWithSize(CGFloat size) const {
    return Foundation::make<UIFont>(CGFont{size, font_.weight, font_.figures});
}

CGFloat UIFont::lineHeight() const { return estimatedLineHeight(font_); }

} // namespace UIKit
