#include "Platform/CoreGraphics/TintingContext.h"

namespace CoreGraphics {

CGColor TintingContext::tinted(const CGColor& color) const {
    return {tint_.red, tint_.green, tint_.blue, tint_.alpha * color.alpha};
}

void TintingContext::saveState() { context_.saveState(); }

void TintingContext::restoreState() { context_.restoreState(); }

void TintingContext::concatenate(const CGAffineTransform& transform) { context_.concatenate(transform); }

void TintingContext::clipToRect(const CGRect& rect) { context_.clipToRect(rect); }

void TintingContext::clipToPath(const CGPath& path) { context_.clipToPath(path); }

void TintingContext::clearRect(const CGRect& rect) { context_.clearRect(rect); }

void TintingContext::fillRect(const CGRect& rect, const CGColor& color) {
    context_.fillRect(rect, tinted(color));
}

void TintingContext::fillRoundedRect(const CGRect& rect, CGFloat radius, const CGColor& color) {
    context_.fillRoundedRect(rect, radius, tinted(color));
}

void TintingContext::fillPath(const CGPath& path, const CGColor& color) {
    context_.fillPath(path, tinted(color));
}

void TintingContext::strokePath(const CGPath& path, const CGStroke& stroke, const CGColor& color) {
    context_.strokePath(path, stroke, tinted(color));
}

void TintingContext::drawImage(const std::shared_ptr<const CGImage>& image, const CGRect& rect) {
    context_.drawImage(image, rect);
}

void TintingContext::fillPattern(const std::shared_ptr<const CGDrawing>& cell, const CGRect& rect) {
    context_.fillPattern(cell, rect);
}

void TintingContext::drawText(std::string_view text, const CGTextStyle& style, const CGRect& rect) {
    CGTextStyle inTint = style;
    inTint.color = tinted(style.color);
    context_.drawText(text, inTint, rect);
}

void TintingContext::beginGroup(CGFloat alpha, const CGRect& bounds) { context_.beginGroup(alpha, bounds); }

void TintingContext::endGroup() { context_.endGroup(); }

} // namespace CoreGraphics
