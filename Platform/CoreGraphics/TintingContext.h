#pragma once

#include "Platform/CoreGraphics/CGContext.h"

namespace CoreGraphics {

/// Passes drawing on to another context in one colour, at each thing's own alpha: for icons that show in a
/// tint. Images and patterns keep their colours.
class TintingContext final : public CGContext {
public:
    /// `context` outlives this.
    TintingContext(CGContext& context, const CGColor& tint) : context_(context), tint_(tint) {}

    void saveState() override;
    void restoreState() override;
    void concatenate(const CGAffineTransform& transform) override;
    void clipToRect(const CGRect& rect) override;
    void clipToPath(const CGPath& path) override;
    void clearRect(const CGRect& rect) override;
    void fillRect(const CGRect& rect, const CGColor& color) override;
    void fillRoundedRect(const CGRect& rect, CGFloat radius, const CGColor& color) override;
    void fillPath(const CGPath& path, const CGColor& color) override;
    void strokePath(const CGPath& path, const CGStroke& stroke, const CGColor& color) override;
    void drawImage(const std::shared_ptr<const CGImage>& image, const CGRect& rect) override;
    void fillPattern(const std::shared_ptr<const CGDrawing>& cell, const CGRect& rect) override;
    void drawText(std::string_view text, const CGTextStyle& style, const CGRect& rect) override;
    void beginGroup(CGFloat alpha, const CGRect& bounds) override;
    void endGroup() override;

private:
    CGColor tinted(const CGColor& color) const;

    CGContext& context_;
    CGColor tint_;
};

} // namespace CoreGraphics
