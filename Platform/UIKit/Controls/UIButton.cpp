#include "Platform/UIKit/UIButton.h"

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/CoreGraphics/ContentLayout.h"
#include "Platform/CoreGraphics/TextMetrics.h"
#include "Platform/CoreGraphics/TintingContext.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UIKey.h"

#include <algorithm>
#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr CGFont ownFont{15.0, CGFontWeight::Medium};
constexpr CGColor white{1.0, 1.0, 1.0, 1.0};
constexpr CGColor glow{1.0, 1.0, 1.0, 0.18};
constexpr CGFloat glowRadius = 8.0;
constexpr CGFloat glowInset = 2.0;
constexpr CGFloat fadedAlpha = 0.35;
constexpr CGFloat padding = 4.0;
constexpr CGFloat gap = 4.0;
constexpr CGFloat leastSide = 44.0;

bool isPressKey(const UIKey& key) {
    return key.keyCode == UIKeyboardHIDUsage::ReturnOrEnter || key.characters == " ";
}

} // namespace

const Foundation::Class& UIButton::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UIButton, UIControl>("UIKit.UIButton")
            .method<&UIButton::setTitle>("setTitle:forState:")
            .method<&UIButton::setTitleColor>("setTitleColor:forState:")
            .method<&UIButton::setImage>("setImage:forState:")
            .method<&UIButton::titleForState>("titleForState:")
            .method<&UIButton::titleColorForState>("titleColorForState:")
            .method<&UIButton::imageForState>("imageForState:")
            .property<&UIButton::currentTitle>("currentTitle")
            .property<&UIButton::currentTitleColor>("currentTitleColor")
            .property<&UIButton::currentImage>("currentImage")
            .property<&UIButton::font, &UIButton::setFont>("font")
            .property<&UIButton::tintColor, &UIButton::setTintColor>("tintColor")
            .build();
    return object;
}

void UIButton::setTitle(const std::optional<std::string>& title, UIControlState state) {
    const std::optional<std::string> shown = currentTitle();
    titles_.set(state, title);
    if (shown != currentTitle()) {
        setNeedsDisplay();
    }
}

void UIButton::setTitleColor(const std::shared_ptr<UIColor>& color, UIControlState state) {
    const std::shared_ptr<UIColor> shown = currentTitleColor();
    titleColors_.set(state, color);
    if (shown != currentTitleColor()) {
        setNeedsDisplay();
    }
}

void UIButton::setImage(const std::shared_ptr<UIImage>& image, UIControlState state) {
    const std::shared_ptr<UIImage> shown = currentImage();
    const bool wasFaded = fadesImage();
    images_.set(state, image);
    if (shown != currentImage() || wasFaded != fadesImage()) {
        setNeedsDisplay();
    }
}

const std::optional<std::string>& UIButton::titleForState(UIControlState state) const {
    return titles_[state];
}

std::shared_ptr<UIColor> UIButton::titleColorForState(UIControlState state) const {
    return titleColors_[state];
}

std::shared_ptr<UIImage> UIButton::imageForState(UIControlState state) const { return images_[state]; }

std::shared_ptr<UIFont> UIButton::font() const { return font_; }

void UIButton::setFont(const std::shared_ptr<UIFont>& font) {
    if (font != font_) {
        font_ = font;
        setNeedsDisplay();
    }
}

std::shared_ptr<UIColor> UIButton::tintColor() const { return tintColor_; }

void UIButton::setTintColor(const std::shared_ptr<UIColor>& color) {
    if (color != tintColor_) {
        tintColor_ = color;
        setNeedsDisplay();
    }
}

bool UIButton::fadesImage() const { return !isEnabled() && !images_.has(state()); }

CGFont UIButton::shownFont() const { return font_ ? font_->cgFont() : ownFont; }

// Keys

bool UIButton::keyPressed(const UIKey& key) {
    if (!isPressKey(key) || !isFocused()) {
        return false;
    }
    if (!key.isRepeat && !isTracking()) {
        press();
    }
    return true;
}

void UIButton::press() {
    const std::shared_ptr<UIButton> alive = self(this);
    sendActionsForControlEvents(UIControlEventTouchDown);
    const bool isThere = isEnabled() && window();
    sendActionsForControlEvents(isThere ? UIControlEventTouchUpInside : UIControlEventTouchCancel);
}

// Layout

CGSize UIButton::sizeThatFits(const CGSize& /*size*/) const {
    const std::shared_ptr<UIImage> image = currentImage();
    const std::string_view title = titleText();
    CGSize content = image ? image->size() : CGSize{};
    if (!title.empty()) {
        const CGFont font = shownFont();
        content.width += estimatedTextWidth(title, font) + (image ? gap : 0.0);
        content.height = std::max(content.height, estimatedLineHeight(font));
    }
    return {std::max(leastSide, std::ceil(content.width + 2.0 * padding)),
            std::max(leastSide, std::ceil(content.height))};
}

std::string_view UIButton::titleText() const {
    const std::optional<std::string>& title = currentTitle();
    return title ? std::string_view(*title) : std::string_view();
}

UIButton::Layout UIButton::layout(const CGRect& bounds, const UIImage* image, std::string_view title) const {
    const CGSize imageSize = image ? sizeFittedInto(image->size(), bounds.size) : CGSize{};
    if (title.empty()) {
        return {rectCenteredIn(bounds, imageSize), {}};
    }
    const CGRect room = CGRectInset(bounds, padding, 0.0);
    if (!image) {
        return {{}, room};
    }
    const CGFloat lead = imageSize.width + gap;
    const CGFloat titleWidth =
        std::clamp(room.size.width - lead, 0.0, estimatedTextWidth(title, shownFont()));
    const CGRect content = rectCenteredIn(bounds, {lead + titleWidth, bounds.size.height});
    return {{{content.origin.x, CGRectGetMidY(bounds) - imageSize.height / 2.0}, imageSize},
            {{content.origin.x + lead, content.origin.y}, {titleWidth, content.size.height}}};
}

// Drawing

void UIButton::drawRect(CGContext& context, const CGRect& /*rect*/) {
    const CGRect bounds = CGRectStandardize(presentedBounds());
    if (isHighlighted()) {
        context.fillRoundedRect(CGRectInset(bounds, glowInset, glowInset), glowRadius, glow);
    }
    const std::shared_ptr<UIImage> image = currentImage();
    const std::string_view title = titleText();
    const Layout places = layout(bounds, image.get(), title);
    if (image) {
        drawImage(context, *image->drawing(), alignedToPixels(places.image));
    }
    if (!title.empty()) {
        const CGTextStyle style{shownFont(), titleColor(), CGTextAlignment::Center, 1};
        context.drawText(title, style, places.title);
    }
}

CGColor UIButton::titleColor() const {
    const std::shared_ptr<UIColor> own = currentTitleColor();
    const UIColor* shown = own ? own.get() : tintColor_.get();
    CGColor color = shown ? shown->cgColor() : white;
    if (!isEnabled() && !titleColors_.has(state())) {
        color.alpha *= fadedAlpha;
    }
    return color;
}

void UIButton::drawImage(CGContext& context, const CGDrawing& drawing, const CGRect& rect) const {
    const bool isFaded = fadesImage();
    if (isFaded) {
        context.beginGroup(fadedAlpha, rect);
    }
    if (tintColor_) {
        TintingContext tinting(context, tintColor_->cgColor());
        drawing.draw(tinting, rect);
    } else {
        drawing.draw(context, rect);
    }
    if (isFaded) {
        context.endGroup();
    }
}

} // namespace UIKit
