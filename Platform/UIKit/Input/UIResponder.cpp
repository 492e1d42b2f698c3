#include "Platform/UIKit/UIResponder.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace UIKit {

const Foundation::Class& UIResponder::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIResponder, NSObject>("UIKit.UIResponder")
            .property<&UIResponder::nextResponder>("nextResponder")
            .build();
    return object;
}

std::shared_ptr<UIResponder> UIResponder::nextResponder() const { return nullptr; }

void UIResponder::touchesBegan(const UITouch& touch) {
    if (const std::shared_ptr<UIResponder> next = nextResponder()) {
        next->touchesBegan(touch);
    }
}

void UIResponder::touchesMoved(const UITouch& touch) {
    if (const std::shared_ptr<UIResponder> next = nextResponder()) {
        next->touchesMoved(touch);
    }
}

void UIResponder::touchesEnded(const UITouch& touch) {
    if (const std::shared_ptr<UIResponder> next = nextResponder()) {
        next->touchesEnded(touch);
    }
}

void UIResponder::touchesCancelled(const UITouch& touch) {
    if (const std::shared_ptr<UIResponder> next = nextResponder()) {
        next->touchesCancelled(touch);
    }
}

bool UIResponder::scrollBy(const CoreGraphics::CGPoint& /*delta*/) { return false; }

bool UIResponder::keyPressed(const UIKey& /*key*/) { return false; }

} // namespace UIKit
