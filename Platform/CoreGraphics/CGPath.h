#pragma once

#include "Platform/CoreGraphics/CGAffineTransform.h"

#include <array>
#include <vector>

namespace CoreGraphics {

/// An outline of lines and cubic curves, a plain value. Drawing fills it with the non-zero winding rule. A
/// path that holds anything starts with a move, and all its points are finite: an operation with a point that
/// isn't adds nothing.
class CGPath {
public:
    enum class Verb { Move, Line, Curve, Close };

    /// Points used: one for a move or a line; two controls and the end for a curve; none for a close.
    struct Element {
        Verb verb = Verb::Close;
        std::array<CGPoint, 3> points{};

        friend bool operator==(const Element&, const Element&) = default;
    };

    void moveTo(const CGPoint& point);

    /// A path that is empty begins at the point.
    void addLine(const CGPoint& point);

    /// A path that is empty begins at `control1`.
    void addCurve(const CGPoint& control1, const CGPoint& control2, const CGPoint& end);

    /// A line back to where the subpath began, which becomes the current point.
    void closeSubpath();

    /// Whole outlines, each a closed subpath of its own, clockwise where y grows downwards. An empty
    /// rectangle adds nothing.
    void addRect(const CGRect& rect);

    /// `radius` is cut to half the shorter side.
    void addRoundedRect(const CGRect& rect, CGFloat radius);
    void addEllipse(const CGRect& rect);

    /// Part of a circle from `startAngle` to `endAngle` in radians, which grow clockwise where y grows
    /// downwards; an end below the start runs the other way. What exceeds a full turn is one full turn and
    /// the rest. A line joins the arc to the current point if there is one. A negative radius adds nothing.
    void addArc(const CGPoint& center, CGFloat radius, CGFloat startAngle, CGFloat endAngle);

    /// Empties the path when a point would not be finite afterwards.
    void applyTransform(const CGAffineTransform& transform);

    bool isEmpty() const { return elements_.empty(); }
    const std::vector<Element>& elements() const { return elements_; }

    /// The smallest rectangle around all points, control points included; empty for an empty path.
    CGRect boundingBox() const;

    friend bool operator==(const CGPath&, const CGPath&) = default;

private:
    std::vector<Element> elements_;
};

} // namespace CoreGraphics
