#include "KivUICore/UIElement/UIElement.h"

#include "Platform/Foundation/FatalError.h"

#include <utility>

namespace KivUICore {

UIElement::UIElement(std::shared_ptr<UIComponent> view, std::int64_t size)
    : size_(size), view_(std::move(view)) {
    if (!view_) {
        Foundation::missingObject("component", "init(view:size:)", "KivUICore.UIElement");
    }
}

} // namespace KivUICore
