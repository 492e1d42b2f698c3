#include "Platform/UIKit/Presentation/PresentationView.h"

#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIPresentationController.h"
#include "Platform/UIKit/UIWindow.h"

namespace UIKit {

using namespace CoreGraphics;

bool PresentationView::init(const CGRect& frame,
                            const std::shared_ptr<UIPresentationController>& controller) {
    controller_ = controller;
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    return UIView::init(frame);
}

void PresentationView::setFrame(const CGRect& frame) {
    UIView::setFrame(frame);
    if (const std::shared_ptr<UIPresentationController> controller = controller_.lock()) {
        controller->containerDidResize();
    }
}

void PresentationView::touchesBegan(const UITouch& /*touch*/) {
    if (const std::shared_ptr<UIPresentationController> controller = controller_.lock()) {
        controller->dismissFromOutside();
    }
}

bool PresentationView::keyPressed(const UIKey& key) {
    const std::shared_ptr<UIPresentationController> controller = controller_.lock();
    return controller && key.keyCode == UIKeyboardHIDUsage::Escape && controller->dismissFromOutside();
}

void PresentationView::didMoveToWindow() {
    const std::shared_ptr<UIPresentationController> controller = controller_.lock();
    if (controller && !window()) {
        controller->end();
    }
}

} // namespace UIKit
