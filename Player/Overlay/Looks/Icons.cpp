#include "Player/Overlay/Looks/Icons.h"

#include "Platform/CoreGraphics/CGPath.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Platform/UIKit/UIImage.h"

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace KivUICore::Overlay {

using namespace CoreGraphics;

namespace {

using Icon = std::shared_ptr<UIKit::UIImage>;

constexpr CGSize iconSize{24.0, 24.0};
constexpr CGColor white{1.0, 1.0, 1.0, 1.0};
constexpr CGColor ink{0.11, 0.11, 0.12, 1.0};
constexpr CGStroke line{2.0, CGLineCap::Round, CGLineJoin::Round};
constexpr CGFloat pi = std::numbers::pi;

template <class Draw>
Icon recorded(const Draw& draw) {
    CGRecordingContext context(iconSize);
    draw(context);
    return Foundation::make<UIKit::UIImage>(context.drawing());
}

CGPath polyline(std::initializer_list<CGPoint> points) {
    CGPath path;
    for (const CGPoint& point : points) {
        path.addLine(point);
    }
    return path;
}

CGPath polygon(std::initializer_list<CGPoint> points) {
    CGPath path = polyline(points);
    path.closeSubpath();
    return path;
}

/// Corners rounded by half of the line around the shape, which makes it that much larger on every side.
void fillSoftly(CGContext& context, const CGPath& shape) {
    context.fillPath(shape, white);
    context.strokePath(shape, line, white);
}

void drawTurningArrow(CGContext& context) {
    constexpr CGPoint center{12.0, 13.0};
    constexpr CGFloat radius = 7.0;
    CGPath turn;
    turn.addArc(center, radius, -pi / 2.0, pi);
    context.strokePath(turn, line, white);
    fillSoftly(context, polygon({{11.0, 3.5}, {11.0, 8.5}, {7.5, 6.0}}));
}

void mirror(CGContext& context) { context.concatenate({-1.0, 0.0, 0.0, 1.0, iconSize.width, 0.0}); }

void drawLoudspeaker(CGContext& context) {
    fillSoftly(context,
               polygon({{3.0, 9.0}, {6.0, 9.0}, {11.0, 5.0}, {11.0, 19.0}, {6.0, 15.0}, {3.0, 15.0}}));
}

void drawSoundWaves(CGContext& context) {
    constexpr CGPoint source{12.0, 12.0};
    constexpr CGFloat spread = pi / 4.0;
    for (const CGFloat radius : {4.0, 8.0}) {
        CGPath wave;
        wave.addArc(source, radius, -spread, spread);
        context.strokePath(wave, line, white);
    }
}

/// The same corner in each quarter of the icon; `corner` is the one at the upper left.
void drawFourCorners(CGContext& context, const CGPath& corner) {
    for (const CGFloat x : {1.0, -1.0}) {
        for (const CGFloat y : {1.0, -1.0}) {
            CGPath turned = corner;
            turned.applyTransform(
                {x, 0.0, 0.0, y, x > 0.0 ? 0.0 : iconSize.width, y > 0.0 ? 0.0 : iconSize.height});
            context.strokePath(turned, line, white);
        }
    }
}

CGPath gear() {
    constexpr CGPoint center{12.0, 12.0};
    constexpr int teeth = 8;
    constexpr CGFloat tip = 9.5;
    constexpr CGFloat root = 7.0;
    constexpr CGFloat tipHalf = 0.17;
    constexpr CGFloat rootHalf = 0.24;
    constexpr CGFloat hole = 3.0;
    CGPath path;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        const CGFloat middle = tooth * 2.0 * pi / teeth;
        const CGFloat next = middle + 2.0 * pi / teeth;
        path.addArc(center, tip, middle - tipHalf, middle + tipHalf);
        path.addArc(center, root, middle + rootHalf, next - rootHalf);
    }
    path.closeSubpath();
    // The other way round, which is what makes it a hole.
    path.moveTo({center.x + hole, center.y});
    path.addArc(center, hole, 2.0 * pi, 0.0);
    path.closeSubpath();
    return path;
}

} // namespace

Icon playIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        fillSoftly(context, polygon({{9.0, 5.0}, {19.0, 12.0}, {9.0, 19.0}}));
    });
    return icon;
}

Icon pauseIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        for (const CGFloat x : {6.0, 14.0}) {
            context.fillRoundedRect(CGRectMake(x, 4.0, 4.0, 16.0), 1.0, white);
        }
    });
    return icon;
}

Icon replayIcon() {
    static const Icon icon = recorded(drawTurningArrow);
    return icon;
}

Icon retryIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        mirror(context);
        drawTurningArrow(context);
    });
    return icon;
}

Icon cancelIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        context.strokePath(polyline({{6.0, 6.0}, {18.0, 18.0}}), line, white);
        context.strokePath(polyline({{18.0, 6.0}, {6.0, 18.0}}), line, white);
    });
    return icon;
}

Icon backIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        context.strokePath(polyline({{15.0, 5.0}, {8.0, 12.0}, {15.0, 19.0}}), line, white);
    });
    return icon;
}

Icon soundIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        drawLoudspeaker(context);
        drawSoundWaves(context);
    });
    return icon;
}

Icon mutedIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        drawLoudspeaker(context);
        context.strokePath(polyline({{15.5, 9.0}, {21.5, 15.0}}), line, white);
        context.strokePath(polyline({{21.5, 9.0}, {15.5, 15.0}}), line, white);
    });
    return icon;
}

Icon enterFullScreenIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        drawFourCorners(context, polyline({{5.0, 9.0}, {5.0, 5.0}, {9.0, 5.0}}));
    });
    return icon;
}

Icon exitFullScreenIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        drawFourCorners(context, polyline({{5.0, 9.0}, {9.0, 9.0}, {9.0, 5.0}}));
    });
    return icon;
}

Icon menuIcon() {
    static const Icon icon = recorded([](CGContext& context) { context.fillPath(gear(), white); });
    return icon;
}

Icon tickIcon() {
    static const Icon icon = recorded([](CGContext& context) {
        context.strokePath(polyline({{5.0, 12.5}, {10.0, 17.5}, {19.0, 6.5}}), line, ink);
    });
    return icon;
}

Icon emptyIcon() {
    static const Icon icon = recorded([](CGContext&) {});
    return icon;
}

} // namespace KivUICore::Overlay
