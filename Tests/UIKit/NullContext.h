#pragma once

#include "Platform/CoreGraphics/CGContext.h"

/// A context that draws nowhere.
class NullContext : public CoreGraphics::CGContext {
public:
    void saveState() override {}
    void restoreState() override {}
    void concatenate(const CoreGraphics::CGAffineTransform& /*transform*/) override {}
    void clipToRect(const CoreGraphics::CGRect& /*rect*/) override {}
    void clipToPath(const CoreGraphics::CGPath& /*path*/) override {}
    void clearRect(const CoreGraphics::CGRect& /*rect*/) override {}
    void fillRect(const CoreGraphics::CGRect& /*rect*/, const CoreGraphics::CGColor& /*color*/) override {}
    void fillRoundedRect(const CoreGraphics::CGRect& /*rect*/, CoreGraphics::CGFloat /*radius*/,
                         const CoreGraphics::CGColor& /*color*/) override {}
    void fillPath(const CoreGraphics::CGPath& /*path*/, const CoreGraphics::CGColor& /*color*/) override {}
    void strokePath(const CoreGraphics::CGPath& /*path*/, const CoreGraphics::CGStroke& /*stroke*/,
                    const CoreGraphics::CGColor& /*color*/) override {}
    void drawImage(const std::shared_ptr<const CoreGraphics::CGImage>& /*image*/,
                   const CoreGraphics::CGRect& /*rect*/) override {}
    void fillPattern(const std::shared_ptr<const CoreGraphics::CGDrawing>& /*cell*/,
                     const CoreGraphics::CGRect& /*rect*/) override {}
    void drawText(std::string_view /*text*/, const CoreGraphics::CGTextStyle& /*style*/,
                  const CoreGraphics::CGRect& /*rect*/) override {}
    void beginGroup(CoreGraphics::CGFloat /*alpha*/, const CoreGraphics::CGRect& /*bounds*/) override {}
    void endGroup() override {}
};
