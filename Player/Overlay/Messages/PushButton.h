#pragma once

#include "Platform/UIKit/UIButton.h"

namespace KivUICore::Overlay {

/// A button that can be told as one without being touched: it stands out from what is under it.
class PushButton : public UIKit::UIButton {
public:
    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;
};

} // namespace KivUICore::Overlay
