#include "KivUICore/Bottom/BottomBar.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"

namespace KivUICore {

using namespace CoreGraphics;
using UIKit::UIView;

namespace {

[[noreturn]] void refuse(std::string_view initializer) {
    Foundation::unimplementedInitializer(initializer, "KivUICore.BottomBar");
}

} // namespace

const Foundation::Class& BottomBar::classObject() {
    using View = const std::shared_ptr<UIView>&;
    static const Foundation::Class& object =
        Foundation::ClassBuilder<BottomBar, KivBar>("KivUICore.BottomBar")
            .initializer<View>("initWithSuperview:")
            .initializer<View, CGFloat>("initWithSuperview:height:")
            .build();
    return object;
}

bool BottomBar::init(const std::shared_ptr<UIView>& superview) {
    require(superview, "host view", "init(superview:)");
    return init(superview, barHeight());
}

bool BottomBar::init(const std::shared_ptr<UIView>& superview, CGFloat height) {
    require(superview, "host view", "init(superview:height:)");
    const CGFloat y = CGRectGetHeight(superview->frame()) - height;
    return KivBar::init(superview, CGRectMake(0.0, y, CGRectGetWidth(superview->frame()), height));
}

bool BottomBar::init(const std::shared_ptr<UIView>& /*superview*/, const CGRect& /*frame*/) {
    refuse("init(superview:frame:)");
}

bool BottomBar::init(const std::shared_ptr<UIView>& /*superview*/, const CGRect& /*frame*/,
                     const std::shared_ptr<UIKit::UIColor>& /*backgroundColor*/) {
    refuse("init(superview:frame:backgroundColor:)");
}

bool BottomBar::init(const std::shared_ptr<UIView>& /*superview*/, const CGRect& /*frame*/,
                     const std::shared_ptr<UIKit::UIImage>& /*backgroundImage*/) {
    refuse("init(superview:frame:backgroundImage:)");
}

bool BottomBar::init(const std::shared_ptr<UIView>& /*superview*/, const std::shared_ptr<UIView>& /*view*/) {
    refuse("init(superview:view:)");
}

} // namespace KivUICore
