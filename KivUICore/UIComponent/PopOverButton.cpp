#include "KivUICore/UIComponent/PopOverButton.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/UIKit/UIImage.h"

namespace KivUICore {

using UIKit::UIImage;

const Foundation::Class& PopOverButton::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<PopOverButton, NSObject>("KivUICore.PopOverButton")
            .property<&PopOverButton::image, &PopOverButton::setImage>("image")
            .property<&PopOverButton::text, &PopOverButton::setText>("text")
            .initializer<const std::shared_ptr<UIImage>&, const std::string&>("initWithImage:text:")
            .build();
    return object;
}

bool PopOverButton::init(const std::shared_ptr<UIImage>& image, const std::string& text) {
    image_ = image;
    text_ = text;
    return NSObject::init();
}

bool PopOverButton::init() { Foundation::unimplementedInitializer("init()", "KivUICore.PopOverButton"); }

std::shared_ptr<UIImage> PopOverButton::image() const { return image_; }

void PopOverButton::setImage(const std::shared_ptr<UIImage>& image) { std::shared_ptr(image).swap(image_); }

const std::optional<std::string>& PopOverButton::text() const { return text_; }

void PopOverButton::setText(const std::optional<std::string>& text) { text_ = text; }

} // namespace KivUICore
