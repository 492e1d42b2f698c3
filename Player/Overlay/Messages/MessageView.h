#pragma once

#include "Platform/UIKit/UIView.h"

#include <functional>
#include <memory>
#include <string>

namespace KivUICore {
class Button;
} // namespace KivUICore

namespace UIKit {
class UIButton;
class UIImage;
} // namespace UIKit

namespace KivUICore::Overlay {

class PlateView;

/// Some lines for the viewer, in the middle of the area that the view is given as its frame, and at will a
/// button that does something about it: below the lines, in a low area an icon beside them, and in the
/// smallest all of what is shown. The view itself is transparent, and only the button takes touches.
class MessageView : public UIKit::UIView {
public:
    using UIKit::UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    const std::string& text() const { return text_; }
    void setText(std::string text);

    /// Shows a button with the text. A press runs `action`, which may tear down anything.
    void setAction(const std::shared_ptr<UIKit::UIImage>& icon, const std::string& title,
                   std::function<void()> action);
    void clearAction();

    void layoutSubviews() override;
    bool pointInside(const CoreGraphics::CGPoint& point) const override;

    /// What is shown, for those who want to know where it is. The button is hidden while there is no action.
    const std::shared_ptr<PlateView>& plate() const { return plate_; }
    const std::shared_ptr<UIKit::UIButton>& button() const { return button_; }

private:
    enum class ButtonPlace { None, Below, Beside, Everywhere };

    CoreGraphics::CGSize room() const;
    ButtonPlace buttonPlace() const;
    CoreGraphics::CGFloat footHeight() const;
    CoreGraphics::CGFloat buttonWidth() const;
    void showAction(ButtonPlace place);
    CoreGraphics::CGSize plateSize(ButtonPlace place) const;
    CoreGraphics::CGRect buttonFrame(ButtonPlace place, const CoreGraphics::CGSize& plate) const;

    std::string text_;
    std::string actionTitle_;
    std::shared_ptr<UIKit::UIImage> actionIcon_;
    std::shared_ptr<PlateView> plate_;
    std::shared_ptr<UIKit::UIButton> button_;
    std::shared_ptr<KivUICore::Button> action_;
};

} // namespace KivUICore::Overlay
