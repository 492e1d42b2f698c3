#include "KivUICore/UIComponent/Button.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UIImage.h"

#include <utility>

namespace KivUICore {

using UIKit::UIButton;
using UIKit::UIControlState;
using UIKit::UIImage;

const Foundation::Class& Button::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<Button, UIComponent>("KivUICore.Button")
            .initializer<const std::shared_ptr<UIButton>&, std::function<void()>>("initWithView:action:")
            .property<&Button::actionClosure, &Button::setActionClosure>("actionClosure")
            .method<&Button::enable>("enable")
            .method<&Button::disable>("disable")
            .method<&Button::setImage>("setImage:controlState:")
            .method<&Button::setText>("setText:controlState:")
            .method<&Button::touchAction>("touchAction:")
            .build();
    return object;
}

bool Button::init(const std::shared_ptr<UIButton>& view, std::function<void()> action) {
    if (!UIComponent::init()) {
        return false;
    }
    setActionClosure(nullptr);
    setView(view);
    setActionClosure(std::move(action));
    if (const std::shared_ptr<UIButton> control = button()) {
        control->addTarget(self(this), "touchAction:", UIKit::UIControlEventTouchUpInside);
    }
    return true;
}

bool Button::init() { Foundation::unimplementedInitializer("init()", "KivUICore.Button"); }

void Button::dealloc() {
    UIComponent::dealloc();
    setActionClosure(nullptr);
}

// The one before ends when its successor is in place.
void Button::setActionClosure(std::function<void()> actionClosure) {
    Foundation::Block<void()> closure(std::move(actionClosure));
    std::swap(actionClosure_, closure);
}

std::shared_ptr<UIButton> Button::button() const { return Foundation::as<UIButton>(view()); }

void Button::touchAction(const std::shared_ptr<NSObject>& /*sender*/) {
    // Held, as the closure may replace itself while it runs.
    if (const Foundation::Block<void()> action = actionClosure_) {
        action();
    }
}

void Button::enable() {
    if (const std::shared_ptr<UIButton> control = button()) {
        control->setEnabled(true);
    }
}

void Button::disable() {
    if (const std::shared_ptr<UIButton> control = button()) {
        control->setEnabled(false);
    }
}

void Button::setImage(const std::shared_ptr<UIImage>& image, UIControlState controlState) {
    const std::shared_ptr<UIButton> control = image ? button() : nullptr;
    if (control) {
        control->setImage(image, controlState);
    }
}

void Button::setText(const std::optional<std::string>& text, UIControlState controlState) {
    const std::shared_ptr<UIButton> control = text ? button() : nullptr;
    if (control) {
        control->setTitle(text, controlState);
    }
}

} // namespace KivUICore
