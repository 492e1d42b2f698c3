#include "Platform/UIKit/Presentation/PresentationView.h"

#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIWindow.h"

namespace UIKit {

using namespace CoreGraphics;

bool PresentationView::init(const CGRect& frame, const std::shared_ptr<Owner>& owner) {
    owner_ = owner;
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    return UIView::init(frame);
}

void PresentationView::layoutSubviews() {
    if (const std::shared_ptr<Owner> owner = owner_.lock()) {
        owner->containerDidResize();
    }
}

void PresentationView::touchesBegan(const UITouch& /*touch*/) {
    if (const std::shared_ptr<Owner> owner = owner_.lock()) {
        owner->closeFromOutside();
    }
}

bool PresentationView::keyPressed(const UIKey& key) {
    const std::shared_ptr<Owner> owner = owner_.lock();
    return owner && key.keyCode == UIKeyboardHIDUsage::Escape && owner->closeFromOutside();
}

void PresentationView::didMoveToWindow() {
    const std::shared_ptr<Owner> owner = owner_.lock();
    if (owner && !window()) {
        owner->containerDidLeaveWindow();
    }
}

} // namespace UIKit
