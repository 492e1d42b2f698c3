#pragma once

#include "KivUICore/UIComponent/UIComponent.h"
#include "Platform/Foundation/Block.h"
#include "Platform/UIKit/UIControlEvents.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace UIKit {
class UIButton;
class UIImage;
} // namespace UIKit

namespace KivUICore {

/// A push button that runs a closure when a touch is lifted inside it, and tells the observer nothing. While
/// its view is no UIButton its operations do nothing.
class Button : public UIComponent {
public:
    static const Foundation::Class& classObject();

    /// Wraps `view`; `action` may be empty.
    bool init(const std::shared_ptr<UIKit::UIButton>& view, std::function<void()> action);

    /// Not supported: stops the program with a report.
    bool init() override;

    /// What a press runs, read at each press. What it returns runs the stored closure itself, with whatever
    /// that remembers, and not a copy.
    std::function<void()> actionClosure() const { return actionClosure_.closure(); }
    void setActionClosure(std::function<void()> actionClosure);

    void enable();
    void disable();

    /// Nothing given leaves what is there for that state; an empty text is a text.
    void setImage(const std::shared_ptr<UIKit::UIImage>& image, UIKit::UIControlState controlState);
    void setText(const std::optional<std::string>& text, UIKit::UIControlState controlState);

protected:
    void dealloc() override;

private:
    std::shared_ptr<UIKit::UIButton> button() const;

    void touchAction(const std::shared_ptr<NSObject>& sender);

    Foundation::Block<void()> actionClosure_;
};

} // namespace KivUICore
