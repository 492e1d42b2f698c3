#include "Platform/UIKit/Input/FocusOrder.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;

namespace {

// How many times as far something seems that lies aside.
constexpr CGFloat weightAside = 2.0;

/// A rectangle as somebody sees it who looks to one side: `ahead` from nearer to farther, `aside` across.
struct Sight {
    std::pair<CGFloat, CGFloat> ahead;
    std::pair<CGFloat, CGFloat> aside;
};

Sight sightOf(const CGRect& rect, UIFocusHeading heading) {
    const std::pair<CGFloat, CGFloat> x{CGRectGetMinX(rect), CGRectGetMaxX(rect)};
    const std::pair<CGFloat, CGFloat> y{CGRectGetMinY(rect), CGRectGetMaxY(rect)};
    switch (heading) {
    case UIFocusHeading::Up:
        return {{-y.second, -y.first}, x};
    case UIFocusHeading::Down:
        return {y, x};
    case UIFocusHeading::Left:
        return {{-x.second, -x.first}, y};
    case UIFocusHeading::Right:
        break;
    }
    return {x, y};
}

CGFloat middle(const std::pair<CGFloat, CGFloat>& range) { return (range.first + range.second) / 2.0; }

CGFloat gapBetween(const std::pair<CGFloat, CGFloat>& a, const std::pair<CGFloat, CGFloat>& b) {
    return std::max({a.first - b.second, b.first - a.second, 0.0});
}

/// Less is nearer; the second decides between equals.
std::pair<CGFloat, CGFloat> distance(const Sight& from, const Sight& to) {
    return {gapBetween(from.ahead, to.ahead) + weightAside * gapBetween(from.aside, to.aside),
            std::abs(middle(from.aside) - middle(to.aside))};
}

} // namespace

std::vector<std::size_t> readingOrder(const std::vector<CGRect>& frames) {
    std::vector<std::size_t> order(frames.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&frames](std::size_t a, std::size_t b) {
        return CGRectGetMinY(frames[a]) < CGRectGetMinY(frames[b]);
    });
    for (auto row = order.begin(); row != order.end();) {
        const CGFloat bottom = CGRectGetMaxY(frames[*row]);
        const auto end = std::stable_partition(row + 1, order.end(), [&frames, bottom](std::size_t each) {
            return CGRectGetMidY(frames[each]) < bottom;
        });
        std::stable_sort(row, end, [&frames](std::size_t a, std::size_t b) {
            return CGRectGetMinX(frames[a]) < CGRectGetMinX(frames[b]);
        });
        row = end;
    }
    return order;
}

std::optional<std::size_t> nearestFrame(const CGRect& from, const std::vector<CGRect>& frames,
                                        UIFocusHeading heading) {
    const Sight start = sightOf(from, heading);
    std::optional<std::size_t> nearest;
    std::pair<CGFloat, CGFloat> least;
    for (std::size_t place : readingOrder(frames)) {
        const Sight sight = sightOf(frames[place], heading);
        const std::pair<CGFloat, CGFloat> way = distance(start, sight);
        if (middle(sight.ahead) > start.ahead.second && (!nearest || way < least)) {
            nearest = place;
            least = way;
        }
    }
    return nearest;
}

} // namespace UIKit
