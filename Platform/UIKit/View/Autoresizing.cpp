#include "Platform/UIKit/View/Autoresizing.h"

namespace UIKit {

using namespace CoreGraphics;

namespace {

struct Span {
    CGFloat start;
    CGFloat length;
};

struct Flexible {
    bool before;
    bool length;
    bool after;
};

Span autoresizedSpan(const Span& span, const Flexible& flexible, CGFloat oldTotal, CGFloat newTotal) {
    const int parts = int{flexible.before} + int{flexible.length} + int{flexible.after};
    if (parts == 0) {
        return span;
    }
    const CGFloat after = oldTotal - span.start - span.length;
    const CGFloat total = (flexible.before ? span.start : 0.0) + (flexible.length ? span.length : 0.0) +
                          (flexible.after ? after : 0.0);
    const CGFloat difference = newTotal - oldTotal;
    const auto share = [&](bool isFlexible, CGFloat distance) {
        if (!isFlexible) {
            return 0.0;
        }
        return total == 0.0 ? difference / parts : difference * (distance / total);
    };
    return {span.start + share(flexible.before, span.start),
            span.length + share(flexible.length, span.length)};
}

} // namespace

CGRect autoresizedFrame(const CGRect& frame, UIViewAutoresizing mask, const CGSize& oldSize,
                        const CGSize& newSize) {
    const auto has = [mask](UIViewAutoresizing bit) { return (mask & bit) != 0; };
    const Span x =
        autoresizedSpan({frame.origin.x, frame.size.width},
                        {has(UIViewAutoresizingFlexibleLeftMargin), has(UIViewAutoresizingFlexibleWidth),
                         has(UIViewAutoresizingFlexibleRightMargin)},
                        oldSize.width, newSize.width);
    const Span y =
        autoresizedSpan({frame.origin.y, frame.size.height},
                        {has(UIViewAutoresizingFlexibleTopMargin), has(UIViewAutoresizingFlexibleHeight),
                         has(UIViewAutoresizingFlexibleBottomMargin)},
                        oldSize.height, newSize.height);
    return {{x.start, y.start}, {x.length, y.length}};
}

} // namespace UIKit
