#include "Platform/UIKit/Table/TableRows.h"

#include <algorithm>
#include <cmath>

namespace UIKit {

using namespace CoreGraphics;

namespace {

constexpr std::int64_t mostRows = 100'000'000'000'000;

} // namespace

void TableRows::addSection(std::int64_t rowCount) {
    const std::int64_t before = count();
    ends_.push_back(before + std::clamp<std::int64_t>(rowCount, 0, mostRows - before));
}

std::int64_t TableRows::rowCount(std::int64_t section) const {
    if (section < 0 || section >= sectionCount()) {
        return 0;
    }
    const auto at = static_cast<std::size_t>(section);
    return ends_[at] - (at > 0 ? ends_[at - 1] : 0);
}

TableRows::Position TableRows::position(std::int64_t index) const {
    const auto end = std::upper_bound(ends_.begin(), ends_.end(), index);
    const std::int64_t first = end == ends_.begin() ? 0 : *(end - 1);
    return {end - ends_.begin(), index - first};
}

std::optional<std::int64_t> TableRows::index(const Position& position) const {
    if (position.row < 0 || position.row >= rowCount(position.section)) {
        return std::nullopt;
    }
    const auto section = static_cast<std::size_t>(position.section);
    return (section > 0 ? ends_[section - 1] : 0) + position.row;
}

std::optional<std::int64_t> TableRows::indexAt(CGFloat y) const {
    if (!(y >= 0.0 && y < height())) {
        return std::nullopt;
    }
    return std::min(static_cast<std::int64_t>(y / rowHeight), count() - 1);
}

TableRows::Range TableRows::range(CGFloat top, CGFloat bottom) const {
    if (!(top < bottom)) {
        return {};
    }
    const Range rows{rowsAbove(std::floor(top / rowHeight)), rowsAbove(std::ceil(bottom / rowHeight))};
    return rows.first < rows.end ? rows : Range{};
}

std::int64_t TableRows::rowsAbove(CGFloat rows) const {
    return static_cast<std::int64_t>(std::clamp(rows, 0.0, static_cast<CGFloat>(count())));
}

} // namespace UIKit
