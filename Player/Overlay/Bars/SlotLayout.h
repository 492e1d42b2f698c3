#pragma once

#include "Player/Overlay/Bars/RowLayout.h"

#include <span>

namespace KivUICore {
class KivBar;
} // namespace KivUICore

namespace KivUICore::Overlay {

/// Gives the slots of a bar the places of a row's items, one for each control in the order of placing, and
/// lets each control fill its slot. What a row leaves out is hidden. A seek bar makes room for its route
/// button while that shows.
void layOutSlots(KivUICore::KivBar& bar, std::span<const RowItem> items);

} // namespace KivUICore::Overlay
