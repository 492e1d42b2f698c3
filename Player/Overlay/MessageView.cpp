#include "Player/Overlay/MessageView.h"

#include "KivUICore/UIComponent/Button.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Icons.h"
#include "Player/Overlay/PlateView.h"
#include "Player/Overlay/PushButton.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Overlay {

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

} // namespace

bool MessageView::init(const CGRect& frame) {
    plate_ = Foundation::make<PlateView>(CGRect{});
    button_ = Foundation::make<PushButton>(CGRect{});
    button_->setImage(retryIcon(), UIKit::UIControlStateNormal);
    button_->setHidden(true);
    action_ = Foundation::make<KivUICore::Button>(button_, nullptr);
    if (!UIView::init(frame)) {
        return false;
    }
    plate_->addSubview(button_);
    addSubview(plate_);
    layOutPlate();
    return true;
}

void MessageView::setText(std::string text) {
    text_ = std::move(text);
    plate_->label()->setText(text_);
    layOutPlate();
}

void MessageView::setAction(const std::string& title, std::function<void()> action) {
    action_->setActionClosure(std::move(action));
    button_->setTitle(title, UIKit::UIControlStateNormal);
    button_->setHidden(false);
    layOutPlate();
}

void MessageView::clearAction() {
    action_->setActionClosure(nullptr);
    button_->setHidden(true);
    layOutPlate();
}

void MessageView::setFrame(const CGRect& frame) {
    UIView::setFrame(frame);
    layOutPlate();
}

bool MessageView::pointInside(const CGPoint& point) const {
    return !button_->isHidden() && button_->pointInside(convertPointToView(point, *button_));
}

CGFloat MessageView::footHeight(CGFloat height) const {
    if (button_->isHidden()) {
        return 0.0;
    }
    return buttonHeight + margin + (height < heightWithGap ? 0.0 : gap);
}

void MessageView::layOutPlate() {
    const CGSize area = bounds().size;
    const CGSize room{std::clamp(area.width - 2.0 * sideMargin, 0.0, widest),
                      std::max(0.0, area.height - 2.0 * margin)};
    plate_->setFootHeight(footHeight(room.height));
    CGSize size = plate_->sizeThatFits(room);
    const CGFloat buttonWidth = button_->sizeThatFits({}).width + 2.0 * buttonPadding;
    if (!button_->isHidden()) {
        size.width = std::max(size.width, std::min(room.width, buttonWidth + 2.0 * sideMargin));
    }
    plate_->setFrame(
        {{std::round((area.width - size.width) / 2.0), std::round((area.height - size.height) / 2.0)}, size});
    const CGFloat width = std::min(buttonWidth, size.width);
    button_->setFrame(CGRectMake(std::round((size.width - width) / 2.0), size.height - buttonHeight - margin,
                                 width, buttonHeight));
}

} // namespace Overlay
