#include "Platform/CoreGraphics/DamageRegion.h"

#include <limits>

namespace CoreGraphics {

namespace {

CGFloat area(const CGRect& rect) { return CGRectGetWidth(rect) * CGRectGetHeight(rect); }

// What drawing both as one would draw in vain.
CGFloat waste(const CGRect& a, const CGRect& b) { return area(CGRectUnion(a, b)) - area(a) - area(b); }

} // namespace

void DamageRegion::add(const CGRect& rect) {
    if (CGRectIsEmpty(rect)) {
        return;
    }
    CGRect added = rect;
    // A union may reach further rectangles, so it starts over with each.
    for (std::size_t index = 0; index < count_;) {
        if (CGRectContainsRect(rects_[index], added)) {
            return;
        }
        if (CGRectIntersectsRect(rects_[index], added)) {
            added = CGRectUnion(rects_[index], added);
            removeAt(index);
            index = 0;
        } else {
            ++index;
        }
    }
    rects_[count_++] = added;
    if (count_ > capacity) {
        joinCheapestPair();
    }
}

bool DamageRegion::contains(const CGRect& rect) const {
    for (std::size_t index = 0; index < count_; ++index) {
        if (CGRectContainsRect(rects_[index], rect)) {
            return true;
        }
    }
    return false;
}

void DamageRegion::joinCheapestPair() {
    std::size_t first = 0;
    std::size_t second = 1;
    CGFloat least = std::numeric_limits<CGFloat>::infinity();
    for (std::size_t a = 0; a < count_; ++a) {
        for (std::size_t b = a + 1; b < count_; ++b) {
            const CGFloat wasted = waste(rects_[a], rects_[b]);
            if (wasted < least) {
                least = wasted;
                first = a;
                second = b;
            }
        }
    }
    const CGRect joined = CGRectUnion(rects_[first], rects_[second]);
    removeAt(second);
    removeAt(first);
    add(joined);
}

void DamageRegion::removeAt(std::size_t index) { rects_[index] = rects_[--count_]; }

} // namespace CoreGraphics
