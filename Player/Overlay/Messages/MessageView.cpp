#include "Player/Overlay/Messages/MessageView.h"

#include "KivUICore/UIComponent/Button.h"
#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Looks/PlateView.h"
#include "Player/Overlay/Messages/PushButton.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace KivUICore::Overlay {

using namespace CoreGraphics;

namespace {

constexpr CGFloat sideMargin = 8.0;
constexpr CGFloat margin = 4.0;
constexpr CGFloat widest = 480.0;
constexpr CGFloat buttonHeight = 40.0;
constexpr CGFloat gap = 6.0;

// From here on the gap costs no line of the text that is worth more.
constexpr CGFloat heightWithGap = 110.0;
constexpr CGFloat buttonPadding = 12.0;

// From here on there is room for a line of text above the button.
constexpr CGFloat heightWithFoot = 76.0;

// From here on there is room for some words beside an icon.
constexpr CGFloat widthWithIcon = 150.0;
constexpr CGFloat fontSize = 15.0;
constexpr CGFloat smallFontSize = 13.0;

} // namespace

bool MessageView::init(const CGRect& frame) {
    plate_ = Foundation::make<PlateView>(CGRect{});
    button_ = Foundation::make<PushButton>(CGRect{});
    button_->setHidden(true);
    action_ = Foundation::make<KivUICore::Button>(button_, nullptr);
    if (!UIView::init(frame)) {
        return false;
    }
    plate_->addSubview(button_);
    addSubview(plate_);
    setNeedsLayout();
    return true;
}

void MessageView::setText(std::string text) {
    text_ = std::move(text);
    plate_->label()->setText(text_);
    setNeedsLayout();
}

void MessageView::setAction(const std::shared_ptr<UIKit::UIImage>& icon, const std::string& title,
                            std::function<void()> action) {
    actionIcon_ = icon;
    action_->setActionClosure(std::move(action));
    actionTitle_ = title;
    button_->setHidden(false);
    setNeedsLayout();
}

void MessageView::clearAction() {
    action_->setActionClosure(nullptr);
    button_->setHidden(true);
    setNeedsLayout();
}

bool MessageView::pointInside(const CGPoint& point) const {
    return !button_->isHidden() && button_->pointInside(convertPointToView(point, *button_));
}

CGSize MessageView::room() const {
    const CGSize area = bounds().size;
    return {std::clamp(area.width - 2.0 * sideMargin, 0.0, widest),
            std::max(0.0, area.height - 2.0 * margin)};
}

MessageView::ButtonPlace MessageView::buttonPlace() const {
    if (button_->isHidden()) {
        return ButtonPlace::None;
    }
    return room().height >= heightWithFoot ? ButtonPlace::Below
           : room().width >= widthWithIcon ? ButtonPlace::Beside
                                           : ButtonPlace::Everywhere;
}

CGFloat MessageView::footHeight() const {
    return buttonHeight + margin + (room().height < heightWithGap ? 0.0 : gap);
}

CGFloat MessageView::buttonWidth() const { return button_->sizeThatFits({}).width + 2.0 * buttonPadding; }

void MessageView::showAction(ButtonPlace place) {
    button_->setTitle(actionTitle_, UIKit::UIControlStateNormal);
    button_->setImage(actionIcon_, UIKit::UIControlStateNormal);
    if (place != ButtonPlace::Below || buttonWidth() > room().width) {
        button_->setTitle(std::nullopt, UIKit::UIControlStateNormal);
    }
    if (place == ButtonPlace::Everywhere) {
        button_->setImage(nullptr, UIKit::UIControlStateNormal);
    }
}

// What is needed for the text and the button, in the room that there is.
CGSize MessageView::plateSize(ButtonPlace place) const {
    CGSize size = plate_->sizeThatFits(room());
    if (place == ButtonPlace::Below) {
        size.width = std::max(size.width, std::min(room().width, buttonWidth() + 2.0 * sideMargin));
    } else if (place == ButtonPlace::Beside) {
        size.height = std::max(size.height, std::min(room().height, buttonHeight + 2.0 * margin));
    }
    return size;
}

CGRect MessageView::buttonFrame(ButtonPlace place, const CGSize& plate) const {
    if (place == ButtonPlace::Below) {
        const CGFloat width = std::min(buttonWidth(), plate.width);
        return CGRectMake(std::round((plate.width - width) / 2.0), plate.height - buttonHeight - margin,
                          width, buttonHeight);
    }
    if (place == ButtonPlace::Beside) {
        const CGFloat height = std::min(buttonHeight, plate.height);
        return CGRectMake(plate.width - buttonHeight - margin, std::round((plate.height - height) / 2.0),
                          buttonHeight, height);
    }
    return {{}, plate};
}

void MessageView::layoutSubviews() {
    const CGSize area = bounds().size;
    const ButtonPlace place = buttonPlace();
    const bool isLow = room().height < heightWithFoot;
    showAction(place);
    plate_->label()->setFont(
        UIKit::UIFont::systemFontOfSize(isLow ? smallFontSize : fontSize, UIKit::UIFontWeightMedium));
    plate_->setFootHeight(place == ButtonPlace::Below ? footHeight() : 0.0);
    plate_->setTailWidth(place == ButtonPlace::Beside ? buttonHeight + 2.0 * margin : 0.0);
    const CGSize size = plateSize(place);
    plate_->setFrame(
        {{std::round((area.width - size.width) / 2.0), std::round((area.height - size.height) / 2.0)}, size});
    button_->setFrame(buttonFrame(place, size));
}

} // namespace KivUICore::Overlay
