#include "Platform/UIKit/UITableViewCell.h"

#include "Platform/CoreGraphics/ContentLayout.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UIImageView.h"
#include "Platform/UIKit/UILabel.h"

#include <algorithm>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr CGFloat margin = 16.0;
constexpr CGFloat gap = 12.0;
constexpr CGFloat greatestImageWidth = 44.0;
constexpr CGFloat imageInset = 8.0;
constexpr CGFloat lineHeight = 0.5;
constexpr double tintDuration = 0.25;

constexpr CGColor tintColor{0.0, 0.36, 0.86, 0.34};
constexpr CGColor lineColor{0.0, 0.0, 0.0, 0.16};
constexpr CGFloat textWhite = 0.08;

} // namespace

/// Has its cell make room when the image changes.
class UITableViewCell::ImageView : public UIImageView {
public:
    void setImage(const std::shared_ptr<UIImage>& image) override {
        UIImageView::setImage(image);
        if (const auto cell = Foundation::as<UITableViewCell>(superview())) {
            cell->setNeedsLayout();
        }
    }
};

const Foundation::Class& UITableViewCell::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UITableViewCell, UIView>("UIKit.UITableViewCell")
            .initializer<UITableViewCellStyle, const std::optional<std::string>&>(
                "initWithStyle:reuseIdentifier:")
            .property<&UITableViewCell::textLabel>("textLabel")
            .property<&UITableViewCell::imageView>("imageView")
            .property<&UITableViewCell::reuseIdentifier>("reuseIdentifier")
            .property<&UITableViewCell::isHighlighted, &UITableViewCell::setHighlighted>("highlighted")
            .property<&UITableViewCell::isSelected>("selected")
            .method<&UITableViewCell::setSelected>("setSelected:animated:")
            .build();
    return object;
}

bool UITableViewCell::init(const CGRect& frame) { return UIView::init(frame); }

bool UITableViewCell::init(UITableViewCellStyle /*style*/,
                           const std::optional<std::string>& reuseIdentifier) {
    reuseIdentifier_ = reuseIdentifier;
    return init(CGRect{});
}

std::shared_ptr<UILabel> UITableViewCell::textLabel() {
    if (!textLabel_) {
        static const std::shared_ptr<UIColor> color = Foundation::make<UIColor>(textWhite, 1.0);
        textLabel_ = Foundation::make<UILabel>();
        textLabel_->setTextColor(color);
        addSubview(textLabel_);
        setNeedsLayout();
    }
    return textLabel_;
}

std::shared_ptr<UIImageView> UITableViewCell::imageView() {
    if (!imageView_) {
        imageView_ = Foundation::make<ImageView>();
        addSubview(imageView_);
        setNeedsLayout();
    }
    return imageView_;
}

bool UITableViewCell::isHighlighted() const { return isHighlighted_; }

void UITableViewCell::setHighlighted(bool highlighted) {
    isHighlighted_ = highlighted;
    updateTint();
}

bool UITableViewCell::isSelected() const { return isSelected_; }

void UITableViewCell::setSelected(bool selected, bool animated) {
    isSelected_ = selected;
    if (animated) {
        UIView::animateWithDuration(tintDuration, 0.0, UIViewAnimationOptionCurveEaseInOut,
                                    [cell = self(this)] { cell->updateTint(); });
    } else {
        updateTint();
    }
}

void UITableViewCell::updateTint() {
    const double tint = isHighlighted_ || isSelected_ ? 1.0 : 0.0;
    if (tint != tint_) {
        willChangeValue(tint_, tint);
        tint_ = tint;
        setNeedsDisplay();
    }
}

CGFloat UITableViewCell::textStart() const {
    const CGFloat imageWidth = imageView_ ? imageView_->frame().size.width : 0.0;
    return imageWidth > 0.0 ? margin + imageWidth + gap : margin;
}

void UITableViewCell::layoutSubviews() {
    const CGSize size = bounds().size;
    if (imageView_) {
        const CGFloat room = std::max(0.0, std::min(size.height, size.width) - 2.0 * imageInset);
        const std::shared_ptr<UIImage> image = imageView_->image();
        const CGSize shown = image ? sizeFittedInto(image->size(), {greatestImageWidth, room}) : CGSize{};
        imageView_->setFrame(CGRectMake(margin, imageInset, shown.width, room));
    }
    if (textLabel_) {
        const CGFloat start = textStart();
        textLabel_->setFrame(CGRectMake(start, 0.0, std::max(0.0, size.width - start - margin), size.height));
    }
}

void UITableViewCell::drawRect(CGContext& context, const CGRect& /*rect*/) {
    const CGRect bounds = presentedBounds();
    if (const double tint = presentedValue(tint_); tint > 0.0) {
        context.fillRect(bounds, {tintColor.red, tintColor.green, tintColor.blue, tintColor.alpha * tint});
    }
    const CGFloat start = textStart();
    context.fillRect({{start, CGRectGetMaxY(bounds) - lineHeight}, {bounds.size.width - start, lineHeight}},
                     lineColor);
}

} // namespace UIKit
