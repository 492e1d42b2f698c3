#include "KivUICore/UIComponent/UIComponent.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace KivUICore {

const Foundation::Class& UIComponent::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIComponent, NSObject>("KivUICore.UIComponent")
            .property<&UIComponent::view, &UIComponent::setView>("view")
            .property<&UIComponent::observer, &UIComponent::setObserver>("observer")
            .build();
    return object;
}

std::shared_ptr<UIKit::UIView> UIComponent::view() const { return view_; }

// What a setter lets go ends when its successor is in place: whatever its end calls may look here.
void UIComponent::setView(const std::shared_ptr<UIKit::UIView>& view) { std::shared_ptr(view).swap(view_); }

std::shared_ptr<UIEventObserver> UIComponent::observer() const { return observer_; }

void UIComponent::setObserver(const std::shared_ptr<UIEventObserver>& observer) {
    std::shared_ptr(observer).swap(observer_);
}

bool UIComponent::init() {
    view_ = nullptr;
    observer_ = nullptr;
    return NSObject::init();
}

void UIComponent::dealloc() {
    NSObject::dealloc();
    view_.reset();
    observer_.reset();
}

} // namespace KivUICore
