#include "Player/Overlay/Bars/SlotLayout.h"

#include "KivUICore/KivBar.h"
#include "KivUICore/UIComponent/SeekBar.h"
#include "KivUICore/UIElement/UIElement.h"
#include "Platform/MediaPlayer/MPVolumeView.h"

#include <algorithm>
#include <cstddef>

namespace KivUICore::Overlay {

using namespace CoreGraphics;
using KivUICore::KivBar;
using MediaPlayer::MPVolumeView;

namespace {

constexpr CGFloat margin = 4.0;
constexpr CGFloat routeButtonWidth = 44.0;

void fillSlot(const UIKit::UIView& slot, const std::shared_ptr<KivUICore::UIComponent>& component) {
    CGRect room = slot.bounds();
    const auto seekBar = Foundation::as<KivUICore::SeekBar>(component);
    const std::shared_ptr<MPVolumeView> routeButton = seekBar ? seekBar->airplayButton() : nullptr;
    if (routeButton && routeButton->isRouteButtonVisible()) {
        room.size.width = std::max(0.0, room.size.width - routeButtonWidth);
        CGRect frame = routeButton->frame();
        frame.origin.x = CGRectGetMaxX(room);
        routeButton->setFrame(frame);
    }
    if (const std::shared_ptr<UIKit::UIView> control = component->view()) {
        control->setFrame(room);
    }
}

} // namespace

void layOutSlots(KivBar& bar, std::span<const RowItem> items) {
    const std::vector<std::shared_ptr<UIKit::UIView>> slots = bar.view()->subviews();
    const KivBar::Elemets elements = bar.placedElemets();
    const std::vector<CGRect> frames = layOutRow(items, CGRectInset(bar.view()->bounds(), margin, 0.0));
    const std::size_t count = std::min({slots.size(), elements.size(), frames.size()});
    for (std::size_t index = 0; index < count; ++index) {
        slots[index]->setFrame(frames[index]);
        slots[index]->setHidden(frames[index].size.width <= 0.0);
        fillSlot(*slots[index], elements[index]->view());
    }
}

} // namespace KivUICore::Overlay
