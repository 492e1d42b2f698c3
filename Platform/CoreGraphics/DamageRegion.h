#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <array>
#include <cstddef>
#include <span>

namespace CoreGraphics {

/// The parts of a window that must be drawn again: a handful of rectangles that don't overlap, kept few by
/// joining those that waste the least area. Never allocates.
class DamageRegion {
public:
    void add(const CGRect& rect);
    void clear() { count_ = 0; }

    /// True when one of the rectangles covers all of `rect`.
    bool contains(const CGRect& rect) const;

    bool isEmpty() const { return count_ == 0; }
    std::span<const CGRect> rects() const { return {rects_.data(), count_}; }

private:
    static constexpr std::size_t capacity = 8;

    void joinCheapestPair();
    void removeAt(std::size_t index);

    std::array<CGRect, capacity + 1> rects_{};
    std::size_t count_ = 0;
};

} // namespace CoreGraphics
