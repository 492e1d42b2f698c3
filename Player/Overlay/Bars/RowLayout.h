#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <span>
#include <vector>

namespace KivUICore::Overlay {

/// What a row has to place: something of a fixed width, or one that takes what is left.
struct RowItem {
    enum class Width { Fixed, Flexible };

    /// In points; of a flexible item the least while there is something else to leave out.
    CoreGraphics::CGFloat width = 0.0;
    Width kind = Width::Fixed;

    /// Where a row gets too narrow, the highest one above 0 is left out first.
    int dispensability = 0;

    /// A flexible item that would get less than this is left out; what it would get stays free.
    CoreGraphics::CGFloat leastWidth = 0.0;
};

/// Places the items side by side into `row`, in the same order and as high as it is. What is left out gets no
/// width. A row too narrow for what nobody can do without ends beyond its right edge.
std::vector<CoreGraphics::CGRect> layOutRow(std::span<const RowItem> items, const CoreGraphics::CGRect& row);

} // namespace KivUICore::Overlay
