#include "Platform/UIKit/UILabel.h"

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/CoreGraphics/TextMetrics.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIFont.h"

#include <algorithm>
#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr CGColor white{1.0, 1.0, 1.0, 1.0};

} // namespace

const Foundation::Class& UILabel::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UILabel, UIView>("UIKit.UILabel")
            .property<&UILabel::text, &UILabel::setText>("text")
            .property<&UILabel::font, &UILabel::setFont>("font")
            .property<&UILabel::textColor, &UILabel::setTextColor>("textColor")
            .property<&UILabel::textAlignment, &UILabel::setTextAlignment>("textAlignment")
            .property<&UILabel::numberOfLines, &UILabel::setNumberOfLines>("numberOfLines")
            .build();
    return object;
}

bool UILabel::init(const CGRect& frame) {
    style_.color = white;
    setUserInteractionEnabled(false);
    return UIView::init(frame);
}

const std::optional<std::string>& UILabel::text() const { return text_; }

void UILabel::setText(const std::optional<std::string>& text) {
    if (text == text_) {
        return;
    }
    // No text and one without a character look alike.
    const bool isSeen = (text_ && !text_->empty()) || (text && !text->empty());
    text_ = text;
    if (isSeen) {
        setNeedsDisplay();
    }
}

std::shared_ptr<UIFont> UILabel::font() const { return font_; }

void UILabel::setFont(const std::shared_ptr<UIFont>& font) {
    font_ = font;
    const CGFont shown = font ? font->cgFont() : CGFont{};
    if (shown != style_.font) {
        style_.font = shown;
        setNeedsDisplay();
    }
}

std::shared_ptr<UIColor> UILabel::textColor() const { return textColor_; }

void UILabel::setTextColor(const std::shared_ptr<UIColor>& color) {
    textColor_ = color;
    const CGColor shown = color ? color->cgColor() : white;
    if (shown != style_.color) {
        style_.color = shown;
        setNeedsDisplay();
    }
}

CGTextAlignment UILabel::textAlignment() const { return style_.alignment; }

void UILabel::setTextAlignment(CGTextAlignment alignment) {
    if (alignment != style_.alignment) {
        style_.alignment = alignment;
        setNeedsDisplay();
    }
}

int UILabel::numberOfLines() const { return style_.maximumLines; }

void UILabel::setNumberOfLines(int lines) {
    const int shown = std::max(lines, 0);
    if (shown != style_.maximumLines) {
        style_.maximumLines = shown;
        setNeedsDisplay();
    }
}

CGSize UILabel::sizeThatFits(const CGSize& size) const {
    if (!text_ || text_->empty()) {
        return {};
    }
    const CGFloat whole = std::max(1.0, std::ceil(estimatedTextWidth(*text_, style_.font)));
    const CGFloat width = size.width > 0.0 ? std::min(whole, size.width) : whole;
    const CGFloat needed = std::ceil(whole / width);
    const CGFloat lines = style_.maximumLines > 0 ? std::min<CGFloat>(needed, style_.maximumLines) : needed;
    const CGFloat height = std::ceil(lines * estimatedLineHeight(style_.font));
    return {width, size.height > 0.0 ? std::min(height, size.height) : height};
}

void UILabel::drawRect(CGContext& context, const CGRect& /*rect*/) {
    if (text_ && !text_->empty()) {
        context.drawText(*text_, style_, presentedBounds());
    }
}

} // namespace UIKit
