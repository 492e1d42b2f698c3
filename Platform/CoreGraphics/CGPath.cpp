#include "Platform/CoreGraphics/CGPath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace CoreGraphics {

namespace {

constexpr CGFloat quarterTurn = std::numbers::pi / 2.0;
constexpr CGFloat fullTurn = 2.0 * std::numbers::pi;

/// How far the controls of a curve lie from its ends, in radii, for a quarter of a circle: 4/3 · tan(π/8).
/// The curve is nowhere further than 0.03 % of the radius from the circle.
constexpr CGFloat quarterControl = 0.5522847498307936;

bool isFinite(const CGPoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool isDrawable(const CGRect& rect) {
    return !CGRectIsEmpty(rect) && isFinite({CGRectGetMaxX(rect), CGRectGetMaxY(rect)});
}

std::size_t pointCount(CGPath::Verb verb) {
    switch (verb) {
    case CGPath::Verb::Move:
    case CGPath::Verb::Line:
        return 1;
    case CGPath::Verb::Curve:
        return 3;
    case CGPath::Verb::Close:
        break;
    }
    return 0;
}

/// Adds the quarter of an ellipse from `start` to `end`, both of whose tangents pass through `corner`.
void addQuarter(CGPath& path, const CGPoint& start, const CGPoint& corner, const CGPoint& end) {
    const auto towardsCorner = [&corner](const CGPoint& point) {
        return CGPointMake(point.x + (corner.x - point.x) * quarterControl,
                           point.y + (corner.y - point.y) * quarterControl);
    };
    path.addCurve(towardsCorner(start), towardsCorner(end), end);
}

/// Adds an outline whose corners are quarters of ellipses with these radii.
void addRoundedOutline(CGPath& path, const CGRect& rect, const CGSize& radius) {
    const CGFloat left = CGRectGetMinX(rect);
    const CGFloat top = CGRectGetMinY(rect);
    const CGFloat right = CGRectGetMaxX(rect);
    const CGFloat bottom = CGRectGetMaxY(rect);
    const bool hasHorizontalSides = 2.0 * radius.width < CGRectGetWidth(rect);
    const bool hasVerticalSides = 2.0 * radius.height < CGRectGetHeight(rect);

    path.moveTo({right - radius.width, top});
    addQuarter(path, {right - radius.width, top}, {right, top}, {right, top + radius.height});
    if (hasVerticalSides)
        path.addLine({right, bottom - radius.height});
    addQuarter(path, {right, bottom - radius.height}, {right, bottom}, {right - radius.width, bottom});
    if (hasHorizontalSides)
        path.addLine({left + radius.width, bottom});
    addQuarter(path, {left + radius.width, bottom}, {left, bottom}, {left, bottom - radius.height});
    if (hasVerticalSides)
        path.addLine({left, top + radius.height});
    addQuarter(path, {left, top + radius.height}, {left, top}, {left + radius.width, top});
    path.closeSubpath();
}

} // namespace

void CGPath::moveTo(const CGPoint& point) {
    if (isFinite(point))
        elements_.push_back({Verb::Move, {point}});
}

void CGPath::addLine(const CGPoint& point) {
    if (isFinite(point))
        elements_.push_back({isEmpty() ? Verb::Move : Verb::Line, {point}});
}

void CGPath::addCurve(const CGPoint& control1, const CGPoint& control2, const CGPoint& end) {
    if (!isFinite(control1) || !isFinite(control2) || !isFinite(end))
        return;
    if (isEmpty())
        moveTo(control1);
    elements_.push_back({Verb::Curve, {control1, control2, end}});
}

void CGPath::closeSubpath() {
    if (!isEmpty() && elements_.back().verb != Verb::Close)
        elements_.push_back({Verb::Close, {}});
}

void CGPath::addRect(const CGRect& rect) {
    if (!isDrawable(rect))
        return;
    moveTo({CGRectGetMinX(rect), CGRectGetMinY(rect)});
    addLine({CGRectGetMaxX(rect), CGRectGetMinY(rect)});
    addLine({CGRectGetMaxX(rect), CGRectGetMaxY(rect)});
    addLine({CGRectGetMinX(rect), CGRectGetMaxY(rect)});
    closeSubpath();
}

void CGPath::addRoundedRect(const CGRect& rect, CGFloat radius) {
    if (!(radius > 0.0)) {
        addRect(rect);
        return;
    }
    if (!isDrawable(rect))
        return;
    const CGFloat cut = std::min({radius, CGRectGetWidth(rect) / 2.0, CGRectGetHeight(rect) / 2.0});
    addRoundedOutline(*this, rect, {cut, cut});
}

void CGPath::addEllipse(const CGRect& rect) {
    if (isDrawable(rect))
        addRoundedOutline(*this, rect, {CGRectGetWidth(rect) / 2.0, CGRectGetHeight(rect) / 2.0});
}

void CGPath::addArc(const CGPoint& center, CGFloat radius, CGFloat startAngle, CGFloat endAngle) {
    CGFloat sweep = endAngle - startAngle;
    if (!isFinite(center) || !(radius >= 0.0) || !std::isfinite(radius) || !std::isfinite(sweep))
        return;
    if (std::abs(sweep) > fullTurn)
        sweep = std::copysign(fullTurn, sweep) + std::fmod(sweep, fullTurn);

    const CGFloat start = std::fmod(startAngle, fullTurn);
    const auto pieces = static_cast<int>(std::ceil(std::abs(sweep) / quarterTurn));
    const CGFloat step = pieces > 0 ? sweep / pieces : 0.0;
    const CGFloat control = radius * 4.0 / 3.0 * std::tan(step / 4.0);

    CGPoint direction{std::cos(start), std::sin(start)};
    CGPoint point{center.x + radius * direction.x, center.y + radius * direction.y};
    addLine(point);
    for (int piece = 1; piece <= pieces; ++piece) {
        const CGFloat angle = start + piece * step;
        const CGPoint nextDirection{std::cos(angle), std::sin(angle)};
        const CGPoint next{center.x + radius * nextDirection.x, center.y + radius * nextDirection.y};
        addCurve({point.x - control * direction.y, point.y + control * direction.x},
                 {next.x + control * nextDirection.y, next.y - control * nextDirection.x}, next);
        direction = nextDirection;
        point = next;
    }
}

void CGPath::applyTransform(const CGAffineTransform& transform) {
    for (Element& element : elements_) {
        const std::size_t count = pointCount(element.verb);
        for (std::size_t index = 0; index < count; ++index) {
            element.points[index] = CGPointApplyAffineTransform(element.points[index], transform);
            if (!isFinite(element.points[index])) {
                elements_.clear();
                return;
            }
        }
    }
}

CGRect CGPath::boundingBox() const {
    if (isEmpty())
        return {};
    CGPoint least = elements_.front().points.front();
    CGPoint greatest = least;
    for (const Element& element : elements_) {
        const std::size_t count = pointCount(element.verb);
        for (std::size_t index = 0; index < count; ++index) {
            const CGPoint& point = element.points[index];
            least = {std::min(least.x, point.x), std::min(least.y, point.y)};
            greatest = {std::max(greatest.x, point.x), std::max(greatest.y, point.y)};
        }
    }
    return CGRectMake(least.x, least.y, greatest.x - least.x, greatest.y - least.y);
}

} // namespace CoreGraphics
