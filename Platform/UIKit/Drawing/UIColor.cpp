#include "Platform/UIKit/UIColor.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIImage.h"

namespace UIKit {

using namespace CoreGraphics;

const Foundation::Class& UIColor::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIColor, NSObject>("UIKit.UIColor")
            .initializer<CGFloat, CGFloat, CGFloat, CGFloat>("initWithRed:green:blue:alpha:")
            .initializer<CGFloat, CGFloat>("initWithWhite:alpha:")
            .initializer<const std::shared_ptr<UIImage>&>("initWithPatternImage:")
            .build();
    return object;
}

bool UIColor::init(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
    color_ = {red, green, blue, alpha};
    return NSObject::init();
}

bool UIColor::init(CGFloat white, CGFloat alpha) { return init(white, white, white, alpha); }

bool UIColor::init(const std::shared_ptr<UIImage>& patternImage) {
    patternImage_ = patternImage;
    return patternImage != nullptr && NSObject::init();
}

} // namespace UIKit
