#include "Player/Overlay/Bars/ScrubBubble.h"

#include "KivUICore/UIComponent/Label.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Bars/TimeBubbleView.h"
#include "Player/Overlay/Bars/TimeDisplay.h"

namespace KivUICore::Overlay {

using Foundation::make;

ScrubBubble::ScrubBubble(const std::shared_ptr<UIKit::UIView>& host)
    : host_(host), view_(make<TimeBubbleView>(CoreGraphics::CGRect())),
      label_(make<KivUICore::Label>(view_->label(), std::shared_ptr<KivUICore::UIEventObserver>())) {
    view_->setHidden(true);
    host_->addSubview(view_);
}

ScrubBubble::~ScrubBubble() = default;

void ScrubBubble::show(double time, const CoreGraphics::CGPoint& tip) {
    const std::int64_t seconds = wholeSeconds(time);
    if (seconds != shown_) {
        shown_ = seconds;
        label_->updateLabelWithTime(static_cast<float>(seconds));
    }
    view_->pointAt(tip, host_->bounds());
    view_->setHidden(view_->frame().origin.y < 0.0);
}

void ScrubBubble::hide() { view_->setHidden(true); }

} // namespace KivUICore::Overlay
