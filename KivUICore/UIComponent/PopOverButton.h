#pragma once

#include "Platform/Foundation/NSObject.h"

#include <memory>
#include <optional>
#include <string>

namespace UIKit {
class UIImage;
}

namespace KivUICore {

/// One entry of a pop-over menu: a picture and a text. It knows no menu and tells nobody of a change: menus
/// read it when they build its row. It may stand in several menus, and more than once in one.
class PopOverButton : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    /// Nothing for a row without a picture.
    virtual std::shared_ptr<UIKit::UIImage> image() const;
    virtual void setImage(const std::shared_ptr<UIKit::UIImage>& image);

    /// UTF-8. Nothing for a row without a title; an empty text is a text.
    virtual const std::optional<std::string>& text() const;
    virtual void setText(const std::optional<std::string>& text);

    /// An entry begins with both.
    virtual bool init(const std::shared_ptr<UIKit::UIImage>& image, const std::string& text);

    /// Not supported: stops the program with a report.
    bool init() override;

private:
    std::shared_ptr<UIKit::UIImage> image_;
    std::optional<std::string> text_;
};

} // namespace KivUICore
