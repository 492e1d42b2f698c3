#pragma once

#include "Platform/UIKit/UIView.h"

#include <string>

namespace Overlay {

/// A line or two for the viewer in the middle of the picture, on a dark plate.
class MessageView : public UIKit::UIView {
public:
    const std::string& text() const { return text_; }
    void setText(std::string text);

    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

private:
    std::string text_;
};

} // namespace Overlay
