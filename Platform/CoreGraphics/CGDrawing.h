#pragma once

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/CoreGraphics/CGPath.h"

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace CoreGraphics {

/// A recorded sequence of drawing operations with a size, immutable: a picture that is crisp at every scale.
/// Two are equal when they hold the same operations over the same images and pattern cells.
class CGDrawing {
public:
    struct SaveState {
        friend bool operator==(const SaveState&, const SaveState&) = default;
    };
    struct RestoreState {
        friend bool operator==(const RestoreState&, const RestoreState&) = default;
    };
    struct Concatenate {
        CGAffineTransform transform;
        friend bool operator==(const Concatenate&, const Concatenate&) = default;
    };
    struct ClipToRect {
        CGRect rect;
        friend bool operator==(const ClipToRect&, const ClipToRect&) = default;
    };
    struct ClipToPath {
        CGPath path;
        friend bool operator==(const ClipToPath&, const ClipToPath&) = default;
    };
    struct ClearRect {
        CGRect rect;
        friend bool operator==(const ClearRect&, const ClearRect&) = default;
    };
    struct FillRect {
        CGRect rect;
        CGColor color;
        friend bool operator==(const FillRect&, const FillRect&) = default;
    };
    struct FillRoundedRect {
        CGRect rect;
        CGFloat radius = 0.0;
        CGColor color;
        friend bool operator==(const FillRoundedRect&, const FillRoundedRect&) = default;
    };
    struct FillPath {
        CGPath path;
        CGColor color;
        friend bool operator==(const FillPath&, const FillPath&) = default;
    };
    struct StrokePath {
        CGPath path;
        CGStroke stroke;
        CGColor color;
        friend bool operator==(const StrokePath&, const StrokePath&) = default;
    };
    struct DrawImage {
        std::shared_ptr<const CGImage> image;
        CGRect rect;
        friend bool operator==(const DrawImage&, const DrawImage&) = default;
    };
    struct FillPattern {
        std::shared_ptr<const CGDrawing> cell;
        CGRect rect;
        friend bool operator==(const FillPattern&, const FillPattern&) = default;
    };
    struct DrawText {
        std::string text;
        CGTextStyle style;
        CGRect rect;
        friend bool operator==(const DrawText&, const DrawText&) = default;
    };
    struct BeginGroup {
        CGFloat alpha = 1.0;
        CGRect bounds;
        friend bool operator==(const BeginGroup&, const BeginGroup&) = default;
    };
    struct EndGroup {
        friend bool operator==(const EndGroup&, const EndGroup&) = default;
    };

    using Operation = std::variant<SaveState, RestoreState, Concatenate, ClipToRect, ClipToPath, ClearRect,
                                   FillRect, FillRoundedRect, FillPath, StrokePath, DrawImage, FillPattern,
                                   DrawText, BeginGroup, EndGroup>;

    /// Keeps the operations balanced: what is open at the end is closed, the innermost first, and a restore
    /// or an end of a group that doesn't match what was opened last is left out.
    CGDrawing(const CGSize& size, std::vector<Operation> operations);

    /// In points.
    const CGSize& size() const { return size_; }
    const std::vector<Operation>& operations() const { return operations_; }

    /// Repeats the operations in their own coordinates.
    void replay(CGContext& context) const;

    /// Scales the drawing into the rectangle, clipped to it, and leaves the context's state as it was. A
    /// drawing or rectangle that is empty or not finite draws nothing.
    void draw(CGContext& context, const CGRect& rect) const;

    friend bool operator==(const CGDrawing&, const CGDrawing&) = default;

private:
    CGSize size_;
    std::vector<Operation> operations_;
};

} // namespace CoreGraphics
