#include "Player/Overlay/Bars/RowLayout.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace KivUICore::Overlay {

using namespace CoreGraphics;

namespace {

CGFloat wantedWidth(std::span<const RowItem> items, const std::vector<bool>& isPlaced) {
    CGFloat width = 0.0;
    for (std::size_t index = 0; index < items.size(); ++index) {
        width += isPlaced[index] ? items[index].width : 0.0;
    }
    return width;
}

void leaveOutWhatDoesNotFit(std::span<const RowItem> items, CGFloat width, std::vector<bool>& isPlaced) {
    std::vector<std::size_t> order(items.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [items](std::size_t a, std::size_t b) {
        return items[a].dispensability > items[b].dispensability;
    });
    for (const std::size_t index : order) {
        if (items[index].dispensability <= 0 || wantedWidth(items, isPlaced) <= width) {
            return;
        }
        isPlaced[index] = false;
    }
}

} // namespace

std::vector<CGRect> layOutRow(std::span<const RowItem> items, const CGRect& row) {
    std::vector<bool> isPlaced(items.size(), true);
    leaveOutWhatDoesNotFit(items, row.size.width, isPlaced);
    const auto isFlexible = [](const RowItem& item) { return item.kind == RowItem::Width::Flexible; };
    const auto flexible = static_cast<CGFloat>(std::count_if(items.begin(), items.end(), isFlexible));
    const CGFloat spare = row.size.width - wantedWidth(items, isPlaced);
    std::vector<CGRect> frames;
    CGFloat x = row.origin.x;
    for (std::size_t index = 0; index < items.size(); ++index) {
        const CGFloat share = isFlexible(items[index]) ? spare / flexible : 0.0;
        const CGFloat width = isPlaced[index] ? std::max(0.0, items[index].width + share) : 0.0;
        const bool isTooShort = isFlexible(items[index]) && width < items[index].leastWidth;
        frames.push_back(CGRectMake(x, row.origin.y, isTooShort ? 0.0 : width, row.size.height));
        x += width;
    }
    return frames;
}

} // namespace KivUICore::Overlay
