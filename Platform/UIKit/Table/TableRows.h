#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace UIKit {

/// Where a table's rows lie: one below the other, section after section, all of one height. A row's index
/// counts them through all sections. Takes room for each section and none for a row.
class TableRows {
public:
    /// In points.
    static constexpr CoreGraphics::CGFloat rowHeight = 44.0;

    struct Position {
        std::int64_t section = 0;
        std::int64_t row = 0;

        friend bool operator==(const Position&, const Position&) = default;
    };

    /// Row indexes from `first` up to, but not with, `end`.
    struct Range {
        std::int64_t first = 0;
        std::int64_t end = 0;

        bool contains(std::int64_t index) const { return index >= first && index < end; }
        friend bool operator==(const Range&, const Range&) = default;
    };

    /// A count below 0 is none. What exceeds 10^14 rows in all is cut off, so that places stay exact.
    void addSection(std::int64_t rowCount);

    std::int64_t sectionCount() const { return static_cast<std::int64_t>(ends_.size()); }

    /// Nothing for a section that isn't there.
    std::int64_t rowCount(std::int64_t section) const;

    /// Rows of all sections.
    std::int64_t count() const { return ends_.empty() ? 0 : ends_.back(); }
    CoreGraphics::CGFloat height() const { return static_cast<CoreGraphics::CGFloat>(count()) * rowHeight; }

    /// Of a row that is there.
    Position position(std::int64_t index) const;

    /// Nothing for a row that isn't there.
    std::optional<std::int64_t> index(const Position& position) const;
    std::optional<std::int64_t> indexAt(CoreGraphics::CGFloat y) const;

    /// The rows that share an area with the strip between two heights.
    Range range(CoreGraphics::CGFloat top, CoreGraphics::CGFloat bottom) const;

    static CoreGraphics::CGFloat top(std::int64_t index) {
        return static_cast<CoreGraphics::CGFloat>(index) * rowHeight;
    }

private:
    std::int64_t rowsAbove(CoreGraphics::CGFloat rows) const;

    // Of each section, the index after its last row.
    std::vector<std::int64_t> ends_;
};

} // namespace UIKit
