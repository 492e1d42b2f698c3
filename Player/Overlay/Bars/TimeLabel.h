#pragma once

#include "Platform/UIKit/UILabel.h"
#include "Platform/UIKit/UITouch.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace KivUICore::Overlay {

/// The view of a time: centred figures of equal width, which may have a sign in front and may be pressed.
class TimeLabel : public UIKit::UILabel {
public:
    using UILabel::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// Put in front of every text that is set from now on.
    void setSign(std::string sign) { sign_ = std::move(sign); }

    /// Called when a touch is lifted inside. Until it is set the label takes no touches.
    void setPressHandler(std::function<void()> handler);

    void setText(const std::optional<std::string>& text) override;

    void touchesBegan(const UIKit::UITouch& /*touch*/) override {}
    void touchesMoved(const UIKit::UITouch& /*touch*/) override {}
    void touchesEnded(const UIKit::UITouch& touch) override;
    void touchesCancelled(const UIKit::UITouch& /*touch*/) override {}

private:
    std::string sign_;
    std::function<void()> onPress_;
};

} // namespace KivUICore::Overlay
