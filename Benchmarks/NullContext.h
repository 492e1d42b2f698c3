#pragma once

#include "Platform/CoreGraphics/CGContext.h"

namespace Benchmarks {

/// Draws nothing: what is left is the cost of deciding what to draw.
class NullContext : public CoreGraphics::CGContext {
public:
    void saveState() override {}
    void restoreState() override {}
    void concatenate(const CoreGraphics::CGAffineTransform&) override {}
    void clipToRect(const CoreGraphics::CGRect&) override {}
    void clipToPath(const CoreGraphics::CGPath&) override {}
    void clearRect(const CoreGraphics::CGRect&) override {}
    void fillRect(const CoreGraphics::CGRect&, const CoreGraphics::CGColor&) override {}
    void fillRoundedRect(const CoreGraphics::CGRect&, CoreGraphics::CGFloat,
                         const CoreGraphics::CGColor&) override {}
    void fillPath(const CoreGraphics::CGPath&, const CoreGraphics::CGColor&) override {}
    void strokePath(const CoreGraphics::CGPath&, const CoreGraphics::CGStroke&,
                    const CoreGraphics::CGColor&) override {}
    void drawImage(const std::shared_ptr<const CoreGraphics::CGImage>&,
                   const CoreGraphics::CGRect&) override {}
    void fillPattern(const std::shared_ptr<const CoreGraphics::CGDrawing>&,
                     const CoreGraphics::CGRect&) override {}
    void drawText(std::string_view, const CoreGraphics::CGTextStyle&, const CoreGraphics::CGRect&) override {}
    void beginGroup(CoreGraphics::CGFloat, const CoreGraphics::CGRect&) override {}
    void endGroup() override {}
};

} // namespace Benchmarks
